#include "velk/files/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace Velk {
namespace {

template <class Call>
auto repeated(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace

Descriptor::~Descriptor() {
  const int reason = errno;  // keeps the reason of an earlier failure
  close();
  errno = reason;
}

Descriptor Descriptor::open(const std::string& path, int flags, unsigned mode) {
  return Descriptor(repeated([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

Descriptor Descriptor::openAt(const Descriptor& folder, const std::string& path, int flags, unsigned mode) {
  return Descriptor(repeated([&] { return ::openat(folder.number(), path.c_str(), flags | O_CLOEXEC, mode); }));
}

Descriptor Descriptor::duplicate(int number) { return Descriptor(fcntl(number, F_DUPFD_CLOEXEC, 0)); }

bool Descriptor::writeTo(int number, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto count = repeated([&] { return ::write(number, bytes.data(), bytes.size()); });
    if (count < 0) return false;
    if (count == 0) {
      errno = EIO;  // otherwise a device that takes nothing would be tried forever
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool Descriptor::sync() const {
  return repeated([&] { return fsync(number_); }) == 0 || errno == EINVAL || errno == ENOTSUP;
}

bool Descriptor::close() {
  if (!isOpen()) return true;
  // An interrupted close has closed the file all the same.
  return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR;
}

}  // namespace Velk
