#pragma once

#include <string>

#include "velk/oldstyle/BlockCatalogue.h"

namespace VelkTool {

/// Returns a short name of a type: "u16", "i32", "f64".
const char* typeCode(Velk::ScalarType type);

/// Returns which bits of a word a field has, as "bits 0 to 17".
std::string bitsText(const Velk::FieldInfo& field);

/// Returns a Markdown section with the offsets and types of the fields of a catalogue row, and what their values lie
/// over.
std::string layoutText(const Velk::CatalogueRow& row);

}  // namespace VelkTool
