#pragma once

#include <cstdio>

#include "velk/Export.h"

namespace Velk {

/// The firmware's error-log file.
class VELK_EXPORT ErrorLog {
 public:
  /// The open log, or null while there is none.
  static std::FILE* getLogAccess();
  /// Names the log; the caller keeps it open while it is named here, and closes it.
  static void setLogAccess(std::FILE* log);
};

}  // namespace Velk
