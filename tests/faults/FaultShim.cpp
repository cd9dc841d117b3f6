// Makes one system call fail. It is preloaded into the command and replaces functions of the C library.
//
// VELK_FAULT is "CALL FAULT N": the N-th of the calls counted under CALL has FAULT, one of ENOSPC, EDQUOT, EIO, EINTR
// (an error that is returned once), FULL (ENOSPC from then on), SHORT (fewer bytes are written) and KILL (the process
// is killed there). The file named by VELK_FAULT_MARK is created when the fault occurs.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

struct Fault {
  Fault() {
    const char* const text = std::getenv("VELK_FAULT");
    std::istringstream(text == nullptr ? "" : text) >> call >> name >> left;
  }

  std::string call;
  std::string name;
  int left = 0;
};

/// Made by the first call: libraries open files before constructors run.
Fault& fault() {
  static Fault only;
  return only;
}

void mark() {
  const char* const path = std::getenv("VELK_FAULT_MARK");
  if (path != nullptr) {
    syscall(SYS_close, syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  }
}

int errorOf(const std::string& name) {
  if (name == "EDQUOT") return EDQUOT;
  if (name == "EIO") return EIO;
  if (name == "EINTR") return EINTR;
  return ENOSPC;
}

/// Whether this call is the one.
bool strikes(const char* call) {
  Fault& planned = fault();
  if (planned.call != call) return false;
  const bool stays = planned.name == "FULL" && planned.left <= 1;
  if (!stays && --planned.left != 0) return false;
  mark();
  if (planned.name == "KILL") raise(SIGKILL);
  return true;
}

/// Fails in place of a call.
bool fails(const char* call) {
  if (!strikes(call)) return false;
  errno = errorOf(fault().name);
  return true;
}

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

unsigned modeOf(int flags, va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, unsigned) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = modeOf(flags, arguments);
  va_end(arguments);
  if (fails("open")) return -1;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = modeOf(flags, arguments);
  va_end(arguments);
  if (fails("open")) return -1;
  return static_cast<int>(syscall(SYS_openat, folder, path, flags, mode));
}

ssize_t read(int file, void* bytes, size_t count) {
  if (fails("read")) return -1;
  return syscall(SYS_read, file, bytes, count);
}

ssize_t write(int file, const void* bytes, size_t count) {
  if (fault().name == "SHORT" && strikes("write")) count = std::max<size_t>(count / 2, 1);
  if (fault().name != "SHORT" && fails("write")) return -1;
  return syscall(SYS_write, file, bytes, count);
}

int fsync(int file) { return fails("fsync") ? -1 : static_cast<int>(syscall(SYS_fsync, file)); }

int fchmod(int file, mode_t mode) { return fails("fchmod") ? -1 : static_cast<int>(syscall(SYS_fchmod, file, mode)); }

int fchown(int file, uid_t owner, gid_t group) {
  return fails("fchown") ? -1 : static_cast<int>(syscall(SYS_fchown, file, owner, group));
}

int renameat(int from, const char* name, int to, const char* newName) {
  return fails("rename") ? -1 : static_cast<int>(syscall(SYS_renameat, from, name, to, newName));
}

int flock(int file, int operation) {
  return fails("flock") ? -1 : static_cast<int>(syscall(SYS_flock, file, operation));
}

// The file is closed all the same, as the kernel does.
int close(int file) {
  const bool isFaulty = fails("close");
  const int reason = errno;
  const int result = static_cast<int>(syscall(SYS_close, file));
  if (!isFaulty) return result;
  errno = reason;
  return -1;
}
}
