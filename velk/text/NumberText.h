#pragma once

#include <charconv>
#include <string>

#include "velk/Export.h"

namespace Velk {

/// Returns the decimal digits of `value`, padded on the left with zeros to `width` characters. A wider number is
/// written in full.
VELK_EXPORT std::string turnInt2String(unsigned int value, unsigned int width);

namespace detail {

/// Returns the shortest decimal that reads back as the same number.
template <class T>
std::string numberText(T value) {
  char digits[64];
  return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

}  // namespace detail
}  // namespace Velk
