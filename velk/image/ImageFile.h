#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "velk/Export.h"
#include "velk/image/SparseImage.h"

namespace Velk {

/// How a file holds the bytes of a memory.
enum class ImageFormat : unsigned char { Raw, IntelHex, SRecord };

/// "raw", "hex" or "srec".
VELK_EXPORT const char* formatName(ImageFormat format);

/// Bytes of an image that its file does not mention.
struct ImageGap {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
};

/// A memory image as a file holds it, or why there is none.
///
/// The image begins at the lowest address of the file; gaps are filled with erased memory. What the file says beside
/// the bytes is kept, so that a changed image can be written as it was read.
struct ImageFile {
  QByteArray bytes{};
  std::string error{};                    ///< empty when the file was read
  std::string warning{};                  ///< a doubt about the file as a whole; mostly empty
  ImageFormat format = ImageFormat::Raw;  ///< in which the file was read
  std::uint64_t address = 0;              ///< of the first byte, as the file says
  std::vector<ImageGap> gaps{};
  ContainerDetails details{};
};

/// Reads a memory image. "-" is standard input. 1 GiB and more are an error, not least because some devices can be read
/// without end.
VELK_EXPORT ImageFile readImageFile(const std::string& path, std::optional<ImageFormat> format = std::nullopt);

/// Takes a file's contents as an image in `format`. Without one, they are Intel HEX or S-record where every line of
/// them is, and otherwise a raw dump.
///
/// Memory is taken in proportion to the contents: an image that would consist of gaps but for less than a sixteenth,
/// and is longer than 16 MiB, is an error.
VELK_EXPORT ImageFile decodeImage(QByteArray contents, std::optional<ImageFormat> format = std::nullopt);

/// The contents of a file that holds this image in its format. Gaps that are still erased are left out again.
VELK_EXPORT QByteArray encodeImage(const ImageFile& image);

}  // namespace Velk
