#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "velk/image/MemoryImage.h"

namespace Velk {

/// A view of a dump that takes part in a recovery.
struct DumpView {
  std::size_t dump = 0;  ///< index of the dump
  BlockView view{};
  std::int64_t place = 0;  ///< its offset in the memory, as far as the blocks that dumps share show it
};

/// Two different sound blocks, of which the memory can have had only one.
struct DumpConflict {
  DumpView first;
  DumpView second;
};

/// Bytes of a dump that belong to no sound block and are not erased.
struct DumpDamage {
  DumpView view;
  std::uint64_t recovered = 0;  ///< how many of them are covered by sound blocks of other dumps
};

/// What several dumps of a memory show together. Views point into the dumps.
struct Recovery {
  std::vector<DumpView> blocks{};         ///< sound ones in the order of the memory, end blocks left out
  std::vector<DumpConflict> conflicts{};  ///< only the first block of each is among the blocks
  std::vector<DumpDamage> damage{};
};

/// Merges what dumps of one memory show: a block that is sound in one of them is among the blocks once.
///
/// Equal blocks in the same order are one block. They show how far apart the places in two dumps are, so that a dump
/// that lacks a byte can be merged. Other sound blocks of two dumps that then overlap are a conflict, except that the
/// dump `preferred` wins against the others. Takes O(n log n) time for n blocks.
VELK_EXPORT Recovery recoverBlocks(std::span<const MemoryImage* const> dumps,
                                   std::optional<std::size_t> preferred = std::nullopt);

/// Returns the blocks one after another, an end block if there is room for one, and erased memory up to `size` bytes;
/// or nothing if the blocks need more than `size`.
VELK_EXPORT std::optional<QByteArray> layOut(std::span<const DumpView> blocks, std::uint64_t size);

}  // namespace Velk
