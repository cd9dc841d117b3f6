#include "Inputs.h"

#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

#include "Containers.h"
#include "FindingReport.h"
#include "Images.h"
#include "InTurn.h"
#include "Numbers.h"
#include "Plural.h"
#include "Redaction.h"

namespace VelkTool {
namespace {

constexpr std::size_t mostRanges = 4;

/// Reports ranges of an image, the first ones one by one. `is` and `are` say what became of their bytes.
void reportRanges(Session& session, const std::string& name, const std::vector<Velk::ImageRange>& ranges,
                  const char* is, const char* are) {
  for (std::size_t i = 0; i < std::min(ranges.size(), mostRanges); ++i) {
    session.complain(name, "offset " + offsetText(ranges[i].offset) + ": " + counted(ranges[i].size, is, are));
  }
  if (ranges.size() <= mostRanges) return;
  std::uint64_t bytes = 0;
  for (const Velk::ImageRange& range : ranges) bytes += range.size;
  session.complain(name, counted(ranges.size() - mostRanges, "further range", "further ranges") + "; altogether " +
                             counted(bytes, is, are));
}

/// Reports each block of which some bytes are lost.
void reportCutBlocks(Session& session, const Input& input) {
  if (input.file.lost.empty()) return;
  for (const Velk::BlockView& block : input.image) {
    const std::uint64_t lost = Velk::lostBytes(input.file, block.offset, block.bytes.size());
    if (lost == 0 || block.kind == Velk::BlockKind::Stray) continue;
    session.complain(input.name, placeText(block) + ": " + counted(lost, "byte of it is lost", "bytes of it are lost"));
  }
}

/// Reports what is wrong with the file as a whole, which counts, and which bytes it does not hold.
void reportFile(Session& session, const Input& input) {
  for (const Velk::FileFinding& finding : input.file.findings) {
    session.complain(input.name, finding.describe());
    session.worsen(Exit::Findings);
  }
  reportRanges(session, input.name, input.file.lost, "byte is lost, shown as erased",
               "bytes are lost, shown as erased");
  reportRanges(session, input.name, input.file.gaps, "byte is not in the file, taken as erased",
               "bytes are not in the file, taken as erased");
  reportCutBlocks(session, input);
}

/// Checks that the start of the walk lies in the image.
bool reachesOffset(Session& session, const Input& input, std::uint64_t offset) {
  const auto size = static_cast<std::uint64_t>(input.file.bytes.size());
  if (offset == 0 || offset < size) return true;
  session.complain(input.name, "offset " + offsetText(offset) + " is past the end of the image, which has " +
                                   counted(size, "byte", "bytes"));
  return false;
}

/// Returns a check that rejects a second "-": standard input is empty by then.
std::function<std::string(std::string&)> takeStandardInputOnce() {
  return [taken = false](const std::string& name) mutable -> std::string {
    return name == "-" && std::exchange(taken, true) ? "standard input can be read only once" : "";
  };
}

CLI::Validator sectorSize() {
  const auto rewrite = [number = plainNumber(sizeof(Velk::HwSDatablockHeader))](std::string& text) -> std::string {
    if (text == "auto") text = std::to_string(Velk::automaticSectorSize);
    return number(text);
  };
  return {rewrite, ""};
}

std::shared_ptr<Inputs> addFiles(CLI::App& command, int count, const std::string& what) {
  auto inputs = std::make_shared<Inputs>();
  const std::string description = what + "; - is standard input";
  CLI::Option* const files = command.add_option("FILE", inputs->files, description)
                                 ->required()
                                 ->check(CLI::Validator(takeStandardInputOnce(), ""));
  if (count != 0) files->expected(count)->allow_extra_args(false);
  addChoice<Velk::Container>(
      command, "--input", containerChoices([](const Velk::ContainerKind&) { return true; }),
      [inputs](Velk::Container container) { inputs->container = container; },
      "The container of the files; detected from the contents by default");
  return inputs;
}

const char* whatFor(int count) { return count == 1 ? "A memory image" : "Memory images"; }

std::shared_ptr<Inputs> makeInputs(CLI::App& command, int count, const std::string& what) {
  auto inputs = addFiles(command, count, what);
  command.add_option("--offset", inputs->offset, "Offset of the first block in the image; 64 and 0x40 are the same")
      ->transform(plainNumber())
      ->type_name("N");
  command
      .add_option(
          "--sector-size", inputs->sectorSize,
          "Read the image as flash memory with sectors of N bytes, each a block sequence of its own; auto takes N from "
          "the positions of blocks")
      ->transform(sectorSize())
      ->type_name("N|auto");
  return inputs;
}

std::shared_ptr<Inputs> makeFolderInputs(CLI::App& command, int count) {
  const char* const what =
      count == 1 ? "A memory image, or a folder whose files" : "Memory images, or folders whose files";
  auto inputs = makeInputs(command, count, std::string(what) + ", also those in folders below, are read");
  command
      .add_option("--glob", inputs->globs,
                  "Read only the files of folders whose names match, such as '*.bin'; may be repeated")
      ->type_name("PATTERN")
      ->take_all()
      ->allow_extra_args(false);
  command.add_flag_callback(
      "--no-progress", [inputs] { inputs->showsProgress = false; },
      "Do not count the files on a terminal during long runs");
  return inputs;
}

Input readInput(const Inputs& inputs, const std::string& name) try {
  if (const auto folder = inputs.unreadable.find(name); folder != inputs.unreadable.end()) {
    return {name, {.error = folder->second}, Velk::MemoryImage(QByteArray())};
  }
  Velk::ImageFile file = Velk::readImageFile(name, inputs.container);
  Velk::MemoryImage image(file.bytes, inputs.offset, inputs.sectorSize);
  std::uint64_t hidden = 0;
  if (inputs.redacted) {
    hidden = redactForShow(image, file.bytes);
    image = Velk::MemoryImage(file.bytes, inputs.offset, inputs.sectorSize);
  }
  return {name, std::move(file), std::move(image), hidden};
} catch (const std::bad_alloc&) {
  return {name, {.error = std::strerror(ENOMEM)}, Velk::MemoryImage(QByteArray())};
}

}  // namespace

std::shared_ptr<const Inputs> addInputs(CLI::App& command, int count) {
  return makeInputs(command, count, whatFor(count));
}

std::shared_ptr<const Inputs> addPlainInput(CLI::App& command) { return addFiles(command, 1, whatFor(1)); }

std::shared_ptr<const Inputs> addFolderInputs(CLI::App& command, int count) { return makeFolderInputs(command, count); }

std::shared_ptr<const Inputs> addRedactableInputs(CLI::App& command) {
  const auto inputs = makeFolderInputs(command, 0);
  command.add_flag("--redact", inputs->redacted,
                   "Redact data that identifies the module and its users, as velk redact does");
  return inputs;
}

Input openInput(Session& session, const Inputs& inputs, const std::string& name) {
  Input input = readInput(inputs, name);
  session.advance();
  if (!input.file.error.empty()) {
    session.complain(name, input.file.error);
    session.worsen(Exit::NoAccess);
    return input;
  }
  if (input.file.bytes.isEmpty() && input.file.findings.empty()) input.file.findings.push_back({0, "is empty"});
  reportFile(session, input);
  if (input.hidden > 0) {
    session.complain(name, counted(input.hidden, "byte that cannot be interpreted is shown as zero",
                                   "bytes that cannot be interpreted are shown as zeros"));
    session.worsen(Exit::Findings);
  }
  if (!reachesOffset(session, input, inputs.offset)) session.worsen(Exit::Usage);
  return input;
}

void reportBlock(Session& session, const Inputs& inputs, const std::string& file, const Velk::BlockView& block) {
  tellFindings(session, file, block, Velk::dataChecks());
  complainOf(session, file, block);
  if (inputs.redacted) reportLeft(session, file, block);
}

void unlessOutOfMemory(Session& session, const std::string& name, const std::function<void()>& act) try {
  act();
} catch (const std::bad_alloc&) {
  session.complain(name, std::strerror(ENOMEM));
  session.worsen(Exit::NoAccess);
}

void forEachInput(Session& session, const Inputs& inputs, const std::function<void(const Input& input)>& act) {
  for (const std::string& name : inputs.files) {
    unlessOutOfMemory(session, name, [&] {
      const Input input = openInput(session, inputs, name);
      if (input.file.error.empty()) act(input);
    });
  }
}

void forEachInputInTurn(Session& session, const Inputs& inputs,
                        const std::function<void(Session& part, const Input& input)>& act) {
  inTurn(session, inputs.files.size(), [&](Session& part, std::size_t number) {
    const std::string& name = inputs.files[number];
    unlessOutOfMemory(part, name, [&] {
      Input input = openInput(part, inputs, name);
      input.number = number;
      act(part, input);
    });
  });
}

}  // namespace VelkTool
