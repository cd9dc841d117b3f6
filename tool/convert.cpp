#include <charconv>

#include "Commands.h"
#include "Images.h"
#include "Inputs.h"
#include "Numbers.h"
#include "Output.h"
#include "velk/containers/Reshape.h"

namespace VelkTool {
namespace {

constexpr std::uint64_t wholeImage = ~std::uint64_t{0};

struct Conversion {
  std::optional<std::uint64_t> address{};
  std::uint64_t cropFrom = 0;
  std::uint64_t cropTo = wholeImage;
  std::optional<std::uint64_t> fill{};
  std::optional<std::uint64_t> recordLength{};
};

void refuse(Session& session, const std::string& file, const std::string& what) {
  session.complain(file, what + "; nothing is written");
  session.worsen(Exit::Usage);
}

void convert(Session& session, const Inputs& inputs, const Conversion& conversion, const Output& output) {
  const std::string& name = inputs.files.front();
  const std::optional<Destination> destination = output.open(session, name);
  if (!destination) return;
  Velk::ImageFile image = openInput(session, inputs, name).file;
  if (!image.error.empty()) return;
  const auto size = static_cast<std::uint64_t>(image.bytes.size());
  const std::uint64_t cropTo = conversion.cropTo == wholeImage ? size : conversion.cropTo;
  if (conversion.cropFrom > cropTo || cropTo > size) {
    return refuse(session, name,
                  "has no bytes from " + offsetText(conversion.cropFrom) + " to " + offsetText(cropTo) + ", only " +
                      offsetText(0) + " to " + offsetText(size));
  }
  Velk::cropImage(image, conversion.cropFrom, cropTo);
  if (conversion.fill) Velk::fillImage(image, static_cast<char>(*conversion.fill));
  if (conversion.address) image.address = *conversion.address;
  if (conversion.recordLength) image.details.recordLength = static_cast<unsigned char>(*conversion.recordLength);
  destination->write(session, image, {});
}

/// Returns a transform that checks a range FROM:TO and stores its ends; either of them may be missing.
CLI::Validator cropRange(std::shared_ptr<Conversion> conversion) {
  return {[conversion](std::string& text) -> std::string {
            const std::size_t colon = text.find(':');
            if (colon == text.npos) return text + " is not a range; 0x100:0x200 is one";
            const auto take = [&](std::string end, std::uint64_t& value) -> std::string {
              if (end.empty()) return {};
              if (std::string problem = plainNumber()(end); !problem.empty()) return problem;
              std::from_chars(end.data(), end.data() + end.size(), value);
              return {};
            };
            const std::string problem = take(text.substr(0, colon), conversion->cropFrom);
            return problem.empty() ? take(text.substr(colon + 1), conversion->cropTo) : problem;
          },
          ""};
}

}  // namespace

void addConvert(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("convert", "Write a memory image in another container, or a part of it");
  const auto inputs = addPlainInput(*command);
  const auto conversion = std::make_shared<Conversion>();
  command->add_option("--address", conversion->address, "Address of the first byte; by default as in FILE")
      ->transform(plainNumber(0, 0xFFFFFFFF))
      ->type_name("N");
  command
      ->add_option_function<std::string>(
          "--crop", [](const std::string&) {},
          "Write the bytes from offset FROM up to offset TO only; either may be left out")
      ->check(cropRange(conversion))
      ->type_name("FROM:TO");
  command->add_option("--fill", conversion->fill, "Fill gaps and lost bytes with this byte, and write them")
      ->transform(plainNumber(0, 255))
      ->type_name("BYTE");
  command
      ->add_option("--record-length", conversion->recordLength,
                   "Data bytes of a line of Intel HEX or S-record: 1 to 250")
      ->transform(plainNumber(1, 250))
      ->type_name("N");
  const auto output = addConvertedOutput(*command);
  command->footer(
      "Gaps, and lost bytes of a damaged file, are left out of Intel HEX and S-record; in a raw dump they are erased\n"
      "(FF). Comments and other text around records are not kept.\n\n"
      "Examples:\n  velk convert module.hex -o module.bin\n"
      "  velk convert flash.bin --crop 0x10000:0x20000 --address 0x8010000 -o sector.s19");
  command->callback([&session, inputs, conversion, output] { convert(session, *inputs, *conversion, *output); });
}

}  // namespace VelkTool
