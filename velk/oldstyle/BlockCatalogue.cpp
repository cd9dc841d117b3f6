#include "velk/oldstyle/BlockCatalogue.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "velk/datablock/HwDatablockEnd.h"
#include "velk/records/HwDatablockIdent.h"

namespace Velk {
namespace {

template <class Block, auto... arguments>
std::unique_ptr<HwDatablock> make(unsigned short /*id*/) {
  return std::make_unique<Block>(arguments...);
}

/// The row of a record class.
template <class Block>
constexpr CatalogueRow record(const char* className, unsigned short firstId, unsigned short lastId,
                              std::unique_ptr<HwDatablock> (*maker)(unsigned short), Conversion conversion) {
  const RecordTraits& traits = Block::traits;
  return {firstId, lastId, className, traits.keys, traits.size, false, traits.fields, maker, conversion, &traits};
}

constexpr const char* endKeys[] = {"END"};

// Wide on purpose: one row a class, in the order of the ids.
// clang-format off
constexpr CatalogueRow dictionary[] = {
    record<HwDatablockIdent>("HwDatablockIdent", 2, 10, make<HwDatablockIdent>, Conversion::Record),
    {65535, 65535, "HwDatablockEnd", endKeys, sizeof(HwSDatablockEnd), false, endFields, make<HwDatablockEnd>, Conversion::None, nullptr},
};

constexpr std::array<CatalogueRow, 0> others = {{
}};
// clang-format on

constexpr bool isWellFormed(std::span<const CatalogueRow> rows) {
  int last = -1;
  for (const CatalogueRow& row : rows) {
    const int ids = row.lastId - row.firstId + 1;
    const bool named = row.keys.size() == 1 || row.keys.size() == static_cast<std::size_t>(ids);
    if (row.firstId <= last || ids < 1 || !named || row.fields.empty()) return false;
    last = row.lastId;
  }
  return true;
}
static_assert(isWellFormed(dictionary) && isWellFormed(others), "rows ascend, and each has its names and fields");

const CatalogueRow* findIn(std::span<const CatalogueRow> rows, int id) {
  const auto row = std::lower_bound(rows.begin(), rows.end(), id, [](const CatalogueRow& candidate, int wanted) {
    return candidate.lastId < wanted;
  });
  return row != rows.end() && row->firstId <= id ? &*row : nullptr;
}

}  // namespace

std::span<const CatalogueRow> dictionaryRows() { return dictionary; }

std::span<const CatalogueRow> otherRows() { return others; }

const CatalogueRow* findDictionaryRow(int id) { return findIn(dictionary, id); }

const CatalogueRow* findCatalogueRow(int id) {
  const CatalogueRow* const row = findDictionaryRow(id);
  return row != nullptr ? row : findIn(others, id);
}

}  // namespace Velk
