#include <algorithm>
#include <optional>
#include <sstream>

#include "Files.h"
#include "TableCommands.h"
#include "TableSections.h"
#include "velk/image/ImageFile.h"
#include "velk/image/MemoryImage.h"
#include "velk/platform/Console.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::HwTableBlock;

/// Reads a text into a table; returns what the library's reader has to say of it.
std::string readInto(HwTableBlock& table, const std::string& text) {
  std::string messages;
  const auto former = Velk::Console::redirect([&](Velk::Console::Stream stream, std::string_view message) {
    if (stream == Velk::Console::Stream::Output) messages += message;
  });
  std::istringstream lines(text);
  table.readExchangeText(lines);
  Velk::Console::redirect(former);
  const auto counts = [](unsigned rows, unsigned cols) { return std::to_string(rows) + " * " + std::to_string(cols); };
  if (table.getRowCount() > table.getRowCapacity() || table.getColCount() > table.getColCapacity()) {
    messages += "COUNT " + counts(table.getRowCount(), table.getColCount()) + " is more than the table's " +
                counts(table.getRowCapacity(), table.getColCapacity()) + '\n';
  }
  return messages;
}

bool isErased(const QByteArray& bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == '\xFF'; });
}

/// Puts a block into an image or says why it cannot be there.
class Placement {
 public:
  explicit Placement(const QByteArray& image) : image_(image), walk_(image) {}

  std::string place(const QByteArray& block, unsigned short id, bool append) {
    for (const BlockView& view : walk_) {
      if (view.kind == Velk::BlockKind::OldStyle && view.id == id) return replace(view, block);
    }
    return append ? add(block) : "has no block of id " + std::to_string(id) + "; --append would add it";
  }
  const QByteArray& image() const { return image_; }

 private:
  std::string replace(const BlockView& view, const QByteArray& block) {
    const auto length = static_cast<qsizetype>(view.bytes.size());
    if (length != block.size()) {
      return "block of id " + std::to_string(view.id) + " has " + std::to_string(length) + " bytes, the table " +
             std::to_string(block.size());
    }
    image_.replace(static_cast<qsizetype>(view.offset), length, block);
    return {};
  }

  /// Behind the last block; an end block moves on into the erased memory behind it, so that the memory keeps its size.
  std::string add(const QByteArray& block) {
    std::optional<BlockView> last;
    for (const BlockView& view : walk_) last = view;
    if (last && last->kind == Velk::BlockKind::Stray) return "ends with bytes of no block; nothing can be added";
    if (!last || last->kind != Velk::BlockKind::End) {
      image_ += block;
      return {};
    }
    const auto behindEnd = static_cast<qsizetype>(last->offset + last->bytes.size());
    if (image_.size() - behindEnd < block.size() || !isErased(image_.mid(behindEnd))) {
      return "has no room for the " + std::to_string(block.size()) + " bytes of the table";
    }
    image_.insert(static_cast<qsizetype>(last->offset), block);
    image_.chop(block.size());
    return {};
  }

  QByteArray image_;
  Velk::MemoryImage walk_;
};

class Importer {
 public:
  Importer(Session& session, const TableImport& options) : session_(session), options_(options) {}

  void run() {
    if (!accepts()) return;
    Velk::ImageFile file = Velk::readImageFile(options_.file);
    if (!file.error.empty()) return refuse(options_.file, file.error, Exit::NoAccess);
    const auto text = readText(session_, options_.text);
    if (!text) return;
    const std::vector<TableSection> sections = wantedSections(*text);
    if (sections.empty()) return refuse(options_.text, "names no table that has a text form", Exit::Findings);
    QByteArray image = file.bytes;
    for (const TableSection& section : sections) {
      if (!import(section, image)) return;
    }
    writeFile(session_, options_.out, image);
  }

 private:
  void refuse(const std::string& file, const std::string& what, Exit exit) {
    session_.complain(file, what);
    session_.worsen(exit);
  }

  bool accepts() {
    if (options_.id && makeExchangeTable(*options_.id) == nullptr) {
      refuse(options_.file, "blocks of id " + std::to_string(*options_.id) + " have no text to be read back",
             Exit::Usage);
    } else if (isSameFile(options_.file, options_.out) || isSameFile(options_.text, options_.out)) {
      refuse(options_.out, "would write over its input", Exit::Usage);
    } else if (options_.file == "-" && options_.text == "-") {
      refuse(options_.text, "standard input cannot be both image and text", Exit::Usage);
    } else {
      return true;
    }
    return false;
  }

  /// The first section of each table; with an id its own, or else the whole text for its class to make what it can of.
  std::vector<TableSection> wantedSections(const std::string& text) const {
    std::vector<TableSection> wanted;
    for (TableSection& section : tableSections(text)) {
      const bool known = std::ranges::any_of(wanted, [&](const TableSection& other) { return other.id == section.id; });
      if (!known && (!options_.id || section.id == *options_.id)) wanted.push_back(std::move(section));
    }
    if (wanted.empty() && options_.id) wanted.push_back({static_cast<unsigned short>(*options_.id), text});
    return wanted;
  }

  /// Whether the import goes on.
  bool import(const TableSection& section, QByteArray& image) {
    const auto table = makeExchangeTable(section.id);
    std::istringstream messages(readInto(*table, section.text));
    bool sound = true;
    for (std::string message; std::getline(messages, message); sound = false) {
      session_.complain(options_.text, message);
    }
    if (!sound && !options_.force) {
      session_.worsen(Exit::Findings);
      return false;
    }
    Placement placement(image);
    if (const std::string error = placement.place(table->getByteArrayData(), section.id, options_.append);
        !error.empty()) {
      refuse(options_.file, error, Exit::Findings);
      return false;
    }
    image = placement.image();
    return true;
  }

  Session& session_;
  const TableImport& options_;
};

}  // namespace

void importTable(Session& session, const TableImport& options) { Importer(session, options).run(); }

}  // namespace VelkTool
