#include <filesystem>
#include <set>

#include "Choices.h"
#include "Commands.h"
#include "Images.h"
#include "velk/checks/FindingTable.h"
#include "velk/containers/ImageFile.h"
#include "velk/data/BlockData.h"
#include "velk/data/BlockPattern.h"
#include "velk/image/MemoryImage.h"

namespace VelkTool {
namespace {

using Velk::BlockView;

/// A command line that is being typed: its last word is the one to complete.
class TypedLine {
 public:
  explicit TypedLine(std::vector<std::string> words) : words_(std::move(words)) {}

  std::string last() const { return words_.empty() ? "" : words_.back(); }
  /// Returns the values that an option has on the line.
  std::vector<std::string> valuesOf(const std::string& option) const {
    std::vector<std::string> values;
    for (std::size_t i = 0; i + 1 < words_.size(); ++i) {
      if (words_[i] == option) values.push_back(words_[i + 1]);
      if (words_[i].starts_with(option + '=')) values.push_back(words_[i].substr(option.size() + 1));
    }
    return values;
  }
  /// Returns the image on the line; an empty one if there is none.
  Velk::MemoryImage image() const {
    for (std::size_t i = 0; i + 1 < words_.size(); ++i) {
      std::error_code error;
      if (!std::filesystem::is_regular_file(words_[i], error)) continue;
      return Velk::MemoryImage(Velk::readImageFile(words_[i], std::nullopt).bytes);
    }
    return Velk::MemoryImage(QByteArray());
  }

 private:
  std::vector<std::string> words_;
};

using Words = std::set<std::string>;

/// Adds a name unless it has blanks, which shells would have to quote.
void addName(Words& words, const std::string& name, const std::string& end = "") {
  if (!name.empty() && name.find(' ') == name.npos) words.insert(name + end);
}

/// Adds the ids and names of the blocks of an image, or of all that there are.
void addBlocks(Words& words, const Velk::MemoryImage& image, const std::string& end) {
  for (const BlockView& block : image) {
    if (block.kind == Velk::BlockKind::Stray) continue;
    addName(words, std::to_string(block.id), end);
    addName(words, Velk::blockName(block), end);
  }
  if (!words.empty()) return;
  for (const std::string& name : Velk::blockNames()) addName(words, name, end);
}

/// Adds the fields of the blocks that are called so, between two texts.
void addFields(Words& words, const Velk::MemoryImage& image, const std::string& block, const std::string& begin,
               const std::string& end) {
  std::string error;
  const auto pattern = Velk::BlockPattern::parse(block, error);
  for (const BlockView& view : image) {
    if (!pattern || !pattern->matches(view)) continue;
    const Velk::BlockData data(view);
    const Velk::DataNode root = data.root();
    for (std::size_t i = 0; i < root.size(); ++i) {
      addName(words, begin + root.nameOf(i), end);
      const Velk::FieldInfo* const field = root[i].field();
      if (field != nullptr && *field->key != '\0') addName(words, begin + field->key, end);
    }
  }
}

Words checks(const TypedLine&) {
  Words words;
  for (const Velk::FindingKind& kind : Velk::findingKinds()) words.insert(kind.code);
  return words;
}

Words blocks(const TypedLine& line) {
  Words words;
  addBlocks(words, line.image(), "");
  return words;
}

Words assignments(const TypedLine& line) {
  Words words;
  const Velk::MemoryImage image = line.image();
  for (const std::string& block : line.valuesOf("--id")) addFields(words, image, block, "", "=");
  return words;
}

Words paths(const TypedLine& line) {
  Words words;
  const Velk::MemoryImage image = line.image();
  if (image.bytes().empty()) return words;
  const std::string last = line.last();
  const std::size_t point = last.find('.');
  if (point == last.npos) {
    addBlocks(words, image, ".");
  } else {
    addFields(words, image, last.substr(0, point), last.substr(0, point + 1), "");
  }
  return words;
}

}  // namespace

void addComplete(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("complete", "Words for the completion scripts");
  command->group("");  // hides it: people have no use for it
  using Find = Words (*)(const TypedLine&);
  const auto find = std::make_shared<Find>();
  const auto words = std::make_shared<std::vector<std::string>>();
  addChoice<Find>(
      *command, "KIND", {{"CHECK", checks}, {"BLOCK", blocks}, {"NAME=VALUE", assignments}, {"PATH", paths}},
      [find](Find chosen) { *find = chosen; }, "The value to complete")
      ->required();
  command->add_option("WORD", *words, "The words of the command line");
  command->callback([&session, find, words] {
    for (const std::string& word : (*find)(TypedLine(*words))) session.write(word + '\n');
  });
}

}  // namespace VelkTool
