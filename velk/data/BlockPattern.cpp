#include "velk/data/BlockPattern.h"

#include <fnmatch.h>

#include <algorithm>
#include <charconv>

#include "velk/data/NearestName.h"

namespace Velk {
namespace {

constexpr std::string_view nameOfUncatalogued = "ID_";

/// Returns a name without the blanks at its end, which nobody types.
std::string trimmed(std::string name) {
  name.resize(name.find_last_not_of(' ') + 1);
  return name;
}

bool isPattern(std::string_view text) { return text.find_first_of("*?[") != text.npos; }

/// Reads the whole text as a number in decimal, or in hexadecimal after 0x.
std::optional<std::uint64_t> parseNumber(std::string_view text) {
  const bool isHex = text.starts_with("0x") || text.starts_with("0X");
  if (isHex) text.remove_prefix(2);
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, isHex ? 16 : 10);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// Calls `act` with each catalogue row and each of its ids, until it returns true; returns whether it did.
template <class Act>
bool anyCatalogued(Act act) {
  for (const auto rows : {dictionaryRows(), otherRows()}) {
    for (const CatalogueRow& row : rows) {
      for (unsigned id = row.firstId; id <= row.lastId; ++id) {
        if (act(row, static_cast<unsigned short>(id))) return true;
      }
    }
  }
  return false;
}

bool isNameOfUncatalogued(std::string_view text) {
  if (!text.starts_with(nameOfUncatalogued)) return false;
  const auto id = parseNumber(text.substr(nameOfUncatalogued.size()));
  return id && *id <= 0xFFFF;
}

}  // namespace

std::optional<BlockPattern> BlockPattern::parse(std::string_view text, std::string& error) {
  const std::string given(text);
  if (!text.empty() && text.front() >= '0' && text.front() <= '9') {
    const auto number = parseNumber(text);
    if (number && *number <= 0xFFFF) return BlockPattern(text, static_cast<unsigned short>(*number));
    error = given + (number ? " is out of range: 0 to 65535" : " is no whole number");
    return std::nullopt;
  }
  const BlockPattern pattern(trimmed(given), std::nullopt);
  const bool isKnown =
      isPattern(text) || isNameOfUncatalogued(text) ||
      anyCatalogued([&](const CatalogueRow& row, unsigned short id) { return pattern.matches(row, id); });
  if (isKnown) return pattern;
  const std::vector<std::string> names = blockNames();
  const std::string_view nearest = detail::nearestName(text, names, given.size() / 3);
  error = "no block is called \"" + given + '"';
  if (!nearest.empty()) error.append("; the nearest is ").append(nearest);
  return std::nullopt;
}

bool BlockPattern::matches(const BlockView& block) const {
  if (block.kind == BlockKind::Stray) return false;
  if (id_) return block.id == *id_;
  return block.row != nullptr ? matches(*block.row, block.id) : matchesName(blockName(block));
}

bool BlockPattern::matches(const CatalogueRow& row, unsigned short id) const {
  if (id_) return id == *id_;
  return matchesName(row.key(id)) || matchesName(std::string(row.className));
}

bool BlockPattern::matchesName(const std::string& name) const {
  return fnmatch(text_.c_str(), trimmed(name).c_str(), FNM_NOESCAPE) == 0;
}

std::vector<std::string> blockNames() {
  std::vector<std::string> names;
  anyCatalogued([&](const CatalogueRow& row, unsigned short id) {
    names.push_back(trimmed(row.key(id)));
    if (id == row.firstId) names.emplace_back(row.className);
    return false;
  });
  return names;
}

}  // namespace Velk
