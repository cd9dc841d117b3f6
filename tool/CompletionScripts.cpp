#include "CompletionScripts.h"

#include <algorithm>

namespace VelkTool {
namespace {

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::vector<std::string> optionNames(const CommandRow& command) {
  std::vector<std::string> names;
  for (const OptionRow& option : command.options) {
    if (!option.isArgument) names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return names;
}

/// Returns the last names of the direct subcommands of `name`.
std::vector<std::string> namesBelow(const std::vector<CommandRow>& commands, const std::string& name) {
  std::vector<std::string> names;
  for (const CommandRow& command : commands) {
    if (!command.name.empty() && command.parent() == name) names.push_back(command.lastName());
  }
  return names;
}

/// Puts a backslash before each character of `special`.
std::string escaped(std::string_view text, std::string_view special) {
  std::string result;
  for (const char c : text) {
    if (special.find(c) != special.npos) result += '\\';
    result += c;
  }
  return result;
}

/// Returns the text in single quotes.
std::string singleQuoted(std::string_view text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? "'\\''" : std::string(1, c);
  return result + "'";
}

std::string functionName(const CommandRow& command) {
  std::string name = "_velk_" + command.name;
  std::ranges::replace(name, ' ', '_');
  return name;
}

/// Returns how zsh completes a value: by its choices, by what `velk complete` finds, not at all for numbers, else by
/// files.
std::string zshAction(const OptionRow& option) {
  if (const std::vector<std::string> choices = option.choices(); !choices.empty()) return "(" + joined(choices) + ")";
  if (const std::string found = option.found(); !found.empty()) return " _velk_found " + found;
  return option.value == "N" || option.value == "K" ? " " : "_files";
}

std::string zshOption(const OptionRow& option, const std::string& name) {
  const std::string repeats = option.isArgument && !option.repeats ? "" : "*";
  if (option.isArgument) return singleQuoted(repeats + ":" + name + ":" + zshAction(option));
  const std::string value = option.value.empty() ? "" : ":" + escaped(option.value, ":\\") + ":" + zshAction(option);
  return singleQuoted(repeats + name + "[" + escaped(option.description, "[]:\\") + "]" + value);
}

std::string zshOptions(const CommandRow& command) {
  std::string text;
  for (const OptionRow& option : command.options) {
    for (const std::string& name : option.names) text.append(" \\\n    ").append(zshOption(option, name));
  }
  return text;
}

/// Returns the condition under which fish completes a command.
std::string fishCondition(const std::vector<CommandRow>& commands, const CommandRow& command) {
  const auto seen = [](const std::string& names) { return "__fish_seen_subcommand_from " + names; };
  if (command.name.empty()) return "__fish_use_subcommand";
  std::string condition = seen(command.lastName());
  if (!command.parent().empty()) return seen(command.parent()) + "; and " + condition;
  // Another command may have a subcommand of the same name.
  for (const CommandRow& other : commands) {
    const bool same = !other.parent().empty() && other.lastName() == command.name;
    if (same) condition += "; and not " + seen(other.parent());
  }
  if (command.hasSubcommands) condition += "; and not " + seen(joined(namesBelow(commands, command.name)));
  return condition;
}

/// Returns the part after the condition for one option; empty for arguments that are files.
std::string fishOption(const OptionRow& option) {
  const std::string choices = joined(option.choices());
  const std::string found = option.found();
  std::string values = choices.empty() ? "" : " -f -a " + singleQuoted(choices);
  if (!found.empty()) {
    values = " -a " + singleQuoted("(velk complete " + found + " -- (commandline -opc) (commandline -ct) 2>/dev/null)");
    if (!option.isArgument) values.insert(0, " -f");
  }
  if (option.isArgument) return values.empty() ? "" : values + '\n';
  std::string line;
  for (const std::string& name : option.names) {
    const bool isLong = name.starts_with("--");
    line.append(isLong ? " -l " : " -s ").append(name.substr(isLong ? 2 : 1));
  }
  return line + (option.value.empty() ? "" : " -r") + values + " -d " + singleQuoted(option.description) + '\n';
}

/// Returns what assigns the values of an option or argument to `words` in bash; empty if they are not known.
std::string bashWords(const OptionRow& option) {
  if (const std::string choices = joined(option.choices()); !choices.empty()) return "words=" + singleQuoted(choices);
  const std::string found = option.found();
  return found.empty() ? "" : "words=$(_velk_found '" + found + "')";
}

/// Returns the case of the bash script that lists an option's values.
std::string bashValues(const std::string& command, const std::string& option, const std::string& words) {
  return "    \"" + command + ' ' + option + "\") " + words + " ;;\n";
}

/// The parts of the bash script that depend on the commands: patterns and cases.
struct BashCases {
  std::string known;   ///< all commands
  std::string values;  ///< those of each option
  std::string words;   ///< options and words of each command
};

BashCases bashCases(const std::vector<CommandRow>& commands) {
  BashCases cases;
  for (const CommandRow& command : commands) {
    std::string& known = cases.known;
    if (!command.name.empty()) known += (known.empty() ? "\"" : " | \"") + std::string(" ") + command.name + '"';
    const std::string key = command.name.empty() ? "" : " " + command.name;
    const std::string below = joined(namesBelow(commands, command.name));
    std::string arguments = below.empty() ? "" : "words=" + singleQuoted(below);
    for (const OptionRow& option : command.options) {
      const std::string words = bashWords(option);
      if (words.empty()) continue;
      if (option.isArgument) arguments = words;
      for (const std::string& name : option.names) {
        if (!option.isArgument) cases.values += bashValues(key, name, words);
      }
    }
    cases.words +=
        "      \"" + key + "\") options=" + singleQuoted(joined(optionNames(command))) + ' ' + arguments + " ;;\n";
  }
  return cases;
}

}  // namespace

std::string bashCompletion(const std::vector<CommandRow>& commands) {
  const BashCases cases = bashCases(commands);
  return "# bash completion for velk, made by: velk completion bash\n"
         "_velk_found() { velk complete \"$1\" -- \"${COMP_WORDS[@]:1:COMP_CWORD}\" 2>/dev/null; }\n"
         "_velk() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command= options= words= "
         "word\n"
         "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD - 1}\"; do\n"
         "    case \"$command $word\" in " +
         cases.known +
         ") command+=\" $word\" ;; esac\n"
         "  done\n"
         "  case \"$command $previous\" in\n" +
         cases.values +
         "    *)\n"
         "      case $command in\n" +
         cases.words +
         "      esac\n"
         "      if [[ $current == -* ]]; then words=$options; fi ;;\n"
         "  esac\n"
         "  if [[ $words ]]; then\n"
         "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
         "    if [[ ${COMPREPLY[0]} == *[=.] ]]; then compopt -o nospace 2>/dev/null; fi\n"
         "  else\n"
         "    mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
         "    compopt -o filenames 2>/dev/null\n"
         "  fi\n"
         "} && complete -F _velk velk\n";
}

std::string zshCompletion(const std::vector<CommandRow>& commands) {
  std::string text =
      "#compdef velk\n# zsh completion for velk, made by: velk completion zsh\n\n"
      "_velk_found() {\n"
      "  local -a found=(${(f)\"$(velk complete $1 -- $words[1,CURRENT] 2>/dev/null)\"})\n"
      "  if (( $#found )); then compadd -S '' -a found; else _files; fi\n"
      "}\n";
  for (const CommandRow& command : commands) {
    text += "\n" + functionName(command) + "() {\n";
    if (!command.hasSubcommands) {
      text += "  _arguments -s" + zshOptions(command) + "\n}\n";
      continue;
    }
    text += "  local state\n  local -a commands=(\n";
    std::string cases;
    for (const CommandRow& below : commands) {
      if (below.name.empty() || below.parent() != command.name) continue;
      text += "    " + singleQuoted(below.lastName() + ":" + escaped(below.description, ":\\")) + "\n";
      cases += "        " + below.lastName() + ") " + functionName(below) + " ;;\n";
    }
    text += "  )\n  _arguments -C -s" + zshOptions(command) +
            " \\\n    '1: :->command' \\\n    '*:: :->rest'\n"
            "  case $state in\n"
            "    command) _describe command commands ;;\n"
            "    rest)\n      case $words[1] in\n" +
            cases + "      esac ;;\n  esac\n}\n";
  }
  return text + "\n" + functionName(commands.front()) + " \"$@\"\n";
}

std::string fishCompletion(const std::vector<CommandRow>& commands) {
  std::string text = "# fish completion for velk, made by: velk completion fish\n";
  for (const CommandRow& command : commands) {
    const std::string start = "complete -c velk -n " + singleQuoted(fishCondition(commands, command));
    for (const CommandRow& below : commands) {
      if (below.name.empty() || below.parent() != command.name) continue;
      text += start + " -f -a " + below.lastName() + " -d " + singleQuoted(below.description) + '\n';
    }
    for (const OptionRow& option : command.options) {
      if (const std::string line = fishOption(option); !line.empty()) text.append(start).append(line);
    }
  }
  return text;
}

}  // namespace VelkTool
