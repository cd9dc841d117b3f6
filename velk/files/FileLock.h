#pragma once

#include <functional>
#include <string>

#include "velk/files/Descriptor.h"

namespace Velk {

/// The right to change a file, which one process at a time has. It ends with the object, and with the process.
///
/// Others who lock the file wait; nobody else is kept from it.
class VELK_EXPORT FileLock {
 public:
  FileLock() = default;

  /// Waits for the file to be free; `whenLong` is called once where that takes longer than a moment. The file that
  /// `path` leads to then is the locked one, even where another was put in its place meanwhile.
  explicit FileLock(const std::string& path, const std::function<void()>& whenLong);

  /// Why the file could not be locked; empty where it is.
  const std::string& error() const { return error_; }

 private:
  bool lock(const std::function<void()>& whenLong);

  Descriptor file_;
  std::string error_;
};

}  // namespace Velk
