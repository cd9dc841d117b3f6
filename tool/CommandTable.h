#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace VelkTool {

/// An option, flag or argument of the command line.
struct OptionRow {
  std::vector<std::string> names{};  ///< as typed, "-o" before "--output"; the name of an argument
  std::string value{};               ///< name of the value; empty for flags
  std::string description{};
  bool isArgument = false;
  bool isRequired = false;
  bool repeats = false;
  int atMost = 1;  ///< maximum number of occurrences

  /// Returns the accepted values; empty if the option takes any.
  std::vector<std::string> choices() const;
  /// Returns the kind of values that `velk complete` finds; empty if the option takes others.
  std::string found() const;
};

/// One subcommand.
struct CommandRow {
  std::string name{};  ///< with the names of its parents: "table export"; empty for velk itself
  std::string description{};
  std::string notes{};                  ///< the help text after the options
  std::vector<std::string> examples{};  ///< command lines
  std::vector<OptionRow> options{};
  bool hasSubcommands = false;

  std::string lastName() const { return name.substr(name.find_last_of(' ') + 1); }
  std::string parent() const { return name.substr(0, name.size() - lastName().size() - (lastName() == name ? 0 : 1)); }
};

/// Returns the command line as the parser defines it: velk itself first, each subcommand after its parent. Completion
/// scripts and the manual page are generated from it.
std::vector<CommandRow> commandTable(const CLI::App& app);

}  // namespace VelkTool
