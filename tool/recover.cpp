#include <algorithm>
#include <deque>

#include "Commands.h"
#include "Files.h"
#include "Images.h"
#include "Inputs.h"
#include "Numbers.h"
#include "Output.h"
#include "ValueText.h"
#include "velk/data/BlockDiff.h"
#include "velk/image/Recovery.h"

namespace VelkTool {
namespace {

using Velk::BlockView;
using Velk::DumpView;
using Velk::MemoryImage;

struct Rescue {
  std::uint64_t size = 0;  ///< of the written image; 0: the size of the longest dump
  std::string preferred{};
};

/// One block sequence in every dump: a sector, or the whole memory.
struct Stretch {
  std::uint64_t start = 0;
  std::uint64_t size = 0;
  std::deque<MemoryImage> images{};  ///< one for each dump
  Velk::Recovery recovery{};
};

class Recoverer {
 public:
  Recoverer(Session& session, const Inputs& inputs, const Rescue& rescue)
      : session_(session), inputs_(inputs), rescue_(rescue) {}

  void run(const Output& output) {
    const auto preferred = preferredDump();
    if (!rescue_.preferred.empty() && !preferred) return;
    const auto destination = output.open(session_, inputs_.files.front(), inputs_.files);
    if (!destination || !readDumps()) return;
    QByteArray image;
    for (Stretch& stretch : stretches()) {
      std::vector<const MemoryImage*> images;
      for (const MemoryImage& dump : stretch.images) images.push_back(&dump);
      stretch.recovery = Velk::recoverBlocks(images, preferred);
      report(stretch);
      const auto laidOut = Velk::layOut(stretch.recovery.blocks, stretch.size);
      if (!laidOut) return refuseForRoom(stretch);
      image += *laidOut;
    }
    if (conflicts_ > 0) return refuse("nothing is written; use --prefer DUMP to choose the dump that is right");
    if (isEmpty_) return refuse("has no sound block; nothing is written");
    Velk::ImageFile& first = dumps_.front().file;
    first.bytes = image;
    first.gaps.clear();
    first.lost.clear();
    moveTo(first, first.container);
    destination->write(session_, first, report_);
  }

 private:
  void refuse(const std::string& what) {
    session_.complain(inputs_.files.front(), what);
    session_.worsen(Exit::Findings);
  }

  void refuseForRoom(const Stretch& stretch) {
    std::uint64_t needed = 0;
    for (const DumpView& block : stretch.recovery.blocks) needed += block.view.bytes.size();
    refuse("its blocks need " + std::to_string(needed) + " bytes, " + std::to_string(needed - stretch.size) +
           " more than there are; nothing is written");
  }

  std::optional<std::size_t> preferredDump() {
    const auto found = std::ranges::find(inputs_.files, rescue_.preferred);
    if (found != inputs_.files.end()) return static_cast<std::size_t>(found - inputs_.files.begin());
    if (!rescue_.preferred.empty()) {
      session_.complain("--prefer", rescue_.preferred + " is not one of the dumps");
      session_.worsen(Exit::Usage);
    }
    return std::nullopt;
  }

  /// Reads all dumps. Fails if one cannot be read, since its blocks would be reported as lost.
  bool readDumps() {
    for (const std::string& name : inputs_.files) {
      dumps_.push_back(openInput(session_, inputs_, name));
      if (!dumps_.back().file.error.empty()) return false;
    }
    return true;
  }

  std::uint64_t longest() const {
    qsizetype size = 0;
    for (const Input& dump : dumps_) size = std::max(size, dump.file.bytes.size());
    return static_cast<std::uint64_t>(size);
  }

  /// Divides the memory, as long as the longest dump, into sequences.
  std::vector<Stretch> stretches() const {
    const std::uint64_t size = rescue_.size != 0 ? rescue_.size : longest();
    const std::uint64_t sector = dumps_.front().image.sectorSize();
    std::vector<Stretch> all;
    for (std::uint64_t start = 0; start < size; start += all.back().size) {
      Stretch& stretch = all.emplace_back();
      stretch.start = sector == 0 ? 0 : start;
      stretch.size = sector == 0 ? size : std::min(sector, size - start);
      for (const Input& dump : dumps_) stretch.images.push_back(part(dump, stretch, sector));
    }
    return all;
  }

