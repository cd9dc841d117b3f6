#include "ChosenBlock.h"

#include <algorithm>

#include "FindingReport.h"
#include "Images.h"

namespace VelkTool {
namespace {

using Velk::BlockView;

std::string ambiguous(const Velk::BlockPattern& wanted, const std::vector<BlockView>& blocks) {
  const bool isOneId = std::ranges::all_of(blocks, [&](const BlockView& block) { return block.id == blocks[0].id; });
  return "has " + std::to_string(blocks.size()) + " blocks " +
         (wanted.id() ? "of id " + std::to_string(*wanted.id()) : wanted.text()) +
         (isOneId ? "; use --nth to choose one" : "; use --id with one of their names");
}

}  // namespace

std::nullopt_t refuseChange(Session& session, const std::string& file, const std::string& what, Exit exit) {
  session.complain(file, what + "; nothing is changed");
  session.worsen(exit);
  return std::nullopt;
}

std::optional<BlockView> chooseBlock(Session& session, const Input& input, const Selection& selection,
                                     Unsound unsound) {
  std::vector<BlockView> blocks;
  forEachBlock(input.image, selection, [&](const BlockView& block) { blocks.push_back(block); });
  const Velk::BlockPattern& wanted = selection.patterns.front();
  if (blocks.empty()) return refuseChange(session, input.name, noSuchBlock(wanted, selection.occurrence));
  if (blocks.size() > 1) return refuseChange(session, input.name, ambiguous(wanted, blocks));
  const BlockView& block = blocks.front();
  if (block.has(Velk::Finding::UnbelievableSize)) {
    return refuseChange(session, input.name,
                        placeText(block) + ": " + Velk::describe(block, Velk::Finding::UnbelievableSize));
  }
  if (block.isSound() || unsound == Unsound::Taken) return block;
  const char* const advice = unsound == Unsound::Refused ? "" : ", use --force to change it and correct its checks";
  return refuseChange(session, input.name, placeText(block) + ": " + Velk::verdictName(block) + advice);
}

}  // namespace VelkTool
