#pragma once

#include <functional>

#include "velk/data/BlockData.h"

namespace Velk {

/// Blocks of two images that are versions of one another: those with the same id and the same occurrence of it.
struct BlockPair {
  const BlockView* first = nullptr;   ///< null where only the second image has the block
  const BlockView* second = nullptr;  ///< null where only the first image has it
  unsigned occurrence = 1;            ///< counted from 1 among the blocks of its id
};

/// Pairs the blocks of two images up, in the order of the first; what only the second has comes last. Bytes that
/// belong to no block are paired among themselves.
VELK_EXPORT std::vector<BlockPair> pairBlocks(std::span<const BlockView> first, std::span<const BlockView> second);

/// A value that differs, or that only one of two blocks has. The data are those that the elements lie in.
struct Difference {
  const DataPath& path;
  std::optional<FieldElement> first;
  std::optional<FieldElement> second;
};

/// Reports every difference of two blocks: of their data in the order of the fields, unused elements included, then of
/// the id, size and alignment word in their headers, then of bytes that no field covers. A checksum or CRC-32 that
/// differs is reported where nothing else does. Nothing is reported exactly where all bytes are equal.
VELK_EXPORT void compareBlocks(const BlockView& first, const BlockView& second,
                               const std::function<void(const Difference&)>& report);

}  // namespace Velk
