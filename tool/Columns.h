#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace VelkTool {

/// Pads a line to a column, by one blank at least: columns never run together.
inline void padTo(std::string& line, std::size_t width) { line.resize(std::max(width, line.size() + 1), ' '); }

/// Returns a paragraph broken into lines of at most `width` characters, unless a word is longer. Each line begins with
/// `indent` blanks and ends with a line break.
inline std::string wrapped(std::string_view text, std::size_t width, std::size_t indent = 0) {
  std::string lines;
  std::size_t column = 0;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    const bool breaks = column != 0 && column + 1 + word.size() > width;
    if (breaks) lines += '\n';
    if (breaks || column == 0) {
      lines.append(indent, ' ');
      column = indent;
    } else {
      lines += ' ';
      ++column;
    }
    lines += word;
    column += word.size();
  }
  return lines + '\n';
}

}  // namespace VelkTool
