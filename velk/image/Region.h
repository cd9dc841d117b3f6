#pragma once

#include <cstdint>

#include "velk/Export.h"
#include "velk/bytes/Bytes.h"

namespace Velk {

/// What bytes look like that belong to no block.
enum class RegionLook : unsigned char {
  Erased,       ///< nothing but FF
  Zeros,        ///< nothing but zeros
  Text,         ///< characters of ASCII and line ends, for the most part
  HighEntropy,  ///< as evenly spread as compressed or encrypted data
  Other,
};

/// "erased", "zeros", "text", "high-entropy" or "other".
VELK_EXPORT const char* lookName(RegionLook look);

/// What bytes look like. Of many bytes, samples decide on text and entropy.
VELK_EXPORT RegionLook lookOf(ConstBytes bytes);

/// Bytes of an image that no block covers.
struct Region {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
  RegionLook look = RegionLook::Other;

  bool operator==(const Region&) const = default;
};

}  // namespace Velk
