#pragma once

#include "JsonWriter.h"

namespace VelkTool {

/// The version of the catalogue as JSON, which docs/velk-ids-1.schema.json describes.
inline constexpr const char* catalogueSchema = "velk-ids/1";

/// Writes all ids that have a class as one JSON document: their names, classes, sizes, fields and pairs.
void writeCatalogue(JsonWriter& json);

}  // namespace VelkTool
