#pragma once

#include "velk/data/BlockData.h"

namespace Velk {

/// What a path leads to, or why it leads nowhere.
struct DataLookup {
  std::optional<DataNode> value{};  ///< always a single value
  std::string complaint{};          ///< as "no field serialNumer; the nearest is serialNumber"; empty with a value
};

/// Finds a value by its path from a root: "serialNumber", "cells[2][5]", "tables[0].cells[2][1]".
VELK_EXPORT DataLookup findValue(const DataNode& root, std::string_view path);

/// Sets a value of a block to what `text` says; with the value's path and the reason, as "values[3]: 70000 is out of
/// range: -32768 to 32767", where it cannot be, else with an empty text. A count may not exceed what it counts. The
/// checks of the block are the caller's: see sealBlock. `block` are the bytes that `view` describes.
VELK_EXPORT std::string setValue(MutableBytes block, const BlockView& view, std::string_view path,
                                 std::string_view text, ValueForm form);

/// Makes the checks of a changed block right, whatever they were: the CRC-32 of a second-edition block, then the 16-bit
/// checksum, which covers it. Event counters keep their identifier, an end block has no check.
VELK_EXPORT void sealBlock(MutableBytes block, BlockKind kind);

/// Takes out of a block what tells the module from others of its kind, who had it and what users wrote into it: numbers
/// of modules, lots and repairs, names, departments, network addresses, descriptions become zeros. The checksum
/// follows, and one that was wrong stays as wrong as it was. Returns the names of the fields that held something.
/// `block` are the bytes that `view` describes.
VELK_EXPORT std::vector<std::string> redactBlock(MutableBytes block, const BlockView& view);

/// How far redaction reaches: what all bytes of a block tell may be known, of those that its fields cover only, or of
/// none. Erased memory and zeros tell nothing.
enum class RedactionReach : unsigned char { All, Fields, Nothing };

/// How far redaction reaches in a block.
VELK_EXPORT RedactionReach redactionReach(const BlockView& block);

}  // namespace Velk
