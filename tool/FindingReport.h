#pragma once

#include <span>
#include <string>

#include "Inputs.h"
#include "Verdict.h"
#include "velk/checks/Checks.h"
#include "velk/image/BlockView.h"

namespace VelkTool {

/// Reports findings about a block on standard error.
void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block,
                  const Velk::CheckSet& checks);

/// Reports the walk's findings about a block that is not sound.
void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block);

/// Does the same and lets the command exit with Exit::Findings.
void complainOf(Session& session, const std::string& file, const Velk::BlockView& block);

/// Returns the options for one input: the end of a memory may be missing in a text container.
Velk::CheckOptions checksFor(const Input& input, Velk::CheckOptions options);

/// Returns what a finding of this severity makes of the block or file that it is about.
inline Verdict verdictOf(Velk::Severity severity) {
  return severity == Velk::Severity::Error ? Verdict::Damaged : Verdict::Warnings;
}

/// Lets the command exit with Exit::Findings if one of the findings is an error.
void countErrors(Session& session, std::span<const Velk::CheckFinding> findings);

}  // namespace VelkTool
