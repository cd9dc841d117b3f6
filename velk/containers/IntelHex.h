#pragma once

#include <span>
#include <string_view>

#include "velk/containers/ContainerText.h"

namespace Velk::detail {

/// Whether a text holds an Intel HEX record.
bool isIntelHex(std::string_view contents);

/// Reads Intel HEX: data, end, segmented and linear base addresses and entry points (record types 0 to 5).
ImageFile readIntelHex(QByteArray contents);

/// Writes Intel HEX with linear base addresses and the end record. Addresses are below 4 GiB.
QByteArray writeIntelHex(const ImageFile& image);

}  // namespace Velk::detail
