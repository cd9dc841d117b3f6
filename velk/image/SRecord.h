#pragma once

#include <string_view>

#include "velk/Export.h"
#include "velk/image/SparseImage.h"

namespace Velk {

/// Reads an S-record text: the header, data at addresses of 16, 24 and 32 bits, counts of the data records and entry
/// points (S0 to S3, S5 to S9).
///
/// Each record's checksum and length are checked; the first line that is no such record, or that gives an address a
/// second time, ends the reading with an error. Blank lines and blanks at the ends of lines are let pass.
VELK_EXPORT SparseImage readSRecords(std::string_view text);

/// The text of an image, whose addresses are below 4 GiB: the header where there is one, data records of the shortest
/// kind that reaches every address, and the end record.
VELK_EXPORT QByteArray writeSRecords(const SparseImage& image);

}  // namespace Velk
