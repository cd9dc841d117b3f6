#include "Pages.h"

#include "Images.h"
#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/edition2/StoredTable.h"
#include "velk/text/TextWriter.h"

namespace VelkTool {
namespace {

using Velk::BlockView;

/// Types that the typed readers do not convert.
bool isUnconverted(unsigned type) { return type == Velk::TYPE_ID_LONG_DOUBLE || Velk::detail::isFixedPoint(type); }

/// The typed readers copy row ids, which fits all types but this.
bool isMiscopied(unsigned type) { return type == Velk::TYPE_ID_LONG_DOUBLE; }

/// The detail page counts no bytes for them.
bool isString(unsigned type) { return type == Velk::TYPE_ID_STRING; }

using TypeTest = bool(unsigned type);

/// The parts of a table whose types pass a test.
std::vector<std::string> partsOf(const Velk::StoredTable& table, TypeTest rowIds, TypeTest others) {
  std::vector<std::string> parts;
  const auto add = [&parts](const std::string& what, unsigned type) {
    parts.push_back(what + " (" + Velk::detail::typeRow(type).typeName + ')');
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

std::vector<std::string> notOnCompletePage(const BlockView& block) {
  std::vector<std::string> lines;
  Velk::TableWalk walk(block.bytes);
  for (std::size_t number = 1;; ++number) {
    const auto table = walk.next();
    if (!table || !table->isComplete()) return lines;
    const auto parts = partsOf(*table, isMiscopied, isUnconverted);
    if (parts.empty()) continue;
    lines.push_back("table " + std::to_string(number) + ": the complete page cannot show " + listed(parts) +
                    (number == 1 ? "; --page detail can" : "; --page hex has the bytes"));
  }
}

std::vector<std::string> notOnDetailPage(const BlockView& block) {
  const auto table = Velk::TableWalk(block.bytes).next();
  const auto parts = table ? partsOf(*table, isString, isString) : std::vector<std::string>();
  if (parts.empty()) return {};
  return {"table 1: the detail page counts no bytes for strings and misplaces what follows " + listed(parts) +
          "; --page complete does not"};
}

}  // namespace

bool hasTables(const BlockView& block) {
  return block.kind == Velk::BlockKind::SecondEdition || block.kind == Velk::BlockKind::EventCounter;
}

void writeTablePage(Page page, const BlockView& block, std::ostream& stream) {
  Velk::HwDatablock2Edition tables;
  tables.setDataWithoutChecksumCheck(block.bytes.data(), static_cast<unsigned>(block.bytes.size()));
  tables.setEepromAddress(static_cast<unsigned>(block.offset));
  Velk::HwSDataBlockCfg cfg;
  cfg.blockName = QString::fromStdString(Velk::blockName(block));
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

void writeHexPage(const BlockView& block, std::ostream& stream) {
  constexpr std::size_t bytesPerLine = 16;
  constexpr std::size_t charactersColumn = 12 + 3 * bytesPerLine + 1;
  Velk::detail::TextWriter text(stream);
  for (std::size_t at = 0; at < block.bytes.size() && text.ok(); at += bytesPerLine) {
    const auto line = block.bytes.subspan(at, std::min(bytesPerLine, block.bytes.size() - at));
    std::string characters;
    text.text(offsetText(block.offset + at)).text("  ");
    for (const unsigned char byte : line) {
      text.hex(byte, 2, true).text(" ");
      characters += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
    }
    text.padTo(charactersColumn).text("|").text(characters).text("|").endLine();
  }
  text.endLine();
}

std::vector<std::string> notOnPage(Page page, const BlockView& block) {
  const bool showsData = page != Page::Heading && page != Page::Hex;
  if (!hasTables(block) || !showsData) return {};
  if (block.kind == Velk::BlockKind::EventCounter) {
    return {"an event counter, which this page takes for tables; export and --page hex show its bytes"};
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

}  // namespace VelkTool
