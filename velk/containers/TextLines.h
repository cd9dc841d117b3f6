#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Velk::detail {

/// What editors, terminals and old transfer programs leave at the ends of lines and between words.
inline constexpr std::string_view blanks = " \t\f\v\x1A";

/// What indentation and quotation put in front of a line.
inline constexpr std::string_view marginMarks = " \t\f\v\x1A>|";

/// Where a line of a text is.
struct TextLine {
  std::size_t begin = 0;
  std::size_t end = 0;   ///< of its characters
  std::size_t next = 0;  ///< begin of the next line
};

/// Splits a text into its lines, which end with LF, CR LF, CR CR LF or CR.
class TextLines {
 public:
  explicit TextLines(std::string_view text) : text_(text) {}

  /// Returns the next line, or nothing at the end of the text.
  std::optional<TextLine> next();

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t lineFeed_ = 0;        ///< offset of the next one
  std::size_t carriageReturn_ = 0;  ///< likewise
};

}  // namespace Velk::detail
