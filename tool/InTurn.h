#pragma once

#include <functional>

#include "Session.h"

namespace VelkTool {

/// Does the parts 0 to `count` - 1 of a run, on all processors. What each says to the session that it is given comes
/// out in the order of the parts, as if one had followed the other.
///
/// A part that is ahead of its turn is held back once it has said about a megabyte; so memory does not grow with what
/// is said. `act` is called on several threads at once.
void inTurn(Session& whole, std::size_t count, const std::function<void(Session& part, std::size_t number)>& act);

}  // namespace VelkTool
