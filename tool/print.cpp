#include <memory>
#include <ostream>
#include <set>

#include "Choices.h"
#include "Commands.h"
#include "Folders.h"
#include "Images.h"
#include "Inputs.h"
#include "LimitedText.h"
#include "Selection.h"
#include "velk/bytes/ByteArray.h"
#include "velk/data/ElementCounts.h"
#include "velk/image/BlockText.h"
#include "velk/platform/Console.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::Page;

/// Says where the command shows what a page does not.
std::string whereShown(const BlockView& block, Page instead) {
  if (block.kind == Velk::BlockKind::EventCounter) return "export and --page hex show its bytes";
  switch (instead) {
    case Page::Detail:
      return "--page detail can";
    case Page::Complete:
      return "--page complete does not";
    default:
      return "--page hex has the bytes";
  }
}

/// Collects the lines that the library writes to standard output by itself while this lives, each line once.
class LibraryOutput {
 public:
  LibraryOutput()
      : former_(Velk::Console::redirect([this](Velk::Console::Stream stream, std::string_view line) {
          if (stream == Velk::Console::Stream::Output) lines_.emplace(line.substr(0, line.find('\n')));
        })) {}
  LibraryOutput(const LibraryOutput&) = delete;
  LibraryOutput& operator=(const LibraryOutput&) = delete;
  ~LibraryOutput() { Velk::Console::redirect(std::move(former_)); }

  const std::set<std::string>& lines() const { return lines_; }

 private:
  std::set<std::string> lines_;
  Velk::Console::Handler former_;
};

class Printer {
 public:
  Printer(Session& session, const Inputs& inputs, Page page) : session_(session), inputs_(inputs), page_(page) {}

  void print(const std::string& file, const BlockView& block) {
    const std::size_t lines = mostLines(block);
    LimitedText text(lines);
    std::ostream stream(&text);
    const LibraryOutput output;
    printBlock(stream, block, page_);
    session_.write(text.text());
    for (const std::string& line : output.lines()) session_.complain(file, placeText(block) + ": " + line);
    for (const Velk::NotShown& missing : notOnPage(block, page_)) {
      session_.complain(file, placeText(block) + ", " + missing.text + "; " + whereShown(block, missing.instead));
    }
    if (text.full()) reportCut(file, block, lines);
    reportBlock(session_, inputs_, file, block);
  }

 private:
  static constexpr std::size_t linesAfterRows = 100;

  /// Limits the text of a block whose counts claim rows that it does not hold, maybe thousands, which print as zeros.
  std::size_t mostLines(const BlockView& block) {
    if (page_ == Page::Hex || block.row == nullptr) return LimitedText::anyNumber;
    const QByteArray held = Velk::withHeldCounts(block);
    if (held.isEmpty()) return LimitedText::anyNumber;
    BlockView view = block;
    view.bytes = Velk::bytesOf(held).first(block.bytes.size());
    LimitedText text;
    std::ostream stream(&text);
    printBlock(stream, view, page_);
    return static_cast<std::size_t>(std::ranges::count(text.text(), '\n')) + linesAfterRows;
  }

  void reportCut(const std::string& file, const BlockView& block, std::size_t lines) {
    const std::string where = lines == LimitedText::anyNumber
                                  ? "after 4 MiB"
                                  : std::to_string(linesAfterRows) + " lines after the last row that the block holds";
    session_.complain(file, placeText(block) + ": the text is cut " + where);
    session_.worsen(Exit::Findings);
  }

  Session& session_;
  const Inputs& inputs_;
  Page page_;
};

}  // namespace

void addPrint(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("print", "The text forms of blocks, in the order of the image");
  const auto given = addRedactableInputs(*command);
  const auto selection = addSelection(*command);
  const auto page = std::make_shared<Page>(Page::Usual);
  addChoice<Page>(
      *command, "--page",
      {{"complete", Page::Complete},
       {"detail", Page::Detail},
       {"summary", Page::Summary},
       {"heading", Page::Heading},
       {"hex", Page::Hex}},
      [page](Page chosen) { *page = chosen; },
      "Of blocks that hold tables: complete (as without it), detail, summary or heading; hex: the bytes of any block");
  command->footer(
      "Damaged blocks are printed too, and reported on standard error. A block of an unknown id is shown as a hex\n"
      "dump. A text whose rows run past what the block holds is cut 100 lines after them.\n\n"
      "Examples:\n  velk print --id 2 module.bin\n  velk print --id 1040 --page detail module.bin");
  command->callback([&session, given, selection, page] {
    const Inputs inputs = withFilesOfFolders(session, *given);
    Printer printer(session, inputs, *page);
    SearchedBlocks searched(*selection);
    forEachInput(session, inputs, [&](const Input& input) {
      searched.forEach(input.image, [&](const BlockView& block) { printer.print(input.name, block); });
    });
    reportMissing(session, inputs, searched);
  });
}

}  // namespace VelkTool
