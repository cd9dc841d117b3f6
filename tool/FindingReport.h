#pragma once

#include <span>
#include <string>

#include "Session.h"
#include "velk/checks/FindingTable.h"
#include "velk/image/BlockView.h"

namespace VelkTool {

/// Reports what a block has of some kinds of findings on standard error.
void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block,
                  std::span<const Velk::FindingKind> kinds);

/// Reports the walk's findings about a block that is not sound.
void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block);

/// Does the same and lets the command exit with Exit::Findings.
void complainOf(Session& session, const std::string& file, const Velk::BlockView& block);

}  // namespace VelkTool
