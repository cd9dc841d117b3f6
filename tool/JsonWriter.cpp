#include "JsonWriter.h"

#include <optional>

namespace VelkTool {
namespace {

/// A character of UTF-8: how many bytes it takes and its code point.
struct Character {
  std::size_t length;
  char32_t code;
};

/// The character at the start of `text`, which is not empty; nothing where it is no UTF-8. Overlong forms, surrogates
/// and what lies beyond U+10FFFF are none.
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
  while (!text.empty()) {
    const std::optional<Character> character = takeUtf8(text);
    if (!character) return false;
    text.remove_prefix(character->length);
  }
  return true;
}

std::string fromLatin1(std::string_view text) {
  std::string utf8;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0U | byte >> 6U);
      utf8 += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return utf8;
}

/// DEL and the control characters behind ASCII are escaped as well: the document may be shown on a terminal.
bool isControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

void appendEscaped(std::string& to, Character character, std::string_view bytes) {
  constexpr std::string_view digits = "0123456789abcdef";
  if (character.code == '"' || character.code == '\\') {
    to += '\\';
    to += bytes;
  } else if (character.code == '\n') {
    to += "\\n";
  } else if (character.code == '\t') {
    to += "\\t";
  } else if (isControl(character.code)) {
    to += "\\u00";
    to += digits[character.code >> 4U];
    to += digits[character.code & 0xFU];
  } else {
    to += bytes;
  }
}

constexpr std::size_t pieceSize = 4096;

}  // namespace

JsonWriter::JsonWriter(Sink sink, Layout layout) : sink_(std::move(sink)), layout_(layout) {}

JsonWriter& JsonWriter::begin(char bracket) {
  separate();
  pending_ += bracket;
  ++depth_;
  first_ = true;
  return *this;
}

JsonWriter& JsonWriter::end(char bracket) {
  --depth_;
  if (!first_) breakLine();
  pending_ += bracket;
  first_ = false;
  return *this;
}

JsonWriter& JsonWriter::key(std::string_view name) {
  separate();
  appendString(name);
  pending_ += ": ";
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
  separate();
  appendString(text);
  return *this;
}

JsonWriter& JsonWriter::raw(std::string_view text) {
  separate();
  pending_ += text;
  return *this;
}

void JsonWriter::finish() {
  pending_ += '\n';
  flush();
  first_ = true;
}

/// What has to stand before a key or a value.
void JsonWriter::separate() {
  if (pending_.size() >= pieceSize) flush();
  if (!afterKey_ && depth_ > 0) {
    if (!first_) pending_ += layout_ == Layout::Indented ? "," : ", ";
    breakLine();
  }
  first_ = false;
  afterKey_ = false;
}

void JsonWriter::breakLine() {
  if (layout_ == Layout::OneLine) return;
  pending_ += '\n';
  pending_.append(2 * depth_, ' ');
}

void JsonWriter::appendString(std::string_view text) {
  std::string converted;
  if (!isUtf8(text)) text = converted = fromLatin1(text);
  pending_ += '"';
  while (!text.empty()) {
    const Character character = *takeUtf8(text);
    appendEscaped(pending_, character, text.substr(0, character.length));
    text.remove_prefix(character.length);
  }
  pending_ += '"';
}

void JsonWriter::flush() {
  sink_(pending_);
  pending_.clear();
}

}  // namespace VelkTool
