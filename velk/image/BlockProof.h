#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "velk/edition2/StoredTable.h"
#include "velk/image/BlockHeader.h"

namespace Velk::detail {

/// The ids and sizes of blocks that have a class, the end block left out: asked far more often than the catalogue can
/// be.
class KnownBlocks {
 public:
  static const KnownBlocks& get();

  /// False where the catalogue knows no such block; it may know none of that size all the same.
  bool mayHave(unsigned id, std::size_t size) const { return sizes_[id] == size || sizes_[id] == several; }

  /// What the size of a block has to agree with, for the one below. Ids share marks, so that all are at hand in the
  /// fastest memory.
  unsigned char sizeMark(unsigned id) const { return marks_[id % marksKept]; }
  /// False where the catalogue knows no block of that size and of an id with that mark; often true where it knows none.
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

  std::vector<unsigned short> sizes_;  ///< by id
  std::array<unsigned char, marksKept> marks_{};
};

/// Whether the bytes of a block show, without regard to where they stand, that they are one.
///
/// They do with a right 16-bit sum, and the id of a class and the size that its blocks have: any longer one, which some
/// classes take as well, would say little. Or with a cleared alignment word, and either a right CRC-32 and tables that
/// fill the block, or the event counter identifier and whole counters.
///
/// Of a memory whose bytes would ask for very many CRC-32s, only some are made: `grant` allows for more.
class BlockProof {
 public:
  /// For the first test of each `bytes` further bytes of the memory.
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

/// Whether a block is long and varied enough for its 16-bit sum to say something, where a block follows that proves
/// itself.
bool isWorthASum(ConstBytes block);

}  // namespace Velk::detail
