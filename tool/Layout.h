#pragma once

#include <string>

#include "velk/oldstyle/BlockCatalogue.h"

namespace VelkTool {

/// Returns a Markdown section with the offsets and types of the fields of a catalogue row.
std::string layoutText(const Velk::CatalogueRow& row);

}  // namespace VelkTool
