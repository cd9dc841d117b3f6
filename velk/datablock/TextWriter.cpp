#include "velk/datablock/TextWriter.h"

#include <ostream>

#include "velk/datablock/NumberText.h"

namespace Velk::detail {
namespace {

// Room for every double in fixed notation: sign, 309 digits, point and decimals.
constexpr std::size_t longestNumber = 384;
/// Significant digits that an untouched stream writes.
constexpr int streamDigits = 6;

template <std::floating_point T>
void append(std::string& line, T value, std::chars_format format, int precision) {
  char digits[longestNumber];
  line.append(digits, std::to_chars(digits, digits + sizeof digits, value, format, precision).ptr);
}

}  // namespace

TextWriter::TextWriter(std::ostream& os) : os_(os) {}

TextWriter& TextWriter::field(std::string_view text, std::size_t width) {
  constexpr std::size_t longLine = 4096;
  if (line_.size() > longLine) send();
  line_ += text;
  if (text.size() < width) line_.append(width - text.size(), ' ');
  return *this;
}

TextWriter& TextWriter::padded(unsigned value, unsigned width) { return text(turnInt2String(value, width)); }

TextWriter& TextWriter::fixed(double value, int decimals) {
  append(line_, value, std::chars_format::fixed, decimals);
  return *this;
}

TextWriter& TextWriter::general(double value) {
  append(line_, value, std::chars_format::general, streamDigits);
  return *this;
}

TextWriter& TextWriter::general(long double value) {
  append(line_, value, std::chars_format::general, streamDigits);
  return *this;
}

TextWriter& TextWriter::date(PackedDate date) {
  return number(date.year).text("-").padded(date.month, 2).text("-").padded(date.day, 2);
}

void TextWriter::endLine() {
  line_ += '\n';
  send();
  os_.flush();
}

void TextWriter::send() {
  os_.write(line_.data(), static_cast<std::streamsize>(line_.size()));
  line_.clear();
}

bool TextWriter::ok() const { return os_.good(); }

}  // namespace Velk::detail
