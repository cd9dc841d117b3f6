#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "velk/containers/ContainerText.h"

namespace Velk::detail {

/// Writes the records of a text container, one a line.
class RecordWriter {
 public:
  explicit RecordWriter(const ContainerDetails& details) : details_(details) {}

  /// Begins a record with its mark; bytes follow, then endLine.
  RecordWriter& mark(std::string_view text);
  RecordWriter& bytes(ConstBytes bytes);
  /// Writes the lower `count` bytes of a number, the highest first.
  RecordWriter& number(std::uint64_t value, unsigned count);
  void endLine();
  /// Returns the sum of the record's bytes so far, modulo 256.
  unsigned char sum() const { return sum_; }

  QByteArray take() { return std::move(text_); }

 private:
  const ContainerDetails& details_;
  QByteArray text_;
  unsigned char sum_ = 0;
};

/// Calls `act` with the bytes of all stretches in pieces of at most `longest`, none of them across a multiple of
/// 64 KiB.
template <class Act>
void forEachPiece(std::span<const Stretch> stretches, std::size_t longest, Act act) {
  constexpr std::uint64_t window = 0x10000;
  longest = std::max<std::size_t>(longest, 1);
  for (const Stretch& stretch : stretches) {
    for (std::uint64_t at = stretch.address; at < stretch.end();) {
      const std::uint64_t windowEnd = (at / window + 1) * window;
      const std::uint64_t to = std::min({at + longest, windowEnd, stretch.end()});
      act(at, stretch.bytes.subspan(at - stretch.address, to - at));
      at = to;
    }
  }
}

/// The lines that a container adds to a text for bytes that none of its lines holds.
struct AddedLines {
  QByteArray text{};
  std::size_t count = 0;  ///< of data records
};

using LineMaker = AddedLines (*)(std::span<const Stretch> stretches, const ImageFile& image, const ContainerText& read);

/// Returns the text of an image with the digits of its changed bytes replaced, checksums included, and lines added for
/// bytes that have none. `read` is the text as it was read.
QByteArray writeBack(const ImageFile& image, const ContainerText& read, LineMaker makeLines);

}  // namespace Velk::detail
