#include "Commands.h"
#include "Images.h"
#include "Inputs.h"
#include "Output.h"
#include "Redaction.h"

namespace VelkTool {
namespace {

void run(Session& session, const Inputs& inputs, const Output& output) {
  const std::string& name = inputs.files.front();
  if (!output.accepts(session, name)) return;
  Input input = openInput(session, inputs, name);
  if (!input.file.error.empty()) return;
  redactImage(input.file.bytes, inputs.offset, inputs.sectorSize, [&](const Redaction& redaction) {
    if (!redaction.isKnown) {
      session.complain(name, placeText(redaction.block) + ": left as it is, nobody knows what its bytes tell");
    }
    for (const std::string& field : redaction.taken) {
      session.write(Velk::blockName(redaction.block) + " at offset " + offsetText(redaction.block.offset) + ": " +
                    field + '\n');
    }
    tellFindings(session, name, redaction.block);
  });
  output.write(session, name, input.file);
}

}  // namespace

void addRedact(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("redact", "Takes serial numbers, names, departments and network addresses out of an image");
  const auto inputs = addInputs(*command, 1);
  const auto output = addOutput(*command);
  command->footer(
      "They become zeros, checksums follow, and what was taken is listed. Blocks whose fields are not known to velk, "
      "as\n"
      "second-edition blocks, are left as they are and told on standard error: look into them before you pass the "
      "image\n"
      "on. A block that was damaged stays so.\n\nExample:\n  velk redact module.bin -o public.bin");
  command->callback([&session, inputs, output] { run(session, *inputs, *output); });
}

}  // namespace VelkTool
