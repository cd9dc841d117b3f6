#include "velk/image/TextRecords.h"

#include <numeric>

#include "velk/bytes/HexText.h"

namespace Velk::detail {
namespace {

/// The value of a hexadecimal digit, or 16.
unsigned digitValue(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A' + 10);
  if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a' + 10);
  return 16;
}

std::string twice(std::uint64_t address) { return "address " + hexText(address, 8) + " is given twice"; }

}  // namespace

unsigned char sumOfBytes(ConstBytes bytes) {
  return static_cast<unsigned char>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

std::uint32_t bigEndian(ConstBytes bytes) {
  std::uint32_t value = 0;
  for (const unsigned char byte : bytes) value = value << 8U | byte;
  return value;
}

SparseImage RecordReader::read(std::string_view text) {
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::string_view line = takeLine(text);
    if (line.empty()) continue;
    std::string error = details_.ended ? "a record behind the end record" : take(line);
    if (!error.empty()) return {.error = std::move(error), .errorLine = number};
  }
  if (details_.recordLength == 0) details_.recordLength = ContainerDetails{}.recordLength;
  return {.segments = joined(), .details = details_};
}

/// The next line, without the blanks at its end.
std::string_view RecordReader::takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) details_.carriageReturns = true;
  line.remove_suffix(line.size() - (line.find_last_not_of(" \t\r") + 1));
  return line;
}

std::string RecordReader::decode(std::string_view digits, Record& record) {
  if (digits.size() % 2 != 0) return "an odd number of digits";
  if (digits.size() / 2 > sizeof record.bytes) return "too long for a record";
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const unsigned high = digitValue(digits[i]);
    const unsigned low = digitValue(digits[i + 1]);
    if (high > 15 || low > 15) return "not hexadecimal";
    details_.lowerCase = details_.lowerCase || std::max(digits[i], digits[i + 1]) >= 'a';
    record.bytes[record.count++] = static_cast<unsigned char>(high << 4U | low);
  }
  return {};
}

std::string RecordReader::wrongChecksum(unsigned stored, unsigned right) {
  return "checksum is " + hexText(stored, 2) + ", the bytes give " + hexText(right & 0xFFU, 2);
}

std::string RecordReader::put(std::uint64_t address, ConstBytes data) {
  if (data.empty()) return {};
  const auto* const bytes = reinterpret_cast<const char*>(data.data());
  const auto count = static_cast<qsizetype>(data.size());
  const auto next = segments_.lower_bound(address);
  if (next != segments_.end() && next->first < address + data.size()) return twice(next->first);
  if (next != segments_.begin()) {
    auto& [start, before] = *std::prev(next);
    const std::uint64_t end = start + static_cast<std::uint64_t>(before.size());
    if (end > address) return twice(address);
    if (end == address) {
      before.append(bytes, count);
      return {};
    }
  }
  segments_.emplace_hint(next, address, QByteArray(bytes, count));
  return {};
}

void RecordReader::noteLength(std::size_t dataBytes) {
  details_.recordLength = std::max(details_.recordLength, static_cast<unsigned char>(dataBytes));
}

/// The segments with those made one that touch, as records in another order than that of their addresses leave them.
std::vector<ImageSegment> RecordReader::joined() {
  std::vector<ImageSegment> result;
  for (auto& [address, bytes] : segments_) {
    if (!result.empty() && result.back().end() == address) {
      result.back().bytes += bytes;
    } else {
      result.push_back({address, std::move(bytes)});
    }
  }
  return result;
}

RecordWriter& RecordWriter::mark(std::string_view text) {
  sum_ = 0;
  text_.append(text.data(), static_cast<qsizetype>(text.size()));
  return *this;
}

RecordWriter& RecordWriter::bytes(ConstBytes bytes) {
  const std::string_view digits = details_.lowerCase ? lowerHexDigits : hexDigits;
  for (const unsigned char byte : bytes) {
    text_ += digits[byte >> 4U];
    text_ += digits[byte & 0xFU];
  }
  sum_ = static_cast<unsigned char>(sum_ + sumOfBytes(bytes));
  return *this;
}

RecordWriter& RecordWriter::number(std::uint64_t value, unsigned count) {
  for (unsigned i = count; i-- > 0;) {
    const auto byte = static_cast<unsigned char>(value >> (8 * i));
    bytes({&byte, 1});
  }
  return *this;
}

void RecordWriter::endLine() { text_ += details_.carriageReturns ? "\r\n" : "\n"; }

}  // namespace Velk::detail
