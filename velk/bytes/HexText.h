#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace Velk::detail {

inline constexpr std::string_view hexDigits = "0123456789ABCDEF";
inline constexpr std::string_view lowerHexDigits = "0123456789abcdef";

/// "0x00F4": at least `width` digits.
inline std::string hexText(std::uint64_t value, unsigned width) {
  const std::size_t digits = std::max<std::size_t>(width, (static_cast<unsigned>(std::bit_width(value)) + 3) / 4);
  std::string text(2 + digits, '0');
  text[1] = 'x';
  for (auto digit = text.rbegin(); value != 0; value >>= 4U) *digit++ = hexDigits[value & 0xFU];
  return text;
}

}  // namespace Velk::detail
