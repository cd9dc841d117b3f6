#pragma once

#include <string>

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// A number of steps in use and a table with a row for each step.
template <class Value, std::size_t R, std::size_t C>
struct VELK_RECORD GridRecord {
  HwSDatablockHeader header;
  unsigned int count;
  Value cells[R][C];

  bool operator==(const GridRecord&) const = default;
};

template <class Record, Literal unit>
inline constexpr FieldInfo gridFields[] = {VELK_FIELD(Record, count),
                                           VELK_FIELD(Record, cells).in(unit.text).counted("count")};

/// How the lines of a table are written. Its COUNT line has the number of steps and the name of the companion list of
/// frequencies: the block's own name with another word in it.
struct GridForm {
  const char* countJoint = " * ";               ///< between the number and the name
  const char* countWord = "";                   ///< the word of the block's own name
  std::array<const char*, 2> columnComments{};  ///< lines between the COUNT line and the rows
  unsigned char firstRow = 1;                   ///< number of the first row
};

/// What sets one table apart from the others.
struct GridTraits : RecordTraits {
  GridForm form{};

  constexpr const FieldInfo& count() const { return fields[0]; }
  constexpr const FieldInfo& cells() const { return fields[1]; }
};

namespace detail {

class TextWriter;

/// Writes the whole text of a table: a line a step with all its columns.
VELK_EXPORT std::ostream& printGrid(std::ostream& os, ConstBytes block, const GridTraits& traits);

/// Writes the COUNT line of a table: its steps, and by name the count of its companion list of frequencies. The name is
/// `key` with "FREQ" in place of `word`.
void printStepCount(TextWriter& text, unsigned steps, std::string key, std::string_view word,
                    const char* joint = GridForm().countJoint);

}  // namespace detail

/// A block that is a number of steps and a table of all its columns for each.
template <class Record>
class VELK_EXPORT HwGridBlock : public HwTypedRecordBlock<Record, GridTraits> {
 public:
  std::ostream& printToStream(std::ostream& os) override {
    return detail::printGrid(os, this->bytes(), this->ownTraits());
  }

 protected:
  using Value = std::remove_all_extents_t<decltype(Record::cells)>;

  using HwTypedRecordBlock<Record, GridTraits>::HwTypedRecordBlock;

  /// Completes the traits of a class by its record, and by the unit of its cells.
  template <Literal unit = "">
  static constexpr GridTraits gridTraits(const RecordTraits& traits, const GridForm& form) {
    GridTraits grid{HwGridBlock::recordTraits(traits), form};
    grid.fields = gridFields<Record, unit>;
    return grid;
  }

  unsigned int count() const { return this->get(&Record::count); }
  void setGridCount(unsigned int count) { this->set(&Record::count, count); }
  Value cell(std::int64_t row, std::int64_t column) const { return this->get(&Record::cells, row, column); }
  void setCell(Value value, std::int64_t row, std::int64_t column) { this->set(&Record::cells, value, row, column); }
};

}  // namespace Velk
