#pragma once

#include <algorithm>
#include <map>

#include "velk/bytes/ByteArray.h"
#include "velk/bytes/Bytes.h"
#include "velk/image/SparseImage.h"

namespace Velk::detail {

/// What the two text containers have in common: lines of hexadecimal digits that put bytes at addresses.
///
/// A reader takes one line after another and says what is wrong with it, or nothing.
class RecordReader {
 public:
  virtual ~RecordReader() = default;

  SparseImage read(std::string_view text);

 protected:
  /// The bytes that a line's digits give, as many as a record can have.
  struct Record {
    unsigned char bytes[260];
    std::size_t count = 0;

    ConstBytes view() const { return {bytes, count}; }
  };

  virtual std::string take(std::string_view line) = 0;

  /// Takes the digits of a line apart.
  std::string decode(std::string_view digits, Record& record);
  static std::string wrongChecksum(unsigned stored, unsigned right);

  /// Puts the data of a record in its place.
  std::string put(std::uint64_t address, ConstBytes data);
  void noteLength(std::size_t dataBytes);

  ContainerDetails details_{.recordLength = 0, .ended = false};

 private:
  std::string_view takeLine(std::string_view& text);
  std::vector<ImageSegment> joined();

  std::map<std::uint64_t, QByteArray> segments_;
};

/// The sum of the bytes modulo 256.
unsigned char sumOfBytes(ConstBytes bytes);

/// The number whose bytes these are, the highest first.
std::uint32_t bigEndian(ConstBytes bytes);

/// Writes the records of a text container, one a line.
class RecordWriter {
 public:
  explicit RecordWriter(const ContainerDetails& details) : details_(details) {}

  /// Begins a record with its mark; bytes follow, then endLine.
  RecordWriter& mark(std::string_view text);
  RecordWriter& bytes(ConstBytes bytes);
  /// The lower `count` bytes of a number, the highest first.
  RecordWriter& number(std::uint64_t value, unsigned count);
  void endLine();
  /// The sum of the record's bytes so far, modulo 256.
  unsigned char sum() const { return sum_; }

  QByteArray take() { return std::move(text_); }

 private:
  const ContainerDetails& details_;
  QByteArray text_;
  unsigned char sum_ = 0;
};

/// Hands on the bytes of all segments in pieces of at most `longest`, none of them across a multiple of 64 KiB.
template <class Act>
void forEachPiece(const std::vector<ImageSegment>& segments, std::size_t longest, Act act) {
  constexpr std::uint64_t window = 0x10000;
  longest = std::max<std::size_t>(longest, 1);
  for (const ImageSegment& segment : segments) {
    for (std::uint64_t at = segment.address; at < segment.end();) {
      const std::uint64_t windowEnd = (at / window + 1) * window;
      const std::uint64_t to = std::min({at + longest, windowEnd, segment.end()});
      act(at, bytesOf(segment.bytes).subspan(at - segment.address, to - at));
      at = to;
    }
  }
}

}  // namespace Velk::detail
