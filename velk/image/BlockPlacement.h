#pragma once

#include <optional>

#include "velk/image/MemoryImage.h"

namespace Velk {

enum class PlacementResult : unsigned char {
  Done,
  OtherSize,   ///< the block to be replaced has another size
  HasSectors,  ///< nothing is appended to a memory with sectors
  Damaged,     ///< nothing is appended if a block is not sound
  NoRoom,      ///< the erased memory after the end block is too short
};

/// An image with a block put into it, or why that is not possible.
struct Placement {
  PlacementResult result = PlacementResult::Done;
  QByteArray image{};                  ///< with the block; empty unless Done
  std::uint64_t offset = 0;            ///< of the block
  std::optional<BlockView> damaged{};  ///< the first block that is not sound, a view into the original image
};

/// Finds the first old-style block of an id.
VELK_EXPORT std::optional<BlockView> firstBlockOf(const MemoryImage& image, unsigned short id);

/// Replaces a block of an image by another of the same size.
VELK_EXPORT Placement replaceBlock(const MemoryImage& image, const BlockView& block, const QByteArray& bytes);

/// Appends a block after the last one of an image. An end block moves into the erased memory after it, so the image
/// keeps its size; without an end block the image grows.
VELK_EXPORT Placement appendBlock(const MemoryImage& image, const QByteArray& bytes);

}  // namespace Velk
