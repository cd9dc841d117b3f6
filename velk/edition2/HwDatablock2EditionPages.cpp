// The pages of a second-edition block that service looks at.
#include <algorithm>
#include <ios>
#include <ostream>
#include <string_view>

#include "velk/edition2/CommonDatablockAccess.h"
#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/edition2/RowIdTexts.h"
#include "velk/edition2/StoredTable.h"
#include "velk/edition2/StoredType.h"
#include "velk/fields/FieldValue.h"
#include "velk/text/TextWriter.h"

namespace Velk {
namespace {

using detail::TextWriter;

constexpr std::string_view afterValue = "    ";
constexpr std::string_view columnGap = "         ";
constexpr std::string_view pageStart = "############# NEW CONCEPT  #####################################";
constexpr std::string_view rule = "#=======================================================================";

/// Columns of a line's label and of its value, in the lines before a table and in the table.
constexpr std::size_t labelWidth = 20;
constexpr std::size_t valueWidth = 15;
constexpr std::size_t rowLabelWidth = 7;

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
  text.line(rule);
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

void printLabelled(TextWriter& text, std::string_view label, std::string_view value) {
  text.key(label, labelWidth).field(value, valueWidth).endLine();
}

/// A table of the complete page as the texts that it shows.
struct TableTexts {
  TableTexts(const CommonDatablockAccess& access, unsigned int number);
  /// Of a table without columns.
  explicit TableTexts(std::vector<std::string> ids) : rowIds(std::move(ids)) {}

  std::size_t width() const;

