#include "velk/containers/PlainDump.h"

#include <algorithm>

#include "velk/containers/HexDigits.h"
#include "velk/containers/TextLines.h"

namespace Velk::detail {
namespace {

/// Returns the characters of a line without those of indentation and quotation.
std::string_view contentOf(std::string_view text, const TextLine& place) {
  const std::string_view line = text.substr(place.begin, place.end - place.begin);
  const std::size_t begin = line.find_first_not_of(marginMarks);
  return begin == line.npos ? std::string_view() : line.substr(begin, line.find_last_not_of(blanks) + 1 - begin);
}

class PlainReader {
 public:
  void take(std::string_view line, std::uint32_t number) {
    const auto count = static_cast<std::uint32_t>((line.size() + 1) / 2);
    const bool isHex = std::ranges::all_of(line, isHexDigit);
    if (!isHex || line.size() % 2 != 0) {
      findings_.add(number, isHex ? "an odd number of digits" : "not hexadecimal");
      result_.wrongLines.push_back({result_.places.size(), AddressRange{address_, count}});
    } else {
      place(line, number, count);
    }
    address_ += count;
    longest_ = std::max(longest_, count);
  }

  ContainerText finish() {
    constexpr std::uint32_t longestLength = 255;
    findings_.close();
    result_.details.recordLength = static_cast<unsigned char>(std::clamp<std::uint32_t>(longest_, 1, longestLength));
    return std::move(result_);
  }

 private:
  void place(std::string_view digits, std::uint32_t number, std::uint32_t count) {
    const auto at = static_cast<std::size_t>(result_.bytes.size());
    const bool isNew = result_.places.empty() || result_.places.back().end() != address_;
    // One place for lines that follow each other: they may be much shorter than what describes a place.
    if (isNew) result_.places.push_back({.address = address_, .at = at, .line = number});
    result_.places.back().count += count;
    ++result_.records;
    appendHexBytes(result_.bytes, digits);
  }

  ContainerText result_{};
  FindingList findings_{result_.findings};
  std::uint64_t address_ = 0;
  std::uint32_t longest_ = 0;
};

}  // namespace

bool isPlainDump(std::string_view text) {
  constexpr std::size_t fewestDigits = 16;
  std::size_t length = 0;
  std::size_t total = 0;
  bool isLast = false;
  bool hasLetter = false;
  TextLines lines(text);
  while (const auto place = lines.next()) {
    const std::string_view line = contentOf(text, *place);
    if (line.empty()) continue;
    if (length == 0) length = line.size();
    const bool isPart =
        !isLast && line.size() <= length && line.size() % 2 == 0 && std::ranges::all_of(line, isHexDigit);
    if (!isPart) return false;
    isLast = line.size() < length;
    total += line.size();
    hasLetter = hasLetter || std::ranges::any_of(line, [](char c) { return c > '9'; });
  }
  // A column of decimal numbers is no dump.
  return total >= fewestDigits && length >= 4 && hasLetter;
}

ContainerText readPlainDump(std::string_view text) {
  PlainReader reader;
  std::uint32_t number = 0;
  TextLines lines(text);
  while (const auto place = lines.next()) {
    ++number;
    if (const std::string_view line = contentOf(text, *place); !line.empty()) reader.take(line, number);
  }
  return reader.finish();
}

}  // namespace Velk::detail
