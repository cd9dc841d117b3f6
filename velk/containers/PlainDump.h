#pragma once

#include <string_view>

#include "velk/containers/ContainerText.h"

namespace Velk::detail {

/// Whether a text is nothing but pairs of hexadecimal digits in lines of one length, of which the last may be shorter.
bool isPlainDump(std::string_view text);

/// Reads lines of hexadecimal digits without offsets, as xxd -p prints them, one after another.
ContainerText readPlainDump(std::string_view text);

}  // namespace Velk::detail
