#include "velk/files/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

namespace Velk {
namespace {

bool flockRepeated(int file, int operation) {
  while (flock(file, operation) != 0) {
    if (errno != EINTR) return false;
  }
  return true;
}

/// Returns whether a path still leads to an open file: a change to a file puts another one in its place.
bool leadsTo(const std::string& path, int file) {
  struct stat there {};
  struct stat here {};
  return stat(path.c_str(), &there) == 0 && fstat(file, &here) == 0 && there.st_ino == here.st_ino &&
         there.st_dev == here.st_dev;
}

}  // namespace

FileLock::FileLock(const std::string& path, const std::function<void()>& whenLong) {
  do {
    file_ = Descriptor::open(path, O_RDWR | O_NOCTTY);
    if (!file_.isOpen()) {
      error_ = std::strerror(errno);
    } else if (!lock(whenLong)) {
      error_ = std::string("cannot be locked: ") + std::strerror(errno);
    }
    if (!error_.empty()) return;
  } while (!leadsTo(path, file_.number()));
}

bool FileLock::lock(const std::function<void()>& whenLong) {
  using namespace std::chrono_literals;
  constexpr auto pause = 10ms;
  constexpr int patience = 100;
  for (int i = 0; i < patience; ++i) {
    if (flockRepeated(file_.number(), LOCK_EX | LOCK_NB)) return true;
    if (errno != EWOULDBLOCK) return false;
    std::this_thread::sleep_for(pause);
  }
  whenLong();
  return flockRepeated(file_.number(), LOCK_EX);
}

}  // namespace Velk
