#pragma once

#include <string_view>

#include "velk/Export.h"
#include "velk/image/SparseImage.h"

namespace Velk {

/// Reads an Intel HEX text: data, end, segmented and linear base addresses and entry points (record types 0 to 5).
///
/// Each record's checksum and length are checked; the first line that is no such record, or that gives an address a
/// second time, ends the reading with an error. Blank lines and blanks at the ends of lines are let pass.
VELK_EXPORT SparseImage readIntelHex(std::string_view text);

/// The text of an image, whose addresses are below 4 GiB, with linear base addresses and the end record.
VELK_EXPORT QByteArray writeIntelHex(const SparseImage& image);

}  // namespace Velk
