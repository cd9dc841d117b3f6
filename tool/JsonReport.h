#pragma once

#include "Inputs.h"
#include "JsonWriter.h"
#include "Selection.h"
#include "velk/checks/Checks.h"

namespace VelkTool {

/// The version of the command's JSON documents, which docs/velk-1.schema.json describes.
inline constexpr const char* jsonSchema = "velk/1";

/// Writes the name of a file, as it was given, as the member `key`. A name that is not valid UTF-8 is written as
/// Latin-1, and another member has its bytes in hexadecimal, so that different names stay different.
void writeFileName(JsonWriter& json, const std::string& key, const std::string& name);

/// Adds --json to a subcommand; the flag is set when its callback runs.
std::shared_ptr<const bool> addJson(CLI::App& command);

/// Adds members of its own to a block's object; called for each block of the report. Messages go to `session`.
using DescribeBlock =
    std::function<void(JsonWriter& json, Session& session, const Input& input, const Velk::BlockView& block)>;

/// Returns the checks that every report makes: those of the walk and of the counts and tables.
Velk::CheckOptions plainChecks();

/// Writes one JSON document that describes the inputs and the selected blocks in them, sound or not. Errors among the
/// findings let the command exit with Exit::Findings.
void writeJsonReport(Session& session, const Inputs& inputs, SearchedBlocks& searched,
                     const Velk::CheckOptions& options, const DescribeBlock& describe);

/// Writes that document for all blocks, without further members; calls `visit`, if set, with each block.
void writeJsonSummary(Session& session, const Inputs& inputs, const Velk::CheckOptions& options,
                      const BlockVisitor& visit);

/// Writes a line of JSON for each block, which names its file. A file that cannot be read or holds no block has a line
/// too, of kind "none" and with a finding, so that every line has the same members.
void writeJsonLines(Session& session, const Inputs& inputs, SearchedBlocks& searched, const DescribeBlock& describe);

}  // namespace VelkTool
