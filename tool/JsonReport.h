#pragma once

#include "Inputs.h"
#include "JsonWriter.h"
#include "Selection.h"

namespace VelkTool {

/// The version of the command's JSON documents; docs/velk-1.schema.json describes them.
inline constexpr const char* jsonSchema = "velk/1";

/// Writes the name of a file, as it was given, as the member `key`. A name that is not UTF-8 is shown as Latin-1, and
/// its bytes stand in another member, in hexadecimal: different names stay different.
void writeFileName(JsonWriter& json, const std::string& key, const std::string& name);

/// Adds --json to a subcommand; the flag is set when its callback runs.
std::shared_ptr<const bool> addJson(CLI::App& command);

/// What a block's object says beside the usual members; called for each block of the report. What there is to say
/// beside the document belongs to `session`.
using DescribeBlock =
    std::function<void(JsonWriter& json, Session& session, const Input& input, const Velk::BlockView& block)>;

/// Writes what the inputs are and which of the selected blocks they hold, sound or not, as one JSON document.
void writeJsonReport(Session& session, const Inputs& inputs, SearchedBlocks& searched, const DescribeBlock& describe);

/// Writes the same of all blocks, with the usual members only; `visit` sees each block as it is written.
void writeJsonSummary(Session& session, const Inputs& inputs, const BlockVisitor& visit);

/// Writes the same as a line for each block, which says of which file it is. A file that cannot be read or holds no
/// block has a line too: of no kind and with a finding, so that whoever reads lines finds the same members in all.
void writeJsonLines(Session& session, const Inputs& inputs, SearchedBlocks& searched, const DescribeBlock& describe);

}  // namespace VelkTool
