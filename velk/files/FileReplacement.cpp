#include "velk/files/FileReplacement.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <random>

namespace Velk {
namespace {

using Kind = FileTarget::Kind;

constexpr unsigned permissionBits = 07777;
constexpr unsigned newFileMode = 0666;
constexpr unsigned privateMode = 0600;

/// Returns a short name, since the file's own name may be as long as names can be.
std::string temporaryName() {
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
  constexpr int length = 12;
  std::random_device device;
  std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
  std::string name = ".velk-";
  for (int i = 0; i < length; ++i) name += letters[letter(device)];
  return name;
}

}  // namespace

FileReplacement::FileReplacement(const FileTarget& target, std::string_view contents, const FileTarget& model)
    : target_(target), model_(model.kind == Kind::Missing ? target : model) {
  if (target.isStream()) {
    streamed_ = contents;
  } else if (begin() && append(contents)) {
    finish();
  }
}

FileReplacement::FileReplacement(const FileTarget& target) : target_(target), model_(target) {
  target.isStream() ? beginStream() : begin();
}

FileReplacement::~FileReplacement() {
  if (!temporary_.empty()) unlinkat(folder_.number(), temporary_.c_str(), 0);
}

bool FileReplacement::fail(const char* what) {
  error_ = std::string(what) + std::strerror(errno);
  return false;
}

bool FileReplacement::begin() {
  const bool exists = target_.kind != Kind::Missing;
  if (target_.kind == Kind::Folder) {
    errno = EISDIR;
    return fail();
  }
  folder_ = Descriptor::open(target_.folder, O_RDONLY | O_DIRECTORY);
  if (!folder_.isOpen()) return fail();
  // A file that is write-protected is meant to stay.
  if (exists && faccessat(folder_.number(), target_.name.c_str(), W_OK, AT_EACCESS) != 0) return fail();
  return createTemporary(model_.kind != Kind::Missing ? privateMode : newFileMode) || fail();
}

bool FileReplacement::beginStream() {
  const bool isOurs = target_.kind == Kind::Descriptor;
  file_ = isOurs ? Descriptor::duplicate(target_.descriptor)
                 : Descriptor::open(target_.folder + '/' + target_.name, O_WRONLY | O_NOCTTY);
  return file_.isOpen() || fail();
}

bool FileReplacement::append(std::string_view contents) { return error_.empty() && (file_.write(contents) || fail()); }

/// Completes the temporary file, unless that is done.
bool FileReplacement::finish() {
  if (!error_.empty()) return false;
  if (!file_.isOpen()) return true;
  struct stat status {};
  if (model_.kind != Kind::Missing && !takeAttributes()) return fail("its owner and permissions cannot be kept: ");
  if (!file_.sync() || fstat(file_.number(), &status) != 0 || !file_.close()) return fail();
  inode_ = status.st_ino;
  return true;
}

bool FileReplacement::createTemporary(unsigned mode) {
  do {
    temporary_ = temporaryName();
    file_ = Descriptor::openAt(folder_, temporary_, O_WRONLY | O_CREAT | O_EXCL, mode);
  } while (!file_.isOpen() && errno == EEXIST);
  if (!file_.isOpen()) temporary_.clear();
  return file_.isOpen();
}

/// Lets exactly those read the new contents who may read the old ones.
bool FileReplacement::takeAttributes() const {
  const auto& wanted = model_.status;
  return fchown(file_.number(), wanted.st_uid, wanted.st_gid) == 0 &&
         fchmod(file_.number(), wanted.st_mode & permissionBits) == 0;
}

/// Returns whether the temporary file has taken the file's name.
bool FileReplacement::isInPlace() const {
  struct stat status {};
  return fstatat(folder_.number(), target_.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && status.st_ino == inode_;
}

WriteOutcome FileReplacement::writeStream() {
  const bool isWritten = (file_.isOpen() || beginStream()) && append(streamed_);
  return isWritten ? WriteOutcome::Written : WriteOutcome::Unchanged;
}

WriteOutcome FileReplacement::commit() {
  if (!error_.empty()) return WriteOutcome::Unchanged;
  if (target_.isStream()) return writeStream();
  if (!finish()) return WriteOutcome::Unchanged;
  const int folder = folder_.number();
  // A network file system may lose the answer and report a failure although the file was renamed.
  while (renameat(folder, temporary_.c_str(), folder, target_.name.c_str()) != 0) {
    const int reason = errno;
    if (isInPlace()) break;
    errno = reason;
    if (reason == EINTR) continue;
    fail();
    return WriteOutcome::Unchanged;
  }
  temporary_.clear();
  if (folder_.sync()) return WriteOutcome::Written;
  fail();
  return WriteOutcome::WriteDoubt;
}

}  // namespace Velk
