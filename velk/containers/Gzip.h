#pragma once

#include <string_view>

#include "velk/containers/ImageFile.h"

namespace Velk::detail {

/// Whether contents begin as gzip does.
bool isGzip(std::string_view contents);

/// Decompresses gzip, also of several members one after another, and reads the image in it in whatever container holds
/// it. Gzip inside gzip is left compressed, so that a small file cannot grow twice.
ImageFile readGzip(QByteArray contents);

}  // namespace Velk::detail
