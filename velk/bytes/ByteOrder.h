#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <type_traits>

namespace Velk::detail {

/// Converts a value in place between the stored, little-endian layout and the host's. The one place that knows the
/// host's byte order; a sub-record goes whole, which only a host with the stored layout allows.
template <class T>
constexpr void swapStoredAndHost([[maybe_unused]] T& value) noexcept {
  static_assert(std::is_arithmetic_v<T> || std::endian::native == std::endian::little);
  if constexpr (std::endian::native == std::endian::big && sizeof(T) > 1) {
    auto bytes = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
    std::reverse(bytes.begin(), bytes.end());
    value = std::bit_cast<T>(bytes);
  }
}

}  // namespace Velk::detail
