#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace VelkTool {

/// A character of UTF-8: its length in bytes and its code point.
struct Character {
  std::size_t length;
  char32_t code;
};

/// Decodes the first character of `text`, which must not be empty; nothing for invalid UTF-8, which includes overlong
/// forms, surrogates and code points above U+10FFFF.
std::optional<Character> takeUtf8(std::string_view text);

/// Returns whether a character is a C0 or C1 control or DEL.
inline bool isControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

/// Returns whether the text is valid UTF-8.
bool isUtf8(std::string_view text);

/// Returns the text itself if it is valid UTF-8, else its conversion from Latin-1, which is kept in `converted`.
std::string_view asUtf8(std::string_view text, std::string& converted);

}  // namespace VelkTool
