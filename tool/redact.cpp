#include <sys/stat.h>

#include <filesystem>
#include <set>

#include "Commands.h"
#include "FindingReport.h"
#include "Folders.h"
#include "Images.h"
#include "Inputs.h"
#include "Output.h"
#include "Plural.h"
#include "Redaction.h"

namespace VelkTool {
namespace {

class Redactor {
 public:
  Redactor(Session& session, const Inputs& inputs, const std::string& name, bool force)
      : session_(session), inputs_(inputs), name_(name), force_(force) {}

  void run(const Output& output) {
    const std::optional<Destination> destination = output.open(session_, name_);
    if (!destination) return;
    Input input = openInput(session_, inputs_, name_);
    if (!input.file.error.empty()) return;
    reportUnseen(input);
    redact(input);
    if (unseen_ && !force_) return refuse("bytes that cannot be interpreted may hold anything");
    if (left_ && taken_.empty() && !force_) return refuse("nothing of what it holds could be redacted");
    destination->write(session_, input.file, (inputs_.hasFolders ? name_ + ":\n" : "") + taken_);
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

/// Redacts the files of a folder into another one, each under its own name.
class FolderRedactor {
 public:
  FolderRedactor(Session& session, const Inputs& inputs, bool force)
      : session_(session), inputs_(inputs), force_(force) {
    for (const std::string& name : inputs.files) takeIdentity(name);
  }

  void run(const std::string& top, const Output& output) {
    if (output.folder().empty()) {
      session_.complain(top, "is a folder; use -o to name a folder for the redacted files");
      return session_.worsen(Exit::Usage);
    }
    const std::size_t length = top.size() + (top.ends_with('/') ? 0 : 1);
    for (const std::string& name : inputs_.files) {
      if (inputs_.unreadable.contains(name)) {
        openInput(session_, inputs_, name);
      } else if (const std::string target = output.folder() + '/' + name.substr(length); isFree(name, target)) {
        unlessOutOfMemory(session_, name, [&] { Redactor(session_, inputs_, name, force_).run(output.to(target)); });
      }
    }
  }

 private:
  using Identity = std::pair<dev_t, ino_t>;

  static std::optional<Identity> identityOf(const std::string& name) {
    struct stat status {};
    if (stat(name.c_str(), &status) != 0) return std::nullopt;
    return Identity(status.st_dev, status.st_ino);
  }

  void takeIdentity(const std::string& name) {
    if (const auto identity = identityOf(name)) taken_.insert(*identity);
  }

  /// Makes the folder of a target and returns whether the target is none of the inputs.
  bool isFree(const std::string& name, const std::string& target) {
    const auto identity = identityOf(target);
    if (identity && taken_.contains(*identity)) return refuse(target, "would be overwritten", Exit::Usage);
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(target).parent_path(), error);
    return !error || refuse(name, "the folder of " + target + " cannot be made: " + error.message(), Exit::NoAccess);
  }

  bool refuse(const std::string& name, const std::string& what, Exit exit) {
    session_.complain(name, what);
    session_.worsen(exit);
    return false;
  }

  Session& session_;
  const Inputs& inputs_;
  bool force_;
  std::set<Identity> taken_;  ///< the inputs
};

void redactAll(Session& session, const Inputs& given, bool force, const Output& output) {
  const Inputs inputs = withFilesOfFolders(session, given);
  if (inputs.hasFolders) return FolderRedactor(session, inputs, force).run(given.files.front(), output);
  Redactor(session, inputs, inputs.files.front(), force).run(output);
}

}  // namespace

void addRedact(CLI::App& app, Session& session) {
  CLI::App* const command =
      app.add_subcommand("redact", "Remove data that identifies a module and its users from an image");
  const auto inputs = addFolderInputs(*command, 1);
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
      "FILE may be a folder if OUT is one: each file in it is redacted into OUT under its own name. A file that is\n"
      "refused does not stop the others.\n\n"
      "Examples:\n  velk redact module.bin -o public.bin\n  velk redact dumps -o public");
  command->callback([&session, inputs, force, output] { redactAll(session, *inputs, *force, *output); });
}

}  // namespace VelkTool
