#include <algorithm>
#include <memory>
#include <ostream>
#include <streambuf>

#include "Commands.h"
#include "Images.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

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

class Printer {
 public:
  Printer(Session& session, std::vector<int> ids) : session_(session), ids_(std::move(ids)) {}

  void print(const std::string& file, const BlockView& block) {
    if (!ids_.empty() && std::ranges::find(ids_, block.id) == ids_.end()) return;
    constexpr std::size_t limit = 4 * 1024 * 1024;
    LimitedText text(limit);
    std::ostream stream(&text);
    write(block, stream);
    session_.write(text.text());
    if (text.full()) {
      session_.complain(file, placeText(block) + ": the text is cut after 4 MiB");
      session_.worsen(Exit::Findings);
    }
    complainOf(session_, file, block);
  }

 private:
  void write(const BlockView& block, std::ostream& stream) {
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
  command->footer(
      "Damaged blocks are printed too, and told on standard error. A block of an unknown id prints its bytes.\n\n"
      "Example:\n  velk print --id 2 module.bin");
  command->callback([&session, files, ids] {
    Printer printer(session, *ids);
    forEachImage(session, *files, [&](const std::string& file, const Velk::MemoryImage& image) {
      for (const BlockView& block : image) printer.print(file, block);
    });
  });
}

}  // namespace VelkTool
