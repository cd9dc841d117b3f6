#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "velk/bytes/Bytes.h"
#include "velk/containers/ImageFile.h"

namespace Velk::detail {

inline constexpr char erasedByte = '\xFF';

/// The addresses of a text may be this far apart, however few bytes it has.
inline constexpr std::uint64_t freelySpanned = 16 * 1024 * 1024;

/// Bytes that one line of a text puts at an address.
struct PlacedBytes {
  std::uint64_t address = 0;
  std::size_t at = 0;        ///< of the first of them among the bytes of the text
  std::size_t digits = 0;    ///< offset in the text of the first digit
  std::size_t checksum = 0;  ///< offset in the text of the digits of the checksum; 0: there is none
  std::uint32_t line = 0;
  std::uint32_t count = 0;
  std::uint64_t repeated = 0;  ///< number of further bytes, which repeat these

  std::uint64_t size() const { return count + repeated; }
  std::uint64_t end() const { return address + size(); }
};

/// A part of the address space.
struct AddressRange {
  std::uint64_t address = 0;
  std::uint64_t size = 0;

  std::uint64_t end() const { return address + size; }
  bool operator==(const AddressRange&) const = default;
};

/// A line whose bytes are lost.
struct WrongLine {
  std::size_t before = 0;                 ///< the number of placed bytes in front of it
  std::optional<AddressRange> claimed{};  ///< where its own digits put its bytes, right or wrong
};

/// A record that counts the data records before it.
struct CountRecord {
  std::size_t digits = 0;  ///< offset in the text of the first digit of the count
  unsigned size = 0;       ///< bytes of the count; the checksum follows
};

/// What the lines of a text container say.
struct ContainerText {
  QByteArray bytes{};  ///< of all lines, in the order of the text
  std::vector<PlacedBytes> places{};
  std::vector<WrongLine> wrongLines{};
  std::vector<FileFinding> findings{};
  std::size_t records = 0;  ///< number of valid records of any kind
  std::size_t dataEnd = 0;  ///< offset in the text of what follows the last line with data
  std::optional<CountRecord> count{};
  std::optional<std::uint64_t> upperAddress{0};  ///< upper 16 bits in force after the last line with data, if known
  ContainerDetails details{};

  ConstBytes bytesAt(const PlacedBytes& place) const;
};

/// Consecutive bytes that are to be written to a container.
struct Stretch {
  std::uint64_t address = 0;
  ConstBytes bytes{};

  std::uint64_t end() const { return address + bytes.size(); }
};

/// Returns the image that a text describes, which is an error if it has no record. If lines disagree on an address, the
/// later line is taken, as by a tool that programs a memory line by line, and both are reported.
ImageFile imageOfText(const ContainerText& text, Container container);

/// Returns the image without its gaps and lost bytes, unless something was written there.
std::vector<Stretch> stretchesOf(const ImageFile& image);

/// Keeps the findings of a file from growing with its lines: past the sixteenth they are only counted.
class FindingList {
 public:
  explicit FindingList(std::vector<FileFinding>& findings) : findings_(findings) {}

  void add(std::size_t line, std::string text);
  /// Whether further findings are only counted.
  bool isFull() const { return count_ >= 16; }
  /// Adds how many were left out.
  void close();

 private:
  std::vector<FileFinding>& findings_;
  std::size_t count_ = 0;
  std::size_t leftOut_ = 0;
};

}  // namespace Velk::detail
