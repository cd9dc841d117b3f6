#pragma once

#include "JsonWriter.h"
#include "velk/data/BlockData.h"

namespace VelkTool {

/// Writes the data of a block as an object: lists as arrays, tables as arrays of rows, values past the end of a short
/// block as null.
void writeData(JsonWriter& json, const Velk::BlockData& data, Velk::ValueForm form);

/// Adds the members that describe the data: `units` by field name without indices, `texts` of the fields that print
/// writes in a notation of their own, and with `stored` the stored values of all scaled fields. Empty members are
/// omitted.
void writeDataNotes(JsonWriter& json, const Velk::BlockData& data, bool stored);

/// Writes one value.
void writeDataValue(JsonWriter& json, Velk::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form);

}  // namespace VelkTool