  std::vector<std::string> columnIds;
  std::vector<std::string> types;
  std::vector<std::string> rowIds;
  std::vector<std::vector<std::string>> columns;
};

TableTexts::TableTexts(const CommonDatablockAccess& access, unsigned int number) {
  const CommonSubDatablock& table = access.tables()[number];
  access.getDataInStringVector(columnIds, COLUMN_TYPE, table.columnIdType, 0, number);
  access.getDataTypeList(types, number);
  access.getDataInStringVector(rowIds, ROW_TYPE, table.rowIdType, 0, number);
  columns.resize(table.columns);
  for (unsigned int column = 0; column < table.columns; ++column) {
    access.getDataInStringVector(columns[column], DATA_TYPE, table.columnTypes[column], column, number);
  }
}

std::size_t TableTexts::width() const {
  std::size_t longest = 0;
  const auto measure = [&longest](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) longest = std::max(longest, text.size());
  };
  for (const auto* texts : {&columnIds, &types, &rowIds}) measure(*texts);
  for (const auto& column : columns) measure(column);
  return longest + 2;
}

void printTableLine(TextWriter& text, std::string_view label, const std::vector<std::string>& texts,
                    std::size_t width) {
  text.field(label, rowLabelWidth);
  for (const std::string& cell : texts) {
    if (!text.ok()) return;
    text.field(cell, width);
  }
  text.endLine();
}

/// The text at `index`, or none where there are fewer.
std::string_view textAt(const std::vector<std::string>& texts, std::size_t index) {
  return index < texts.size() ? std::string_view(texts[index]) : std::string_view();
}

void printRow(TextWriter& text, const TableTexts& table, std::size_t row, std::size_t width) {
  const std::string_view label = textAt(table.rowIds, row);
  // A label that fills its field keeps a blank before the first cell.
  text.field(label, std::max(rowLabelWidth, label.size() + 1));
  for (const auto& column : table.columns) {
    if (!text.ok()) return;
    text.field(textAt(column, row), width);
  }
  text.endLine();
}

/// `idsOnly` are the row ids of a table without columns, as many as there are.
void printTable(TextWriter& text, const CommonDatablockAccess& access, unsigned int number,
                std::vector<std::string> idsOnly) {
  const CommonSubDatablock& table = access.tables()[number];
  printLabelled(text, "ROWS:", std::to_string(table.rows));
  printLabelled(text, "COLUMNS:", std::to_string(table.columns));
  printLabelled(text, "ROW_ID_TYPE:", detail::typeRow(table.rowIdType).typeName);
  printLabelled(text, "COLUMN_ID_TYPE:", detail::typeRow(table.columnIdType).typeName);
  text.line(rule);
  const std::size_t rows = table.columns == 0 ? idsOnly.size() : table.rows;
  const TableTexts texts = table.columns == 0 ? TableTexts(std::move(idsOnly)) : TableTexts(access, number);
  const std::size_t width = texts.width();
  if (table.columnIdType != TYPE_ID_NONE) printTableLine(text, "DESC:", texts.columnIds, width);
  printTableLine(text, "TYPE:", texts.types, width);
  for (std::size_t row = 0; row < rows && text.ok(); ++row) printRow(text, texts, row, width);
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

std::ostream& HwDatablock2Edition::printDebugPageHeading(std::ostream& os, bool summary) {
  constexpr std::string_view frame = "##################################################";
  TextWriter text(os);
  text.endLine();
  text.line(frame);
  text.line("         D E B U G - I N F O R M A T I O N        ");
  text.line("         EEPROM / FLASH                           ");
  text.line(summary ? "         Block Summary                            "
                    : "         Block Details                            ");
  text.line(frame);
  text.endLine();
  return os;
}

std::ostream& HwDatablock2Edition::printDebugPageSummary(std::ostream& os, HwSDataBlockCfg cfg) {
  constexpr std::string_view gap = "                    ";
  TextWriter text(os);
  text.line("############# NEW CONCEPT #####################################");
  text.text("SECTOR:     ").number(getEepromSector()).endLine();
  text.endLine();
  text.line("Block Id:           Block Name:           Update Index:           Date:");
  text.endLine();
  text.number(getId()).text(gap);
  if (cfg.blockName.isNull()) {
    text.handOn();
    os.setstate(std::ios_base::badbit);
    return os;
  }
  text.text(cfg.blockName.toLocal8Bit().toStdString()).text(gap).general(getUpdateIndex()).text(gap).endLine();
  text.endLine();
  return os;
}

std::ostream& HwDatablock2Edition::printDebugPageDetail(std::ostream& os, HwSDataBlockCfg /*cfg*/) {
  TextWriter text(os);
  text.line(pageStart);
  text.endLine();
  text.text("# SECTOR:              ").number(getEepromSector()).endLine();
  text.text("# DATABLOCKADDRESS:  0x").hex(getEepromAddress()).endLine();
  text.endLine();
  text.endLine();
  text.key("BLOCK ID:", labelWidth).text("USER_").number(getId()).endLine();
  text.key("UPDATE INDEX:", labelWidth).general(getUpdateIndex()).endLine();
  text.key("ROWS:", labelWidth).number(getNumberOfRows(0)).endLine();
  text.key("COLUMNS:", labelWidth).number(getNumberOfColumns(0)).endLine();
  text.key("ROW_ID_TYPE:", labelWidth).text(getTypeString(getRowIdType())).endLine();
  text.key("COLUMN_ID_TYPE:", labelWidth).text(getTypeString(getColumnIdType())).endLine();
  text.line(rule);
  text.endLine();
  DetailTable(*this, bytes(), firstColumnType()).print(text);
  os.setf(std::ios_base::dec, std::ios_base::basefield);
  return os;
}

std::ostream& HwDatablock2Edition::printDebugPageComplete(std::ostream& os, HwSDataBlockCfg /*cfg*/) {
  CommonDatablockAccess access(this, nullptr, true);
  access.releaseBlock();  // only the tables are needed, and a stream may throw
  TextWriter text(os);
  text.line(pageStart);
  text.endLine();
  printLabelled(text, "ID:", "USER_" + std::to_string(access.getId()));
  text.key("UPDATE_INDEX:", labelWidth).fixed(static_cast<float>(access.getUpdateIndex()), 2).endLine();
  const ConstBytes image = bytes().first(std::min<std::size_t>(bytes().size(), HwDatablock::getBlockSize()));
  TableWalk walk(image);
  bool more = true;
  for (unsigned int table = 0; more && table + 1 < access.tables().size() && text.ok(); ++table) {
    const StoredTable stored = walk.next().value_or(StoredTable());
    const ConstBytes ids = stored.rowIdsBehindHeader(image);
    const unsigned int count = ids.empty() ? 0 : stored.rows();
    printTable(text, access, table, detail::rowIdTexts(ids, stored.rowIdType(), count));
    more = ids.empty();  // what follows are the ids
  }
  return os;
}

std::ostream& HwDatablock2Edition::printToStream2Edition(std::ostream& os, HwSDataBlockCfg cfg) {
  return printDebugPageComplete(os, std::move(cfg));
}

}  // namespace Velk
