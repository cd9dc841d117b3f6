#include <algorithm>

#include "CheckOptions.h"
#include "Columns.h"
#include "Commands.h"
#include "Session.h"
#include "velk/checks/FindingTable.h"

namespace VelkTool {
namespace {

constexpr std::size_t lineWidth = 100;

std::string tableText() {
  std::size_t width = 0;
  for (const Velk::FindingKind& kind : Velk::findingKinds())
    width = std::max(width, std::string_view(kind.code).size());
  std::string text;
  for (const Velk::FindingKind& kind : Velk::findingKinds()) {
    std::string line = kind.code;
    line.resize(width + 2, ' ');
    line += severityName(kind.severity);
    line.resize(width + 11, ' ');
    text += line + kind.summary + '\n';
  }
  return text;
}

std::string paragraphText(const Velk::FindingKind& kind) {
  return std::string(kind.code) + ", " + severityName(kind.severity) + ": " + kind.summary + "\n\n" +
         wrapped(kind.explanation, lineWidth);
}

std::string markdownText() {
  std::string text = "| check | severity | what is wrong |\n|---|---|---|\n";
  for (const Velk::FindingKind& kind : Velk::findingKinds()) {
    text += std::string("| [") + kind.code + "](#" + kind.code + ") | " + severityName(kind.severity) + " | " +
            kind.summary + " |\n";
  }
  for (const Velk::FindingKind& kind : Velk::findingKinds()) {
    text += std::string("\n## ") + kind.code + "\n\n" + wrapped(kind.explanation, lineWidth);
  }
  return text;
}

void explain(Session& session, const std::string& name) {
  const auto kind = Velk::findKind(name);
  if (kind) return session.write(paragraphText(Velk::findingKinds()[*kind]));
  session.complain("explain", unknownCheck(name));
  session.worsen(Exit::Usage);
}

}  // namespace

void addExplain(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("explain", "Explain a check of velk check, or list all of them");
  const auto name = std::make_shared<std::string>();
  const auto markdown = std::make_shared<bool>(false);
  command->add_option("CHECK", *name, "The check; all are listed if omitted");
  command->add_flag("--markdown", *markdown, "Explain all checks, as Markdown");
  command->footer("Examples:\n  velk explain\n  velk explain unordered-points");
  command->callback([&session, name, markdown] {
    if (*markdown) return session.write(markdownText());
    name->empty() ? session.write(tableText()) : explain(session, *name);
  });
}

}  // namespace VelkTool
