#include "Commands.h"
#include "CompletionScripts.h"

namespace VelkTool {

void addCompletion(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("completion", "The script by which a shell completes velk's command line");
  using Script = std::string (*)(const std::vector<CommandRow>&);
  static const std::map<std::string, Script> scripts{
      {"bash", bashCompletion}, {"zsh", zshCompletion}, {"fish", fishCompletion}};
  const auto shell = std::make_shared<std::string>();
  command->add_option("SHELL", *shell, "Which shell")
      ->required()
      ->check(CLI::IsMember(scripts).description(""))
      ->type_name("bash|zsh|fish");
  command->footer(
      "Installed with velk, these scripts are where the shells look for them.\n\nExample:\n  velk completion bash > "
      "~/.local/share/bash-completion/completions/velk");
  command->callback([&app, &session, shell] { session.write(scripts.at(*shell)(commandTable(app))); });
}

void addManual(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("manual", "The manual page, for man");
  command->footer("Example:\n  velk manual | man -l -");
  command->callback([&app, &session] { session.write(manualPage(commandTable(app), VELK_VERSION)); });
}

}  // namespace VelkTool
