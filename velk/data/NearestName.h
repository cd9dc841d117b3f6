#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "velk/Export.h"

namespace Velk::detail {

/// Returns the name nearest to a mistyped one, ignoring case: the first if
/// there are several, and none that differs in more than `atMost` characters.
/// Empty if there is none, or if `name` is too long for a mistyped name.
VELK_EXPORT std::string_view nearestName(std::string_view name, std::span<const std::string> names,
                                         std::size_t atMost = std::numeric_limits<std::size_t>::max());

}  // namespace Velk::detail
