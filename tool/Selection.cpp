#include "Selection.h"

#include <algorithm>
#include <map>

namespace VelkTool {

namespace {

std::shared_ptr<Selection> makeSelection(CLI::App& command, const char* idDescription) {
  auto selection = std::make_shared<Selection>();
  command.add_option("--id", selection->ids, idDescription)
      ->check(CLI::Range(0, 65535).description(""))
      ->type_name("N")
      ->take_all()
      ->allow_extra_args(false);
  command.add_option("--nth", selection->occurrence, "Of several blocks with the same id only the K-th, from 1")
      ->check(CLI::Range(1, 65536).description(""))
      ->type_name("K");
  return selection;
}

}  // namespace

std::shared_ptr<const Selection> addSelection(CLI::App& command) {
  return makeSelection(command, "Only blocks of this id; may be given again");
}

std::shared_ptr<const Selection> addBlockSelection(CLI::App& command) {
  auto selection = makeSelection(command, "The id of the block");
  command.get_option("--id")->required()->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::Throw);
  return selection;
}

void forEachBlock(const Velk::MemoryImage& image, const Selection& selection,
                  const std::function<void(const Velk::BlockView& block)>& act) {
  std::map<unsigned short, unsigned> seen;
  for (const Velk::BlockView& block : image) {
    const bool isStray = block.kind == Velk::BlockKind::Stray;
    const bool hasId =
        selection.ids.empty() || (!isStray && std::ranges::find(selection.ids, block.id) != selection.ids.end());
    if (!hasId) continue;
    if (selection.occurrence != 0 && (isStray || ++seen[block.id] != selection.occurrence)) continue;
    selection.found = true;
    act(block);
  }
}

void tellIfNothingFound(Session& session, const Inputs& inputs, const Selection& selection) {
  if (selection.found || (selection.ids.empty() && selection.occurrence == 0)) return;
  if (inputs.files.size() == 1) {
    session.complain(inputs.files.front(), "has no such block");
  } else {
    session.complain("--id", "none of the files has such a block");
  }
  session.worsen(Exit::Findings);
}

}  // namespace VelkTool
