#pragma once

#include <string_view>

#include "Inputs.h"

namespace VelkTool {

/// Appends what a report says of a block, with the end of the line.
using LineOf = void (*)(std::string& text, const Velk::BlockView& block);

/// Writes one line for each block of the inputs, for people: below the heading, and where there are several files,
/// below the file's name. `visit` sees each block behind its line.
void writeTextReport(Session& session, const Inputs& inputs, std::string_view heading, LineOf lineOf,
                     const BlockVisitor& visit);

}  // namespace VelkTool
