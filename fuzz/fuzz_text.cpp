// Reads any text as Intel HEX and as S-records: the result can be written and reads back unchanged.
#include <algorithm>
#include <cstring>

#include "FuzzSupport.h"
#include "velk/image/ImageFile.h"
#include "velk/image/IntelHex.h"
#include "velk/image/SRecord.h"

namespace {

using namespace Velk;

using Read = SparseImage (*)(std::string_view);
using Write = QByteArray (*)(const SparseImage&);

void roundTrip(std::string_view text, Read read, Write write) {
  SparseImage image = read(text);
  if (!image.error.empty()) {
    FUZZ_EXPECT(image.errorLine > 0 && image.segments.empty());
    return;
  }
  std::uint64_t last = 0;
  for (const ImageSegment& segment : image.segments) {
    FUZZ_EXPECT(!segment.bytes.isEmpty() && segment.end() <= std::uint64_t{1} << 32U);
    FUZZ_EXPECT(&segment == &image.segments.front() || segment.address > last);
    last = segment.end();
  }
  const QByteArray written = write(image);
  const SparseImage again = read({written.constData(), static_cast<std::size_t>(written.size())});
  FUZZ_EXPECT(again.error.empty() && again.segments == image.segments && again.details.ended);
  FUZZ_EXPECT(again.details.header == image.details.header);
  if (image.details.entry) FUZZ_EXPECT(again.details.entry == image.details.entry);
}

/// Builds an image from the bytes, as pairs of a distance and a length.
SparseImage recipe(std::string_view bytes) {
  SparseImage image;
  std::uint64_t address = 0;
  for (std::size_t at = 0; at + 4 <= bytes.size() && address < 0x80000000;) {
    unsigned short distance = 0;
    unsigned short length = 0;
    std::memcpy(&distance, bytes.data() + at, 2);
    std::memcpy(&length, bytes.data() + at + 2, 2);
    at += 4;
    const std::string_view data = bytes.substr(at, 1 + length % 600);
    if (data.empty()) break;
    address += 1 + distance;
    image.segments.push_back({address, QByteArray(data.data(), static_cast<qsizetype>(data.size()))});
    address = image.segments.back().end();
    at += data.size();
  }
  if (!bytes.empty()) image.details.recordLength = static_cast<unsigned char>(bytes.front());
  image.details.carriageReturns = bytes.size() % 2 == 0;
  return image;
}

void writeAndRead(const SparseImage& image, Read read, Write write) {
  const QByteArray text = write(image);
  FUZZ_EXPECT(read({text.constData(), static_cast<std::size_t>(text.size())}).segments == image.segments);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  constexpr std::size_t longest = 0x1000;  // every line is read and written several times
  size = std::min(size, longest);
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  roundTrip(text, readIntelHex, writeIntelHex);
  roundTrip(text, readSRecords, writeSRecords);
  const SparseImage image = recipe(text);
  writeAndRead(image, readIntelHex, writeIntelHex);
  writeAndRead(image, readSRecords, writeSRecords);
  // Distant segments are laid out in up to 16 MiB, which is correct but slow.
  if (size > 0 && data[0] % 64 == 0) {
    const ImageFile file = decodeImage(QByteArray(text.data(), static_cast<qsizetype>(size)));
    if (file.error.empty()) FUZZ_EXPECT(decodeImage(encodeImage(file), file.format).bytes == file.bytes);
  }
  return 0;
}
