#include "Utf8.h"

#include <QString>
#include <QUtf8StringView>

namespace VelkTool {

std::optional<Character> takeUtf8(std::string_view text) {
  struct Form {
    unsigned char mask, lead;
    char32_t least;
  };
  constexpr Form forms[] = {{0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (std::size_t length = 1; length <= std::size(forms); ++length) {
    const Form& form = forms[length - 1];
    if ((byteAt(0) & form.mask) != form.lead) continue;
    if (length > text.size()) return std::nullopt;
    auto code = static_cast<char32_t>(byteAt(0) & static_cast<unsigned char>(~form.mask));
    for (std::size_t i = 1; i < length; ++i) {
      if ((byteAt(i) & 0xC0U) != 0x80U) return std::nullopt;
      code = code << 6U | (byteAt(i) & 0x3FU);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < form.least || surrogate || code > 0x10FFFF) return std::nullopt;
    return Character{length, code};
  }
  return std::nullopt;
}

bool isUtf8(std::string_view text) {
  return QUtf8StringView(text.data(), static_cast<qsizetype>(text.size())).isValidUtf8();
}

std::string_view asUtf8(std::string_view text, std::string& converted) {
  if (isUtf8(text)) return text;
  return converted = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

}  // namespace VelkTool
