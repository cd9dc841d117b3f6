#include "Choices.h"
#include "Commands.h"
#include "CompletionScripts.h"

namespace VelkTool {

void addCompletion(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("completion", "The script by which a shell completes velk's command line");
  using Script = std::string (*)(const std::vector<CommandRow>&);
  const auto script = std::make_shared<Script>();
  addChoice<Script>(
      *command, "SHELL", {{"bash", bashCompletion}, {"zsh", zshCompletion}, {"fish", fishCompletion}},
      [script](Script chosen) { *script = chosen; }, "Which shell")
      ->required();
  command->footer(
      "Installed with velk, these scripts are where the shells look for them.\n\nExample:\n  velk completion bash > "
      "~/.local/share/bash-completion/completions/velk");
  command->callback([&app, &session, script] { session.write((*script)(commandTable(app))); });
}

void addManual(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("manual", "The manual page, for man");
  command->footer("Example:\n  velk manual | man -l -");
  command->callback([&app, &session] { session.write(manualPage(commandTable(app), VELK_VERSION)); });
}

}  // namespace VelkTool
