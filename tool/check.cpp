#include "CheckOptions.h"
#include "Commands.h"
#include "FindingReport.h"
#include "Images.h"
#include "JsonReport.h"
#include "TextReport.h"
#include "velk/checks/FindingTable.h"

namespace VelkTool {
namespace {

/// Appends what was found. What the bytes of one block tell is plain; the sense of its values is a matter of
/// opinion, so the check that has it is named.
void appendText(std::string& line, const Velk::CheckFinding& finding) {
  static const Velk::CheckSet plain = plainChecks().enabled;
  line += finding.text;
  if (!plain[*Velk::findKind(finding.kind->code)]) line.append(" [").append(finding.kind->code).append("]");
}

void appendVerdict(std::string& line, const Velk::BlockView& block, std::span<const Velk::CheckFinding> findings) {
  line += offsetText(block.offset) + "  " + Velk::blockName(block) + ": " + Velk::verdictName(block);
  for (const Velk::CheckFinding& finding : findings) appendText(line += "; ", finding);
  line += '\n';
}

void appendFindings(std::string& lines, std::span<const Velk::CheckFinding> findings) {
  for (const Velk::CheckFinding& finding : findings) {
    appendText(lines.append(Velk::severityName(finding.severity)).append(": "), finding);
    lines += '\n';
  }
}

ImageLines linesOf(Session& part, const Input& input, const Velk::CheckOptions& options) {
  const auto checker = std::make_shared<Velk::ImageChecker>(input.image, checksFor(input, options));
  return {.ofBlock =
              [&part, checker](std::string& line, const Velk::BlockView& block) {
                const std::vector<Velk::CheckFinding> findings = checker->check(block);
                countErrors(part, findings);
                appendVerdict(line, block, findings);
              },
          .ofImage =
              [&part, checker](std::string& lines) {
                const std::vector<Velk::CheckFinding> findings = checker->finish();
                countErrors(part, findings);
                appendFindings(lines, findings);
              }};
}

}  // namespace

void addCheck(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("check", "Whether every block of memory images is sound and makes sense, and why not");
  const auto inputs = addInputs(*command);
  const auto json = addJson(*command);
  const auto options = addCheckOptions(*command);
  command->footer(
      "Exits with 1 when an error is reported. Warnings follow the verdict of their block; those about several blocks\n"
      "have lines of their own after the blocks. In brackets stands the name of the check, which velk explain "
      "explains.\n"
      "\nExamples:\n  velk check module.bin && echo sound\n  velk check --strict --disable zero-values module.bin");
  command->callback([&session, inputs, json, options] {
    if (*json) return writeJsonSummary(session, *inputs, *options, {});
    writeTextReport(session, *inputs, {},
                    [options](Session& part, const Input& input) { return linesOf(part, input, *options); });
  });
}

}  // namespace VelkTool
