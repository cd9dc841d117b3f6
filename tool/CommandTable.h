#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace VelkTool {

/// What the command line takes at one place: an option, a flag or an argument.
struct OptionRow {
  std::vector<std::string> names{};  ///< as typed, "-o" before "--output"; of an argument what it is called
  std::string value{};               ///< what the value is called; empty for flags
  std::string description{};
  bool isArgument = false;
  bool isRequired = false;
  bool repeats = false;
  int atMost = 1;  ///< how often it may be given

  /// The values that are possible, where the option says so.
  std::vector<std::string> choices() const;
};

/// One subcommand.
struct CommandRow {
  std::string name{};  ///< with the names of those above it: "table export"; empty for velk itself
  std::string description{};
  std::string notes{};                  ///< what its help says behind the options
  std::vector<std::string> examples{};  ///< command lines
  std::vector<OptionRow> options{};
  bool hasSubcommands = false;

  std::string lastName() const { return name.substr(name.find_last_of(' ') + 1); }
  std::string parent() const { return name.substr(0, name.size() - lastName().size() - (lastName() == name ? 0 : 1)); }
};

/// The command line as the parser knows it, velk itself first, each subcommand behind the one that it belongs to: what
/// completions and the manual are made from.
std::vector<CommandRow> commandTable(const CLI::App& app);

}  // namespace VelkTool
