#include <algorithm>
#include <map>
#include <memory>
#include <ostream>
#include <set>
#include <streambuf>

#include "Commands.h"
#include "Images.h"
#include "Pages.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"
#include "velk/platform/Console.h"

namespace VelkTool {
namespace {

using Velk::BlockView;

/// Collects a text up to a limit; the stream that fills it fails beyond that, which stops the printing.
class LimitedText : public std::streambuf {
 public:
  explicit LimitedText(std::size_t limit) : limit_(limit) {}

  bool full() const { return full_; }
  /// What fitted, up to the last whole line where something did not.
  std::string_view text() const {
    return full_ ? std::string_view(text_).substr(0, text_.rfind('\n') + 1) : std::string_view(text_);
  }

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    const auto wanted = static_cast<std::size_t>(count);
    const std::size_t taken = std::min(wanted, limit_ - text_.size());
    text_.append(bytes, taken);
    full_ = full_ || taken < wanted;
    return static_cast<std::streamsize>(taken);
  }
  int_type overflow(int_type character) override {
    const char byte = traits_type::to_char_type(character);
    return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
  }

 private:
  std::string text_;
  std::size_t limit_;
  bool full_ = false;
};

/// Blocks outside the old-style dictionary, or of another class than its id has there, are printed by their own class.
bool isInDictionary(const BlockView& block) {
  return block.row != nullptr && Velk::findDictionaryRow(block.id) == block.row;
}

/// Collects what the library writes to standard output by itself while this lives; a line that repeats counts once.
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
  Printer(Session& session, std::vector<int> ids, Page page) : session_(session), ids_(std::move(ids)), page_(page) {}

  void print(const std::string& file, const BlockView& block) {
    if (!ids_.empty() && std::ranges::find(ids_, block.id) == ids_.end()) return;
    constexpr std::size_t limit = 4 * 1024 * 1024;
    LimitedText text(limit);
    std::ostream stream(&text);
    const LibraryOutput said;
    write(block, stream);
    session_.write(text.text());
    for (const std::string& line : said.lines()) session_.complain(file, placeText(block) + ": " + line);
    for (const std::string& line : notOnPage(page_, block)) session_.complain(file, placeText(block) + ", " + line);
    if (text.full()) {
      session_.complain(file, placeText(block) + ": the text is cut after 4 MiB");
      session_.worsen(Exit::Findings);
    }
    complainOf(session_, file, block);
  }

 private:
  void write(const BlockView& block, std::ostream& stream) {
    if (page_ == Page::Hex) return writeHexPage(block, stream);
    if (hasTables(block)) return writeTablePage(page_, block, stream);
    Velk::HwDatablock raw(true);
    raw.setDataWithoutChecksumCheck(block.bytes.data(), static_cast<unsigned>(block.bytes.size()));
    if (isInDictionary(block) && interpreter_.printHwDatablockOldStyleInfo(&raw, stream)) return;
    if (block.row == nullptr) {
      raw.printToStream(stream);  // the base form is there for what no class prints
      return;
    }
    const std::unique_ptr<Velk::HwDatablock> typed = block.row->make(block.id);
    typed->setDataWithoutChecksumCheck(&raw);
    typed->printToStream(stream);
  }

  Session& session_;
  std::vector<int> ids_;
  Page page_;
  Velk::HwDatablockOldStyleInterpreter interpreter_;
};

}  // namespace

void addPrint(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("print", "The text forms of blocks, in the order of the image");
  const auto files = std::make_shared<std::vector<std::string>>();
  const auto ids = std::make_shared<std::vector<int>>();
  command->add_option("FILE", *files, "Memory images; - is standard input")->required();
  command->add_option("--id", *ids, "Only blocks of this id; may be given again")
      ->check(CLI::Range(0, 65535))
      ->type_name("N")
      ->take_all()
      ->allow_extra_args(false);
  const auto page = std::make_shared<Page>(Page::Usual);
  const std::map<std::string, Page> pages{{"complete", Page::Complete},
                                          {"detail", Page::Detail},
                                          {"summary", Page::Summary},
                                          {"heading", Page::Heading},
                                          {"hex", Page::Hex}};
  command
      ->add_option("--page", *page,
                   "Of blocks that hold tables: complete (as without it), detail, summary or "
                   "heading; hex: the bytes of any block")
      ->transform(CLI::CheckedTransformer(pages).description(""))
      ->type_name("PAGE");
  command->footer(
      "Damaged blocks are printed too, and told on standard error. A block of an unknown id prints its bytes.\n\n"
      "Examples:\n  velk print --id 2 module.bin\n  velk print --id 1040 --page detail module.bin");
  command->callback([&session, files, ids, page] {
    Printer printer(session, *ids, *page);
    forEachImage(session, *files, [&](const std::string& file, const Velk::MemoryImage& image) {
      for (const BlockView& block : image) printer.print(file, block);
    });
  });
}

}  // namespace VelkTool
