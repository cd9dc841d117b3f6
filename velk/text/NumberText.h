#pragma once

#include <string>

#include "velk/Export.h"

namespace Velk {

/// The decimal digits of `value` with zeros before them up to `width` characters; a number that is wider is written in
/// full.
VELK_EXPORT std::string turnInt2String(unsigned int value, unsigned int width);

}  // namespace Velk
