#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace Velk::detail {

/// `value` without its fraction as an integer: of 64 bits first, then reduced to the width of T. What no 64-bit integer
/// holds, and NaN, gives the least 64-bit integer, reduced likewise. (The plain conversion is undefined there.)
template <std::integral T>
constexpr T toInteger(double value) noexcept {
  constexpr double bound = 9223372036854775808.0;  // 2 to the power of 63
  if (value >= -bound && value < bound) return static_cast<T>(static_cast<std::int64_t>(value));
  if constexpr (std::is_unsigned_v<T> && sizeof(T) == sizeof(std::uint64_t)) {
    if (value >= bound && value < 2 * bound) return static_cast<T>(value);
  }
  return static_cast<T>(std::numeric_limits<std::int64_t>::min());
}

}  // namespace Velk::detail
