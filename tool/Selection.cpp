#include "Selection.h"

#include <algorithm>
#include <map>

namespace VelkTool {

std::shared_ptr<Selection> addSelection(CLI::App& command, bool occurrences) {
  const auto selection = std::make_shared<Selection>();
  command.add_option("--id", selection->ids, "Only blocks of this id; may be given again")
      ->check(CLI::Range(0, 65535))
      ->type_name("N")
      ->take_all()
      ->allow_extra_args(false);
  if (occurrences) {
    command.add_option("--nth", selection->occurrence, "Of several blocks with the same id only the K-th, from 1")
        ->check(CLI::PositiveNumber)
        ->type_name("K");
  }
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
    act(block);
  }
}

}  // namespace VelkTool
