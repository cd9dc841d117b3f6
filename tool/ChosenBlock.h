#pragma once

#include <optional>
#include <string>

#include "Selection.h"

namespace VelkTool {

/// Reports why an image is not changed, and counts that. Returns nothing.
std::nullopt_t refuseChange(Session& session, const std::string& file, const std::string& what,
                            Exit exit = Exit::Findings);

/// Whether a block that is not sound may be chosen.
enum class Unsound : unsigned char {
  Taken,
  NeedsForce,  ///< not, but it may with --force
  Refused,
};

/// Returns the one block of an image that a selection finds. Reports and counts if there is none, if there are several,
/// if its size cannot be believed, or if it is not sound.
std::optional<Velk::BlockView> chooseBlock(Session& session, const Input& input, const Selection& selection,
                                           Unsound unsound);

}  // namespace VelkTool
