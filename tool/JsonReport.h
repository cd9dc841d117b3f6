#pragma once

#include "Inputs.h"

namespace VelkTool {

/// The version of the command's JSON documents; docs/velk-1.schema.json describes them.
inline constexpr const char* jsonSchema = "velk/1";

/// Adds --json to a subcommand; the flag is set when its callback runs.
std::shared_ptr<const bool> addJson(CLI::App& command);

/// Writes what the inputs are and which blocks they hold, sound or not, as one JSON document. `visit` sees each block
/// as it is written.
void writeJsonReport(Session& session, const Inputs& inputs, const BlockVisitor& visit);

}  // namespace VelkTool
