#include "velk/fields/Notation.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "velk/bytes/HexText.h"

namespace Velk {
namespace {

constexpr unsigned partNumberGroup = 10000;
constexpr unsigned pairGroup = 100;
constexpr unsigned hourGroup = 1000000;

/// The digit groups of a notation.
struct Groups {
  char joint;
  unsigned group;          ///< what one of the first group stands for
  std::size_t firstWidth;  ///< digits at least
  std::size_t lastWidth;   ///< digits
  const char* example;
};

constexpr Groups groupsOf(Notation notation) {
  switch (notation) {
    case Notation::PartNumber:
      return {'.', partNumberGroup, 1, 4, "1141.1000.02"};
    case Notation::DigitPairs:
      return {'.', pairGroup, 2, 2, "13.00"};
    case Notation::Hours:
      return {'/', hourGroup, 5, 6, "00000/012345"};
    case Notation::Address:
      return {':', 0, 0, 0, "00:90:B8:12:34:56"};
    case Notation::Plain:
      break;
  }
  return {'\0', 0, 0, 0, ""};
}

/// Returns the byte after a part number.
FieldElement variantOf(FieldElement number) {
  static constexpr FieldInfo variant{"variant", 0, ScalarType::U8, 1};
  return {&variant, number.offset + number.size};
}

std::string padded(std::int64_t value, std::size_t width) {
  std::string digits = std::to_string(value);
  digits.insert(0, width - std::min(width, digits.size()), '0');
  return digits;
}

/// Reads a group of digits, `least` or more of them.
std::optional<std::int64_t> takeDigits(std::string_view& text, std::size_t least) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const auto length = static_cast<std::size_t>(end - text.data());
  if (error != std::errc{} || text.front() == '-' || length < least) return std::nullopt;
  text.remove_prefix(length);
  return value;
}

bool take(std::string_view& text, char c) {
  const bool isThere = text.starts_with(c);
  if (isThere) text.remove_prefix(1);
  return isThere;
}

/// A value in groups of digits, and the variant if it is given.
struct Written {
  std::int64_t number;
  std::optional<std::int64_t> variant;
};

std::optional<Written> parseGroups(std::string_view text, Notation notation) {
  const Groups groups = groupsOf(notation);
  const auto first = takeDigits(text, 1);
  if (!first || !take(text, groups.joint)) return std::nullopt;
  const std::size_t before = text.size();
  const auto last = takeDigits(text, groups.lastWidth);
  if (!last || before - text.size() != groups.lastWidth || *first > std::int64_t{1} << 32U) return std::nullopt;
  Written written{*first * groups.group + *last, std::nullopt};
  if (notation == Notation::PartNumber && take(text, groups.joint)) {
    written.variant = takeDigits(text, 2);
    if (!written.variant) return std::nullopt;
  }
  return text.empty() ? std::optional(written) : std::nullopt;
}

bool hasGroups(Notation notation) { return groupsOf(notation).group != 0; }

bool isPlainNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789", text.front() == '-' ? 1 : 0) == text.npos;
}

}  // namespace

std::string writtenText(ConstBytes block, FieldElement element) {
  const Notation notation = element.field->notation;
  if (!hasGroups(notation)) return fieldText(block, element, ValueForm::Presented);
  const Groups groups = groupsOf(notation);
  const std::int64_t value = integerValue(block, element);
  std::string text = padded(value / groups.group, groups.firstWidth);
  text += groups.joint + padded(value % groups.group, groups.lastWidth);
  if (notation == Notation::PartNumber) text += groups.joint + padded(integerValue(block, variantOf(element)), 2);
  return text;
}

FieldResult setWrittenText(MutableBytes block, FieldElement element, std::string_view text, ValueForm form) {
  const Notation notation = element.field->notation;
  if (form == ValueForm::Stored || !hasGroups(notation) || isPlainNumber(text)) {
    return setFieldText(block, element, text, form);
  }
  const auto written = parseGroups(text, notation);
  if (!written) return FieldResult::NotAValue;
  if (!written->variant) return setFieldText(block, element, std::to_string(written->number), form);
  const FieldElement variant = variantOf(element);
  if (!variant.isInside(block.size())) return FieldResult::OutsideBlock;
  const std::string before = fieldText(block, variant);
  FieldResult result = setFieldText(block, variant, std::to_string(*written->variant));
  if (result == FieldResult::Done) {
    result = setFieldText(block, element, std::to_string(written->number), form);
    if (result != FieldResult::Done) setFieldText(block, variant, before);
  }
  return result;
}

const char* exampleOf(Notation notation) { return groupsOf(notation).example; }

std::string addressText(ConstBytes bytes) {
  std::string text;
  for (const unsigned char byte : bytes) {
    if (!text.empty()) text += ':';
    text += {detail::hexDigits[byte >> 4U], detail::hexDigits[byte & 0xFU]};
  }
  return text;
}

std::optional<std::vector<unsigned char>> parseAddress(std::string_view text) {
  std::vector<unsigned char> bytes;
  while (!text.empty()) {
    if (!bytes.empty() && !take(text, ':') && !take(text, '-')) return std::nullopt;
    unsigned char byte = 0;
    const char* const end = text.data() + std::min<std::size_t>(text.size(), 2);
    const auto [digits, error] = std::from_chars(text.data(), end, byte, 16);
    if (error != std::errc{} || digits != text.data() + 2) return std::nullopt;
    text.remove_prefix(2);
    bytes.push_back(byte);
  }
  return bytes;
}

}  // namespace Velk
