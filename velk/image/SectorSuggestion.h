#pragma once

#include <cstdint>

#include "velk/Export.h"
#include "velk/image/MemoryImage.h"

namespace Velk {

/// Finds the size of sectors that a memory suggests, from the blocks of a walk that is made anyway.
class VELK_EXPORT SectorSuggestion {
 public:
  /// The image is one that is walked without sectors, and outlives this.
  explicit SectorSuggestion(const MemoryImage& image) : image_(image) {}

  /// Takes the next block of the walk.
  void add(const BlockView& block);
  /// Returns the size after the last block; 0 if there is none. Only if there is one, the memory is walked again.
  std::uint64_t size() const;

 private:
  std::uint64_t grid() const;

  const MemoryImage& image_;
  std::uint64_t distances_ = 0;  ///< of all sequences from the start of the walk, as one set of bits
  std::uint64_t sequences_ = 0;
  std::uint64_t sound_ = 0;  ///< number of sound blocks
};

}  // namespace Velk
