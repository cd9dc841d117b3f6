#include "UsageError.h"

#include <algorithm>

#include "CommandTable.h"
#include "velk/data/NearestName.h"

namespace VelkTool {
namespace {

using Options = std::vector<const CLI::Option*>;

bool isGroup(const CLI::App* part) { return part->get_name().empty(); }

std::vector<const CLI::App*> groupsOf(const CLI::App& command) { return command.get_subcommands(isGroup); }

/// Returns the options and arguments of a command, including those in groups.
Options optionsOf(const CLI::App& command) {
  Options options = command.get_options();
  for (const CLI::App* const group : groupsOf(command)) {
    const Options more = optionsOf(*group);
    options.insert(options.end(), more.begin(), more.end());
  }
  // Every group has its own --help, which is not an option of the command.
  if (isGroup(&command)) std::erase(options, command.get_help_ptr());
  return options;
}

/// Returns the full name of a command, such as "table export".
std::string nameOf(const CLI::App& command) {
  const CLI::App* const parent = command.get_parent();
  if (parent == nullptr) return "";
  const std::string above = nameOf(*parent);
  return above + (above.empty() ? "" : " ") + command.get_name();
}

/// Returns an option as it is typed: "FILE", "--id N".
std::string usageOf(const CLI::Option& option) {
  const std::string value = option.get_items_expected_max() == 0 ? "" : option.get_type_name();
  return option.get_name() + (option.get_positional() || value.empty() ? "" : " " + value);
}

std::string quoted(const std::string& text) { return '"' + text + '"'; }

std::string helpOn(const std::string& command) { return quoted("velk help" + (command.empty() ? "" : " " + command)); }

/// Returns the innermost command that was parsed.
const CLI::App& lastCommand(const CLI::App& app) {
  const std::vector<CLI::App*> parsed = app.get_subcommands();
  return parsed.empty() ? app : lastCommand(*parsed.front());
}

/// Returns the first word that a command does not know; empty if it knows all.
std::string firstUnknown(const CLI::App& command) {
  for (const std::string& word : command.remaining()) {
    if (word != "--") return word;
  }
  return {};
}

UsageError unknownOption(const CLI::App& command, const std::string& word) {
  const std::string option = word.substr(0, word.find('='));
  const std::vector<const CLI::App*> below =
      command.get_subcommands([](const CLI::App* part) { return !isGroup(part); });
  const bool isBelow =
      std::ranges::any_of(below, [&](const CLI::App* part) { return part->get_option_no_throw(option) != nullptr; });
  if (isBelow) return {nameOf(command), "option " + quoted(option) + " must follow its command"};
  std::vector<std::string> names;
  for (const CLI::Option* const known : optionsOf(command)) {
    for (const std::string& name : known->get_lnames()) names.push_back("--" + name);
    for (const std::string& name : known->get_snames()) names.push_back("-" + name);
  }
  return {nameOf(command), unknownName("option", option, names, nameOf(command))};
}

UsageError unknownWord(const CLI::App& command, const std::string& word) {
  if (word.starts_with('-') && word != "-") return unknownOption(command, word);
  std::vector<std::string> commands;
  for (const CLI::App* const part : command.get_subcommands([](const CLI::App* part) { return !isGroup(part); })) {
    commands.push_back(part->get_name());
  }
  if (!commands.empty()) return {nameOf(command), unknownName("command", word, commands, nameOf(command))};
  std::string arguments;
  for (const CLI::Option* const option : optionsOf(command)) {
    for (int i = 0; option->get_positional() && i < option->get_items_expected_max(); ++i) {
      arguments += " " + option->get_name();
    }
  }
  return {nameOf(command),
          "unexpected argument " + quoted(word) + "; it takes" + (arguments.empty() ? " no arguments" : arguments)};
}

/// Returns the error of a group of options of which exactly one is required; empty if there is none.
std::string wrongChoice(const CLI::App& group) {
  std::string text;
  std::size_t given = 0;
  for (const CLI::Option* const option : optionsOf(group)) {
    text += (text.empty() ? "" : " or ") + usageOf(*option);
    given += option->count() > 0 ? 1 : 0;
  }
  return given == 0 ? text + " is missing" : given == 1 ? "" : text + " can be given, not both";
}

/// Returns which required option is missing, or which one conflicts with another; empty if none.
std::string missingOf(const CLI::App& command) {
  if (command.get_require_subcommand_min() > 0 && command.get_subcommands().empty()) return "no command is given";
  for (const CLI::Option* const option : optionsOf(command)) {
    if (option->get_required() && option->count() == 0) return usageOf(*option) + " is missing";
  }
  for (const CLI::App* const group : groupsOf(command)) {
    if (const std::string wrong = wrongChoice(*group); group->get_require_option_min() > 0 && !wrong.empty())
      return wrong;
  }
  for (const CLI::Option* const option : optionsOf(command)) {
    for (const CLI::Option* const needed : option->get_needs()) {
      const bool lacks = option->count() > 0 && needed->count() == 0;
      if (lacks) return usageOf(*option) + " requires " + usageOf(*needed);
    }
  }
  return {};
}

/// Returns the error in the number of occurrences or the value of an option. The parser's message begins with its name.
std::string wrongValue(const CLI::Option& option, const CLI::ParseError& error) {
  const std::string given = std::to_string(option.count());
  if (error.get_name() == "ValidationError") return std::string(error.what()).substr(option.get_name().size() + 2);
  if (option.get_items_expected_max() == 0) return "takes no value";
  const auto most = static_cast<std::size_t>(option.get_items_expected_max());
  if (option.count() > most) return "is given " + given + " times, but may be given once only";
  if (option.get_positional())
    return std::to_string(most) + " are required, " + given + (option.count() == 1 ? " is given" : " are given");
  return "no value is given; it takes " + option.get_type_name();
}

}  // namespace

UsageError usageError(const CLI::App& app, const CLI::ParseError& error) {
  const CLI::App& command = lastCommand(app);
  for (const CLI::App* at = &command; at != nullptr; at = at->get_parent()) {
    if (const std::string word = firstUnknown(*at); !word.empty()) return unknownWord(*at, word);
  }
  const std::string text = error.what();
  for (const CLI::Option* const option : optionsOf(command)) {
    const bool isFlag = option->get_items_expected_max() == 0;
    const bool isNamed =
        text.starts_with(option->get_name() + ": ") || (isFlag && text.starts_with(option->get_name().substr(2) + ' '));
    if (isNamed) return {option->get_name(), wrongValue(*option, error)};
  }
  const std::string missing = missingOf(command);
  return {nameOf(command), (missing.empty() ? "invalid command line" : missing) + "; " + helpOn(nameOf(command)) +
                               (missing == "no command is given" ? " lists them" : " shows its usage")};
}

std::string unknownName(const std::string& kind, const std::string& name, const std::vector<std::string>& names,
                        const std::string& command) {
  const std::size_t nearEnough = name.size() / 3;
  const std::string_view nearest = Velk::detail::nearestName(name, names, nearEnough);
  const std::string hint = nearest.empty() ? helpOn(command) + " lists them" : "the nearest is " + std::string(nearest);
  return "unknown " + kind + ' ' + quoted(name) + "; " + hint;
}

}  // namespace VelkTool
