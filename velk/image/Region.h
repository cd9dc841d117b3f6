#pragma once

#include <cstdint>

#include "velk/Export.h"
#include "velk/bytes/Bytes.h"

namespace Velk {

/// What bytes that belong to no block look like.
enum class RegionLook : unsigned char {
  Erased,       ///< nothing but FF
  Zeros,        ///< nothing but zeros
  Text,         ///< mostly ASCII characters and line ends
  HighEntropy,  ///< as evenly spread as compressed or encrypted data
  Other,
};

/// Returns "erased", "zeros", "text", "high-entropy" or "other".
VELK_EXPORT const char* lookName(RegionLook look);

/// Returns what bytes look like. Of many bytes, samples decide on text and entropy.
VELK_EXPORT RegionLook lookOf(ConstBytes bytes);

/// Bytes of an image that no block covers.
struct Region {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
  RegionLook look = RegionLook::Other;

  bool operator==(const Region&) const = default;
};

}  // namespace Velk
