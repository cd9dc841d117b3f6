// The page of the first table's stored values.
#include <algorithm>
#include <ios>
#include <ostream>
#include <string_view>

#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/edition2/PageLines.h"
#include "velk/edition2/StoredType.h"
#include "velk/fields/FieldValue.h"
#include "velk/text/TextWriter.h"

namespace Velk {
namespace {

using detail::TextWriter;

constexpr std::string_view afterValue = "    ";
constexpr std::string_view columnGap = "         ";

int printedDecimals(ETypeId type) {
  // FIX32D4 has always been printed with one decimal.
  return type == TYPE_ID_FIX32D4 ? 1 : static_cast<int>(detail::fixedPointDecimals(type));
}

double fixedPoint(int stored, ETypeId type) {
  return presentedValue<Rounding::Product>({.factor = detail::fixedPointUnit(type)}, static_cast<double>(stored));
}

/// Writes one stored value in the form of its type and the blanks after it; nothing where a type has no form.
void appendValue(TextWriter& text, ConstBytes value, ETypeId type) {
  using enum detail::StoredForm;
  detail::withStoredType(type, [&]<class Stored>(Stored) {
    using Value = typename Stored::Value;
    if constexpr (Stored::form == Nothing || Stored::form == String) {
      return;
    } else if constexpr (Stored::form == FixedPoint) {
      text.fixed(fixedPoint(detail::load<Value>(value, 0), type), printedDecimals(type));
    } else if constexpr (Stored::form == Characters) {
      text.text(detail::textAt(value, 0, value.size()));
    } else if constexpr (Stored::form == Extended) {
      text.general(detail::loadExtended(value, 0));
    } else if constexpr (std::is_floating_point_v<Value>) {
      text.general(detail::load<Value>(value, 0));
    } else {
      text.number(detail::load<Value>(value, 0));
    }
    text.text(afterValue);
  });
}

/// Prints consecutive stored values up to the end of the block.
class ValueCursor {
 public:
  ValueCursor(ConstBytes block, std::size_t position) : block_(block), position_(position) {}

  /// Returns false, now and for all later values, if the block lacks the value.
  bool print(TextWriter& text, ETypeId type) {
    const std::size_t size = HwDatablock2Edition::size_in_byte(type);
    if (!detail::fits(block_.size(), position_, size)) {
      position_ = block_.size() + 1;  // later values would appear in the wrong column
      return false;
    }
    appendValue(text, block_.subspan(position_, size), type);
    position_ += size;
    return true;
  }
  /// How many times `size` bytes begin before the block's end.
  std::size_t countOf(std::size_t size) const {
    return position_ < block_.size() ? (block_.size() - position_ + size - 1) / size : 0;
  }

 private:
  ConstBytes block_;
  std::size_t position_;
};

/// The first table as the detail page walks it: its lists back to back, each value of its type's size.
class DetailTable {
 public:
  DetailTable(HwDatablock2Edition& block, ConstBytes bytes, std::size_t typesOffset);

  void print(TextWriter& text) const;

 private:
  void printColumnNumbers(TextWriter& text) const;
  void printColumnIds(TextWriter& text) const;
  void printTypes(TextWriter& text) const;
  void printRows(TextWriter& text) const;
  std::size_t rowsThere(const ValueCursor& ids, const ValueCursor& cells, std::size_t rowSize) const;

