#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace VelkTool {

/// What is wrong with a command line: the command, option or argument that it is about, empty for velk itself, and what
/// was given and would be taken.
struct UsageError {
  std::string place;
  std::string what;
};

/// What the parser's complaint comes down to. The first word that nobody knows goes before all else: a mistyped one
/// leaves another missing.
UsageError usageError(const CLI::App& app, const CLI::ParseError& error);

/// "no command "lsit"; the nearest is list", where one of the names is near, else where they are listed: by "velk help"
/// and `command`.
std::string noSuchName(const std::string& kind, const std::string& name, const std::vector<std::string>& names,
                       const std::string& command);

}  // namespace VelkTool
