#include "velk/datablock/TextWriter.h"

#include <ostream>

#include "velk/datablock/NumberText.h"

namespace Velk::detail {
namespace {

// Room for every double in fixed notation: sign, 309 digits, point and decimals.
constexpr std::size_t longestNumber = 384;

}  // namespace

TextWriter::TextWriter(std::ostream& os) : os_(os) {}

TextWriter& TextWriter::padded(unsigned value, unsigned width) { return text(turnInt2String(value, width)); }

TextWriter& TextWriter::fixed(double value, int decimals) {
  char digits[longestNumber];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr;
  return text({digits, static_cast<std::size_t>(end - digits)});
}

TextWriter& TextWriter::general(double value) {
  constexpr int significantDigits = 6;
  char digits[longestNumber];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, significantDigits).ptr;
  return text({digits, static_cast<std::size_t>(end - digits)});
}

TextWriter& TextWriter::date(PackedDate date) {
  return number(date.year).text("-").padded(date.month, 2).text("-").padded(date.day, 2);
}

void TextWriter::endLine() {
  line_ += '\n';
  os_.write(line_.data(), static_cast<std::streamsize>(line_.size()));
  os_.flush();
  line_.clear();
}

bool TextWriter::ok() const { return os_.good(); }

}  // namespace Velk::detail
