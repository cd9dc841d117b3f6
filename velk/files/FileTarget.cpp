#include "velk/files/FileTarget.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace Velk {
namespace {

using Kind = FileTarget::Kind;

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == path.npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

/// Returns a path without symbolic links; if that fails, it is empty and errno says why.
std::string realPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
  return real ? real.get() : std::string();
}

std::optional<std::string> linkAt(const std::string& path) {
  std::array<char, PATH_MAX> text{};
  const ssize_t length = readlink(path.c_str(), text.data(), text.size());
  if (length < 0) return std::nullopt;
  return std::string(text.data(), static_cast<std::size_t>(length));
}

/// Returns the descriptor that a name in the process's own folder of open files stands for.
std::optional<int> descriptorAt(const std::string& folder, const std::string& name) {
  static const std::string own = realPath("/proc/self/fd");
  int number = 0;
  const char* const end = name.data() + name.size();
  const auto [read, error] = std::from_chars(name.data(), end, number);
  const bool isNumber = error == std::errc{} && read == end && number >= 0;
  return isNumber && !own.empty() && folder == own ? std::optional(number) : std::nullopt;
}

Kind kindOf(const struct stat& status) {
  if (S_ISREG(status.st_mode)) return Kind::File;
  return S_ISDIR(status.st_mode) ? Kind::Folder : Kind::Stream;
}

}  // namespace

bool FileTarget::isSame(const FileTarget& other) const {
  return kind != Kind::Missing && other.kind != Kind::Missing && status.st_dev == other.status.st_dev &&
         status.st_ino == other.status.st_ino;
}

std::optional<FileTarget> findTarget(const std::string& path, std::string& error) {
  constexpr int mostLinks = 40;  // as many as the kernel follows
  const auto fail = [&error](int reason) {
    error = std::strerror(reason);
    return std::nullopt;
  };
  if (path.empty()) return fail(ENOENT);
  std::string ahead = path;
  FileTarget target;
  for (int links = 0; links <= mostLinks; ++links) {
    target.folder = realPath(folderOf(ahead));
    target.name = nameOf(ahead);
    if (target.folder.empty()) return fail(errno);
    if (const auto descriptor = descriptorAt(target.folder, target.name)) {
      target.kind = Kind::Descriptor;
      target.descriptor = *descriptor;
      return fstat(*descriptor, &target.status) == 0 ? std::optional(target) : fail(errno);
    }
    const std::string place = target.folder + '/' + target.name;
    if (lstat(place.c_str(), &target.status) != 0) return errno == ENOENT ? std::optional(target) : fail(errno);
    if (!S_ISLNK(target.status.st_mode)) {
      target.kind = kindOf(target.status);
      return target;
    }
    target.isLink = true;
    const std::optional<std::string> next = linkAt(place);
    if (!next) return fail(errno);
    ahead = next->starts_with('/') ? *next : target.folder + '/' + *next;
  }
  return fail(ELOOP);
}

}  // namespace Velk
