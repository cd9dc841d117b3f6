#include <algorithm>
#include <optional>
#include <sstream>

#include "Files.h"
#include "Images.h"
#include "TableCommands.h"
#include "TableSections.h"
#include "ValueText.h"
#include "velk/image/BlockPlacement.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::HwTableBlock;

/// An image that tables are put into; each call says why that cannot be, or nothing.
class ImageWithTables {
 public:
  ImageWithTables(QByteArray image, const Inputs& inputs) : image_(std::move(image)), inputs_(inputs) {}

  const QByteArray& image() const { return image_; }
  /// Lists each value that has changed and each table that was added, one per line.
  const std::string& changes() const { return changes_; }

  std::string place(HwTableBlock& table, unsigned short id, bool append) {
    const Velk::MemoryImage walked(image_, inputs_.offset, inputs_.sectorSize);
    const std::optional<BlockView> former = firstBlockOf(walked, id);
    if (former) return replace(walked, *former, replacementOf(*former, table));
    if (!append) return noSuchBlock(Velk::BlockPattern(id)) + "; --append would add it";
    return add(walked, table);
  }

 private:
  std::string replace(const Velk::MemoryImage& walked, const BlockView& former, const QByteArray& block) {
    const Velk::Placement placement = replaceBlock(walked, former, block);
    if (placement.result != Velk::PlacementResult::Done) {
      return placeText(former) + ": has " + std::to_string(former.bytes.size()) + " bytes, the table " +
             std::to_string(block.size());
    }
    forEachChange(former, block, [&](const std::string& change) { changes_ += change + '\n'; });
    image_ = placement.image;
    return {};
  }

  std::string add(const Velk::MemoryImage& walked, HwTableBlock& table) {
    const char* const inSectors = "has sectors; a table can only replace another there";
    // Sectors that were asked for but not found count as well.
    if (inputs_.sectorSize != 0) return inSectors;
    const QByteArray block = table.getByteArrayData();
    const Velk::Placement placement = appendBlock(walked, block);
    switch (placement.result) {
      case Velk::PlacementResult::Damaged:
        return placeText(*placement.damaged) + ": " + Velk::verdictName(*placement.damaged) + "; nothing can be added";
      case Velk::PlacementResult::NoRoom:
        return "has no room for the " + std::to_string(block.size()) + " bytes of the table";
      case Velk::PlacementResult::Done:
        changes_ += table.getBlockString() + (": added at offset " + offsetText(placement.offset)) + '\n';
        image_ = placement.image;
        return {};
      default:
        return inSectors;
    }
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
    ImageWithTables edited(file.bytes, inputs_);
    for (const TableSection& section : sections) complete = import(section, edited) && complete;
    if (!complete) return session_.worsen(Exit::Findings);
    file.bytes = edited.image();
    destination->write(session_, file, edited.changes());
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

  /// Returns the first section of each table; with an id only that of its table, or the whole text where no section
  /// names it. A second section of a table is reported and clears `complete`, unless --force is given.
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

  /// Reads a table and puts it into the image; returns whether both worked.
  bool import(const TableSection& section, ImageWithTables& edited) {
    const auto table = makeExchangeTable(section.id);
    std::istringstream messages(readInto(*table, section.text));
    bool sound = true;
    for (std::string message; std::getline(messages, message); sound = false) {
      session_.complain(options_.text, message);
    }
    const std::string refusal = edited.place(*table, section.id, options_.append);
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
