#pragma once

#include <functional>

#include "velk/data/BlockData.h"

namespace Velk {

/// Two versions of a block, from two images: the blocks with the same id and the same occurrence of it.
struct ComparedBlocks {
  const BlockView* first = nullptr;   ///< null if only the second image has the block
  const BlockView* second = nullptr;  ///< null if only the first image has it
  unsigned occurrence = 1;            ///< counted from 1 among the blocks of its id
};

/// Pairs up the blocks of two images, in the order of the first; those that only the second has come last. Bytes that
/// belong to no block are paired among themselves.
VELK_EXPORT std::vector<ComparedBlocks> pairBlocks(std::span<const BlockView> first, std::span<const BlockView> second);

/// A value that differs, or that only one of two blocks has.
struct Difference {
  const DataPath& path;
  std::optional<FieldElement> first;
  std::optional<FieldElement> second;
};

/// Reports every difference between two blocks: in their data in the order of the fields, unused elements included;
/// then in the id, size and alignment word of their headers; then in bytes that no field covers. A different checksum
/// or CRC-32 is reported only if nothing else differs. Nothing is reported if and only if all bytes are equal.
VELK_EXPORT void compareBlocks(const BlockView& first, const BlockView& second,
                               const std::function<void(const Difference&)>& report);

}  // namespace Velk
