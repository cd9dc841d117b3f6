#include "Numbers.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace VelkTool {
namespace {

constexpr std::string_view decimalDigits = "0123456789";
constexpr std::string_view hexDigits = "0123456789abcdefABCDEF";

bool consistsOf(std::string_view text, std::string_view digits) {
  return !text.empty() && text.find_first_not_of(digits) == text.npos;
}

/// Parses digits; nothing if the number is too large.
std::optional<std::uint64_t> numberOf(std::string_view digits, int base) {
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  return error == std::errc{} ? std::optional(value) : std::nullopt;
}

/// Returns "64 KB is 65536" for a size with a unit of kilobytes or more; else nothing.
std::string inBytes(std::string_view text) {
  const std::string_view digits = text.substr(0, text.find_first_not_of(decimalDigits));
  std::string unit;
  for (const char c : text.substr(digits.size())) {
    if (c != ' ') unit += CLI::detail::to_lower(std::string(1, c));
  }
  constexpr std::string_view prefixes = "kmg";
  const std::size_t prefix = unit.empty() ? prefixes.npos : prefixes.find(unit.front());
  const bool isUnit = prefix != prefixes.npos && (unit.size() == 1 || unit.substr(1) == "b" || unit.substr(1) == "ib");
  const std::optional<std::uint64_t> count = isUnit ? numberOf(digits, 10) : std::nullopt;
  const std::size_t shift = 10 * (prefix + 1);
  if (!count || *count > std::numeric_limits<std::uint64_t>::max() >> shift) return {};
  return std::string(digits) + ' ' + "KMG"[prefix] + "B is " + std::to_string(*count << shift);
}

/// Returns why a text is not a number, and what may be meant.
std::string notANumber(const std::string& text) {
  std::string meant = inBytes(text);
  if (meant.empty()) meant = consistsOf(text, hexDigits) ? "0x" + text + " is one" : "64 and 0x40 are";
  return (text.empty() ? "\"\"" : text) + " is not a number; " + meant;
}

}  // namespace

CLI::Validator plainNumber(std::uint64_t least, std::uint64_t most) {
  // The parser itself reads 010 as octal.
  const auto rewrite = [least, most](std::string& text) -> std::string {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const bool negative = text.starts_with('-');
    const std::string_view digits = std::string_view(text).substr(hexadecimal ? 2 : negative ? 1 : 0);
    if (!consistsOf(digits, hexadecimal ? hexDigits : decimalDigits)) return notANumber(text);
    const std::optional<std::uint64_t> value = negative ? std::nullopt : numberOf(digits, hexadecimal ? 16 : 10);
    if (!value || *value < least || *value > most) {
      const bool isTooSmall = negative || (value && *value < least);
      const bool isOpen = isTooSmall && most == std::numeric_limits<std::uint64_t>::max();
      const std::string end = isOpen ? " or more" : " to " + std::to_string(most);
      return text + " is out of range: " + std::to_string(least) + end;
    }
    text = std::to_string(*value);
    return {};
  };
  return {rewrite, ""};
}

}  // namespace VelkTool
