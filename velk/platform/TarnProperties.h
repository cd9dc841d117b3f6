#pragma once

#include <QString>

#include "velk/Export.h"

namespace Velk {

/// Where the instrument keeps its files.
class VELK_EXPORT TarnProperties {
 public:
  /// Returns the system's writable directory without a trailing slash; until one is set, that for temporary files.
  static QString getSystemRwPath();
  static void setSystemRwPath(const QString& path);
};

}  // namespace Velk
