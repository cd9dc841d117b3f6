#include "CsvText.h"

#include "Utf8.h"

namespace VelkTool {

void CsvText::appendText(std::string_view text) {
  std::string converted;
  text = asUtf8(text, converted);
  const char special[] = {form_.delimiter, '"', '\r', '\n'};
  if (text.find_first_of({special, sizeof special}) == text.npos) {
    text_ += text;
    return;
  }
  text_ += '"';
  for (const char c : text) {
    if (c == '"') text_ += '"';
    text_ += c;
  }
  text_ += '"';
}

}  // namespace VelkTool
