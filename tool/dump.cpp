#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "BlockDump.h"
#include "Colours.h"
#include "Commands.h"
#include "FindingReport.h"
#include "Folders.h"
#include "Images.h"
#include "Plural.h"
#include "Selection.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::CheckFinding;

/// Separates the parts of the output by empty lines.
class Parts {
 public:
  explicit Parts(Session& session) : session_(session) {}

  void begin() {
    if (!std::exchange(isFirst_, false)) session_.write("\n");
  }

 private:
  Session& session_;
  bool isFirst_ = true;
};

/// Writes the blocks of an image.
class ImageDump {
 public:
  ImageDump(Session& session, Parts& parts, const Input& input)
      : session_(session),
        parts_(parts),
        input_(input),
        options_(checksFor(input, {})),
        checker_(input.image, options_) {
    examineImage();
  }

  void write(SearchedBlocks& searched) {
    const bool isWhole = searched.selection().isEverything();
    if (isWhole) regions_ = input_.image.regions();
    searched.forEach(input_.image, [&](const BlockView& block) { writeBlock(block); });
    if (!isWhole) return;
    writeErasedUpTo(input_.image.bytes().size());
    const std::vector<CheckFinding> rest = takeFindings(noOffset);
    if (!rest.empty()) parts_.begin();
    for (const CheckFinding& finding : rest) writeFinding(session_, finding, columns_);
    countErrors(session_, rest);
  }

 private:
  static constexpr std::uint64_t noOffset = ~std::uint64_t{0};

  /// Finds what concerns several blocks before the first of them is written.
  void examineImage() {
    Velk::ImageChecker checker(input_.image, options_);
    for (const BlockView& block : input_.image) checker.check(block);
    for (CheckFinding& finding : checker.finish())
      findings_[finding.offset.value_or(noOffset)].push_back(std::move(finding));
  }

  std::vector<CheckFinding> takeFindings(std::uint64_t offset) {
    const auto found = findings_.find(offset);
    return found == findings_.end() ? std::vector<CheckFinding>() : std::move(found->second);
  }

  void writeBlock(const BlockView& block) {
    writeErasedUpTo(block.offset);
    std::vector<CheckFinding> findings = checker_.check(block);
    std::ranges::move(takeFindings(block.offset), std::back_inserter(findings));
    parts_.begin();
    BlockDump(session_, block, columns_).write(findings);
    countErrors(session_, findings);
    written_ = block.offset + block.bytes.size();
  }

  /// Writes the erased memory in front of an offset, which no block covers.
  void writeErasedUpTo(std::uint64_t offset) {
    for (; region_ < regions_.size() && regions_[region_].offset < offset; ++region_) {
      const Velk::Region& region = regions_[region_];
      if (region.offset < written_) continue;  // bytes that are no block are regions too
      parts_.begin();
      session_.write(offsetText(region.offset) + "  " + Velk::lookName(region.look) + ", " +
                     counted(region.size, "byte", "bytes") + '\n');
      const BlockView bytes{.offset = region.offset, .bytes = input_.image.bytes().subspan(region.offset, region.size)};
      BlockDump(session_, bytes, columns_).writeSpan({0, bytes.bytes.size(), Velk::ByteRole::Unused});
    }
  }

  Session& session_;
  Parts& parts_;
  const Input& input_;
  Velk::CheckOptions options_;
  Velk::ImageChecker checker_;
  DumpColumns columns_ = DumpColumns::ofOutput();
  std::map<std::uint64_t, std::vector<CheckFinding>> findings_;  ///< about several blocks, by the offset of one
  std::vector<Velk::Region> regions_;
  std::size_t region_ = 0;     ///< the next one
  std::uint64_t written_ = 0;  ///< end of the last block
};

}  // namespace

void addDump(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("dump", "The bytes of memory images, and what each of them is");
  const auto given = addFolderInputs(*command);
  const auto selection = addSelection(*command);
  addColours(*command, session);
  command->footer(
      "A line has up to eight bytes, their type (u16: unsigned, 16 bits), the path of the field and its value. Fields\n"
      "that share bytes follow them on lines of their own. What is wrong is reported below the bytes that it is "
      "about;\n"
      "the name of the check is in brackets. Bytes that are not in use, or all equal, are shortened after two lines.\n"
      "Damaged blocks are shown as far as they go. The exit code is 1 if an error is reported.\n\n"
      "Examples:\n  velk dump module.bin | less\n  velk dump --id IDENT_2 module.bin\n"
      "  velk dump --id '*_FREQ' --nth 1 module.bin");
  command->callback([&session, given, selection] {
    const Inputs inputs = withFilesOfFolders(session, *given);
    SearchedBlocks searched(*selection);
    Parts parts(session);
    forEachInput(session, inputs, [&](const Input& input) {
      if (inputs.namesFiles()) {
        parts.begin();
        session.write(input.name + ":\n");
      }
      ImageDump(session, parts, input).write(searched);
    });
    reportMissing(session, inputs, searched);
  });
}

}  // namespace VelkTool
