#pragma once

#include "velk/layer/RecordText.h"

namespace Velk {

/// A number of steps in use and a table with a row for each step.
template <class Value, std::size_t R, std::size_t C>
struct VELK_RECORD GridRecord {
  HwSDatablockHeader header;
  unsigned int count;
  Value cells[R][C];

  bool operator==(const GridRecord&) const = default;
};

template <class Record, UnitName unit>
inline constexpr FieldInfo gridFields[] = {VELK_FIELD(Record, count),
                                           VELK_FIELD(Record, cells).in(unit.name).counted("count")};

/// Completes the traits of a table class from its record, and with the unit of its cells.
template <class Record, UnitName unit = "">
constexpr RecordTraits gridTraits(RecordTraits traits) {
  traits.size = sizeof(Record);
  traits.fields = gridFields<Record, unit>;
  return traits;
}

/// A block with a number of steps and a table that has a row of all columns for each. Its COUNT line names the
/// companion list of frequencies: the block's own name with one word replaced.
template <class Record>
class VELK_EXPORT HwGridBlock : public HwTypedRecordBlock<Record> {
 public:
  std::ostream& printToStream(std::ostream& os) override {
    return detail::printGrid(os, this->bytes(), this->recordTraits());
  }

 protected:
  using Value = std::remove_all_extents_t<decltype(Record::cells)>;

  using HwTypedRecordBlock<Record>::HwTypedRecordBlock;

  unsigned int count() const { return this->get(&Record::count); }
  void setGridCount(unsigned int count) { this->set(&Record::count, count); }
  Value cell(std::int64_t row, std::int64_t column) const { return this->get(&Record::cells, row, column); }
  void setCell(Value value, std::int64_t row, std::int64_t column) { this->set(&Record::cells, value, row, column); }
};

}  // namespace Velk
