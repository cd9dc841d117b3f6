#pragma once

#include <algorithm>
#include <streambuf>
#include <string>
#include <string_view>

namespace VelkTool {

/// Collects text up to a limit of bytes and lines. A stream that writes past the limit fails, which stops the printing.
class LimitedText : public std::streambuf {
 public:
  /// The maximum text of one block, in bytes.
  static constexpr std::size_t limit = 4 * 1024 * 1024;
  static constexpr std::size_t anyNumber = ~std::size_t{0};

  explicit LimitedText(std::size_t lines = anyNumber) : linesLeft_(lines) {}

  bool full() const { return full_; }
  /// Returns the collected text, cut after the last whole line if it was limited.
  std::string_view text() const {
    return full_ ? std::string_view(text_).substr(0, text_.rfind('\n') + 1) : std::string_view(text_);
  }

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    const auto wanted = static_cast<std::size_t>(count);
    const std::size_t taken = std::min(inLines({bytes, wanted}), limit - text_.size());
    text_.append(bytes, taken);
    full_ = full_ || taken < wanted;
    return static_cast<std::streamsize>(taken);
  }
  int_type overflow(int_type character) override {
    const char byte = traits_type::to_char_type(character);
    return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
  }

 private:
  /// Returns how many characters of `text` the remaining lines allow.
  std::size_t inLines(std::string_view text) {
    if (linesLeft_ == anyNumber) return text.size();
    std::size_t end = 0;
    while (end < text.size() && linesLeft_ > 0) linesLeft_ -= text[end++] == '\n' ? 1 : 0;
    return end;
  }

  std::size_t linesLeft_;
  std::string text_;
  bool full_ = false;
};

}  // namespace VelkTool
