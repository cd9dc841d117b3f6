#include "velk/image/BlockProof.h"

#include <algorithm>

#include "velk/oldstyle/BlockCatalogue.h"

namespace Velk::detail {
namespace {

/// The header and types of a block's first table, which must make sense before the rest of the block is read.
class FirstTable {
 public:
  /// The table of a block that it fits into.
  explicit FirstTable(ConstBytes block) : block_(block), header_(block.subspan(at)) {}

  static bool fitsInto(ConstBytes block) { return block.size() > firstType; }
  bool isPossible() const {
    const std::size_t rows = load<unsigned short>(header_, offsetof(HwSTableHeader2Edition, rows));
    return columns() != 0 && columns() * (rows + 1) <= block_.size() - firstType && rowIdType() <= TYPE_ID_MAX &&
           columnIdType() <= TYPE_ID_MAX &&
           std::ranges::all_of(columnTypes(), [](unsigned type) { return typeSize(type) != 0; });
  }
  /// Strings have to be read to know where they end.
  bool hasStrings() const {
    return rowIdType() == TYPE_ID_STRING || columnIdType() == TYPE_ID_STRING ||
           std::ranges::find(columnTypes(), TYPE_ID_STRING) != columnTypes().end();
  }
  std::size_t columns() const { return load<unsigned short>(header_, offsetof(HwSTableHeader2Edition, columns)); }

 private:
  static constexpr std::size_t at = sizeof(HwSDatablockHeader2Edition);
  static constexpr std::size_t firstType = at + sizeof(HwSTableHeader2Edition);

  unsigned rowIdType() const { return header_[offsetof(HwSTableHeader2Edition, rowIdType)]; }
  unsigned columnIdType() const { return header_[offsetof(HwSTableHeader2Edition, columnIdType)]; }
  ConstBytes columnTypes() const { return block_.subspan(firstType, columns()); }

  ConstBytes block_;
  ConstBytes header_;
};

}  // namespace

KnownBlocks::KnownBlocks() {
  for (const auto rows : {dictionaryRows(), otherRows()}) {
    for (const CatalogueRow& row : rows) {
      for (unsigned id = row.firstId; id <= row.lastId && id != erasedBlockId; ++id) {
        sizes_[id] = sizes_[id] != none || row.others.also != 0 ? several : row.size;
        addMark(id, row.size);
        if (row.others.also != 0) addMark(id, row.others.also);
      }
    }
  }
}

void KnownBlocks::addMark(unsigned id, unsigned size) {
  const unsigned char mark = markOf(static_cast<unsigned char>(size), static_cast<unsigned char>(size >> 8U));
  unsigned char& kept = marks_[id % marksKept];
  kept = kept == noMark || kept == mark ? mark : severalMarks;
}

const KnownBlocks& KnownBlocks::get() {
  static const KnownBlocks blocks;
  return blocks;
}

bool BlockProof::isOfClass(ConstBytes block) const {
  const auto size = static_cast<unsigned short>(block.size());
  if (!KnownBlocks::get().mayHave(idOf(block), size)) return false;
  const CatalogueRow* const row = findCatalogueRow(idOf(block), size);
  return row != nullptr && (size == row->size || size == row->others.also);
}

bool BlockProof::isEventCounter(ConstBytes block) const {
  constexpr std::size_t counter = 4;
  return hasCounterIdentifier(block) && block.size() > shortestCrcBlock &&
         (block.size() - shortestCrcBlock) % counter == 0;
}

bool BlockProof::isFilledByTablesWithCrc(ConstBytes block) {
  constexpr std::uint64_t perString = 32;
  if (!FirstTable::fitsInto(block)) return false;
  const FirstTable first(block);
  if (!first.isPossible() || !spend(costOf(block)) || !hasRightCrc(block)) return false;
  return spend(first.hasStrings() ? perString * block.size() : first.columns()) && isFilledByTables(block);
}

bool BlockProof::spend(std::uint64_t cost) {
  if (cost > allowance_) return false;
  allowance_ -= cost;
  return true;
}

bool isWorthASum(ConstBytes block) {
  constexpr std::size_t shortest = 12;
  return block.size() >= shortest && !isUniform(block);
}

}  // namespace Velk::detail
