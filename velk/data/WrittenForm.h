#pragma once

#include <optional>

#include "velk/data/BlockData.h"

namespace Velk {

/// Returns a value, or a list that is one address, in the notation of its field, such as 1141.1000.02; nothing if the
/// field has none.
VELK_EXPORT std::optional<std::string> writtenForm(const BlockData& data, const DataNode& node);

}  // namespace Velk
