#pragma once

#include "JsonWriter.h"
#include "velk/data/BlockData.h"

namespace VelkTool {

/// Writes a block's data as the object that is the value of a key: lists as arrays, tables as arrays of rows, values
/// that the block is too short to have as null.
void writeData(JsonWriter& json, const Velk::BlockData& data, Velk::ValueForm form);

/// Adds members that describe the data: `units`, by field name without indices, and with `stored` the stored values of
/// those parts in which they are not the presented ones. Neither appears when it would be empty.
void writeDataNotes(JsonWriter& json, const Velk::BlockData& data, bool stored);

/// Writes one value.
void writeDataValue(JsonWriter& json, Velk::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form);

}  // namespace VelkTool
