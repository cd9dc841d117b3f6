#include <algorithm>

#include "Commands.h"
#include "UsageError.h"

namespace VelkTool {
namespace {

std::vector<std::string> namesBelow(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::App* const below : command.get_subcommands([](const CLI::App*) { return true; })) {
    const bool isHidden = below->get_group().empty();
    if (!below->get_name().empty() && !isHidden) names.push_back(below->get_name());
  }
  return names;
}

void writeHelp(const CLI::App& app, Session& session, const std::vector<std::string>& words) {
  const CLI::App* command = &app;
  std::string above;
  for (const std::string& word : words) {
    const std::vector<std::string> names = namesBelow(*command);
    if (std::ranges::find(names, word) == names.end()) {
      session.complain(above, names.empty() ? "has no subcommands, but \"" + word + "\" is given"
                                            : unknownName("command", word, names, above));
      return session.worsen(Exit::Usage);
    }
    command = command->get_subcommand(word);
    above += (above.empty() ? "" : " ") + word;
  }
  session.write(app.get_formatter()->make_help(command, app.get_name() + (above.empty() ? "" : " ") + above,
                                               CLI::AppFormatMode::Normal));
}

}  // namespace

void addHelp(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("help", "Show the help of a command, as its --help does");
  const auto words = std::make_shared<std::vector<std::string>>();
  command->add_option("COMMAND", *words, "The command; all are listed if omitted")
      ->type_name(CLI::detail::join(namesBelow(app), "|"));
  command->footer("Examples:\n  velk help export\n  velk help table import");
  command->callback([&app, &session, words] { writeHelp(app, session, *words); });
}

}  // namespace VelkTool
