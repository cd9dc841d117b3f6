#include "Commands.h"
#include "Images.h"
#include "JsonReport.h"
#include "TextReport.h"
#include "velk/checks/FindingTable.h"

namespace VelkTool {
namespace {

void appendVerdict(std::string& line, const Velk::BlockView& block) {
  line += offsetText(block.offset) + "  " + Velk::blockName(block) + ": " + Velk::verdictName(block);
  forEachFinding(block, Velk::findingKinds(),
                 [&](const Velk::FindingKind&, const std::string& text) { line += "; " + text; });
  line += '\n';
}

}  // namespace

void addCheck(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("check", "Whether every block of memory images is sound, and why not");
  const auto inputs = addInputs(*command);
  const auto json = addJson(*command);
  command->footer(
      "Exits with 1 when a block is not sound. What is odd about a sound block follows its verdict, such as the "
      "16-bit\n"
      "checksum of an event counter, which does not change with the counters.\n\n"
      "Example:\n  velk check module.bin && echo sound");
  command->callback([&session, inputs, json] {
    const auto visit = [](Session& part, const Input&, const Velk::BlockView& block) {
      if (!block.isSound()) part.worsen(Exit::Findings);
    };
    if (*json) return writeJsonSummary(session, *inputs, visit);
    writeTextReport(session, *inputs, {}, appendVerdict, visit);
  });
}

}  // namespace VelkTool
