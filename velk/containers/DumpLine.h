#pragma once

#include <QByteArray>
#include <cstddef>
#include <optional>
#include <string_view>

#include "velk/bytes/Bytes.h"

namespace Velk::detail {

/// Whether dumps show a byte as it is in the text beside the bytes, and not as a full stop.
constexpr bool isShown(unsigned char byte) { return byte >= ' ' && byte < 0x7F; }

/// How the lines of a hex dump print offsets and bytes.
struct DumpForm {
  bool hasColon = false;  ///< after the offset
  std::size_t width = 0;  ///< digits of the offset
  std::size_t group = 0;  ///< digits between two blanks

  /// Whether the digits are those of 16-bit words, in which the lower byte is the second one.
  bool printsWords() const { return !hasColon && group == 4; }
};

/// A line of a text, as a line of a hex dump.
struct DumpLine {
  enum class Kind : unsigned char {
    Other,   ///< none of a dump
    Bytes,   ///< an offset and bytes
    Repeat,  ///< the bytes of the line before, repeated up to the next offset
    Offset,  ///< an offset alone
    Wrong    ///< meant to be an offset and bytes
  };

  Kind kind = Kind::Other;
  DumpForm form{};
  std::string_view offset{};      ///< its digits; empty: they are damaged
  std::string_view digits{};      ///< those of the bytes, with the blanks between them
  std::size_t end = 0;            ///< of the digits, as an offset in the line
  std::size_t count = 0;          ///< of the bytes; of a wrong line, as many as its digits seem to be
  bool isDoubtful = false;        ///< words before the offset or right after the bytes make it look like prose
  const char* problem = nullptr;  ///< why it is wrong

  void appendBytes(QByteArray& bytes) const;
  /// Returns whether the characters beside the bytes show them, or nothing if there are none.
  std::optional<bool> textAgrees(std::string_view line, ConstBytes bytes) const;
};

/// Parses a line. `dump` is the form of the dump that it belongs to, if it is known; only then a line can be wrong.
DumpLine parseDumpLine(std::string_view line, const DumpForm* dump);

}  // namespace Velk::detail
