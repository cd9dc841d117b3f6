#include "Commands.h"
#include "FindingReport.h"
#include "Images.h"
#include "Inputs.h"
#include "Output.h"
#include "Plural.h"
#include "Redaction.h"

namespace VelkTool {
namespace {

class Redactor {
 public:
  Redactor(Session& session, const Inputs& inputs, bool force)
      : session_(session), inputs_(inputs), name_(inputs.files.front()), force_(force) {}

  void run(const Output& output) {
    const std::optional<Destination> destination = output.open(session_, name_);
    if (!destination) return;
    Input input = openInput(session_, inputs_, name_);
    if (!input.file.error.empty()) return;
    reportUnseen(input);
    redact(input);
    if (unseen_ && !force_) return refuse("bytes that cannot be interpreted may hold anything");
    if (left_ && taken_.empty() && !force_) return refuse("nothing of what it holds could be redacted");
    destination->write(session_, input.file, taken_);
  }

 private:
  void refuse(const std::string& reason) {
    session_.complain(name_, reason + "; nothing is written without --force");
    session_.worsen(Exit::NoAccess);
  }

  void reportUnseen(const Input& input) {
    unseen_ = !input.file.findings.empty();
    if (inputs_.offset == 0) return;
    reportUnseen("the bytes before offset " + offsetText(inputs_.offset) + " were not examined");
  }

  void reportUnseen(const std::string& what) {
    session_.complain(name_, what);
    session_.worsen(Exit::Findings);
    unseen_ = true;
  }

  void redact(Input& input) {
    redactImage(input.image, input.file.bytes, [&](const Redaction& redaction) {
      const Velk::BlockView& block = redaction.block;
      for (const std::string& field : redaction.taken) {
        taken_ += Velk::blockName(block) + " at offset " + offsetText(block.offset) + ": " + field + '\n';
      }
      tellFindings(session_, name_, block);
      if (isUninterpreted(block)) {
        reportUnseen(placeText(block) + ": " + counted(block.bytes.size(), "byte", "bytes") + " cannot be interpreted");
      } else {
        left_ = reportLeft(session_, name_, block) || left_;
      }
    });
    // The header record of an S-record file is free text, and so is what surrounds records.
    if (QByteArray& header = input.file.details.header; !header.isEmpty()) {
      header.clear();
      taken_ += "header of the S-record file\n";
    }
    moveTo(input.file, input.file.container);
  }

  Session& session_;
  const Inputs& inputs_;
  const std::string& name_;
  bool force_;
  bool unseen_ = false;  ///< some bytes cannot be interpreted
  bool left_ = false;    ///< some bytes of sound blocks have no known meaning
  std::string taken_;
};

}  // namespace

void addRedact(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("redact", "Remove data that identifies a module and its users from an image");
  const auto inputs = addInputs(*command, 1);
  const auto force = std::make_shared<bool>(false);
  command->add_flag("--force", *force, "Write the image even if some bytes cannot be interpreted");
  const auto output = addOutput(*command);
  command->footer(
      "Serial, lot, job and repair numbers, names, departments, descriptions, user data and network addresses\n"
      "become zeros. Checksums are updated, and the redacted fields are listed. A damaged block stays damaged.\n\n"
      "Bytes that cannot be interpreted may hold anything: a block whose size is damaged, bytes that belong to no\n"
      "block, a damaged file, the bytes before --offset. They are reported, and nothing is written (exit code 3).\n"
      "--force writes the image with these bytes unchanged.\n\n"
      "Blocks whose fields are unknown, such as second-edition blocks, are left unchanged, and so are bytes of other\n"
      "blocks that belong to no field. They are reported on standard error, with exit code 1: inspect them before you\n"
      "pass the image on. An image in which nothing at all could be redacted is written with --force only.\n\n"
      "Example:\n  velk redact module.bin -o public.bin");
  command->callback([&session, inputs, force, output] { Redactor(session, *inputs, *force).run(*output); });
}

}  // namespace VelkTool