  MemoryImage part(const Input& dump, const Stretch& stretch, std::uint64_t sector) const {
    const auto length = static_cast<qsizetype>(sector == 0 ? longest() : stretch.size);
    return MemoryImage(dump.file.bytes.mid(static_cast<qsizetype>(stretch.start), length),
                       stretch.start == 0 ? inputs_.offset : 0);
  }

  static std::string nameOf(const DumpView& block, const Stretch& stretch) {
    return Velk::blockName(block.view) + " at offset " + offsetText(stretch.start + block.view.offset);
  }

  void report(const Stretch& stretch) {
    std::uint64_t at = stretch.start;
    for (const DumpView& block : stretch.recovery.blocks) {
      report_ += offsetText(at) + "  " + Velk::blockName(block.view) + ": " + std::to_string(block.view.bytes.size()) +
                 " bytes from " + inputs_.files[block.dump] + ", offset " +
                 offsetText(stretch.start + block.view.offset) + '\n';
      at += block.view.bytes.size();
      isEmpty_ = false;
    }
    for (const Velk::DumpConflict& conflict : stretch.recovery.conflicts) report(conflict, stretch);
    for (const Velk::DumpDamage& damage : stretch.recovery.damage) report(damage, stretch);
  }

  void report(const Velk::DumpConflict& conflict, const Stretch& stretch) {
    ++conflicts_;
    const std::string& name = inputs_.files[conflict.first.dump];
    const std::string& other = inputs_.files[conflict.second.dump];
    session_.complain(name, nameOf(conflict.first, stretch) + " and " + nameOf(conflict.second, stretch) + " of " +
                                other + " are both sound and differ");
    session_.worsen(Exit::Findings);
    if (conflict.first.view.id != conflict.second.view.id) return;
    Velk::compareBlocks(conflict.first.view, conflict.second.view, [&](const Velk::Difference& difference) {
      session_.complain(name, "  " + difference.path.text() + ": " +
                                  sidesText(conflict.first.view, conflict.second.view, difference));
    });
  }

  void report(const Velk::DumpDamage& damage, const Stretch& stretch) {
    const std::uint64_t size = damage.view.view.bytes.size();
    const std::string what = nameOf(damage.view, stretch) + ": " + Velk::verdictName(damage.view.view) + "; ";
    const std::string& name = inputs_.files[damage.view.dump];
    if (damage.recovered == size) {
      report_ += name + ": " + what + "repaired, " + std::to_string(size) + " bytes are sound in another dump\n";
      return;
    }
    session_.complain(name, what + std::to_string(size - damage.recovered) + " of " + std::to_string(size) +
                                " bytes are sound in no dump");
    session_.worsen(Exit::Findings);
  }

  Session& session_;
  const Inputs& inputs_;
  const Rescue& rescue_;
  std::vector<Input> dumps_;
  std::string report_;
  std::size_t conflicts_ = 0;
  bool isEmpty_ = true;
};

}  // namespace

void addRecover(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("recover", "Write a clean image of all sound blocks found in dumps of one memory");
  const auto inputs = addInputs(*command);
  const auto rescue = std::make_shared<Rescue>();
  command->add_option("--size", rescue->size, "The size of the image; by default that of the longest dump")
      ->transform(plainNumber(1))
      ->type_name("N");
  command->add_option("--prefer", rescue->preferred, "The dump that is right where two differ")->type_name("DUMP");
  const auto output = addOutputFile(*command);
  command->footer(
      "The image has the blocks in sequence, then an end block, then erased memory; with --sector-size in each "
      "sector.\n"
      "A block that is sound in one of several dumps is sound in the image. If two dumps have different sound blocks\n"
      "at one place, both are shown and nothing is written. Bytes that are sound in no dump are reported as lost, "
      "with\n"
      "exit code 1. The dumps are never written to.\n\n"
      "Examples:\n  velk recover dirty.bin -o clean.bin\n  velk recover first.bin second.bin --prefer second.bin -o "
      "clean.bin");
  command->callback([&session, inputs, rescue, output] { Recoverer(session, *inputs, *rescue).run(*output); });
}

}  // namespace VelkTool
