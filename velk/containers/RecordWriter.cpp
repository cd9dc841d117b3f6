#include "velk/containers/RecordWriter.h"

#include "velk/bytes/ByteArray.h"
#include "velk/bytes/HexText.h"
#include "velk/containers/HexDigits.h"

namespace Velk::detail {
namespace {

/// The digits of a text, to be changed byte by byte.
class Digits {
 public:
  Digits(QByteArray& text, bool lowerCase) : text_(text), digits_(lowerCase ? lowerHexDigits : hexDigits) {}

  unsigned char at(std::size_t offset) const {
    const auto* const pair = text_.constData() + offset;
    return static_cast<unsigned char>(hexDigitValue(pair[0]) << 4U | hexDigitValue(pair[1]));
  }

  /// Replaces a byte, and takes what it grew by from the checksum.
  void put(std::size_t offset, unsigned char byte, std::size_t checksum) {
    const unsigned grown = byte - static_cast<unsigned>(at(offset));
    if (grown == 0) return;
    store(offset, byte);
    store(checksum, static_cast<unsigned char>(at(checksum) - grown));
  }

 private:
  void store(std::size_t offset, unsigned char byte) {
    char* const pair = text_.data() + offset;
    pair[0] = digits_[byte >> 4U];
    pair[1] = digits_[byte & 0xFU];
  }

  QByteArray& text_;
  std::string_view digits_;
};

/// Replaces the digits of all bytes that lines of the text hold.
void replaceBytes(Digits& digits, const ImageFile& image, const ContainerText& read) {
  const ConstBytes bytes = bytesOf(image.bytes);
  for (const PlacedBytes& place : read.places) {
    for (std::uint32_t i = 0; i < place.count; ++i) {
      const std::uint64_t offset = place.address - image.address + i;
      if (offset < bytes.size()) digits.put(place.digits + 2 * std::size_t{i}, bytes[offset], place.checksum);
    }
  }
}

void raiseCount(Digits& digits, const CountRecord& count, std::size_t by) {
  std::uint64_t value = by;
  const auto digitsOf = [&](unsigned i) { return count.digits + 2 * std::size_t{count.size - 1 - i}; };
  for (unsigned i = 0; i < count.size; ++i) value += std::uint64_t{digits.at(digitsOf(i))} << (8 * i);
  const std::size_t checksum = count.digits + 2 * std::size_t{count.size};
  for (unsigned i = 0; i < count.size; ++i) {
    digits.put(digitsOf(i), static_cast<unsigned char>(value >> (8 * i)), checksum);
  }
}

/// Returns the part of a range that is not erased, without erased bytes at its ends.
Stretch writtenPart(const ImageFile& image, std::uint64_t from, std::uint64_t to) {
  const std::string_view part = textOf(image.bytes).substr(from, to - from);
  const std::size_t first = part.find_first_not_of(erasedByte);
  if (first == part.npos) return {};
  const std::size_t count = part.find_last_not_of(erasedByte) + 1 - first;
  return {image.address + from + first, bytesOf(image.bytes).subspan(from + first, count)};
}

/// Returns what was written where no line of the text holds a byte: into gaps, and after the last line's bytes.
std::vector<Stretch> writtenBetweenLines(const ImageFile& image, const ContainerText& read) {
  const auto size = static_cast<std::uint64_t>(image.bytes.size());
  std::uint64_t end = 0;
  for (const PlacedBytes& place : read.places) end = std::max(end, place.end() - image.address);
  std::vector<ImageRange> ranges = image.gaps;
  if (end < size) ranges.push_back({end, size - end});
  std::vector<Stretch> written;
  for (const ImageRange& range : ranges) {
    const std::uint64_t to = std::min(range.offset + range.size, size);
    if (range.offset >= to) continue;
    const Stretch part = writtenPart(image, range.offset, to);
    if (!part.bytes.empty()) written.push_back(part);
  }
  return written;
}

}  // namespace

RecordWriter& RecordWriter::mark(std::string_view text) {
  sum_ = 0;
  text_.append(text.data(), static_cast<qsizetype>(text.size()));
  return *this;
}

RecordWriter& RecordWriter::bytes(ConstBytes bytes) {
  const std::string_view digits = details_.lowerCase ? lowerHexDigits : hexDigits;
  for (const unsigned char byte : bytes) {
    text_ += digits[byte >> 4U];
    text_ += digits[byte & 0xFU];
    sum_ = static_cast<unsigned char>(sum_ + byte);
  }
  return *this;
}

RecordWriter& RecordWriter::number(std::uint64_t value, unsigned count) {
  for (unsigned i = count; i-- > 0;) {
    const auto byte = static_cast<unsigned char>(value >> (8 * i));
    bytes({&byte, 1});
  }
  return *this;
}

void RecordWriter::endLine() { text_ += details_.carriageReturns ? "\r\n" : "\n"; }

QByteArray writeBack(const ImageFile& image, const ContainerText& read, LineMaker makeLines) {
  QByteArray text = image.text;
  Digits digits(text, image.details.lowerCase);
  replaceBytes(digits, image, read);
  const std::vector<Stretch> written = writtenBetweenLines(image, read);
  if (written.empty()) return text;
  const AddedLines lines = makeLines(written, image, read);
  if (read.count) raiseCount(digits, *read.count, lines.count);
  const auto at = static_cast<qsizetype>(read.dataEnd);
  const bool endsLine = at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r';
  return text.insert(at, (endsLine ? "" : "\n") + lines.text);
}

}  // namespace Velk::detail
