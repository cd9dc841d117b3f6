#pragma once

#include <bitset>
#include <cstdint>
#include <vector>

#include "velk/edition2/StoredTable.h"
#include "velk/image/BlockHeader.h"

namespace Velk::detail {

/// The ids and sizes of blocks that have a class, without the end block. Needed far more often than a look-up in the
/// catalogue would allow.
class KnownBlocks {
 public:
  static const KnownBlocks& get();

  /// Returns false if the catalogue has no such block; otherwise it may still have none of that size.
  bool mayHave(unsigned id, std::size_t size) const {
    return ids_[id] && (sizes_[id] == size || sizes_[id] == several);
  }

 private:
  static constexpr unsigned short several = 0;

  KnownBlocks();

  std::bitset<0x10000> ids_;
  std::vector<unsigned short> sizes_;  ///< by id
};

/// Decides from the bytes of a block alone, wherever they are, whether they are one.
///
/// They are if the 16-bit sum is valid, the id that of a class, and the size that of its blocks; a longer size, which
/// some classes accept as well, would prove little. Or if the alignment word is 0, and either the CRC-32 is valid and
/// tables fill the block, or it has the event counter identifier and whole counters.
///
/// In a memory whose bytes would need very many CRC-32s, only some are computed: `grant` allows for more.
class BlockProof {
 public:
  /// Allows for the first test of each of `bytes` further bytes of the memory.
  void grant(std::uint64_t bytes) { allowance_ += perByte * bytes; }

  bool isOfClass(ConstBytes block) const;
  bool isEventCounter(ConstBytes block) const;
  bool isFilledByTablesWithCrc(ConstBytes block);

 private:
  static constexpr std::uint64_t perByte = 2;
  static constexpr std::uint64_t freely = 1024 * 1024;

  bool spend(std::uint64_t cost);

  std::uint64_t allowance_ = freely;
};

/// Returns whether a block has an event counter identifier, or a first table with columns and types: a quick check
/// before the full tests.
inline bool describesItself(ConstBytes block) {
  if (hasCounterIdentifier(block)) return true;
  constexpr std::size_t table = sizeof(HwSDatablockHeader2Edition);
  constexpr std::size_t firstType = table + sizeof(HwSTableHeader2Edition);
  return block.size() > firstType &&
         load<unsigned short>(block, table + offsetof(HwSTableHeader2Edition, columns)) != 0 &&
         block[table + offsetof(HwSTableHeader2Edition, rowIdType)] <= TYPE_ID_MAX &&
         block[table + offsetof(HwSTableHeader2Edition, columnIdType)] <= TYPE_ID_MAX &&
         typeSize(block[firstType]) != 0;
}

/// Returns whether a block is long and varied enough for its 16-bit sum to mean something, if a verified
/// block follows.
bool isWorthASum(ConstBytes block);

}  // namespace Velk::detail
