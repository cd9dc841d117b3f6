#include "velk/image/MemoryImage.h"
#include "velk/bytes/ByteArray.h"

#include <algorithm>
#include <bit>
#include <optional>

namespace Velk {
namespace {

/// The greatest power of two that divides the distances of all sequences from the start, found block by block.
class SectorGrid {
 public:
  explicit SectorGrid(std::uint64_t start) : start_(start) {}

  void add(const BlockView& block) {
    if (block.kind == BlockKind::Stray || block.has(Finding::UnbelievableSize)) return;
    const bool begins = block.found == Found::OutOfSequence || block.offset == start_;
    if (begins && block.kind != BlockKind::End) {
      distances_ |= block.offset - start_;
      ++sequences_;
    }
  }

  std::uint64_t size() const {
    constexpr std::uint64_t smallest = 256;
    const std::uint64_t size = distances_ & (~distances_ + 1);
    return sequences_ > 1 && size >= smallest ? size : 0;
  }

 private:
  std::uint64_t start_;
  std::uint64_t distances_ = 0;
  unsigned sequences_ = 0;
};

std::size_t soundBlocks(const MemoryImage& image) {
  std::size_t sound = 0;
  for (const BlockView& block : image) sound += block.isSound() && block.kind != BlockKind::End ? 1 : 0;
  return sound;
}

}  // namespace

MemoryImage::MemoryImage(QByteArray bytes, std::uint64_t start, std::uint64_t sectorSize, Search search)
    : bytes_(std::move(bytes)), start_(start), sectorSize_(sectorSize), search_(search) {
  if (sectorSize == automaticSectorSize) sectorSize_ = suggestedSectorSize();
}

ConstBytes MemoryImage::bytes() const { return bytesOf(bytes_); }

MemoryImage::Iterator MemoryImage::begin() const { return Iterator(*this); }

std::vector<Region> MemoryImage::regions() const {
  std::vector<Region> regions;
  std::uint64_t position = std::min<std::uint64_t>(start_, bytes().size());
  const auto takeUpTo = [&](std::uint64_t end) {
    if (end > position)
      regions.push_back({position, end - position, lookOf(bytes().subspan(position, end - position))});
    position = end;
  };
  for (const BlockView& block : *this) {
    takeUpTo(block.offset);
    const std::uint64_t end = block.offset + block.bytes.size();
    if (block.kind == BlockKind::Stray) takeUpTo(end);
    position = end;
  }
  takeUpTo(bytes().size());
  return regions;
}

std::uint64_t MemoryImage::suggestedSectorSize() const {
  SectorGrid grid(start_);
  std::size_t sound = 0;
  for (const BlockView& block : MemoryImage(bytes_, start_)) {
    grid.add(block);
    sound += block.isSound() && block.kind != BlockKind::End ? 1 : 0;
  }
  const std::uint64_t size = grid.size();
  return size != 0 && soundBlocks(MemoryImage(bytes_, start_, size)) >= sound ? size : 0;
}

MemoryImage::Iterator::Iterator(const MemoryImage& image)
    : sectorSize_(image.sectorSize_),
      sectorStart_(std::min<std::uint64_t>(image.start_, image.bytes().size())),
      ahead_(image.bytes().subspan(sectorStart_)),
      search_(image.search_),
      walk_(takeSector(), sectorStart_, search_) {
  ++*this;
}

ConstBytes MemoryImage::Iterator::takeSector() {
  const std::size_t size = sectorSize_ == 0 ? ahead_.size() : std::min<std::uint64_t>(sectorSize_, ahead_.size());
  const ConstBytes sector = ahead_.first(size);
  ahead_ = ahead_.subspan(size);
  return sector;
}

MemoryImage::Iterator& MemoryImage::Iterator::operator++() {
  while (!(atBlock_ = walk_.next()) && !ahead_.empty()) {
    sectorStart_ += sectorSize_;
    walk_ = BlockWalk(takeSector(), sectorStart_, search_);
  }
  return *this;
}

}  // namespace Velk
