#include "Choices.h"
#include "Commands.h"
#include "CompletionScripts.h"

namespace VelkTool {

void addCompletion(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("completion", "Print the completion script for a shell");
  using Script = std::string (*)(const std::vector<CommandRow>&);
  const auto script = std::make_shared<Script>();
  addChoice<Script>(
      *command, "SHELL", {{"bash", bashCompletion}, {"zsh", zshCompletion}, {"fish", fishCompletion}},
      [script](Script chosen) { *script = chosen; }, "The shell")
      ->required();
  command->footer(
      "An installed velk has these scripts in place already.\n\nExample:\n  velk completion bash > "
      "~/.local/share/bash-completion/completions/velk");
  command->callback([&app, &session, script] { session.write((*script)(commandTable(app))); });
}

void addManual(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("manual", "Print the manual page, for man");
  command->footer("Example:\n  velk manual | man -l -");
  command->callback([&app, &session] { session.write(manualPage(commandTable(app), VELK_VERSION)); });
}

}  // namespace VelkTool
