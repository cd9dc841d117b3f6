#pragma once

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Velk {

/// Bytes that stand at consecutive addresses.
struct ImageSegment {
  std::uint64_t address = 0;
  QByteArray bytes{};

  std::uint64_t end() const { return address + static_cast<std::uint64_t>(bytes.size()); }
  bool operator==(const ImageSegment&) const = default;
};

/// Where a program in the memory would start; tools write it whether there is a program or not.
struct EntryPoint {
  std::uint32_t address = 0;  ///< of a segmented one, the segment in the upper half and the offset in the lower
  bool segmented = false;

  bool operator==(const EntryPoint&) const = default;
};

/// What a text container says beside the bytes and their addresses, kept to write it again as it was.
struct ContainerDetails {
  QByteArray header{};  ///< the text of an S0 record
  std::optional<EntryPoint> entry{};
  unsigned char recordLength = 16;  ///< data bytes of its longest line
  bool carriageReturns = false;     ///< its lines end with CR and LF
  bool lowerCase = false;           ///< its hexadecimal digits are a to f
  bool ended = true;                ///< its end record is there; otherwise it may have been cut

  bool operator==(const ContainerDetails&) const = default;
};

/// The contents of an Intel HEX or S-record file: stretches of bytes with nothing known between them.
struct SparseImage {
  std::vector<ImageSegment> segments{};  ///< in ascending order; they neither overlap nor touch
  ContainerDetails details{};
  std::string error{};        ///< why the text could not be read; empty when it was
  std::size_t errorLine = 0;  ///< where, counted from 1

  bool operator==(const SparseImage&) const = default;
};

}  // namespace Velk
