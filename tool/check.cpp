#include "Commands.h"
#include "Images.h"
#include "Inputs.h"
#include "JsonReport.h"

namespace VelkTool {
namespace {

std::string verdict(const Velk::BlockView& block) {
  std::string line = offsetText(block.offset) + "  " + Velk::blockName(block) + ": " + Velk::verdictName(block);
  forEachFinding(block, [&](Velk::Finding finding) { line += "; " + Velk::describe(block, finding); });
  return line + '\n';
}

/// Remarks count here.
void count(Session& session, const Velk::BlockView& block) {
  if (block.findings.any()) session.worsen(Exit::Findings);
}

void writeText(Session& session, const Inputs& inputs) {
  forEachInput(session, inputs, [&](const Input& input) {
    if (inputs.files.size() > 1) session.write(input.name + ":\n");
    for (const Velk::BlockView& block : input.image) {
      session.write(verdict(block));
      count(session, block);
    }
  });
}

}  // namespace

void addCheck(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("check", "Whether every block of memory images is sound, and why not");
  const auto inputs = addInputs(*command);
  const auto json = addJson(*command);
  command->footer("Exits with 1 when something is not sound.\n\nExample:\n  velk check module.bin && echo sound");
  command->callback([&session, inputs, json] {
    if (!*json) return writeText(session, *inputs);
    writeJsonReport(session, *inputs, {},
                    [&](JsonWriter&, const Input&, const Velk::BlockView& block) { count(session, block); });
  });
}

}  // namespace VelkTool
