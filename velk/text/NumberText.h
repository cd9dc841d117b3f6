#pragma once

#include <charconv>
#include <string>

#include "velk/Export.h"

namespace Velk {

/// The decimal digits of `value` with zeros before them up to `width` characters; a number that is wider is written in
/// full.
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
