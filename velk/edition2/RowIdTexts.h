#pragma once

#include <string>
#include <vector>

#include "velk/bytes/Bytes.h"
#include "velk/edition2/TypeIds.h"

namespace Velk::detail {

/// Returns stored row ids as the texts that CommonDatablockAccess reads from a table.
std::vector<std::string> rowIdTexts(ConstBytes ids, ETypeId type, unsigned int count);

}  // namespace Velk::detail
