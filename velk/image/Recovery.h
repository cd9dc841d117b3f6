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

/// Two sound blocks of different bytes where the memory can have had only one.
struct DumpConflict {
  DumpView first;
  DumpView second;
};

/// Bytes of a dump that belong to no sound block and are not erased.
struct DumpDamage {
  DumpView view;
  std::uint64_t recovered = 0;  ///< how many of them sound blocks of other dumps stand for
};

/// What of a memory several dumps of it show together. Views point into the dumps.
struct Recovery {
  std::vector<DumpView> blocks{};         ///< sound ones in the order of the memory, end blocks left out
  std::vector<DumpConflict> conflicts{};  ///< only the first block of each is among the blocks
  std::vector<DumpDamage> damage{};
};

/// Puts together what dumps of one memory show: a block that is sound in one of them is among the blocks once.
///
/// Blocks of equal bytes in the same order are one block; they show how far the places of two dumps are apart, so that
/// a dump that lacks a byte can be merged. Other sound blocks of two dumps that overlap then are a conflict, but the
/// dump `preferred` is right against the others. Takes n log n for n blocks.
VELK_EXPORT Recovery recoverBlocks(std::span<const MemoryImage* const> dumps,
                                   std::optional<std::size_t> preferred = std::nullopt);

/// The blocks one after another, an end block where there is room for one, and erased memory up to `size` bytes.
/// Nothing where the blocks need more than `size`.
VELK_EXPORT std::optional<QByteArray> layOut(std::span<const DumpView> blocks, std::uint64_t size);

}  // namespace Velk
