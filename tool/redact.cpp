#include "Commands.h"
#include "Images.h"
#include "Inputs.h"
#include "Output.h"
#include "Redaction.h"

namespace VelkTool {
namespace {

void run(Session& session, const Inputs& inputs, const Output& output) {
  const std::string& name = inputs.files.front();
  const std::optional<Destination> destination = output.open(session, name);
  if (!destination) return;
  Input input = openInput(session, inputs, name);
  if (!input.file.error.empty()) return;
  if (inputs.offset != 0) {
    session.complain(name, "what stands before offset " + offsetText(inputs.offset) + " is left as it is");
    session.worsen(Exit::Findings);
  }
  std::string taken;
  redactImage(inputs, input.file.bytes, [&](const Redaction& redaction) {
    for (const std::string& field : redaction.taken) {
      taken +=
          Velk::blockName(redaction.block) + " at offset " + offsetText(redaction.block.offset) + ": " + field + '\n';
    }
    tellFindings(session, name, redaction.block);
    tellLeft(session, name, redaction.block);
  });
  // What an S-record file says of itself is free text.
  if (QByteArray& header = input.file.details.header; !header.isEmpty()) {
    header.clear();
    taken += "header of the S-record file\n";
  }
  destination->write(session, input.file, taken);
}

}  // namespace

void addRedact(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("redact", "Takes what tells a module and its users from others out of an image");
  const auto inputs = addInputs(*command, 1);
  const auto output = addOutput(*command);
  command->footer(
      "Serial, lot, job and repair numbers, names, departments, descriptions, user data and network addresses\n"
      "become zeros; checksums follow, and what was taken is listed. A block that was damaged stays so.\n\n"
      "Blocks whose fields velk does not know, such as second-edition blocks, are left as they are, and so are bytes\n"
      "of others that belong to no field. They are told on standard error and make the exit code 1: look into them\n"
      "before you pass the image on.\n\n"
      "Example:\n  velk redact module.bin -o public.bin");
  command->callback([&session, inputs, output] { run(session, *inputs, *output); });
}

}  // namespace VelkTool
