#pragma once

#include "velk/data/BlockData.h"

namespace Velk {

/// What a path leads to, or why it leads nowhere.
struct DataLookup {
  std::optional<DataNode> value{};  ///< always a single value
  std::string complaint{};          ///< such as "no field serialNumer; the nearest is serialNumber"; empty with a value
};

/// Finds a value by its path from a root: "serialNumber", "cells[2][5]", "tables[0].cells[2][1]".
VELK_EXPORT DataLookup findValue(const DataNode& root, std::string_view path);

}  // namespace Velk
