#pragma once

#include <functional>

#include "velk/data/BlockData.h"

namespace Velk {

/// What a path leads to, or why it leads nowhere.
struct DataLookup {
  std::optional<DataNode> value{};
  std::string path{};       ///< with each member under its name in exports, even if it is called by its key
  std::string complaint{};  ///< such as "no field serialNumer; the nearest is serialNumber"; empty with a value
};

/// Finds a single value by its path from a root: "serialNumber", "cells[2][5]", "tables[0].cells[2][1]". Members may
/// also be called by their keys in the text of the block: "SN".
VELK_EXPORT DataLookup findValue(const DataNode& root, std::string_view path);

/// Finds what a path leads to, be it a value, a list or a record.
VELK_EXPORT DataLookup findPlace(const DataNode& root, std::string_view path);

/// Calls `act` with the path and the place of each value at and below what a path leads to. Indices may be ranges:
/// "values[0:5]" are the first five. An empty path leads to the root. Returns why the path leads nowhere; empty if it
/// leads somewhere.
VELK_EXPORT std::string forEachFound(const DataNode& root, std::string_view path,
                                     const std::function<void(const DataPath&, const FieldElement&)>& act);

}  // namespace Velk
