#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace VelkTool {

/// A character of UTF-8: how many bytes it takes and its code point.
struct Character {
  std::size_t length;
  char32_t code;
};

/// The character at the start of `text`, which is not empty; nothing where it is no UTF-8. Overlong forms, surrogates
/// and what lies beyond U+10FFFF are none.
std::optional<Character> takeUtf8(std::string_view text);

/// Whether a character is one of the controls of ASCII, DEL, or one of those behind it.
inline bool isControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

bool isUtf8(std::string_view text);

/// The text as UTF-8: itself where it is, else taken as Latin-1 and kept in `converted`.
std::string_view asUtf8(std::string_view text, std::string& converted);

}  // namespace VelkTool
