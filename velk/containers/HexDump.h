#pragma once

#include <string_view>

#include "velk/containers/ImageFile.h"

namespace Velk::detail {

/// Whether a text holds a hex dump: lines with offsets that follow from each other or with the bytes beside them as
/// text, or nothing but hexadecimal digits.
bool isHexDump(std::string_view contents);

/// Reads a hex dump as xxd, hexdump and od print it, with whatever stands around it. Offsets are hexadecimal, octal or
/// decimal, whichever makes the lines follow each other. Words of 16 bits are taken with the lower byte first.
ImageFile readHexDump(QByteArray contents);

}  // namespace Velk::detail
