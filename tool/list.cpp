#include "Colours.h"
#include "Columns.h"
#include "Commands.h"
#include "FindingReport.h"
#include "Folders.h"
#include "Images.h"
#include "JsonReport.h"
#include "TextReport.h"

namespace VelkTool {
namespace {

constexpr std::string_view heading =
    "offset      id     name                                 size   kind            verdict\n";

Verdict appendRow(std::string& line, const Velk::BlockView& block) {
  const bool isStray = block.kind == Velk::BlockKind::Stray;
  line += offsetText(block.offset);
  padTo(line, 12);
  line += isStray ? "-" : std::to_string(block.id);
  padTo(line, 19);
  line += Velk::blockName(block);
  padTo(line, 56);
  line += std::to_string(isStray ? block.bytes.size() : block.declaredSize);
  padTo(line, 63);
  line += Velk::kindName(block.kind);
  padTo(line, 79);
  line += Velk::verdictName(block);
  const Velk::FindingSet remarks = block.findings & ~Velk::errorFindings();
  for (std::size_t i = 0; i < remarks.size(); ++i) {
    if (remarks[i]) line.append(", ").append(Velk::walkFindingKinds()[i].name);
  }
  line += '\n';
  return !block.isSound() ? Verdict::Damaged : remarks.any() ? Verdict::Warnings : Verdict::Sound;
}

}  // namespace

void addList(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("list", "One line for each block of memory images");
  const auto given = addFolderInputs(*command);
  const auto json = addJson(*command);
  addColours(*command, session);
  command->footer(
      "Examples:\n  velk list module.bin\n  velk list --sector-size 0x10000 --json flash.hex\n  velk list dumps");
  command->callback([&session, given, json] {
    const Inputs inputs = withFilesOfFolders(session, *given);
    if (*json) {
      return writeJsonSummary(session, inputs, plainChecks(),
                              [](Session& part, const Input& input, const Velk::BlockView& block) {
                                tellFindings(part, input.name, block);
                              });
    }
    writeTextReport(session, inputs, heading, [](Session& part, const Input& input) -> ImageLines {
      return {.ofBlock = appendRow,
              .afterBlock = [&](const Velk::BlockView& block) { complainOf(part, input.name, block); }};
    });
  });
}

}  // namespace VelkTool
