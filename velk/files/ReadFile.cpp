#include "velk/files/ReadFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "velk/files/Descriptor.h"

namespace Velk {
namespace {

constexpr qsizetype enoughForMost = 32 * 1024;
constexpr qsizetype most = 1024 * 1024 * 1024;

/// Returns the size of a file, or 0 if only reading can find out.
qsizetype knownSize(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 && S_ISREG(status.st_mode) ? static_cast<qsizetype>(status.st_size) : 0;
}

/// Makes room after `count` bytes that fill the buffer.
bool grow(int file, QByteArray& contents, qsizetype count) {
  // Asks for the size only if that saves growing step by step; one byte more finds the end.
  const qsizetype size = knownSize(file);
  if (std::max(size, count) < most) {
    contents.resize(std::max(size + 1, 2 * count));
    return true;
  }
  errno = EFBIG;
  return false;
}

/// Reads up to the end of the file; returns false, with the reason in errno, if that fails.
bool readTo(QByteArray& contents, int file) {
  contents.resize(enoughForMost);
  for (qsizetype count = 0;;) {
    const ssize_t got = read(file, contents.data() + count, static_cast<std::size_t>(contents.size() - count));
    if (got < 0 && errno != EINTR) return false;
    count += std::max<ssize_t>(got, 0);
    if (count == contents.size() && !grow(file, contents, count)) return false;
    if (got != 0) continue;
    contents.truncate(count);
    contents.squeeze();
    return true;
  }
}

}  // namespace

std::optional<QByteArray> readFile(const std::string& path, std::string& error) {
  const bool isStandardInput = path == "-";
  const Descriptor opened = isStandardInput ? Descriptor() : Descriptor::open(path, O_RDONLY);
  QByteArray contents;
  if ((isStandardInput || opened.isOpen()) && readTo(contents, isStandardInput ? STDIN_FILENO : opened.number())) {
    return contents;
  }
  error = std::strerror(errno);
  return std::nullopt;
}

}  // namespace Velk
