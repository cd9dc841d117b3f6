#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace Velk::detail {

/// A floating value as an integer, truncated toward zero: to 64 bits first, then reduced to the width of the result.
/// What no 64-bit integer can hold, and NaN, gives the 64-bit minimum, reduced likewise: a plain conversion would be
/// undefined.
template <std::integral Integer>
constexpr Integer toInteger(long double value) noexcept {
  constexpr long double limit = 9223372036854775808.0L;
  if (value >= -limit && value < limit) return static_cast<Integer>(static_cast<std::int64_t>(value));
  if constexpr (std::is_unsigned_v<Integer> && sizeof(Integer) == sizeof(std::uint64_t)) {
    if (value >= limit && value < 2 * limit) return static_cast<Integer>(value);
  }
  return static_cast<Integer>(std::numeric_limits<std::int64_t>::min());
}

}  // namespace Velk::detail
