#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Session.h"
#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// "0x00001F40": offsets of one image align.
std::string offsetText(std::uint64_t offset);

/// "offset 0x00000040, id 2": where a complaint belongs.
std::string placeText(const Velk::BlockView& block);

/// Calls `act` with every finding of a block, the most important first.
void forEachFinding(const Velk::BlockView& block, const std::function<void(Velk::Finding finding)>& act);

/// Tells every finding of a block that is not sound on standard error.
void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block);

/// Does the same and counts them.
void complainOf(Session& session, const std::string& file, const Velk::BlockView& block);

}  // namespace VelkTool
