#include "Files.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "velk/bytes/ByteArray.h"
#include "velk/files/ReadFile.h"

namespace VelkTool {
namespace {

/// Reports that a file could not be written.
bool fail(Session& session, const std::string& name, const std::string& reason) {
  session.complain(name, reason);
  session.worsen(Exit::NoAccess);
  return false;
}

bool finish(Session& session, const std::string& name, Velk::FileReplacement& file) {
  const Velk::WriteOutcome outcome = file.commit();
  if (outcome == Velk::WriteOutcome::Unchanged) return fail(session, name, file.error());
  if (outcome == Velk::WriteOutcome::WriteDoubt) {
    session.complain(name, "is written, but may be lost if the machine stops now: " + file.error());
    session.worsen(Exit::Findings);
  }
  return true;
}

}  // namespace

std::optional<std::string> readText(Session& session, const std::string& path) {
  std::string error;
  const auto contents = Velk::readFile(path, error);
  if (contents) return contents->toStdString();
  fail(session, path, error);
  return std::nullopt;
}

std::optional<Velk::FileTarget> outputTarget(Session& session, const std::string& path) {
  if (path == standardOutput) return Velk::FileTarget{Velk::FileTarget::Kind::Descriptor, {}, {}, STDOUT_FILENO};
  std::string error;
  auto target = Velk::findTarget(path, error);
  if (!target) fail(session, path, error);
  return target;
}

bool isSameFile(const std::string& path, const std::string& other) {
  std::string error;
  if (path == "-" || other == standardOutput) return false;
  const auto target = Velk::findTarget(path, error);
  const auto otherTarget = Velk::findTarget(other, error);
  return target && otherTarget && target->isSame(*otherTarget);
}

bool writeFile(Session& session, const std::string& name, const Velk::FileTarget& target, const QByteArray& bytes,
               std::string_view report, const Velk::FileTarget& model) {
  if (target.descriptor == STDOUT_FILENO) {
    session.write(Velk::textOf(bytes));
    return session.flush();
  }
  Velk::FileReplacement file(target, Velk::textOf(bytes), model);
  if (!file.error().empty()) return fail(session, name, file.error());
  session.write(report);
  return session.flush() && finish(session, name, file);
}

bool writeFile(Session& session, const std::string& path, const QByteArray& bytes) {
  const auto target = outputTarget(session, path);
  return target && writeFile(session, path, *target, bytes);
}

bool makeFolder(Session& session, const std::string& path) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  return !error || fail(session, path, "cannot be made: " + error.message());
}

void GrowingFile::append(std::string_view text) {
  constexpr std::size_t pieceSize = 64 * 1024;
  if (hasFailed_) return;
  pending_ += text;
  if (pending_.size() >= pieceSize) flush();
}

bool GrowingFile::open() {
  if (file_) return true;
  const auto target = outputTarget(session_, path_);
  if (!target) return false;
  file_.emplace(*target);
  return file_->error().empty() || fail(session_, path_, file_->error());
}

bool GrowingFile::flush() {
  if (hasFailed_) return false;
  const bool isWritten = open() && (file_->append(pending_) || fail(session_, path_, file_->error()));
  pending_.clear();
  if (isWritten) return true;
  file_.reset();  // gives back the room on the disk
  hasFailed_ = true;
  return false;
}

void GrowingFile::commit() {
  if (flush()) finish(session_, path_, *file_);
  file_.reset();  // there may be more files than a process can have open
}

}  // namespace VelkTool
