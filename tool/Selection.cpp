#include "Selection.h"

#include <algorithm>
#include <map>

#include "Numbers.h"

namespace VelkTool {
namespace {

std::shared_ptr<Selection> makeSelection(CLI::App& command, const char* idDescription) {
  auto selection = std::make_shared<Selection>();
  command.add_option("--id", selection->ids, idDescription)
      ->transform(blockId())
      ->type_name("N")
      ->take_all()
      ->allow_extra_args(false);
  command.add_option("--nth", selection->occurrence, "Only the K-th block of those with the same id, from 1")
      ->transform(plainNumber(1, 65536))
      ->type_name("K");
  return selection;
}

std::string blockText(const std::string& id, unsigned occurrence) {
  const std::string number = occurrence == 0 ? "" : "no. " + std::to_string(occurrence) + ' ';
  return "block " + number + "of " + id;
}

}  // namespace

void SearchedBlocks::forEach(const Velk::MemoryImage& image,
                             const std::function<void(const Velk::BlockView& block)>& act) {
  std::set<int> found;
  forEachBlock(image, selection_, [&](const Velk::BlockView& block) {
    if (!selection_.isEverything()) found.insert(block.id);
    act(block);
  });
  const std::lock_guard lock(mutex_);
  found_.merge(found);
  searched_ = true;
}

std::set<int> SearchedBlocks::missing() const {
  const std::lock_guard lock(mutex_);
  std::set<int> missing;
  if (searched_) missing.insert(selection_.ids.begin(), selection_.ids.end());
  for (const int id : found_) missing.erase(id);
  return missing;
}

bool SearchedBlocks::isInVain() const {
  const std::lock_guard lock(mutex_);
  return searched_ && found_.empty();
}

std::shared_ptr<const Selection> addSelection(CLI::App& command) {
  return makeSelection(command, "Only blocks with this id; may be repeated");
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
    act(block);
  }
}

std::string noSuchBlock(int id, unsigned occurrence) {
  return "has no " + blockText("id " + std::to_string(id), occurrence);
}

void reportMissing(Session& session, const Inputs& inputs, const SearchedBlocks& searched) {
  const Selection& selection = searched.selection();
  const auto report = [&](const std::string& id) {
    const std::string block = blockText(id, selection.occurrence);
    const bool single = inputs.files.size() == 1;
    session.complain(single ? inputs.files.front() : "", single ? "has no " + block : "no file has a " + block);
    session.worsen(Exit::Findings);
  };
  for (const int id : searched.missing()) report("id " + std::to_string(id));
  if (selection.ids.empty() && !selection.isEverything() && searched.isInVain()) report("any id");
}

}  // namespace VelkTool
