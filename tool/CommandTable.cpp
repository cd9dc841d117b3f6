#include "CommandTable.h"

#include <sstream>

namespace VelkTool {
namespace {

OptionRow rowOf(const CLI::Option& option) {
  OptionRow row{.description = option.get_description()};
  row.isArgument = option.get_positional();
  row.isRequired = option.get_required();
  row.atMost = option.get_expected_max();
  row.repeats = row.atMost > 1;
  if (row.isArgument) row.names.push_back(option.get_name());
  for (const std::string& name : option.get_snames()) row.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) row.names.push_back("--" + name);
  // The parser appends a colon and the names of its checks to the type name.
  if (option.get_expected_max() > 0) row.value = option.get_type_name().substr(0, option.get_type_name().find(':'));
  return row;
}

bool isHidden(const CLI::App& command) { return !command.get_name().empty() && command.get_group().empty(); }

/// Splits the footer of a help text into notes and examples.
void takeFooter(const std::string& footer, CommandRow& row) {
  std::istringstream lines(footer);
  bool examples = false;
  for (std::string line; std::getline(lines, line);) {
    if (line == "Example:" || line == "Examples:") {
      examples = true;
    } else if (examples && line.starts_with("  ")) {
      row.examples.push_back(line.substr(2));
    } else if (!line.empty()) {
      row.notes += (row.notes.empty() ? "" : " ") + line;
    }
  }
}

void addRows(const CLI::App& app, const std::string& name, std::vector<CommandRow>& rows) {
  CommandRow row{.name = name, .description = app.get_description()};
  takeFooter(app.get_footer(), row);
  std::vector<const CLI::App*> below;
  const auto takeOptions = [&](const CLI::App& from) {
    for (const CLI::Option* const option : from.get_options()) {
      const bool helpOfGroup = &from != &app && option == from.get_help_ptr();
      if (!helpOfGroup) row.options.push_back(rowOf(*option));
    }
  };
  takeOptions(app);
  for (const CLI::App* const part : app.get_subcommands([](const CLI::App* part) { return !isHidden(*part); })) {
    // A subcommand without a name is a group of options.
    part->get_name().empty() ? takeOptions(*part) : below.push_back(part);
  }
  row.hasSubcommands = !below.empty();
  rows.push_back(std::move(row));
  for (const CLI::App* const command : below) {
    addRows(*command, name + (name.empty() ? "" : " ") + command->get_name(), rows);
  }
}

}  // namespace

std::vector<std::string> OptionRow::choices() const {
  std::vector<std::string> choices;
  if (value.find('|') == value.npos) return choices;
  std::istringstream parts(value);
  for (std::string part; std::getline(parts, part, '|');) {
    if (part != "N") choices.push_back(part);
  }
  return choices;
}

std::string OptionRow::found() const {
  const std::string& kind = isArgument ? names.front() : value;
  const bool isFound = kind == "CHECK" || kind == "BLOCK" || kind == "NAME=VALUE" || kind == "PATH";
  return isFound ? kind : "";
}

std::vector<CommandRow> commandTable(const CLI::App& app) {
  std::vector<CommandRow> rows;
  addRows(app, "", rows);
  return rows;
}

}  // namespace VelkTool
