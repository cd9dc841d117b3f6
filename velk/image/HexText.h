#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Velk::detail {

inline constexpr std::string_view hexDigits = "0123456789ABCDEF";

/// "0x00F4": at least `width` digits.
inline std::string hexText(std::uint64_t value, unsigned width) {
  char digits[16];
  char* const end = digits + sizeof digits;
  char* first = end;
  for (; value != 0; value >>= 4U) *--first = hexDigits[value & 0xFU];
  while (end - first < static_cast<std::ptrdiff_t>(width)) *--first = '0';
  return "0x" + std::string(first, end);
}

}  // namespace Velk::detail
