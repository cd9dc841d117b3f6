#pragma once

#include "Inputs.h"
#include "JsonWriter.h"
#include "Selection.h"

namespace VelkTool {

/// The version of the command's JSON documents; docs/velk-1.schema.json describes them.
inline constexpr const char* jsonSchema = "velk/1";

/// Adds --json to a subcommand; the flag is set when its callback runs.
std::shared_ptr<const bool> addJson(CLI::App& command);

/// What a block's object says beside the usual members; called for each block of the report. What there is to say
/// beside the document belongs to `session`.
using DescribeBlock =
    std::function<void(JsonWriter& json, Session& session, const Input& input, const Velk::BlockView& block)>;

/// Writes what the inputs are and which of the selected blocks they hold, sound or not, as one JSON document.
void writeJsonReport(Session& session, const Inputs& inputs, const Selection& selection, const DescribeBlock& describe);

/// Writes the same of all blocks, with the usual members only; `visit` sees each block as it is written.
void writeJsonSummary(Session& session, const Inputs& inputs, const BlockVisitor& visit);

/// Writes the same as a line for each block, which says of which file it is, and a line for each file that cannot be
/// read.
void writeJsonLines(Session& session, const Inputs& inputs, const Selection& selection, const DescribeBlock& describe);

}  // namespace VelkTool
