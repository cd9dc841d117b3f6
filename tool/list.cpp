#include "Commands.h"
#include "Images.h"
#include "Inputs.h"
#include "JsonReport.h"

namespace VelkTool {
namespace {

void padTo(std::string& line, std::size_t width) {
  if (line.size() < width) line.resize(width, ' ');
}

/// `line` comes back as the block's row; it is given so that many rows share one allocation.
void setRow(std::string& line, const Velk::BlockView& block) {
  const bool stray = block.kind == Velk::BlockKind::Stray;
  line.clear();
  line += offsetText(block.offset);
  padTo(line, 12);
  line += stray ? "-" : std::to_string(block.id);
  padTo(line, 19);
  line += Velk::blockName(block);
  padTo(line, 56);
  line += std::to_string(stray ? block.bytes.size() : block.declaredSize);
  padTo(line, 63);
  line += Velk::kindName(block.kind);
  padTo(line, 79);
  line += Velk::verdictName(block);
  line += '\n';
}

constexpr std::string_view heading =
    "offset      id     name                                 size   kind            verdict\n";

void writeText(Session& session, const Inputs& inputs) {
  std::string line;
  forEachInput(session, inputs, [&](const Input& input) {
    if (inputs.files.size() > 1) session.write(input.name + ":\n");
    session.write(heading);
    for (const Velk::BlockView& block : input.image) {
      setRow(line, block);
      session.write(line);
      complainOf(session, input.name, block);
    }
  });
}

}  // namespace

void addList(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("list", "One line for each block of memory images");
  const auto inputs = addInputs(*command);
  const auto json = addJson(*command);
  command->footer("Examples:\n  velk list module.bin\n  velk list --sector-size 0x10000 --json flash.hex");
  command->callback([&session, inputs, json] {
    if (!*json) return writeText(session, *inputs);
    writeJsonReport(session, *inputs,
                    [&](const Input& input, const Velk::BlockView& block) { complainOf(session, input.name, block); });
  });
}

}  // namespace VelkTool
