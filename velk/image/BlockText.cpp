#include "velk/image/BlockText.h"

#include "velk/bytes/HexText.h"
#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/edition2/StoredTable.h"
#include "velk/text/TextWriter.h"

namespace Velk {
namespace {

/// Returns whether the block is printed as tables, which it describes itself.
bool hasTables(const BlockView& block) {
  return block.kind == BlockKind::SecondEdition || block.kind == BlockKind::EventCounter;
}

void giveBytes(HwDatablock& typed, const BlockView& block) {
  typed.setDataWithoutChecksumCheck(block.bytes.data(), static_cast<unsigned>(block.bytes.size()));
}

void printTables(std::ostream& stream, const BlockView& block, Page page) {
  HwDatablock2Edition tables;
  giveBytes(tables, block);
  tables.setEepromAddress(static_cast<unsigned>(block.offset));
  HwSDataBlockCfg cfg;
  cfg.blockName = QString::fromStdString(blockName(block));
  switch (page) {
    case Page::Detail:
      tables.printDebugPageDetail(stream, cfg);
      break;
    case Page::Summary:
      tables.printDebugPageSummary(stream, cfg);
      break;
    case Page::Heading:
      tables.printDebugPageHeading(stream, false);
      break;
    default:
      tables.printDebugPageComplete(stream, cfg);
  }
}

void printBytes(std::ostream& stream, const BlockView& block) {
  constexpr std::size_t bytesPerLine = 16;
  constexpr std::size_t charactersColumn = 12 + 3 * bytesPerLine + 1;
  detail::TextWriter text(stream);
  for (std::size_t at = 0; at < block.bytes.size() && text.ok(); at += bytesPerLine) {
    const auto line = block.bytes.subspan(at, std::min(bytesPerLine, block.bytes.size() - at));
    std::string characters;
    text.text(detail::hexText(block.offset + at, 8)).text("  ");
    for (const unsigned char byte : line) {
      text.hex(byte, 2, true).text(" ");
      characters += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
    }
    text.padTo(charactersColumn).text("|").text(characters).text("|").endLine();
  }
  text.endLine();
}

/// Returns whether a type is one that the typed readers do not convert.
bool isUnconverted(unsigned type) { return type == TYPE_ID_LONG_DOUBLE || detail::isFixedPoint(type); }

/// Returns whether a type is one whose row ids the typed readers copy wrongly.
bool isMiscopied(unsigned type) { return type == TYPE_ID_LONG_DOUBLE; }

/// Returns whether a type is one for which the detail page counts no bytes.
bool isString(unsigned type) { return type == TYPE_ID_STRING; }

using TypeTest = bool(unsigned type);

/// Lists the parts of a table whose types pass a test.
std::vector<std::string> partsOf(const StoredTable& table, TypeTest rowIds, TypeTest others) {
  std::vector<std::string> parts;
  const auto add = [&parts](const std::string& what, unsigned type) {
    parts.push_back(what + " (" + detail::typeRow(type).typeName + ')');
  };
  if (rowIds(table.rowIdType())) add("row ids", table.rowIdType());
  if (others(table.columnIdType())) add("column ids", table.columnIdType());
  for (std::size_t column = 0; column < table.columnTypes().size() && table.rows() != 0; ++column) {
    const unsigned type = table.columnTypes()[column];
    if (others(type)) add("column " + std::to_string(column + 1), type);
  }
  return parts;
}

std::string listed(const std::vector<std::string>& parts) {
  constexpr std::size_t most = 10;
  std::string text;
  for (std::size_t i = 0; i < std::min(most, parts.size()); ++i) text += (i == 0 ? "" : ", ") + parts[i];
  return parts.size() <= most ? text : text + " and " + std::to_string(parts.size() - most) + " more";
}

std::vector<NotShown> notOnCompletePage(const BlockView& block) {
  std::vector<NotShown> missing;
  TableWalk walk(block.bytes);
  for (std::size_t number = 1;; ++number) {
    const auto table = walk.next();
    if (!table || !table->isComplete()) return missing;
    const auto parts = partsOf(*table, isMiscopied, isUnconverted);
    if (parts.empty()) continue;
    missing.push_back({"table " + std::to_string(number) + ": the complete page cannot show " + listed(parts),
                       number == 1 ? Page::Detail : Page::Hex});
  }
}

std::vector<NotShown> notOnDetailPage(const BlockView& block) {
  const auto table = TableWalk(block.bytes).next();
  const auto parts = table ? partsOf(*table, isString, isString) : std::vector<std::string>();
  if (parts.empty()) return {};
  return {{"table 1: the detail page counts no bytes for strings and misplaces what follows " + listed(parts),
           Page::Complete}};
}

}  // namespace

void printBlock(std::ostream& stream, const BlockView& block, Page page) {
  if (page != Page::Hex && hasTables(block)) return printTables(stream, block, page);
  if (page == Page::Hex || block.row == nullptr) return printBytes(stream, block);
  const std::unique_ptr<HwDatablock> typed = block.row->make(block.id);
  giveBytes(*typed, block);
  typed->printToStream(stream);
}

std::vector<NotShown> notOnPage(const BlockView& block, Page page) {
  const bool showsData = page != Page::Heading && page != Page::Hex;
  if (!hasTables(block) || !showsData) return {};
  if (block.kind == BlockKind::EventCounter) {
    return {{"an event counter, which this page takes for tables", Page::Hex}};
  }
  switch (page) {
    case Page::Usual:
    case Page::Complete:
      return notOnCompletePage(block);
    case Page::Detail:
      return notOnDetailPage(block);
    default:
      return {};
  }
}

}  // namespace Velk
