// The pages of a second-edition block that service looks at, but for that of the stored values.
#include <algorithm>
#include <ios>
#include <ostream>
#include <string_view>

#include "velk/edition2/CommonDatablockAccess.h"
#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/edition2/PageLines.h"
#include "velk/edition2/RowIdTexts.h"
#include "velk/edition2/StoredTable.h"
#include "velk/edition2/StoredType.h"
#include "velk/text/TextWriter.h"

namespace Velk {
namespace {

using detail::TextWriter;

/// Columns of a line's value before a table, and of a row's label in it.
constexpr std::size_t valueWidth = 15;
constexpr std::size_t rowLabelWidth = 7;

void printLabelled(TextWriter& text, std::string_view label, std::string_view value) {
  text.key(label, detail::pageLabelWidth).field(value, valueWidth).endLine();
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
  text.line(detail::pageRule);
  const std::size_t rows = table.columns == 0 ? idsOnly.size() : table.rows;
  const TableTexts texts = table.columns == 0 ? TableTexts(std::move(idsOnly)) : TableTexts(access, number);
  const std::size_t width = texts.width();
  if (table.columnIdType != TYPE_ID_NONE) printTableLine(text, "DESC:", texts.columnIds, width);
  printTableLine(text, "TYPE:", texts.types, width);
  for (std::size_t row = 0; row < rows && text.ok(); ++row) printRow(text, texts, row, width);
}

}  // namespace

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

std::ostream& HwDatablock2Edition::printDebugPageComplete(std::ostream& os, HwSDataBlockCfg /*cfg*/) {
  CommonDatablockAccess access(this, nullptr, true);
  access.releaseBlock();  // only the tables are needed, and a stream may throw
  TextWriter text(os);
  text.line(detail::pageStart);
  text.endLine();
  printLabelled(text, "ID:", "USER_" + std::to_string(access.getId()));
  text.key("UPDATE_INDEX:", detail::pageLabelWidth).fixed(static_cast<float>(access.getUpdateIndex()), 2).endLine();
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
