#pragma once

#include <charconv>
#include <concepts>
#include <iosfwd>
#include <string>
#include <string_view>

#include "velk/Export.h"
#include "velk/bytes/PackedDate.h"

namespace Velk::detail {

/// Writes the text form of a block line by line.
///
/// Everything is formatted here, in the C locale, so no text depends on the flags, fill, precision or locale of the
/// stream. Each line end passes the line to the stream and flushes it. Long lines are passed on in pieces and so take
/// little memory. After the stream has failed nothing more is formatted: loops over long tables check ok().
class VELK_EXPORT TextWriter {
 public:
  /// The width of a key with the blanks after it, unless a text uses another one.
  static constexpr std::size_t keyWidth = 17;

  explicit TextWriter(std::ostream& os);

  TextWriter& text(std::string_view text) {
    line_ += text;
    if (line_.size() >= pieceSize) handOn();
    return *this;
  }
  TextWriter& key(std::string_view key, std::size_t width = keyWidth) { return text(key).padTo(width); }
  TextWriter& padTo(std::size_t width) {
    if (line_.size() < width) line_.resize(width, ' ');
    return *this;
  }
  /// Writes a decimal number, padded on the left with blanks to `width`.
  template <std::integral T>
  TextWriter& number(T value, std::size_t width = 0) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return toTheRight({digits, static_cast<std::size_t>(end - digits)}, width);
  }
  /// Writes hexadecimal digits in lower or upper case, padded on the left with zeros to `width`.
  TextWriter& hex(unsigned value, std::size_t width = 1, bool upperCase = false);
  /// Writes a number padded on the left with zeros; one that is wider than `width` is written in full.
  TextWriter& padded(unsigned value, unsigned width);
  /// Writes as "%<width>.<decimals>f".
  TextWriter& fixed(double value, int decimals, std::size_t width = 0);
  /// Writes as an unmodified stream does: general notation with 6 significant digits.
  TextWriter& general(double value);
  TextWriter& general(long double value);
  /// Writes text, padded on the right with blanks to `width` characters.
  TextWriter& field(std::string_view value, std::size_t width);
  TextWriter& date(PackedDate date) { return text(DateText(date).view()); }

  void endLine();
  void line(std::string_view whole) { text(whole).endLine(); }
  /// Passes the line so far to the stream.
  void handOn();

  bool ok() const;

 private:
  static constexpr std::size_t pieceSize = 64 * 1024;

  TextWriter& toTheRight(std::string_view digits, std::size_t width) {
    if (digits.size() < width) line_.append(width - digits.size(), ' ');
    return text(digits);
  }

  std::ostream& os_;
  std::string line_;
};

}  // namespace Velk::detail
