#include "Images.h"

#include "velk/bytes/HexText.h"

namespace VelkTool {

std::string offsetText(std::uint64_t offset) { return Velk::detail::hexText(offset, 8); }

std::string placeText(const Velk::BlockView& block) {
  const std::string place = "offset " + offsetText(block.offset);
  return block.kind == Velk::BlockKind::Stray ? place : place + ", id " + std::to_string(block.id);
}

void forEachFinding(const Velk::BlockView& block, const std::function<void(Velk::Finding finding)>& act) {
  for (std::size_t i = 0; i < Velk::findingCount; ++i) {
    const auto finding = static_cast<Velk::Finding>(i);
    if (block.has(finding)) act(finding);
  }
}

void tellFindings(Session& session, const std::string& file, const Velk::BlockView& block) {
  if (block.isSound()) return;
  forEachFinding(block, [&](Velk::Finding finding) {
    session.complain(file, placeText(block) + ": " + Velk::describe(block, finding));
  });
}

void complainOf(Session& session, const std::string& file, const Velk::BlockView& block) {
  if (!block.isSound()) session.worsen(Exit::Findings);
  tellFindings(session, file, block);
}

}  // namespace VelkTool
