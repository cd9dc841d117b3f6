#include "FindingReport.h"

#include "Images.h"

namespace VelkTool {

void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block,
                  std::span<const Velk::FindingKind> kinds) {
  forEachFinding(block, kinds, [&](const Velk::FindingKind&, const std::string& text) {
    session.complain(file, placeText(block) + ": " + text);
  });
}

void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block) {
  if (!block.isSound()) tellFindings(session, file, block, Velk::walkFindingKinds());
}

void complainOf(Session& session, const std::string& file, const Velk::BlockView& block) {
  if (!block.isSound()) session.worsen(Exit::Findings);
  tellFindings(session, file, block);
}

}  // namespace VelkTool
