#pragma once

#include <cstdio>

#include "velk/Export.h"

namespace Velk {

/// The firmware's error-log file.
class VELK_EXPORT ErrorLog {
 public:
  /// Returns the open log, or null if there is none.
  static std::FILE* getLogAccess();
  /// Sets the log. The caller keeps it open while it is set, and closes it.
  static void setLogAccess(std::FILE* log);
};

}  // namespace Velk
