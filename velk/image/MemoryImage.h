#pragma once

#include <QByteArray>
#include <iterator>
#include <vector>

#include "velk/image/BlockWalk.h"
#include "velk/image/Region.h"

namespace Velk {

/// Selects the sector size that the memory itself suggests.
inline constexpr std::uint64_t automaticSectorSize = ~std::uint64_t{0};

/// The bytes of a module memory, and the blocks in it.
///
/// Blocks follow one another, each as long as its header says, up to the end block or the last byte. If the sequence is
/// broken, by damage or by other data, the walk continues at the next block that can be verified, at any offset;
/// docs/memory_image.md has the rules. The same bytes always give the same blocks.
///
/// Nothing is lost: every byte is in one view, except for erased memory after an end block. Walking takes time
/// proportional to the bytes, whatever they are, and at most an eighth of their memory.
///
/// The image owns its bytes; views and iterators are valid while it lives.
///
/// A flash memory has a sequence in each of its sectors; offsets count from the image's first byte there too.
class VELK_EXPORT MemoryImage {
 public:
  class Iterator;

  /// Walks `bytes` from offset `start` on, without looking at any before it: as one memory, or in sectors of
  /// `sectorSize` bytes, the first of which begins at `start` and the last of which may be shorter. automaticSectorSize
  /// uses the suggested size.
  explicit MemoryImage(QByteArray bytes, std::uint64_t start = 0, std::uint64_t sectorSize = 0,
                       Search search = Search::Everywhere);

  Iterator begin() const;
  static std::default_sentinel_t end() { return {}; }

  ConstBytes bytes() const;
  /// Returns the offset at which the walk begins.
  std::uint64_t start() const { return start_; }
  /// Returns the same image, walked in sectors of this size.
  MemoryImage inSectors(std::uint64_t sectorSize) const;
  /// Returns the size used by the walk; 0 for one memory without sectors.
  std::uint64_t sectorSize() const { return sectorSize_; }

  /// Returns what no block covers from the start of the walk on, in order: stray bytes and erased memory.
  std::vector<Region> regions() const;

  /// Returns the sector size that explains where the sequences begin in a memory that is walked without sectors; 0 if
  /// it has only one, or if they begin anywhere.
  std::uint64_t suggestedSectorSize() const;

 private:
  QByteArray bytes_;
  std::uint64_t start_;
  std::uint64_t sectorSize_;
  Search search_;
};

class VELK_EXPORT MemoryImage::Iterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = BlockView;
  using difference_type = std::ptrdiff_t;
  using pointer = const BlockView*;
  using reference = const BlockView&;

  explicit Iterator(const MemoryImage& image);

  reference operator*() const { return walk_.block(); }
  pointer operator->() const { return &walk_.block(); }
  Iterator& operator++();
  void operator++(int) { ++*this; }
  bool operator==(std::default_sentinel_t) const { return !atBlock_; }

 private:
  ConstBytes takeSector();

  std::uint64_t sectorSize_;
  std::uint64_t sectorStart_;
  ConstBytes ahead_;  ///< what follows the sector that is walked
  Search search_;
  BlockWalk walk_;
  bool atBlock_ = false;
};

}  // namespace Velk
