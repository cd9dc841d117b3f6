// Reads any text as Intel HEX and as S-records: what was read can be written and reads back unchanged, also after
// a byte of it was changed, and in the other containers. Reads it as a hex dump and as gzip too, which are not written.
#include <algorithm>

#include "FuzzSupport.h"
#include "velk/bytes/ByteArray.h"
#include "velk/containers/ImageFile.h"

namespace {

using namespace Velk;

/// Gaps and lost bytes lie in the image, in order, and are filled as erased memory.
void expectRanges(const ImageFile& image, const std::vector<ImageRange>& ranges) {
  std::uint64_t end = 0;
  for (const ImageRange& range : ranges) {
    FUZZ_EXPECT(range.size > 0 && range.offset >= end);
    end = range.offset + range.size;
    FUZZ_EXPECT(end <= static_cast<std::uint64_t>(image.bytes.size()));
    FUZZ_EXPECT(textOf(image.bytes).substr(range.offset, range.size).find_first_not_of('\xFF') == std::string::npos);
  }
}

void expectReadsBack(const ImageFile& image) {
  if (!writingObstacle(image).empty()) return;
  const QByteArray written = encodeImage(image);
  const ImageFile again = decodeImage(written, image.container);
  // A text without a record is none.
  if (image.bytes.isEmpty() && !again.error.empty()) return;
  FUZZ_EXPECT(again.error.empty() && again.bytes == image.bytes && again.address == image.address);
  FUZZ_EXPECT(again.details.header == image.details.header && again.details.entry == image.details.entry);
}

void readAndWrite(std::string_view text, Container container) {
  ImageFile image = decodeImage(QByteArray(text.data(), static_cast<qsizetype>(text.size())), container);
  if (!image.error.empty()) {
    FUZZ_EXPECT(image.bytes.isEmpty());
    return;
  }
  expectRanges(image, image.gaps);
  expectRanges(image, image.lost);
  // Sixteen addresses for two digits, which may be compressed.
  FUZZ_EXPECT(static_cast<std::size_t>(image.bytes.size()) <= std::max<std::size_t>(16 << 20U, 8 * 1032 * text.size()));
  if (writingObstacle(image).empty()) FUZZ_EXPECT(textOf(encodeImage(image)) == text);
  if (image.bytes.isEmpty()) return;
  char& byte = image.bytes[static_cast<qsizetype>(text.size()) % image.bytes.size()];
  byte = static_cast<char>(byte ^ text.back());
  expectReadsBack(image);
}

/// Writes the bytes in each container anew.
void writeAnew(std::string_view bytes) {
  if (bytes.size() < 3 || bytes.front() == '\xFF' || bytes.back() == '\xFF') return;
  ImageFile image{.bytes = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()))};
  image.address = std::uint64_t{static_cast<unsigned char>(bytes[1])} << 24U | 0xFF80U;
  image.details.recordLength = static_cast<unsigned char>(bytes[0]);
  image.details.carriageReturns = bytes.size() % 2 == 0;
  for (const Container container : {Container::IntelHex, Container::SRecord}) {
    moveTo(image, container);
    image.details.entry.reset();
    const ImageFile again = decodeImage(encodeImage(image), container);
    FUZZ_EXPECT(again.error.empty() && again.bytes == image.bytes && again.address == image.address);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  constexpr std::size_t longest = 0x1000;  // every line is read and written several times
  size = std::min(size, longest);
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  readAndWrite(text, Container::IntelHex);
  readAndWrite(text, Container::SRecord);
  readAndWrite(text, Container::HexDump);
  readAndWrite(text, Container::Gzip);
  writeAnew(text);
  const ImageFile image = decodeImage(QByteArray(text.data(), static_cast<qsizetype>(size)));
  if (image.error.empty()) expectReadsBack(image);
  return 0;
}
