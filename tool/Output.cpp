#include "Output.h"

#include <algorithm>
#include <csignal>

#include "Containers.h"
#include "Files.h"

namespace VelkTool {
namespace {

using Kind = Velk::FileTarget::Kind;

bool refuse(Session& session, const std::string& file, const std::string& what) {
  session.complain(file, what);
  session.worsen(Exit::Usage);
  return false;
}

/// Refuses to overwrite a file that is read for the change.
bool spares(Session& session, std::span<const std::string> others, const std::string& name, const char* refusal) {
  const auto hit = std::ranges::find_if(others, [&](const std::string& other) { return isSameFile(other, name); });
  return hit == others.end() || refuse(session, *hit, refusal);
}

void complainOfLines(Session& session, const std::string& file, std::string_view lines) {
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    session.complain(file, line);
    lines.remove_prefix(line.size() + 1);
  }
}

}  // namespace

bool Destination::keepBackup(Session& session) const {
  if (!backup_) return true;
  const auto contents = readText(session, input_);
  return contents && writeFile(session, input_ + ".bak", *backup_, QByteArray::fromStdString(*contents), {}, target_);
}

bool Destination::chooseContainer(Session& session, Velk::ImageFile& image) const {
  if (container_) moveTo(image, *container_);
  const std::string obstacle = writingObstacle(image);
  if (obstacle.empty()) return true;
  const Velk::ContainerKind* const named = Velk::containerForFile(name_);
  if (!container_ && named != nullptr && named->write != nullptr && named->container != image.container) {
    moveTo(image, named->container);
    if (writingObstacle(image).empty()) return true;
  }
  std::string names;
  for (const auto& choice : writableContainers()) names += (names.empty() ? "" : "|") + choice.first;
  session.complain(input_,
                   obstacle + "; nothing is written, use -o with a name such as new.bin, or --container " + names);
  session.worsen(Exit::NoAccess);
  return false;
}

void Destination::write(Session& session, Velk::ImageFile image, std::string_view report) const {
  if (!chooseContainer(session, image)) return;
  // The reader of the report may close the pipe early. That must not stop the run halfway.
  std::signal(SIGPIPE, SIG_IGN);
  const QByteArray contents = Velk::encodeImage(image);
  if (!keepBackup(session)) return;
  const bool isStream = target_.isStream();
  const bool isWritten = writeFile(session, name_, target_, contents, isStream ? std::string_view() : report);
  if (isStream && isWritten) complainOfLines(session, input_, report);
}

bool Destination::locate(Session& session) {
  auto target = outputTarget(session, name_);
  if (target) target_ = std::move(*target);
  return target.has_value();
}

bool Destination::lock(Session& session) {
  lock_ = Velk::FileLock(name_, [&] { session.complain(name_, "waiting for another change to finish"); });
  if (lock_.error().empty()) return locate(session);  // the file may have been replaced meanwhile
  session.complain(name_, lock_.error());
  session.worsen(Exit::NoAccess);
  return false;
}

bool Output::accepts(Session& session, const Destination& destination) const {
  const std::string& input = destination.input_;
  const Velk::FileTarget& target = destination.target_;
  const bool isPassing = target.kind == Kind::Descriptor || S_ISFIFO(target.status.st_mode);
  if (inPlace_ && isPassing) {
    const std::string what = input == "-" ? "standard input " : "";
    return refuse(session, input, what + "cannot be changed in place; use -o to name a file for the result");
  }
  if (!inPlace_ && isSameFile(input, destination.name_)) {
    return refuse(session, input, "would be overwritten; use --in-place to change it");
  }
  return true;
}

bool Output::openBackup(Session& session, Destination& destination) const {
  const std::string name = destination.input_ + ".bak";
  destination.backup_ = outputTarget(session, name);
  if (!destination.backup_) return false;
  const Velk::FileTarget& backup = *destination.backup_;
  if (backup.isLink) return refuse(session, name, "is a symbolic link; a backup replaces only regular files");
  if (backup.kind != Kind::File && backup.kind != Kind::Missing) {
    return refuse(session, name, "is not a regular file; a backup replaces only regular files");
  }
  return true;
}

Output Output::to(const std::string& file) const {
  Output other = *this;
  other.file_ = file;
  return other;
}

std::optional<Destination> Output::open(Session& session, const std::string& input,
                                        std::span<const std::string> others) const {
  Destination destination(input, inPlace_ ? input : file_);
  destination.container_ = container_;
  const Velk::ContainerKind* const named = Velk::containerForFile(file_);
  if (followsName_ && !container_ && named != nullptr) destination.container_ = named->container;
  const bool isOpen = destination.locate(session) &&
                      spares(session, others, destination.name_, "would be overwritten") &&
                      accepts(session, destination) &&
                      (!backup_ || (openBackup(session, destination) &&
                                    spares(session, others, input + ".bak", "would be overwritten by the backup"))) &&
                      (!inPlace_ || destination.lock(session));
  return isOpen ? std::optional(std::move(destination)) : std::nullopt;
}

namespace {

void addContainer(CLI::App& command, std::optional<Velk::Container>& container, const std::string& otherwise) {
  addChoice<Velk::Container>(
      command, "--container", writableContainers(), [&container](Velk::Container chosen) { container = chosen; },
      "The container to write; by default " + otherwise);
}

void addFile(CLI::App& command, std::string& file) {
  command.add_option("-o,--output", file, "The file to write; - is standard output")->type_name("OUT")->required();
}

}  // namespace

std::shared_ptr<const Output> addOutputFile(CLI::App& command) {
  const auto output = std::make_shared<Output>();
  addFile(command, output->file_);
  addContainer(command, output->container_, "that of the input");
  return output;
}

std::shared_ptr<const Output> addConvertedOutput(CLI::App& command) {
  const auto output = std::make_shared<Output>();
  output->followsName_ = true;
  addFile(command, output->file_);
  addContainer(command, output->container_, "the one that the name of OUT ends with, or that of the input");
  return output;
}

std::shared_ptr<const Output> addOutput(CLI::App& command) {
  const auto output = std::make_shared<Output>();
  CLI::Option_group* const where = command.add_option_group("Output", "Where the changed image goes");
  where->add_option("-o,--output", output->file_, "The file to write; - is standard output")->type_name("OUT");
  CLI::Option* const inPlace = where->add_flag("--in-place", output->inPlace_, "Replace FILE");
  where->require_option(1);
  command.add_flag("--backup", output->backup_, "Keep the old FILE as FILE.bak, replacing an older backup")
      ->needs(inPlace);
  addContainer(command, output->container_, "that of the input");
  return output;
}

}  // namespace VelkTool
