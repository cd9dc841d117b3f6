#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace VelkTool {

/// An error in the command line: the command, option or argument that it concerns (empty for velk itself), and what was
/// given and what is accepted.
struct UsageError {
  std::string place;
  std::string what;
};

/// Translates an error of the parser. An unknown word takes precedence: a mistyped one leaves another missing.
UsageError usageError(const CLI::App& app, const CLI::ParseError& error);

/// Returns `unknown command "lsit"; the nearest is list` if a name is near, else where the names are listed: by
/// "velk help" and `command`.
std::string unknownName(const std::string& kind, const std::string& name, const std::vector<std::string>& names,
                        const std::string& command);

}  // namespace VelkTool
