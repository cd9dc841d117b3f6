#include <algorithm>
#include <optional>
#include <sstream>

#include "Files.h"
#include "Images.h"
#include "TableCommands.h"
#include "TableSections.h"
#include "ValueText.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::HwTableBlock;

/// An image in which tables are put; each call says why that cannot be, or nothing.
class Placement {
 public:
  Placement(QByteArray image, const Inputs& inputs) : image_(std::move(image)), inputs_(inputs) {}

  const QByteArray& image() const { return image_; }
  /// A line for each value that has changed, and for each table that was added.
  const std::string& changes() const { return changes_; }

  /// In place of the first block of the id.
  std::string place(HwTableBlock& table, unsigned short id, bool append) {
    const Velk::MemoryImage walked = walk();
    for (const BlockView& view : walked) {
      if (view.kind == Velk::BlockKind::OldStyle && view.id == id) return replace(view, replacementOf(view, table));
    }
    if (!append) return noSuchBlock(id) + "; --append would add it";
    return add(table.getByteArrayData(), table.getBlockString());
  }

 private:
  Velk::MemoryImage walk() const { return Velk::MemoryImage(image_, inputs_.offset, inputs_.sectorSize); }

  std::string replace(const BlockView& view, const QByteArray& block) {
    const auto length = static_cast<qsizetype>(view.bytes.size());
    if (length != block.size()) {
      return placeText(view) + ": has " + std::to_string(length) + " bytes, the table " + std::to_string(block.size());
    }
    forEachChange(view, block, [&](const std::string& change) { changes_ += change + '\n'; });
    image_.replace(static_cast<qsizetype>(view.offset), length, block);
    return {};
  }

  /// Behind the last block; an end block moves on into the erased memory behind it, so that the memory keeps its size.
  std::string add(const QByteArray& block, const std::string& name) {
    if (inputs_.sectorSize != 0) return "has sectors; a table can only replace another there";
    std::optional<BlockView> last;
    const Velk::MemoryImage walked = walk();
    for (const BlockView& view : walked) {
      if (!view.isSound()) return placeText(view) + ": " + Velk::verdictName(view) + "; nothing can be added";
      last = view;
    }
    const bool isEnded = last && last->kind == Velk::BlockKind::End;
    const auto offset = isEnded ? last->offset : static_cast<std::uint64_t>(image_.size());
    changes_ += name + ": added at offset " + offsetText(offset) + '\n';
    if (!isEnded) {
      image_ += block;
      return {};
    }
    const auto rest = image_.size() - static_cast<qsizetype>(last->offset + last->bytes.size());
    if (rest < block.size()) return "has no room for the " + std::to_string(block.size()) + " bytes of the table";
    image_.insert(static_cast<qsizetype>(last->offset), block);
    image_.chop(block.size());
    return {};
  }

  QByteArray image_;
  const Inputs& inputs_;
  std::string changes_;
};

class Importer {
 public:
  Importer(Session& session, const Inputs& inputs, const TableImport& options, const Output& output)
      : session_(session), inputs_(inputs), file_(inputs.files.front()), options_(options), output_(output) {}

  void run() {
    if (!accepts()) return;
    const std::optional<Destination> destination = output_.open(session_, file_, {&options_.text, 1});
    if (!destination) return;
    Velk::ImageFile file = openInput(session_, inputs_, file_).file;
    if (!file.error.empty()) return;
    const auto text = readText(session_, options_.text);
    if (!text) return;
    bool complete = true;
    const std::vector<TableSection> sections = wantedSections(*text, complete);
    if (sections.empty()) return refuse(options_.text, "contains no table that has a text form", Exit::Findings);
    Placement placement(file.bytes, inputs_);
    for (const TableSection& section : sections) complete = import(section, placement) && complete;
    if (!complete) return session_.worsen(Exit::Findings);
    file.bytes = placement.image();
    destination->write(session_, file, placement.changes());
  }

 private:
  void refuse(const std::string& file, const std::string& what, Exit exit) {
    session_.complain(file, what);
    session_.worsen(exit);
  }

  bool accepts() {
    if (options_.id && makeExchangeTable(*options_.id) == nullptr) {
      refuse(file_, "blocks of id " + std::to_string(*options_.id) + " have no text form that can be read back",
             Exit::Usage);
    } else if (file_ == "-" && options_.text == "-") {
      refuse(options_.text, "standard input cannot be both image and text", Exit::Usage);
    } else {
      return true;
    }
    return false;
  }

  /// Returns the first section of each table. With an id, returns only its section, or the whole text if it has none.
  /// Reports a second section of a table and clears `complete` for it unless --force is given.
  std::vector<TableSection> wantedSections(const std::string& text, bool& complete) {
    std::vector<TableSection> wanted;
    for (TableSection& section : tableSections(text)) {
      const bool known = std::ranges::any_of(wanted, [&](const TableSection& other) { return other.id == section.id; });
      if (options_.id && section.id != *options_.id) continue;
      if (known) {
        session_.complain(options_.text,
                          "repeats the table of id " + std::to_string(section.id) + "; only the first one is used");
        complete = options_.force;
      } else {
        wanted.push_back(std::move(section));
      }
    }
    if (wanted.empty() && options_.id) wanted.push_back({static_cast<unsigned short>(*options_.id), text});
    return wanted;
  }

  /// Reads the table and puts it into the image; returns whether both succeeded.
  bool import(const TableSection& section, Placement& placement) {
    const auto table = makeExchangeTable(section.id);
    std::istringstream messages(readInto(*table, section.text));
    bool sound = true;
    for (std::string message; std::getline(messages, message); sound = false) {
      session_.complain(options_.text, message);
    }
    const std::string refusal = placement.place(*table, section.id, options_.append);
    if (!refusal.empty()) session_.complain(file_, refusal);
    return refusal.empty() && (sound || options_.force);
  }

  Session& session_;
  const Inputs& inputs_;
  const std::string& file_;
  const TableImport& options_;
  const Output& output_;
};

}  // namespace

void importTable(Session& session, const Inputs& inputs, const TableImport& options, const Output& output) {
  Importer(session, inputs, options, output).run();
}

}  // namespace VelkTool
