#include "Numbers.h"

#include <charconv>

namespace VelkTool {

CLI::Validator plainNumber() {
  // The parser itself would take 010 for eight.
  const auto rewrite = [](std::string& text) -> std::string {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    const char* const end = text.data() + text.size();
    std::uint64_t value = 0;
    const auto [read, error] = std::from_chars(text.data() + (hexadecimal ? 2 : 0), end, value, hexadecimal ? 16 : 10);
    if (error != std::errc{} || read != end) return text + " is no number, or too large";
    text = std::to_string(value);
    return {};
  };
  return {rewrite, ""};
}

}  // namespace VelkTool
