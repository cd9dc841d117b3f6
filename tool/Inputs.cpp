#include "Inputs.h"

#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

#include "Choices.h"
#include "FindingReport.h"
#include "Images.h"
#include "InTurn.h"
#include "Numbers.h"
#include "Redaction.h"

namespace VelkTool {
namespace {

void tellGaps(Session& session, const Input& input) {
  constexpr std::size_t most = 4;
  const std::vector<Velk::ImageGap>& gaps = input.file.gaps;
  for (std::size_t i = 0; i < std::min(gaps.size(), most); ++i) {
    session.complain(input.name, "offset " + offsetText(gaps[i].offset) + ": " + std::to_string(gaps[i].size) +
                                     " bytes are not in the file, taken as erased");
  }
  if (gaps.size() > most) session.complain(input.name, std::to_string(gaps.size() - most) + " more gaps");
}

/// Whether the image reaches to where the walk is to begin.
bool reachesOffset(Session& session, const Input& input, std::uint64_t offset) {
  const auto size = static_cast<std::uint64_t>(input.file.bytes.size());
  if (offset == 0 || offset < size) return true;
  session.complain(input.name, "offset " + offsetText(offset) + " is behind its " + std::to_string(size) + " bytes");
  return false;
}

/// Complains of standard input where it is named again: there would be nothing left of it.
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

std::shared_ptr<Inputs> makeInputs(CLI::App& command, int count) {
  auto inputs = std::make_shared<Inputs>();
  Choices<Velk::ImageFormat> formats;
  for (const auto format : {Velk::ImageFormat::Raw, Velk::ImageFormat::IntelHex, Velk::ImageFormat::SRecord}) {
    formats.emplace_back(Velk::formatName(format), format);
  }
  const char* const description =
      count == 1 ? "A memory image; - is standard input" : "Memory images; - is standard input";
  CLI::Option* const files = command.add_option("FILE", inputs->files, description)
                                 ->required()
                                 ->check(CLI::Validator(takeStandardInputOnce(), ""));
  if (count != 0) files->expected(count)->allow_extra_args(false);
  addChoice<Velk::ImageFormat>(
      command, "--input", formats, [inputs](Velk::ImageFormat format) { inputs->format = format; },
      "What the files are: raw dumps, Intel HEX or S-records; told by their contents unless given");
  command.add_option("--offset", inputs->offset, "Where in the image the first block begins; 64 and 0x40 are the same")
      ->transform(plainNumber())
      ->type_name("N");
  command
      .add_option(
          "--sector-size", inputs->sectorSize,
          "The image is a flash memory: each N bytes are a sequence of blocks of their own; auto takes N from where "
          "blocks begin")
      ->transform(sectorSize())
      ->type_name("N|auto");
  return inputs;
}

Input readInput(const Inputs& inputs, const std::string& name) try {
  Velk::ImageFile file = Velk::readImageFile(name, inputs.format);
  const std::uint64_t hidden = inputs.redacted ? redactForShow(inputs, file.bytes) : 0;
  Velk::MemoryImage image(file.bytes, inputs.offset, inputs.sectorSize);
  return {name, std::move(file), std::move(image), hidden};
} catch (const std::bad_alloc&) {
  return {name, {.error = std::strerror(ENOMEM)}, Velk::MemoryImage(QByteArray())};
}

/// Does `act`; where memory ends, the file is given up and the run goes on.
template <class Act>
void unlessOutOfMemory(Session& session, const std::string& name, Act act) try {
  act();
} catch (const std::bad_alloc&) {
  session.complain(name, std::strerror(ENOMEM));
  session.worsen(Exit::NoAccess);
}

}  // namespace

std::shared_ptr<const Inputs> addInputs(CLI::App& command, int count) { return makeInputs(command, count); }

std::shared_ptr<const Inputs> addRedactableInputs(CLI::App& command) {
  const auto inputs = makeInputs(command, 0);
  command.add_flag("--redact", inputs->redacted,
                   "Without what tells the module and its users from others, as velk redact does");
  return inputs;
}

Input openInput(Session& session, const Inputs& inputs, const std::string& name) {
  Input input = readInput(inputs, name);
  if (!input.file.error.empty()) {
    session.complain(name, input.file.error);
    session.worsen(Exit::NoAccess);
    return input;
  }
  if (input.file.bytes.isEmpty() && input.file.warning.empty()) input.file.warning = "is empty";
  if (!input.file.warning.empty()) {
    session.complain(name, input.file.warning);
    session.worsen(Exit::Findings);
  }
  if (input.hidden > 0) {
    session.complain(name, std::to_string(input.hidden) + " bytes that cannot be interpreted are shown as zeros");
    session.worsen(Exit::Findings);
  }
  tellGaps(session, input);
  if (!reachesOffset(session, input, inputs.offset)) session.worsen(Exit::Usage);
  return input;
}

void tellOf(Session& session, const Inputs& inputs, const std::string& file, const Velk::BlockView& block) {
  tellFindings(session, file, block, Velk::dataFindingKinds());
  complainOf(session, file, block);
  if (inputs.redacted) tellLeft(session, file, block);
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
    unlessOutOfMemory(part, name, [&] { act(part, openInput(part, inputs, name)); });
  });
}

}  // namespace VelkTool
