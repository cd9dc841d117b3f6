#pragma once

#include <cstdint>

#include "velk/Export.h"
#include "velk/containers/ImageFile.h"

namespace Velk {

/// Keeps only the bytes from offset `from` up to `to`, which is at most the size of the image; the address moves along.
VELK_EXPORT void cropImage(ImageFile& image, std::uint64_t from, std::uint64_t to);

/// Fills gaps and lost bytes with `byte`. They are bytes of the image from then on.
VELK_EXPORT void fillImage(ImageFile& image, char byte);

}  // namespace Velk
