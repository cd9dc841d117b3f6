#pragma once

#include <functional>
#include <string>

#include "velk/files/Descriptor.h"

namespace Velk {

/// The right to change a file, which one process at a time has, until the object is destroyed or the process ends.
///
/// Others who lock the file wait; the lock keeps nobody else from changing it.
class VELK_EXPORT FileLock {
 public:
  FileLock() = default;

  /// Waits until the file is free; calls `whenLong` once if that takes longer than a moment. Locks the file that `path`
  /// leads to after that, even if another file was put in its place meanwhile.
  explicit FileLock(const std::string& path, const std::function<void()>& whenLong);

  /// Returns why the file could not be locked; empty if it is locked.
  const std::string& error() const { return error_; }

 private:
  bool lock(const std::function<void()>& whenLong);

  Descriptor file_;
  std::string error_;
};

}  // namespace Velk
