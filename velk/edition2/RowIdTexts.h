#pragma once

#include <string>
#include <vector>

#include "velk/bytes/Bytes.h"
#include "velk/edition2/TypeIds.h"

namespace Velk::detail {

/// Stored row ids as CommonDatablockAccess shows those of a table.
std::vector<std::string> rowIdTexts(ConstBytes ids, ETypeId type, unsigned int count);

}  // namespace Velk::detail
