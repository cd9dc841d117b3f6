#include "Commands.h"
#include "CompletionScripts.h"

namespace VelkTool {
namespace {

/// Text as roff wants it: hyphens are minus signs, and no line begins with a control character.
std::string roff(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool first = i == 0 || text[i - 1] == '\n';
    if (first && (text[i] == '.' || text[i] == '\'')) result += "\\&";
    if (text[i] == '\\') {
      result += "\\e";
    } else if (text[i] == '-') {
      result += "\\-";
    } else {
      result += text[i];
    }
  }
  return result;
}

std::string bold(std::string_view text) { return "\\fB" + roff(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + roff(text) + "\\fR"; }

std::string commandLine(const CommandRow& command) {
  std::string line = bold("velk " + command.name);
  if (command.hasSubcommands) return line + ' ' + italic("COMMAND");
  std::string required;
  std::string arguments;
  for (const OptionRow& option : command.options) {
    const std::string name = ' ' + italic(option.names.front());
    if (!option.isArgument && option.isRequired)
      required += ' ' + bold(option.names.back()) + ' ' + italic(option.value);
    if (!option.isArgument) continue;
    constexpr int fewEnough = 2;
    if (option.atMost > fewEnough) arguments += option.isRequired ? name + "..." : " [" + name.substr(1) + "...]";
    for (int i = 0; i < option.atMost && option.atMost <= fewEnough; ++i) arguments += name;
  }
  return line + required + " [" + italic("OPTIONS") + "]" + arguments;
}

std::string optionsText(const CommandRow& command) {
  std::string text;
  for (const OptionRow& option : command.options) {
    if (!command.name.empty() && option.names.back() == "--help") continue;
    std::string names;
    for (const std::string& name : option.names) {
      names += (names.empty() ? "" : ", ") + (option.isArgument ? italic(name) : bold(name));
    }
    if (!option.isArgument && !option.value.empty()) names += ' ' + italic(option.value);
    text += ".TP\n" + names + '\n' + roff(option.description) + ".\n";
  }
  return text;
}

}  // namespace

std::string manualPage(const std::vector<CommandRow>& commands, const std::string& version) {
  const CommandRow& velk = commands.front();
  std::string synopsis;
  std::string sections;
  std::string examples;
  for (const CommandRow& command : commands) {
    if (command.name.empty() || command.hasSubcommands) continue;
    synopsis += commandLine(command) + "\n.br\n";
    sections += ".SS " + bold("velk " + command.name) + '\n' + roff(command.description) + ".\n" + optionsText(command);
    if (!command.notes.empty()) sections += ".PP\n" + roff(command.notes) + '\n';
    for (const std::string& example : command.examples) examples += roff(example) + '\n';
  }
  std::string status;
  for (const ExitMeaning& exit : exitMeanings) {
    status += ".TP\n" + bold(std::to_string(static_cast<int>(exit.code))) + '\n' + roff(exit.meaning) + ".\n";
  }
  return ".\\\" Made by: velk manual\n.TH VELK 1 \"\" \"velk " + version + "\" \"User Commands\"\n.SH NAME\nvelk \\- " +
         "look into, check and change the memory images of instrument modules\n.SH SYNOPSIS\n" + synopsis +
         ".SH DESCRIPTION\n" + roff(velk.description) + "\n.PP\n" + roff(velk.notes) + "\n.SH COMMANDS\n" + sections +
         ".SH EXIT STATUS\nThe worst over all files:\n" + status + ".SH EXAMPLES\n.EX\n" + examples + ".EE\n";
}

}  // namespace VelkTool
