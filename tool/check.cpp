#include <algorithm>
#include <memory>

#include "Colours.h"
#include "Commands.h"
#include "Folders.h"
#include "Images.h"
#include "JsonReport.h"
#include "Overview.h"
#include "TextReport.h"
#include "velk/checks/FindingTable.h"

namespace VelkTool {
namespace {

Verdict verdictOf(Velk::Severity severity) {
  return severity == Velk::Severity::Error ? Verdict::Damaged : Verdict::Warnings;
}

/// Appends the line about a block and counts what was found in it.
Verdict appendVerdict(std::string& line, const Velk::BlockView& block, FileTally& tally) {
  Verdict worst = block.isSound() ? Verdict::Sound : Verdict::Damaged;
  tally.add(worst);
  line += offsetText(block.offset) + "  " + Velk::blockName(block) + ": " + Velk::verdictName(block);
  forEachFinding(block, Velk::findingKinds(), [&](const Velk::FindingKind& kind, const std::string& text) {
    line += "; " + text;
    worst = std::max(worst, verdictOf(kind.severity));
    tally.add(verdictOf(kind.severity), kind.code);
  });
  line += '\n';
  return worst;
}

ImageLines linesOf(Session& part, const Input& input, Overview& overview) {
  const auto tally = std::make_shared<FileTally>();
  if (!input.file.findings.empty()) tally->add(Verdict::Damaged);
  return {.ofBlock =
              [&part, tally](std::string& line, const Velk::BlockView& block) {
                if (!block.isSound()) part.worsen(Exit::Findings);
                return appendVerdict(line, block, *tally);
              },
          .afterImage = [&input, &overview, tally] { overview.set(input, std::move(*tally)); }};
}

struct CheckAmount {
  bool quiet = false;
  bool summary = false;
};

void writeCheck(Session& session, const Inputs& inputs, const CheckAmount& options) {
  Overview overview(inputs);
  const Amount amount = options.summary ? Amount::Nothing : options.quiet ? Amount::Unsound : Amount::All;
  writeTextReport(
      session, inputs, {}, [&](Session& part, const Input& input) { return linesOf(part, input, overview); }, amount);
  const bool isSilent = options.quiet && overview.isAllSound();
  if (!options.summary && (inputs.files.size() < 2 || isSilent)) return;
  if (!options.summary) {
    session.write("\n");
    overview.writeFiles(session, options.quiet);
  }
  overview.writeTotals(session);
  if (options.summary) overview.writeCodes(session);
}

}  // namespace

void addCheck(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("check", "Whether every block of memory images is sound, and why not");
  const auto given = addFolderInputs(*command);
  const auto json = addJson(*command);
  const auto options = std::make_shared<CheckAmount>();
  command->add_flag("-q,--quiet", options->quiet, "Only what is not sound");
  command->add_flag("--summary", options->summary, "Only how many files are sound, and how often each finding occurs");
  addColours(*command, session);
  command->footer(
      "Exits with 1 when a block is not sound. What is odd about a sound block follows its verdict, such as the "
      "16-bit\n"
      "checksum of an event counter, which does not change with the counters. With several files, a line for each of\n"
      "them and one for all of them come last.\n\n"
      "Examples:\n  velk check module.bin && echo sound\n  velk check -q --glob '*.bin' dumps");
  command->callback([&session, given, json, options] {
    if (*json && (options->quiet || options->summary)) {
      throw CLI::ValidationError("--json", "describes all blocks; --quiet and --summary shorten the text");
    }
    const Inputs inputs = withFilesOfFolders(session, *given);
    if (!*json) return writeCheck(session, inputs, *options);
    writeJsonSummary(session, inputs, [](Session& part, const Input&, const Velk::BlockView& block) {
      if (!block.isSound()) part.worsen(Exit::Findings);
    });
  });
}

}  // namespace VelkTool
