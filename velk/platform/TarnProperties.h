#pragma once

#include <QString>

#include "velk/Export.h"

namespace Velk {

/// Where the instrument keeps its files.
class VELK_EXPORT TarnProperties {
 public:
  /// The system's writable directory, without a slash at its end; the directory for temporary files until one is set.
  static QString getSystemRwPath();
  static void setSystemRwPath(const QString& path);
};

}  // namespace Velk
