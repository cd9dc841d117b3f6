#pragma once

#include <string>

#include "CommandTable.h"

namespace VelkTool {

/// Return the scripts with which a shell completes subcommands, options, their values and file names.
std::string bashCompletion(const std::vector<CommandRow>& commands);
std::string zshCompletion(const std::vector<CommandRow>& commands);
std::string fishCompletion(const std::vector<CommandRow>& commands);

/// Returns the manual page as roff.
std::string manualPage(const std::vector<CommandRow>& commands, const std::string& version);

}  // namespace VelkTool
