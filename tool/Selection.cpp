#include "Selection.h"

#include <algorithm>
#include <map>

#include "Numbers.h"

namespace VelkTool {
namespace {

std::shared_ptr<Selection> makeSelection(CLI::App& command, const char* description) {
  auto selection = std::make_shared<Selection>();
  const auto take = [selection](const std::vector<std::string>& names) {
    std::string error;
    for (const std::string& name : names) {
      if (const auto pattern = Velk::BlockPattern::parse(name, error)) selection->patterns.push_back(*pattern);
    }
  };
  command.add_option_function<std::vector<std::string>>("--id", take, description)
      ->check(blockName())
      ->type_name("BLOCK")
      ->take_all()
      ->allow_extra_args(false);
  command.add_option("--nth", selection->occurrence, "Only the K-th block of those with the same id, from 1")
      ->transform(plainNumber(1, 65536))
      ->type_name("K");
  return selection;
}

std::string numberText(unsigned occurrence) {
  return occurrence == 0 ? "" : "no. " + std::to_string(occurrence) + " of ";
}

}  // namespace

CLI::Validator blockName() {
  return {[](const std::string& text) {
            std::string error;
            Velk::BlockPattern::parse(text, error);
            return error;
          },
          ""};
}

std::string blockText(const Velk::BlockPattern& pattern, unsigned occurrence) {
  const std::string number = numberText(occurrence);
  if (!pattern.id()) return "block " + number + pattern.text();
  return "block " + (number.empty() ? "of " : number) + "id " + std::to_string(*pattern.id());
}

bool Selection::matches(const Velk::BlockView& block) const {
  return patterns.empty() ||
         std::ranges::any_of(patterns, [&](const Velk::BlockPattern& pattern) { return pattern.matches(block); });
}

void SearchedBlocks::forEach(const Velk::MemoryImage& image,
                             const std::function<void(const Velk::BlockView& block)>& act) {
  std::set<std::size_t> found;
  bool foundAny = false;
  forEachBlock(image, selection_, [&](const Velk::BlockView& block) {
    foundAny = true;
    for (std::size_t i = 0; i < selection_.patterns.size(); ++i) {
      if (selection_.patterns[i].matches(block)) found.insert(i);
    }
    act(block);
  });
  const std::lock_guard lock(mutex_);
  found_.merge(found);
  foundAny_ = foundAny_ || foundAny;
  searched_ = true;
}

std::vector<Velk::BlockPattern> SearchedBlocks::missing() const {
  const std::lock_guard lock(mutex_);
  std::vector<Velk::BlockPattern> missing;
  for (std::size_t i = 0; searched_ && i < selection_.patterns.size(); ++i) {
    if (!found_.contains(i)) missing.push_back(selection_.patterns[i]);
  }
  return missing;
}

bool SearchedBlocks::isInVain() const {
  const std::lock_guard lock(mutex_);
  return searched_ && !foundAny_;
}

std::shared_ptr<const Selection> addSelection(CLI::App& command) {
  return makeSelection(
      command, "Only these blocks: an id, a name, a class, or a pattern of names such as '*_FREQ'; may be repeated");
}

std::shared_ptr<const Selection> addBlockSelection(CLI::App& command) {
  auto selection = makeSelection(command, "The block: its id, name or class");
  command.get_option("--id")->required()->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::Throw);
  return selection;
}

void forEachBlock(const Velk::MemoryImage& image, const Selection& selection,
                  const std::function<void(const Velk::BlockView& block)>& act) {
  std::map<unsigned short, unsigned> seen;
  for (const Velk::BlockView& block : image) {
    if (!selection.matches(block)) continue;
    const bool isStray = block.kind == Velk::BlockKind::Stray;
    if (selection.occurrence != 0 && (isStray || ++seen[block.id] != selection.occurrence)) continue;
    act(block);
  }
}

std::string noSuchBlock(const Velk::BlockPattern& pattern, unsigned occurrence) {
  return "has no " + blockText(pattern, occurrence);
}

void reportMissing(Session& session, const Inputs& inputs, const SearchedBlocks& searched) {
  const Selection& selection = searched.selection();
  const auto report = [&](const std::string& block) {
    const bool single = inputs.files.size() == 1;
    session.complain(single ? inputs.files.front() : "", single ? "has no " + block : "no file has a " + block);
    session.worsen(Exit::Findings);
  };
  for (const Velk::BlockPattern& pattern : searched.missing()) report(blockText(pattern, selection.occurrence));
  if (selection.patterns.empty() && !selection.isEverything() && searched.isInVain()) {
    report("block " + numberText(selection.occurrence) + "any id");
  }
}

}  // namespace VelkTool
