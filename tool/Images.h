#pragma once

#include <string>

#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// Returns an offset as "0x00001F40", so that the offsets of an image align.
std::string offsetText(std::uint64_t offset);

/// Returns where a block is and its id, as "offset 0x00000040, id 2".
std::string placeText(const Velk::BlockView& block);

}  // namespace VelkTool
