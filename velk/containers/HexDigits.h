#pragma once

#include <array>

namespace Velk::detail {

inline constexpr std::array<unsigned char, 256> hexDigitValues = [] {
  std::array<unsigned char, 256> values{};
  values.fill(16);
  for (unsigned char digit = 0; digit < 10; ++digit) values[static_cast<unsigned char>('0' + digit)] = digit;
  for (unsigned char digit = 10; digit < 16; ++digit) {
    values[static_cast<unsigned char>('A' + digit - 10)] = digit;
    values[static_cast<unsigned char>('a' + digit - 10)] = digit;
  }
  return values;
}();

/// Returns the value of a hexadecimal digit, or 16.
constexpr unsigned hexDigitValue(char digit) { return hexDigitValues[static_cast<unsigned char>(digit)]; }

}  // namespace Velk::detail
