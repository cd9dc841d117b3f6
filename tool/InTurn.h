#pragma once

#include <functional>

#include "Session.h"

namespace VelkTool {

/// Runs the parts 0 to `count` - 1 on all processors. The output of each part, written to the session that it is given,
/// appears in the order of the parts.
///
/// A part that is ahead of its turn waits once it has buffered about a megabyte, so that memory stays bounded. `act` is
/// called on several threads at once.
void inTurn(Session& whole, std::size_t count, const std::function<void(Session& part, std::size_t number)>& act);

}  // namespace VelkTool
