#pragma once

#include <charconv>
#include <concepts>
#include <iosfwd>
#include <string>
#include <string_view>

#include "velk/Export.h"
#include "velk/datablock/PackedDate.h"

namespace Velk::detail {

/// Writes the text form of a block line by line.
///
/// Everything is formatted here, in the C locale, so that no text depends on the flags, fill, precision or locale of
/// the stream; each line end hands the line to the stream and flushes it. Once the stream has failed nothing more is
/// formatted: loops over long tables ask ok().
class VELK_EXPORT TextWriter {
 public:
  /// Columns of a key with the blanks behind it, unless a text has another habit.
  static constexpr std::size_t keyWidth = 17;

  explicit TextWriter(std::ostream& os);

  TextWriter& text(std::string_view text) {
    line_ += text;
    return *this;
  }
  TextWriter& key(std::string_view key, std::size_t width = keyWidth) { return text(key).padTo(width); }
  TextWriter& padTo(std::size_t width) {
    if (line_.size() < width) line_.resize(width, ' ');
    return *this;
  }
  /// Text with blanks behind it up to `width` characters. Hands a long line on piece by piece.
  TextWriter& field(std::string_view text, std::size_t width);
  template <std::integral T>
  TextWriter& number(T value) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return text({digits, static_cast<std::size_t>(end - digits)});
  }
  /// A number with zeros before it; one that is wider than `width` is written in full.
  TextWriter& padded(unsigned value, unsigned width);
  /// As "%.<decimals>f".
  TextWriter& fixed(double value, int decimals);
  /// As an untouched stream writes it: general notation of 6 significant digits.
  TextWriter& general(double value);
  TextWriter& general(long double value);
  /// Year, month and day with hyphens.
  TextWriter& date(PackedDate date);

  void endLine();
  /// Hands the line so far to the stream, without an end.
  void send();
  void line(std::string_view whole) { text(whole).endLine(); }

  bool ok() const;

 private:
  std::ostream& os_;
  std::string line_;
};

}  // namespace Velk::detail
