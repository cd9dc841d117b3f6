#pragma once

#include <optional>

#include "velk/image/MemoryImage.h"

namespace Velk {

enum class PlacementResult : unsigned char {
  Done,
  OtherSize,   ///< the block to be replaced has another size
  HasSectors,  ///< nothing is appended to a memory with sectors
  Damaged,     ///< nothing is appended if a block is not sound
  NoRoom,      ///< the erased memory after the end block is too short, or there is no end block
};

/// An image with a block put into it, or why that is not possible.
struct Placement {
  PlacementResult result = PlacementResult::Done;
  QByteArray image{};                  ///< with the block; empty unless Done
  std::uint64_t offset = 0;            ///< of the block
  std::optional<BlockView> damaged{};  ///< the first block that is not sound, a view into the original image
  std::uint64_t missing = 0;           ///< for NoRoom: how many bytes are missing
};

/// Finds the first old-style block of an id.
VELK_EXPORT std::optional<BlockView> firstBlockOf(const MemoryImage& image, unsigned short id);

/// Replaces a block of an image by another of the same size.
VELK_EXPORT Placement replaceBlock(const MemoryImage& image, const BlockView& block, const QByteArray& bytes);

/// Appends a block after the last one of an image. An end block moves into the erased memory after it, so the image
/// keeps its size; without an end block the image grows.
VELK_EXPORT Placement appendBlock(const MemoryImage& image, const QByteArray& bytes);

/// Puts a block before the one at `offset`, which may be an end block. The blocks from there to the end block move into
/// the erased memory after it; in a memory with sectors, that of their sector. Everything else stays.
VELK_EXPORT Placement insertBlock(const MemoryImage& image, std::uint64_t offset, const QByteArray& bytes);

/// Takes a block out. The blocks after it, up to the end block, move to its place, and erased memory follows them.
/// Everything else stays.
VELK_EXPORT Placement removeBlock(const MemoryImage& image, const BlockView& block);

}  // namespace Velk
