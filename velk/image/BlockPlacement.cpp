#include "velk/image/BlockPlacement.h"

#include <algorithm>

#include "velk/image/BlockHeader.h"

namespace Velk {
namespace {

QByteArray copyOf(const MemoryImage& image) {
  return {reinterpret_cast<const char*>(image.bytes().data()), static_cast<qsizetype>(image.bytes().size())};
}

/// Blocks that follow one another, up to an end block or the end of their memory or sector.
struct Sequence {
  std::uint64_t end = 0;   ///< offset of what follows the end block
  std::uint64_t room = 0;  ///< erased bytes after the end block
  bool isEnded = false;
  std::optional<BlockView> damaged{};  ///< the first that is not sound, or that does not follow the one before it
};

/// Returns where the memory or the sector with an offset ends.
std::uint64_t limitOf(const MemoryImage& image, std::uint64_t offset) {
  const std::uint64_t size = image.bytes().size();
  if (image.sectorSize() == 0) return size;
  return std::min(size, offset + image.sectorSize() - (offset - image.start()) % image.sectorSize());
}

/// Returns the blocks from an offset on; none if no block begins there.
Sequence sequenceFrom(const MemoryImage& image, std::uint64_t offset) {
  const std::uint64_t limit = limitOf(image, offset);
  Sequence sequence{.end = offset};
  for (const BlockView& block : image) {
    if (block.offset < offset) continue;
    if (block.offset >= limit) break;
    if (block.offset != sequence.end || !block.isSound()) {
      sequence.damaged = block;
      return sequence;
    }
    sequence.end += block.bytes.size();
    sequence.isEnded = block.kind == BlockKind::End;
    if (sequence.isEnded) break;
  }
  const ConstBytes after = image.bytes().subspan(sequence.end, limit - sequence.end);
  const auto used = std::ranges::find_if(after, [](unsigned char byte) { return byte != detail::erasedByte; });
  if (sequence.isEnded) sequence.room = static_cast<std::uint64_t>(used - after.begin());
  return sequence;
}

}  // namespace

std::optional<BlockView> firstBlockOf(const MemoryImage& image, unsigned short id) {
  for (const BlockView& block : image) {
    if (block.kind == BlockKind::OldStyle && block.id == id) return block;
  }
  return std::nullopt;
}

Placement replaceBlock(const MemoryImage& image, const BlockView& block, const QByteArray& bytes) {
  const auto size = static_cast<qsizetype>(block.bytes.size());
  if (size != bytes.size()) return {.result = PlacementResult::OtherSize};
  Placement placement{.image = copyOf(image), .offset = block.offset};
  placement.image.replace(static_cast<qsizetype>(block.offset), size, bytes);
  return placement;
}

Placement appendBlock(const MemoryImage& image, const QByteArray& bytes) {
  if (image.sectorSize() != 0) return {.result = PlacementResult::HasSectors};
  std::optional<BlockView> last;
  for (const BlockView& block : image) {
    if (!block.isSound()) return {.result = PlacementResult::Damaged, .damaged = block};
    last = block;
  }
  const bool isEnded = last && last->kind == BlockKind::End;
  if (!isEnded) return {.image = copyOf(image) + bytes, .offset = image.bytes().size()};
  const std::size_t rest = image.bytes().size() - (last->offset + last->bytes.size());
  if (rest < static_cast<std::size_t>(bytes.size())) return {.result = PlacementResult::NoRoom};
  Placement placement{.image = copyOf(image), .offset = last->offset};
  placement.image.insert(static_cast<qsizetype>(last->offset), bytes);
  placement.image.chop(bytes.size());
  return placement;
}

Placement insertBlock(const MemoryImage& image, std::uint64_t offset, const QByteArray& bytes) {
  const Sequence moved = sequenceFrom(image, offset);
  const auto size = static_cast<std::uint64_t>(bytes.size());
  if (moved.damaged) return {.result = PlacementResult::Damaged, .damaged = moved.damaged};
  if (moved.room < size) return {.result = PlacementResult::NoRoom, .missing = size - moved.room};
  Placement placement{.image = copyOf(image), .offset = offset};
  placement.image.insert(static_cast<qsizetype>(offset), bytes);
  placement.image.remove(static_cast<qsizetype>(moved.end + size), bytes.size());
  return placement;
}

Placement removeBlock(const MemoryImage& image, const BlockView& block) {
  const std::size_t size = block.bytes.size();
  const std::uint64_t next = block.offset + size;
  const bool isLast = next >= limitOf(image, block.offset);
  const Sequence moved = isLast ? Sequence{.end = next} : sequenceFrom(image, next);
  if (moved.damaged) return {.result = PlacementResult::Damaged, .damaged = moved.damaged};
  Placement placement{.image = copyOf(image), .offset = block.offset};
  const auto erased = static_cast<char>(detail::erasedByte);
  placement.image.insert(static_cast<qsizetype>(moved.end), static_cast<qsizetype>(size), erased);
  placement.image.remove(static_cast<qsizetype>(block.offset), static_cast<qsizetype>(size));
  return placement;
}

}  // namespace Velk
