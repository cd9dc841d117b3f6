#include "velk/image/MemoryImage.h"

#include <algorithm>

#include "velk/bytes/ByteArray.h"
#include "velk/image/SectorSuggestion.h"

namespace Velk {

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
  const MemoryImage whole(bytes_, start_);
  SectorSuggestion suggestion(whole);
  for (const BlockView& block : whole) suggestion.add(block);
  return suggestion.size();
}

MemoryImage MemoryImage::inSectors(std::uint64_t sectorSize) const { return MemoryImage(bytes_, start_, sectorSize); }

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
