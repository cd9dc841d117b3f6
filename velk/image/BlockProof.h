#pragma once

#include <array>
#include <cstdint>

#include "velk/edition2/StoredTable.h"
#include "velk/image/BlockHeader.h"

namespace Velk::detail {

/// The ids and sizes of blocks that have a class, without the end block. Needed far more often than a look-up in the
/// catalogue would allow.
class KnownBlocks {
 public:
  static const KnownBlocks& get();

  /// Returns false if the catalogue has no such block; otherwise it may still have none of that size.
  bool mayHave(unsigned id, std::size_t size) const { return sizes_[id] == size || sizes_[id] == several; }

  /// Returns what the size of a block has to agree with, for the function below. Ids share marks, so that all of them
  /// are in the fastest memory.
  unsigned char sizeMark(unsigned id) const { return marks_[id % marksKept]; }
  /// Returns false if the catalogue has no block of that size and of an id with that mark; it may still have none.
  static bool mayHave(unsigned char sizeMark, unsigned char sizeLow, unsigned char sizeHigh) {
    return (unsigned{sizeMark == markOf(sizeLow, sizeHigh)} | unsigned{sizeMark == severalMarks}) != 0;
  }

 private:
  static constexpr unsigned short none = 0;  ///< like the next one, no block's size
  static constexpr unsigned short several = 1;
  static constexpr unsigned marksKept = 0x4000;
  static constexpr unsigned char noMark = 0;  ///< like the next one, it is even, and no size has it
  static constexpr unsigned char severalMarks = 2;

  static unsigned char markOf(unsigned char sizeLow, unsigned char sizeHigh) {
    return static_cast<unsigned char>((sizeLow ^ sizeHigh) | 1);
  }

  KnownBlocks();

  void addMark(unsigned id, unsigned size);

  std::array<unsigned short, 0x10000> sizes_{};  ///< by id
  std::array<unsigned char, marksKept> marks_{};
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
  /// Whether enough is left for the CRC-32 of a block: to be asked before its tables are looked at, which takes time in
  /// a memory of many.
  bool canAfford(ConstBytes block) const { return costOf(block) <= allowance_; }
  bool isFilledByTablesWithCrc(ConstBytes block);

 private:
  static std::uint64_t costOf(ConstBytes block) {
    constexpr std::uint64_t perRead = 64;
    return block.size() + perRead;
  }
  static constexpr std::uint64_t perByte = 2;
  static constexpr std::uint64_t freely = 1024 * 1024;

  bool spend(std::uint64_t cost);

  std::uint64_t allowance_ = freely;
};

/// Returns whether a block is long and varied enough for its 16-bit sum to mean something, if a verified
/// block follows.
bool isWorthASum(ConstBytes block);

}  // namespace Velk::detail
