#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "velk/Export.h"

namespace Velk::detail {

/// The name that a mistyped one is nearest to, upper and lower case being alike: of several the first, and none that
/// differs from it in more than `atMost` characters. Empty where there is none, or where `name` is too long for a
/// mistyped one.
VELK_EXPORT std::string_view nearestName(std::string_view name, std::span<const std::string> names,
                                         std::size_t atMost = std::numeric_limits<std::size_t>::max());

}  // namespace Velk::detail
