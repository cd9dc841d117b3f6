#include "velk/containers/DumpReader.h"

#include <algorithm>

#include "velk/bytes/ByteArray.h"
#include "velk/bytes/HexText.h"
#include "velk/containers/HexDigits.h"

namespace Velk::detail {

std::optional<std::uint64_t> offsetValue(std::string_view digits, unsigned base) {
  constexpr std::uint64_t beyond = std::uint64_t{1} << 56U;
  std::uint64_t value = 0;
  for (const char digit : digits) {
    if (hexDigitValue(digit) >= base) return std::nullopt;
    value = value * base + hexDigitValue(digit);
    if (value >= beyond) return std::nullopt;
  }
  return value;
}

ContainerText DumpReader::read() {
  TextLines lines(text_);
  while (const auto place = lines.next()) {
    ++line_;
    const std::string_view characters = text_.substr(place->begin, place->end - place->begin);
    const DumpLine line = parseDumpLine(characters, &traits_.form);
    switch (line.kind) {
      case DumpLine::Kind::Other:
        break;
      case DumpLine::Kind::Bytes:
        takeBytes(line, characters);
        break;
      case DumpLine::Kind::Repeat:
        takeRepeat();
        break;
      case DumpLine::Kind::Offset:
        takeOffset(line);
        break;
      case DumpLine::Kind::Wrong:
        takeWrong(line);
    }
  }
  finish();
  return std::move(result_);
}

bool DumpReader::isMeant(const DumpLine& line, std::optional<std::uint64_t> address) const {
  constexpr std::size_t manyBytes = 8;
  const bool isLong = line.kind == DumpLine::Kind::Bytes && line.count >= manyBytes;
  return !line.isDoubtful || isLong || address == next_;
}

void DumpReader::takeBytes(const DumpLine& line, std::string_view characters) {
  const auto address = offsetValue(line.offset, traits_.base);
  if (!isMeant(line, address)) return;
  if (!address || line.form.width < traits_.form.width) {
    DumpLine wrong = line;
    wrong.offset = {};
    wrong.problem = "its offset is damaged";
    return takeWrong(wrong);
  }
  repeatUpTo(*address);
  checkLast(*address);
  result_.places.push_back({.address = *address,
                            .at = static_cast<std::size_t>(result_.bytes.size()),
                            .line = line_,
                            .count = static_cast<std::uint32_t>(line.count)});
  line.appendBytes(result_.bytes);
  ++result_.records;
  next_ = *address + line.count;
  longest_ = std::max(longest_, line.count);
  isEnded_ = false;
  const ConstBytes bytes = result_.bytesAt(result_.places.back());
  const auto agrees = line.textAgrees(characters, bytes);
  // Full stops say nothing about the order of the bytes.
  if (agrees && std::ranges::any_of(bytes, isShown)) ++(*agrees ? agreeing_ : differing_);
}

void DumpReader::takeWrong(const DumpLine& line) {
  const auto address = line.offset.empty() ? std::nullopt : offsetValue(line.offset, traits_.base);
  if (!isMeant(line, address)) return;
  if (address) {
    repeatUpTo(*address);
    checkLast(*address);
  }
  report(line.problem);
  WrongLine wrong{.before = result_.places.size()};
  if (address) wrong.claimed = {*address, line.count};
  result_.wrongLines.push_back(wrong);
  next_ = address.value_or(next_) + line.count;
}

void DumpReader::takeRepeat() {
  if (!result_.places.empty()) asterisk_ = line_;
}

bool DumpReader::isLastLineWrong() const {
  return !result_.wrongLines.empty() && result_.wrongLines.back().before == result_.places.size();
}

void DumpReader::repeatUpTo(std::uint64_t address) {
  if (asterisk_ == 0) return;
  PlacedBytes& last = result_.places.back();
  if (isLastLineWrong()) {
    // The bytes that are repeated are lost.
    auto& claimed = result_.wrongLines.back().claimed;
    if (claimed && claimed->end() < address) claimed->size = address - claimed->address;
  } else if (address >= last.end()) {
    last.repeated += address - last.end();
  } else {
    findings_.add(asterisk_, "the offset after it is lower than the one before it");
  }
  asterisk_ = 0;
}

void DumpReader::checkLast(std::uint64_t address) {
  if (result_.places.empty()) return;
  if (isLastLineWrong()) {
    // Damage takes digits away as well.
    auto& claimed = result_.wrongLines.back().claimed;
    const bool isShort = claimed && claimed->end() < address && claimed->address + longest_ >= address;
    if (isShort) claimed->size = address - claimed->address;
    return;
  }
  const std::size_t count = result_.places.size();
  const PlacedBytes last = result_.places.back();
  if (last.repeated > 0) return;
  if (last.count < longest_ && address == last.address + longest_) {
    const std::size_t missing = longest_ - last.count;
    findings_.add(last.line, std::to_string(missing) + (missing == 1 ? " byte is" : " bytes are") + " missing in it");
    result_.wrongLines.push_back({count, AddressRange{last.end(), missing}});
  }
  if (count < 2) return;
  // The lines around the last one leave room for its bytes, but not where it puts them.
  const std::uint64_t before = result_.places[count - 2].end();
  const bool isBetweenValid = result_.wrongLines.empty() || result_.wrongLines.back().before + 1 < count;
  if (isBetweenValid && last.address != before && before + last.count == address) {
    findings_.add(last.line, "offset " + hexText(last.address, 8) + " is not between those of the lines around it");
    result_.wrongLines.push_back({count - 1, AddressRange{before, last.count}});
    result_.places.pop_back();
  }
}

void DumpReader::takeOffset(const DumpLine& line) {
  const auto end = offsetValue(line.offset, traits_.base);
  if (!end || line.form.width < traits_.form.width || result_.places.empty()) return;
  repeatUpTo(*end);
  PlacedBytes& last = result_.places.back();
  const bool isWordPadded = traits_.form.printsWords() && last.repeated == 0 && *end + 1 == last.end();
  if (isWordPadded) --last.count;
  isEnded_ = true;
  if (isLastLineWrong()) {
    auto& claimed = result_.wrongLines.back().claimed;
    if (claimed && claimed->end() > *end && claimed->address < *end) claimed->size = *end - claimed->address;
    if (claimed && claimed->end() == *end) return;
  }
  if (*end != last.end()) {
    report("ends at offset " + hexText(*end, 8) + ", the bytes before it at " + hexText(last.end(), 8));
  }
}

void DumpReader::finish() {
  if (asterisk_ != 0) findings_.add(asterisk_, "no offset says how often the line before it is repeated");
  findings_.close();
  const auto addFirst = [&](const char* text) { result_.findings.insert(result_.findings.begin(), {0, text}); };
  if (!traits_.form.hasColon && !isEnded_ && result_.records > 0)
    addFirst("has no offset at its end; it may have been cut");
  if (differing_ > agreeing_) addFirst("the text beside the bytes does not show them; they may be printed as words");
  if (traits_.form.printsWords()) {
    addFirst("is printed in words of 16 bits; their lower bytes are taken first, hexdump -C or xxd shows the order");
  }
  constexpr std::size_t longestLength = 255;
  result_.details.recordLength = static_cast<unsigned char>(std::clamp<std::size_t>(longest_, 1, longestLength));
}

}  // namespace Velk::detail
