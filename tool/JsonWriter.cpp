#include "JsonWriter.h"

#include <algorithm>

#include "Utf8.h"
#include "velk/bytes/HexText.h"

namespace VelkTool {
namespace {

void appendEscaped(std::string& to, Character character, std::string_view bytes) {
  constexpr std::string_view digits = Velk::detail::lowerHexDigits;
  if (character.code == '"' || character.code == '\\') {
    to += '\\';
    to += bytes;
  } else if (character.code == '\n') {
    to += "\\n";
  } else if (character.code == '\t') {
    to += "\\t";
  } else if (isControl(character.code)) {  // C1 controls as well: the document may be shown on a terminal
    to += "\\u00";
    to += digits[character.code >> 4U];
    to += digits[character.code & 0xFU];
  } else {
    to += bytes;
  }
}

void appendEscapedText(std::string& to, std::string_view text) {
  std::string converted;
  text = asUtf8(text, converted);
  while (!text.empty()) {
    const Character character = *takeUtf8(text);
    appendEscaped(to, character, text.substr(0, character.length));
    text.remove_prefix(character.length);
  }
}

/// Returns whether a character needs no escape.
bool isPlain(char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; }

}  // namespace

std::string jsonText(std::string_view text) {
  std::string escaped = "\"";
  appendEscapedText(escaped, text);
  return escaped += '"';
}

JsonWriter::JsonWriter(Sink sink, Layout layout) : sink_(std::move(sink)), layout_(layout) {}

JsonWriter& JsonWriter::key(std::string_view name) {
  separate();
  putString(name);
  put(": ");
  needsComma_ = false;
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::value(std::string_view text) {
  separate();
  putString(text);
  return *this;
}

JsonWriter& JsonWriter::raw(std::string_view text) {
  separate();
  put(text);
  return *this;
}

void JsonWriter::finish() {
  put('\n');
  flush();
  needsComma_ = false;
}

void JsonWriter::breakLine() {
  put('\n');
  for (std::size_t i = 0; i < depth_; ++i) put("  ");
}

void JsonWriter::putString(std::string_view text) {
  if (!std::ranges::all_of(text, isPlain)) return put(jsonText(text));
  put('"');
  put(text);
  put('"');
}

void JsonWriter::putLong(std::string_view text) {
  while (!text.empty()) {
    if (used_ == piece_.size()) flush();
    const std::string_view fitting = text.substr(0, piece_.size() - used_);
    putUnchecked(fitting);
    text.remove_prefix(fitting.size());
  }
}

void JsonWriter::flush() {
  sink_({piece_.data(), used_});
  used_ = 0;
}

}  // namespace VelkTool
