#include "TableSections.h"

#include <optional>

#include "velk/oldstyle/BlockCatalogue.h"

namespace VelkTool {
namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r";
  const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
  return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

/// What stands behind "ID:" in a line, comments apart.
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
