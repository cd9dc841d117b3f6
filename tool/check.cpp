#include <algorithm>
#include <memory>

#include "CheckOptions.h"
#include "Colours.h"
#include "Commands.h"
#include "FindingReport.h"
#include "Folders.h"
#include "Images.h"
#include "JsonReport.h"
#include "Overview.h"
#include "TextReport.h"
#include "velk/checks/FindingTable.h"

namespace VelkTool {
namespace {

/// Appends what was found. What the bytes of one block tell is plain; the sense of its values is a matter of
/// opinion, so the check that has it is named.
void appendText(std::string& line, const Velk::CheckFinding& finding) {
  static const Velk::CheckSet plain = plainChecks().enabled;
  line += finding.text;
  const auto index = static_cast<std::size_t>(finding.kind - Velk::findingKinds().data());
  if (!plain[index]) line.append(" [").append(finding.kind->code).append("]");
}

void appendVerdict(std::string& line, const Velk::BlockView& block, std::span<const Velk::CheckFinding> findings) {
  line.append(offsetText(block.offset)).append("  ").append(Velk::blockName(block));
  line.append(": ").append(Velk::verdictName(block));
  for (const Velk::CheckFinding& finding : findings) appendText(line += "; ", finding);
  line += '\n';
}

void appendFindings(std::string& lines, std::span<const Velk::CheckFinding> findings) {
  for (const Velk::CheckFinding& finding : findings) {
    appendText(lines.append(Velk::severityName(finding.severity)).append(": "), finding);
    lines += '\n';
  }
}

/// The check of one input.
class ImageCheck {
 public:
  ImageCheck(Session& part, const Input& input, const Velk::CheckOptions& options, Overview& overview)
      : part_(part), input_(input), overview_(overview), checker_(input.image, checksFor(input, options)) {
    tally_.add(input.file.findings.empty() ? Verdict::Sound : Verdict::Damaged);
  }

  Verdict ofBlock(std::string& line, const Velk::BlockView& block) {
    const std::vector<Velk::CheckFinding> findings = checker_.check(block);
    appendVerdict(line, block, findings);
    return count(findings, block.isSound() ? Verdict::Sound : Verdict::Damaged);
  }

  Verdict ofImage(std::string& lines) {
    const std::vector<Velk::CheckFinding> findings = checker_.finish();
    appendFindings(lines, findings);
    const Verdict verdict = count(findings, Verdict::Sound);
    overview_.set(input_, std::move(tally_));
    return verdict;
  }

 private:
  /// Counts findings. Returns the worst verdict of these and `worst`.
  Verdict count(std::span<const Velk::CheckFinding> findings, Verdict worst) {
    countErrors(part_, findings);
    tally_.add(worst);
    for (const Velk::CheckFinding& finding : findings) {
      const Verdict verdict = verdictOf(finding.severity);
      tally_.add(verdict, finding.kind->code);
      worst = std::max(worst, verdict);
    }
    return worst;
  }

  Session& part_;
  const Input& input_;
  Overview& overview_;
  Velk::ImageChecker checker_;
  FileTally tally_;
};

struct CheckAmount {
  bool quiet = false;
  bool summary = false;
};

void writeCheck(Session& session, const Inputs& inputs, const CheckAmount& options, const Velk::CheckOptions& checks) {
  Overview overview(inputs);
  const Amount amount = options.summary ? Amount::Nothing : options.quiet ? Amount::Unsound : Amount::All;
  const auto begin = [&](Session& part, const Input& input) -> ImageLines {
    const auto check = std::make_shared<ImageCheck>(part, input, checks, overview);
    return {.ofBlock = [check](std::string& line, const Velk::BlockView& block) { return check->ofBlock(line, block); },
            .ofImage = [check](std::string& lines) { return check->ofImage(lines); }};
  };
  writeTextReport(session, inputs, {}, begin, amount);
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
  CLI::App* const command =
      app.add_subcommand("check", "Whether every block of memory images is sound and makes sense, and why not");
  const auto given = addFolderInputs(*command);
  const auto json = addJson(*command);
  const auto checks = addCheckOptions(*command);
  const auto options = std::make_shared<CheckAmount>();
  command->add_flag("-q,--quiet", options->quiet, "Only what is not sound");
  command->add_flag("--summary", options->summary, "Only how many files are sound, and how often each finding occurs");
  addColours(*command, session);
  command->footer(
      "Exits with 1 when an error is reported. Warnings follow the verdict of their block; those about several blocks\n"
      "have lines of their own after the blocks. In brackets is the name of the check; velk explain describes it.\n"
      "With several files, a line for each of them and one for all of them come last.\n\n"
      "Examples:\n  velk check module.bin && echo sound\n"
      "  velk check --strict --disable zero-values module.bin\n  velk check -q --glob '*.bin' dumps");
  command->callback([&session, given, json, options, checks] {
    if (*json && (options->quiet || options->summary)) {
      throw CLI::ValidationError("--json", "describes all blocks; --quiet and --summary shorten the text");
    }
    const Inputs inputs = withFilesOfFolders(session, *given);
    if (*json) return writeJsonSummary(session, inputs, *checks, {});
    writeCheck(session, inputs, *options, *checks);
  });
}

}  // namespace VelkTool
