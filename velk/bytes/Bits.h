#pragma once

#include <cstdint>

namespace Velk {

/// The part of an integer that a field occupies; width 0 means all of it.
struct Bits {
  unsigned char shift = 0;
  unsigned char width = 0;
  bool isSigned = false;
};

namespace detail {

/// The bits of an integer that a field occupies.
template <class T>
constexpr std::int64_t partOf(T word, Bits bits) {
  const std::int64_t span = std::int64_t{1} << bits.width;
  const std::int64_t part = static_cast<std::int64_t>(word >> bits.shift) & (span - 1);
  return bits.isSigned && part >= span / 2 ? part - span : part;
}

/// The integer with another part, which is reduced to the bits that it has. The other bits stay.
template <class T>
constexpr T withPart(T word, Bits bits, std::int64_t part) {
  const std::int64_t mask = ((std::int64_t{1} << bits.width) - 1) << bits.shift;
  return static_cast<T>((static_cast<std::int64_t>(word) & ~mask) | ((part << bits.shift) & mask));
}

}  // namespace detail
}  // namespace Velk
