#pragma once

#include <algorithm>
#include <streambuf>
#include <string>
#include <string_view>

namespace VelkTool {

/// Collects a text up to a limit; the stream that fills it fails beyond that, which stops the printing.
class LimitedText : public std::streambuf {
 public:
  /// What is printed of one block at the most.
  static constexpr std::size_t limit = 4 * 1024 * 1024;

  bool full() const { return full_; }
  /// What fitted, up to the last whole line where something did not.
  std::string_view text() const {
    return full_ ? std::string_view(text_).substr(0, text_.rfind('\n') + 1) : std::string_view(text_);
  }

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    const auto wanted = static_cast<std::size_t>(count);
    const std::size_t taken = std::min(wanted, limit - text_.size());
    text_.append(bytes, taken);
    full_ = full_ || taken < wanted;
    return static_cast<std::streamsize>(taken);
  }
  int_type overflow(int_type character) override {
    const char byte = traits_type::to_char_type(character);
    return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
  }

 private:
  std::string text_;
  bool full_ = false;
};

}  // namespace VelkTool
