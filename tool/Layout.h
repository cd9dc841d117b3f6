#pragma once

#include <string>

#include "velk/oldstyle/BlockCatalogue.h"

namespace VelkTool {

/// A section of Markdown that shows where the fields of a row's blocks lie, for someone who holds a dump.
std::string layoutText(const Velk::CatalogueRow& row);

}  // namespace VelkTool
