#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Session.h"
#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// Reads each file and hands its image on; a file that cannot be read is told and counted.
void forEachImage(Session& session, const std::vector<std::string>& files,
                  const std::function<void(const std::string& file, const Velk::MemoryImage& image)>& act);

/// "0x00001F40": offsets of one image align.
std::string offsetText(std::uint64_t offset);

/// "offset 0x00000040, id 2": where a complaint belongs.
std::string placeText(const Velk::BlockView& block);

/// Tells every finding of a block on standard error, remarks excepted, and counts them.
void complainOf(Session& session, const std::string& file, const Velk::BlockView& block);

}  // namespace VelkTool
