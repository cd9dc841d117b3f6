#include "TableSections.h"

#include <algorithm>
#include <optional>
#include <sstream>

#include "velk/bytes/ByteArray.h"
#include "velk/data/BlockSeal.h"
#include "velk/oldstyle/BlockCatalogue.h"
#include "velk/platform/Console.h"

namespace VelkTool {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r";
  const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
  return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

/// Returns the name after "ID:" in a line, without comments.
std::optional<std::string_view> nameIn(std::string_view line) {
  constexpr std::string_view key = "ID:";
  line = line.substr(0, line.find('#'));
  const std::size_t at = line.find(key);
  return at == line.npos ? std::nullopt : std::optional(trimmed(line.substr(at + key.size())));
}

std::optional<unsigned short> idOfTable(std::string_view name) {
  for (const Velk::CatalogueRow& row : Velk::dictionaryRows()) {
    if (row.keys.size() == 1 && name == row.keys[0] && makeExchangeTable(row.firstId) != nullptr) return row.firstId;
  }
  return std::nullopt;
}

}  // namespace

std::unique_ptr<Velk::HwTableBlock> makeExchangeTable(int id) {
  const Velk::CatalogueRow* const row = Velk::findCatalogueRow(id);
  std::unique_ptr<Velk::HwDatablock> block = row == nullptr ? nullptr : row->make(static_cast<unsigned short>(id));
  auto* const table = dynamic_cast<Velk::HwTableBlock*>(block.get());
  if (table == nullptr || !table->hasExchangeText()) return nullptr;
  static_cast<void>(block.release());  // owned as a table from here on
  return std::unique_ptr<Velk::HwTableBlock>(table);
}

std::string readInto(Velk::HwTableBlock& table, const std::string& text) {
  std::string messages;
  const auto former = Velk::Console::redirect([&](Velk::Console::Stream stream, std::string_view message) {
    if (stream == Velk::Console::Stream::Output) messages += message;
  });
  std::istringstream lines(text);
  std::vector<std::string> doubts;
  table.readExchangeText(lines, &doubts);
  Velk::Console::redirect(former);
  for (const std::string& doubt : doubts) messages += doubt + '\n';
  const auto counts = [](unsigned rows, unsigned cols) { return std::to_string(rows) + " * " + std::to_string(cols); };
  if (table.getRowCount() > table.getRowCapacity() || table.getColCount() > table.getColCapacity()) {
    messages += "COUNT " + counts(table.getRowCount(), table.getColCount()) + " is more than the table's " +
                counts(table.getRowCapacity(), table.getColCapacity()) + '\n';
  }
  return messages;
}

QByteArray replacementOf(const Velk::BlockView& block, Velk::HwTableBlock& table) {
  QByteArray bytes = table.getByteArrayData();
  const Velk::MutableBytes taken = Velk::mutableBytesOf(bytes);
  const auto labels = std::ranges::find(block.row->fields, std::string_view("indexColumn"), &Velk::FieldInfo::name);
  if (labels == block.row->fields.end() || block.bytes.size() != taken.size()) return bytes;
  const std::size_t size = std::size_t{labels->rows} * labels->stride;
  std::ranges::copy(block.bytes.subspan(labels->offset, size), taken.begin() + labels->offset);
  Velk::sealBlock(taken, Velk::BlockKind::OldStyle);
  return bytes;
}

std::vector<TableSection> tableSections(std::string_view text) {
  std::vector<TableSection> sections;
  bool inside = false;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    if (const auto name = nameIn(line)) {
      const auto id = idOfTable(*name);
      inside = id.has_value();
      if (inside) sections.push_back({*id, {}});
    }
    if (inside) (sections.back().text += line) += '\n';
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return sections;
}

}  // namespace VelkTool
