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

constexpr qsizetype most = 1024 * 1024 * 1024;

/// Returns the size of a file, or 0 if only reading can find out.
qsizetype knownSize(int file) {
  struct stat status {};
  return fstat(file, &status) == 0 && S_ISREG(status.st_mode) ? static_cast<qsizetype>(status.st_size) : 0;
}

bool isAllowed(qsizetype size) {
  if (size <= most) return true;
  errno = EFBIG;
  return false;
}

/// Reads up to the end of the file; returns false, with the reason in errno, if that fails.
bool readTo(QByteArray& contents, int file) {
  constexpr qsizetype enoughForMost = 32 * 1024;
  const qsizetype size = knownSize(file);
  // One byte more than the size: a read that leaves it free saw the end of the file.
  const qsizetype room = size > 0 ? size + 1 : enoughForMost;
  if (!isAllowed(room)) return false;
  // Not by resize(), which allocates for further growth too: memory that the system would give anew for each file.
  contents = QByteArray(room, Qt::Uninitialized);
  for (qsizetype count = 0;;) {
    const ssize_t got = read(file, contents.data() + count, static_cast<std::size_t>(contents.size() - count));
    if (got < 0 && errno != EINTR) return false;
    count += std::max<ssize_t>(got, 0);
    const bool isAsLong = size > 0 && count == size;
    if (got == 0 || isAsLong) {
      contents.truncate(count);
      if (!isAsLong) contents.squeeze();
      return true;
    }
    if (count < contents.size()) continue;
    const qsizetype larger = std::max(count + 1, std::min(2 * count, most));
    if (!isAllowed(larger)) return false;
    contents.resize(larger);
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
