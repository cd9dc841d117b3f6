#include "velk/text/TextWriter.h"

#include <ostream>

#include "velk/bytes/HexText.h"
#include "velk/text/NumberText.h"

namespace Velk::detail {
namespace {

// Room for every double in fixed notation: sign, 309 digits, point and decimals.
constexpr std::size_t longestNumber = 384;

template <class T>
std::string generalText(T value) {
  constexpr int significantDigits = 6;
  char digits[longestNumber];
  return {digits,
          std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, significantDigits).ptr};
}

}  // namespace

TextWriter::TextWriter(std::ostream& os) : os_(os) {}

TextWriter& TextWriter::padded(unsigned value, unsigned width) { return text(turnInt2String(value, width)); }

TextWriter& TextWriter::hex(unsigned value, std::size_t width, bool upperCase) {
  const std::string_view alphabet = upperCase ? hexDigits : lowerHexDigits;
  std::string digits;
  for (; value != 0 || digits.size() < width; value >>= 4U) digits.insert(digits.begin(), alphabet[value & 0xFU]);
  return text(digits);
}

TextWriter& TextWriter::fixed(double value, int decimals, std::size_t width) {
  char digits[longestNumber];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr;
  return toTheRight({digits, static_cast<std::size_t>(end - digits)}, width);
}

TextWriter& TextWriter::general(double value) { return text(generalText(value)); }

TextWriter& TextWriter::general(long double value) { return text(generalText(value)); }

TextWriter& TextWriter::field(std::string_view value, std::size_t width) {
  text(value);
  if (value.size() < width) line_.append(width - value.size(), ' ');
  return *this;
}

void TextWriter::endLine() {
  line_ += '\n';
  handOn();
  os_.flush();
}

void TextWriter::handOn() {
  os_.write(line_.data(), static_cast<std::streamsize>(line_.size()));
  line_.clear();
}

bool TextWriter::ok() const { return os_.good(); }

}  // namespace Velk::detail
