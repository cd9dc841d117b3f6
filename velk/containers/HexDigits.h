#pragma once

#include <QByteArray>
#include <array>
#include <string_view>

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

constexpr bool isHexDigit(char c) { return hexDigitValue(c) < 16; }

/// Appends the bytes of pairs of digits, between which there may be spaces.
inline void appendHexBytes(QByteArray& bytes, std::string_view digits) {
  for (std::size_t at = 0; at + 1 < digits.size();) {
    const bool isSpace = digits[at] == ' ';
    if (!isSpace) bytes += static_cast<char>(hexDigitValue(digits[at]) << 4U | hexDigitValue(digits[at + 1]));
    at += isSpace ? 1 : 2;
  }
}

}  // namespace Velk::detail
