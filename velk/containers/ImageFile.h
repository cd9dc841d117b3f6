#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "velk/Export.h"
#include "velk/containers/Container.h"

namespace Velk {

/// Consecutive bytes of an image.
struct ImageRange {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;

  bool operator==(const ImageRange&) const = default;
};

/// A doubt about a file as a whole, or about one of its lines.
struct FileFinding {
  std::size_t line = 0;  ///< counted from 1; 0: the file as a whole
  std::string text{};

  /// Returns the text, with its line in front: "line 7: not hexadecimal".
  VELK_EXPORT std::string describe() const;
  bool operator==(const FileFinding&) const = default;
};

/// Where a program in the memory would start; tools write it whether there is a program or not.
struct EntryPoint {
  std::uint32_t address = 0;  ///< of a segmented one, the segment in the upper half and the offset in the lower
  bool segmented = false;

  bool operator==(const EntryPoint&) const = default;
};

/// What a text container says beside the bytes and their addresses; a new file of this container repeats it.
struct ContainerDetails {
  QByteArray header{};  ///< the text of an S0 record
  std::optional<EntryPoint> entry{};
  unsigned char recordLength = 16;  ///< data bytes of its longest line
  bool carriageReturns = false;     ///< its lines end with CR and LF
  unsigned char addressBytes = 0;   ///< of its longest S1 to S3 record; 0: as many as the addresses need
  bool lowerCase = false;           ///< its hexadecimal digits are a to f

  bool operator==(const ContainerDetails&) const = default;
};

/// A memory image as a file holds it, or why there is none.
///
/// The image starts at the lowest address of the file. Addresses that the file does not mention are gaps, taken as
/// erased memory. Bytes of lines that cannot be read are lost; they are filled in the same way.
struct ImageFile {
  QByteArray bytes{};
  std::string error{};                   ///< empty if the file was read
  std::vector<FileFinding> findings{};   ///< the first of them; the last one counts the others
  Container container = Container::Raw;  ///< in which the file was read
  std::uint64_t address = 0;             ///< of the first byte, as the file says
  std::vector<ImageRange> gaps{};        ///< in ascending order
  std::vector<ImageRange> lost{};        ///< in ascending order
  ContainerDetails details{};
  QByteArray text{};  ///< the contents of a text container, in which changed bytes are written back; empty: of none
};

/// Reads a memory image. "-" is standard input. 1 GiB and more are an error, not least because some devices can be read
/// without end.
VELK_EXPORT ImageFile readImageFile(const std::string& path, std::optional<Container> container = std::nullopt);

/// Takes a file's contents as an image in `container`, or in the one that recognises them; a raw dump if none does.
///
/// Memory is taken in proportion to the contents: an image that would consist of gaps but for less than a sixteenth,
/// and is longer than 16 MiB, is an error.
VELK_EXPORT ImageFile decodeImage(QByteArray contents, std::optional<Container> container = std::nullopt);

/// Returns how many bytes of a part of the image are lost.
VELK_EXPORT std::uint64_t lostBytes(const ImageFile& image, std::uint64_t offset, std::uint64_t size);

/// Returns why the image cannot be written in its container, or an empty text if it can.
VELK_EXPORT std::string writingObstacle(const ImageFile& image);

/// Returns the contents of a file that holds this image in its container, which must be one that can be written.
///
/// If the image was read from a text, that text is repeated, and only the lines of changed bytes differ. Otherwise
/// gaps that are still erased are left out.
VELK_EXPORT QByteArray encodeImage(const ImageFile& image);

/// Changes the container in which an image is written. What only the old one can say is dropped.
VELK_EXPORT void moveTo(ImageFile& image, Container container);

}  // namespace Velk
