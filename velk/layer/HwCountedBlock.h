#pragma once

#include <utility>

#include "velk/layer/RecordText.h"

namespace Velk {

/// A count and a list of values. The count says how many are in use; it may claim more than the list holds.
template <class Count, class Value, std::size_t N>
struct VELK_RECORD CountedRecord {
  HwSDatablockHeader header;
  Count count;
  Value values[N];

  bool operator==(const CountedRecord&) const = default;
};

template <class Record, int scale, UnitName unit>
inline constexpr FieldInfo countedFields[] = {
    VELK_FIELD(Record, count),
    VELK_FIELD(Record, values).in(unit.name, scale).counted("count"),
};

/// Completes the traits of a list class from its record, and with the unit of its values times `scale`, which is how
/// its text presents them.
template <class Record, UnitName unit, int scale = 1>
constexpr RecordTraits listTraits(RecordTraits traits) {
  static_assert(scale == 1 || std::is_same_v<std::remove_extent_t<decltype(Record::values)>, unsigned int>);
  traits.size = sizeof(Record);
  traits.fields = countedFields<Record, scale, unit>;
  return traits;
}
template <class Record, int scale = 1>
constexpr RecordTraits listTraits(RecordTraits traits) {
  return listTraits<Record, "", scale>(traits);
}

/// A block that is a count and a list of values. Derived classes name the accessors; their traits hold the text form.
template <class Record>
class VELK_EXPORT HwCountedBlock : public HwTypedRecordBlock<Record> {
 public:
  std::ostream& printToStream(std::ostream& os) override {
    return detail::printList(os, this->bytes(), this->recordTraits());
  }

 protected:
  using Count = decltype(Record::count);
  using Value = std::remove_extent_t<decltype(Record::values)>;

  using HwTypedRecordBlock<Record>::HwTypedRecordBlock;

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
  double presented(std::int64_t index) const {
    return detail::presentedValue(this->bytes(), this->recordTraits().fields[1], this->recordTraits().text, index);
  }
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
