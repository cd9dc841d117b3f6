#pragma once

#include <QByteArray>
#include <string>

#include "velk/Export.h"

namespace Velk {

/// The bytes of an image file, or why there are none.
struct ImageFile {
  QByteArray bytes;
  std::string error;  ///< empty when the file was read
};

/// Reads a memory image: a raw dump. "-" is standard input.
VELK_EXPORT ImageFile readImageFile(const std::string& path);

}  // namespace Velk
