#include "velk/image/BlockPlacement.h"

namespace Velk {
namespace {

QByteArray copyOf(const MemoryImage& image) {
  return {reinterpret_cast<const char*>(image.bytes().data()), static_cast<qsizetype>(image.bytes().size())};
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

}  // namespace Velk
