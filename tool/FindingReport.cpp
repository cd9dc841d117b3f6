#include "FindingReport.h"

#include <algorithm>

#include "Images.h"

namespace VelkTool {

void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block,
                  const Velk::CheckSet& checks) {
  for (const Velk::CheckFinding& finding : Velk::checkBlock(block, {.enabled = checks})) {
    session.complain(file, placeText(block) + ": " + finding.text);
  }
}

void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block) {
  if (!block.isSound()) tellFindings(session, file, block, Velk::walkChecks());
}

void complainOf(Session& session, const std::string& file, const Velk::BlockView& block) {
  if (!block.isSound()) session.worsen(Exit::Findings);
  tellFindings(session, file, block);
}

Velk::CheckOptions checksFor(const Input& input, Velk::CheckOptions options) {
  using enum Velk::Container;
  options.isWhole = input.file.container != IntelHex && input.file.container != SRecord;
  return options;
}

void countErrors(Session& session, std::span<const Velk::CheckFinding> findings) {
  const bool hasError = std::ranges::any_of(
      findings, [](const Velk::CheckFinding& finding) { return finding.severity == Velk::Severity::Error; });
  if (hasError) session.worsen(Exit::Findings);
}

}  // namespace VelkTool
