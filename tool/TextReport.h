#pragma once

#include <string_view>

#include "Inputs.h"

namespace VelkTool {

/// Appends the line of a report about a block, including the line break.
using LineOf = void (*)(std::string& text, const Velk::BlockView& block);

/// Writes one line of text for each block of the inputs, after the heading and, with several files, the file name.
/// Calls `visit` for each block after its line.
void writeTextReport(Session& session, const Inputs& inputs, std::string_view heading, LineOf lineOf,
                     const BlockVisitor& visit);

}  // namespace VelkTool
