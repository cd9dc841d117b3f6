#pragma once

#include <concepts>
#include <cstdint>
#include <limits>

namespace Velk::detail {

/// A floating value as an integer, truncated toward zero. What no 64-bit integer can hold, and NaN, gives the 64-bit
/// minimum, reduced to the width of the result: a plain conversion would be undefined.
template <std::integral Integer>
constexpr Integer toInteger(long double value) noexcept {
  constexpr long double limit = 9223372036854775808.0L;
  const bool fits = value >= -limit && value < limit;
  return static_cast<Integer>(fits ? static_cast<std::int64_t>(value) : std::numeric_limits<std::int64_t>::min());
}

}  // namespace Velk::detail
