#pragma once

#include <utility>

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// A count and a list of values. The count says how many are in use; it may claim more than the list holds.
template <class Count, class Value, std::size_t N>
struct VELK_RECORD CountedRecord {
  HwSDatablockHeader header;
  Count count;
  Value values[N];

  bool operator==(const CountedRecord&) const = default;
};

template <class Record, int scale, Literal unit, Literal countKey>
inline constexpr FieldInfo countedFields[] = {
    VELK_FIELD(Record, count).keyed(countKey.text),
    VELK_FIELD(Record, values).in(unit.text, scale).counted("count"),
};

/// How the lines of a list are written.
struct ListForm {
  unsigned char countWidth = 17;  ///< columns of the count's key; 0: no such line
  const char* rowKey = "";        ///< before the number of a value
  const char* separator = detail::rowSeparator;
  signed char decimals = -1;  ///< of a value; -1: integers in decimal, others in general notation
  double twinStep = 0;        ///< added to a scaled value that is stored like the one before it
};

/// What sets one list apart from the others.
struct ListTraits : RecordTraits {
  ListForm form{};

  constexpr const FieldInfo& count() const { return fields[0]; }
  constexpr const FieldInfo& values() const { return fields[1]; }
};

namespace detail {

/// Writes the whole text of a list: a line a value, as many as the count says. Values past the capacity are 0.
VELK_EXPORT std::ostream& printList(std::ostream& os, ConstBytes block, const ListTraits& traits);

/// Returns a value of a list as its text presents it: scaled, and raised by the twin step if the value before it is
/// stored alike. Returns 0 past the capacity.
VELK_EXPORT double presentedValue(ConstBytes block, const ListTraits& traits, std::int64_t index);

}  // namespace detail

/// A block that is a count and a list of values. Derived classes name the accessors; their traits hold the text form.
template <class Record>
class VELK_EXPORT HwCountedBlock : public HwTypedRecordBlock<Record, ListTraits> {
 public:
  std::ostream& printToStream(std::ostream& os) override {
    return detail::printList(os, this->bytes(), this->ownTraits());
  }

 protected:
  using Count = decltype(Record::count);
  using Value = std::remove_extent_t<decltype(Record::values)>;

  using HwTypedRecordBlock<Record, ListTraits>::HwTypedRecordBlock;

  /// Completes the traits of a class by its record, by the unit of its values times `scale`, which is how its text
  /// presents them, and by what its text calls the count.
  template <Literal unit = "", int scale = 1, Literal countKey = "COUNT">
  static constexpr ListTraits listTraits(const RecordTraits& traits, const ListForm& form = {}) {
    static_assert(scale == 1 || std::is_same_v<Value, unsigned int>);
    ListTraits list{HwCountedBlock::recordTraits(traits), form};
    list.fields = countedFields<Record, scale, unit, countKey>;
    return list;
  }

  Count count() const { return this->get(&Record::count); }
  void setListCount(Count count) { this->set(&Record::count, count); }
  /// Sets the count; ignores one of more values than the list has room for.
  void setCountThatFits(Count count) {
    if (std::cmp_less_equal(count, std::extent_v<decltype(Record::values)>)) setListCount(count);
  }
  Value value(std::int64_t index) const { return this->get(&Record::values, index); }
  void setValue(Value value, std::int64_t index) { this->set(&Record::values, value, index); }
  /// Updates the checksum if `withChecksum` is set; a caller may do so once after a series of values.
  void setValue(Value value, std::int64_t index, bool withChecksum) {
    this->set(&Record::values, value, index, withChecksum);
  }
  /// Returns the value as the text presents it.
  double presented(std::int64_t index) const { return detail::presentedValue(this->bytes(), this->ownTraits(), index); }
};

/// The accessors of a list of frequencies whose text presents two equal neighbours a step apart.
template <class List>
class VELK_EXPORT HwSpreadFrequencyList : public List {
 public:
  unsigned int getNumberOfFrequency() const { return this->count(); }
  void setNumberOfFrequency(unsigned int n) { this->setListCount(n); }
  /// Returns the presented value; 0 past the capacity.
  double getFrequencyValue(unsigned int index) const { return this->presented(index); }

 protected:
  using List::List;
};

}  // namespace Velk
