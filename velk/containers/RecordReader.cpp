#include "velk/containers/RecordReader.h"

#include <algorithm>
#include <numeric>

#include "velk/bytes/HexText.h"
#include "velk/containers/HexDigits.h"

namespace Velk::detail {
namespace {

/// Digits of a damaged record that tell it from other text.
constexpr std::size_t shortestMeant = 8;

/// Whether nearly all characters are hexadecimal digits: the others are what became of some.
bool isNearlyHex(std::string_view word) {
  const auto digits = std::ranges::count_if(word, isHexDigit);
  return static_cast<std::size_t>(digits) * 10 >= word.size() * 9;
}

/// Whether some of these characters are lower-case letters. Without branches, since nearly all lines have none.
bool hasLowerCase(std::string_view characters) {
  unsigned bits = 0;
  for (const char c : characters) bits |= static_cast<unsigned>(c) & (static_cast<unsigned>(c) >> 1U);
  return (bits & 0x20U) != 0;
}

}  // namespace

unsigned char sumOfBytes(ConstBytes bytes) {
  return static_cast<unsigned char>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

std::uint32_t bigEndian(ConstBytes bytes) {
  std::uint32_t value = 0;
  for (const unsigned char byte : bytes) value = value << 8U | byte;
  return value;
}

ContainerText RecordReader::read() {
  while (const auto line = lines_.next()) {
    ++line_;
    takeLine(*line);
  }
  if (result_.details.recordLength == 0) result_.details.recordLength = ContainerDetails{}.recordLength;
  findings_.close();
  const bool isWhole = isEnded_ || isCounted_;
  if (!isWhole && result_.records > 0)
    result_.findings.insert(result_.findings.begin(), {0, "has no end record; it may have been cut"});
  return std::move(result_);
}

bool RecordReader::hasRecord() const {
  Record record;
  for (std::size_t mark = findMark(text_, 0); mark != text_.npos; mark = findMark(text_, mark + 1)) {
    if (decodeValid(text_, mark, record)) return true;
  }
  return false;
}

void RecordReader::takeLine(const TextLine& place) {
  const std::string_view line = text_.substr(place.begin, place.end - place.begin);
  bool isTaken = false;
  std::size_t wrong = line.npos;
  const std::size_t first = findMark(line, 0);
  for (std::size_t mark = first; mark != line.npos;) {
    std::size_t from = mark + 1;
    if (const auto end = takeRecord(line, mark, place)) {
      isTaken = true;
      from = *end;
    } else if (wrong == line.npos && (isMeant(line, mark) || (mark == first && isMeantWhole(line, mark)))) {
      wrong = mark;
    }
    mark = findMark(line, from);
  }
  if (wrong != line.npos || (!isTaken && isMeantWithoutMark(line))) reportWrong(line, wrong);
}

std::optional<std::size_t> RecordReader::takeRecord(std::string_view line, std::size_t mark, const TextLine& place) {
  Record record;
  const auto end = decodeValid(line, mark, record);
  if (!end) return std::nullopt;
  record.digits = place.begin + mark + markLength();
  if (isEnded_) report("a record behind the end record");
  const std::size_t before = result_.places.size();
  take(record);
  ++result_.records;
  ContainerDetails& details = result_.details;
  details.carriageReturns = details.carriageReturns || (place.end < text_.size() && text_[place.end] == '\r');
  details.lowerCase = details.lowerCase || hasLowerCase(line.substr(mark, *end - mark));
  if (result_.places.size() > before) result_.dataEnd = place.next;
  return end;
}

/// Decodes the record after a mark. Returns the end of its digits, or nothing if it is not valid.
std::optional<std::size_t> RecordReader::decodeValid(std::string_view line, std::size_t mark, Record& record) const {
  const std::size_t end = decode(line, mark, record);
  const bool hasMoreDigits = end < line.size() && isHexDigit(line[end]);
  if (hasMoreDigits || !problemOf(record).empty()) return std::nullopt;
  return end;
}

/// Decodes the digits after a mark as far as they make bytes. Returns where they end.
std::size_t RecordReader::decode(std::string_view line, std::size_t mark, Record& record) const {
  if (markLength() > 1) record.type = line[mark + 1];
  record.count = 0;
  std::size_t at = mark + markLength();
  for (; at + 1 < line.size() && record.count < Record::longest; at += 2) {
    const unsigned high = hexDigitValue(line[at]);
    const unsigned low = hexDigitValue(line[at + 1]);
    if (high > 15 || low > 15) break;
    record.bytes[record.count++] = static_cast<unsigned char>(high << 4U | low);
  }
  return at;
}

std::string RecordReader::checksumProblem(unsigned stored, unsigned right) {
  return "checksum is " + hexText(stored, 2) + ", the bytes give " + hexText(right & 0xFFU, 2);
}

/// Whether a mark and what follows it up to the next blank or mark was meant to be a record: a word of digits.
bool RecordReader::isMeant(std::string_view line, std::size_t mark) const {
  const std::size_t begin = mark + markLength();
  const std::string_view rest = line.substr(begin, findMark(line, begin) - begin);
  const std::string_view word = rest.substr(0, rest.find_first_of(blanks));
  return word.size() >= shortestMeant && isNearlyHex(word);
}

/// Whether a line that begins with the mark was meant to be a record: it holds nearly nothing but digits.
bool RecordReader::isMeantWhole(std::string_view line, std::size_t mark) const {
  if (line.find_first_not_of(blanks) != mark) return false;
  const std::size_t begin = mark + markLength();
  const std::string_view rest = line.substr(begin, line.find_last_not_of(blanks) + 1 - begin);
  return std::ranges::all_of(rest, isHexDigit) || (rest.size() >= shortestMeant && isNearlyHex(rest));
}

bool RecordReader::isMeantWithoutMark(std::string_view line) const {
  constexpr std::size_t shortest = 10;
  const std::size_t begin = std::min(line.find_first_not_of(blanks), line.size());
  const std::string_view word = line.substr(begin, line.find_last_not_of(blanks) + 1 - begin);
  return word.size() >= shortest && isNearlyHex(word);
}

void RecordReader::reportWrong(std::string_view line, std::size_t mark) {
  WrongLine wrong{.before = result_.places.size()};
  if (mark == line.npos) {
    report("no " + markName() + " at its start");
  } else {
    Record record;
    const std::size_t end = decode(line, mark, record);
    report(problemAt(line, end, record));
    wrong.claimed = claimOf(record);
  }
  result_.wrongLines.push_back(wrong);
}

/// Returns why the digits up to `end` are no record.
std::string RecordReader::problemAt(std::string_view line, std::size_t end, const Record& record) const {
  const bool isOdd = end < line.size() && isHexDigit(line[end]);
  if (isOdd && record.count == Record::longest) return "too long for a record";
  const std::size_t after = isOdd ? end + 1 : end;
  if (after < line.size() && blanks.find(line[after]) == blanks.npos) return "not hexadecimal";
  return isOdd ? "an odd number of digits" : problemOf(record);
}

void RecordReader::place(std::uint64_t address, ConstBytes data, const Record& record, std::size_t first) {
  if (data.empty()) return;
  result_.places.push_back({.address = address,
                            .at = static_cast<std::size_t>(result_.bytes.size()),
                            .digits = record.digitsOf(first),
                            .checksum = record.digitsOf(record.count - 1),
                            .line = line_,
                            .count = static_cast<std::uint32_t>(data.size())});
  result_.bytes.append(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()));
}

void RecordReader::noteLength(std::size_t dataBytes) {
  result_.details.recordLength = std::max(result_.details.recordLength, static_cast<unsigned char>(dataBytes));
}

}  // namespace Velk::detail