  ConstBytes bytes_;
  std::size_t rows_;
  ETypeId rowIdType_;
  ETypeId columnIdType_;
  ConstBytes types_;  ///< of the columns whose types are there
  std::size_t rowIds_;
  std::size_t columnIds_;
  std::size_t data_;
};

DetailTable::DetailTable(HwDatablock2Edition& block, ConstBytes bytes, std::size_t typesOffset)
    : bytes_(bytes),
      rows_(block.getNumberOfRows(0)),
      rowIdType_(block.getRowIdType()),
      columnIdType_(block.getColumnIdType()) {
  const std::size_t columns = block.getNumberOfColumns(0);
  const std::size_t alignment = block.getAlignment() == 0 ? 4 : 1;
  const auto aligned = [alignment](std::size_t offset) { return (offset + alignment - 1) / alignment * alignment; };
  if (typesOffset < bytes.size()) types_ = bytes.subspan(typesOffset, std::min(columns, bytes.size() - typesOffset));
  rowIds_ = aligned(typesOffset + columns);
  columnIds_ = aligned(rowIds_ + rows_ * block.getSizeOfRowIdType());
  data_ = aligned(columnIds_ + columns * block.getSizeOfColumnIdType());
}

void DetailTable::print(TextWriter& text) const {
  printColumnNumbers(text);
  printColumnIds(text);
  printTypes(text);
  text.line(detail::pageRule);
  text.endLine();
  printRows(text);
}

void DetailTable::printColumnNumbers(TextWriter& text) const {
  if (types_.empty()) return;
  text.text("# COL         1");
  for (std::size_t column = 2; column <= types_.size(); ++column) text.text(columnGap).number(column);
  text.endLine();
}

void DetailTable::printColumnIds(TextWriter& text) const {
  if (columnIdType_ == TYPE_ID_NONE) return;
  text.text("DESC:         ");
  ValueCursor ids(bytes_, columnIds_);
  for (std::size_t column = 0; column < types_.size(); ++column) ids.print(text, columnIdType_);
  text.endLine();
}

void DetailTable::printTypes(TextWriter& text) const {
  text.text("TYPE: ");
  for (const unsigned char type : types_) text.text(columnGap).text(detail::typeRow(type).typeName);
  text.endLine();
}

void DetailTable::printRows(TextWriter& text) const {
  // Columns without bytes show nothing, and a block may claim tens of thousands of them in each of as many rows.
  std::vector<ETypeId> shown;
  std::size_t rowSize = 0;
  for (const unsigned char type : types_) {
    const std::size_t size = HwDatablock2Edition::size_in_byte(ETypeId{type});
    if (size != 0) shown.push_back(ETypeId{type});
    rowSize += size;
  }
  ValueCursor ids(bytes_, rowIds_);
  ValueCursor cells(bytes_, data_);
  const std::size_t rows = rowsThere(ids, cells, rowSize);
  for (std::size_t row = 1; row <= rows && text.ok(); ++row) {
    text.number(row).text(": ");
    ids.print(text, rowIdType_);
    for (auto type = shown.begin(); type != shown.end() && cells.print(text, *type);) ++type;
    text.endLine();
  }
}

/// The rows that have an id or a cell before the block's end. Strings show nothing, but each has a byte at least.
std::size_t DetailTable::rowsThere(const ValueCursor& ids, const ValueCursor& cells, std::size_t rowSize) const {
  const bool idsOnly = types_.empty();
  const std::size_t idSize = idsOnly ? detail::typeSize(rowIdType_) : HwDatablock2Edition::size_in_byte(rowIdType_);
  const std::size_t withId = idSize == 0 ? 0 : ids.countOf(idSize);
  const std::size_t withCell = idsOnly ? 0 : cells.countOf(std::max<std::size_t>(rowSize, 1));
  return std::min(rows_, std::max(withId, withCell));
}

}  // namespace

unsigned char* HwDatablock2Edition::printDataTypeToStream(std::ostream& os, unsigned char* value, ETypeId type) {
  const unsigned int size = size_in_byte(type);
  TextWriter text(os);
  appendValue(text, {value, size}, type);
  text.handOn();
  if (detail::isFixedPoint(type)) {
    os.setf(std::ios_base::fixed, std::ios_base::floatfield);
    os.precision(printedDecimals(type));
  }
  return value + size;
}

std::ostream& HwDatablock2Edition::printDebugPageDetail(std::ostream& os, HwSDataBlockCfg /*cfg*/) {
  TextWriter text(os);
  text.line(detail::pageStart);
  text.endLine();
  text.text("# SECTOR:              ").number(getEepromSector()).endLine();
  text.text("# DATABLOCKADDRESS:  0x").hex(getEepromAddress()).endLine();
  text.endLine();
  text.endLine();
  text.key("BLOCK ID:", detail::pageLabelWidth).text("USER_").number(getId()).endLine();
  text.key("UPDATE INDEX:", detail::pageLabelWidth).general(getUpdateIndex()).endLine();
  text.key("ROWS:", detail::pageLabelWidth).number(getNumberOfRows(0)).endLine();
  text.key("COLUMNS:", detail::pageLabelWidth).number(getNumberOfColumns(0)).endLine();
  text.key("ROW_ID_TYPE:", detail::pageLabelWidth).text(getTypeString(getRowIdType())).endLine();
  text.key("COLUMN_ID_TYPE:", detail::pageLabelWidth).text(getTypeString(getColumnIdType())).endLine();
  text.line(detail::pageRule);
  text.endLine();
  DetailTable(*this, bytes(), firstColumnType()).print(text);
  os.setf(std::ios_base::dec, std::ios_base::basefield);
  return os;
}

}  // namespace Velk
