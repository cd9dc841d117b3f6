#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace VelkTool {

/// How tables of separated values are written.
struct CsvForm {
  char delimiter = ',';
  char decimal = '.';
};

/// Collects separated values. Texts are quoted where they need it; invalid UTF-8 is read as Latin-1.
class CsvText {
 public:
  explicit CsvText(const CsvForm& form, std::size_t room = 0) : form_(form) { text_.reserve(room); }

  /// Appends a number in its shortest decimal form, or a text; nothing for nullptr.
  template <class T>
  CsvText& value(T value) {
    if constexpr (std::is_arithmetic_v<T>) {
      char digits[64];
      char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
      if (std::is_floating_point_v<T> && form_.decimal != '.') std::replace(digits, end, '.', form_.decimal);
      text_.append(digits, static_cast<std::size_t>(end - digits));
    } else if constexpr (!std::is_null_pointer_v<T>) {
      appendText(value);
    }
    return *this;
  }
  CsvText& separate(std::size_t delimiters = 1) {
    for (; delimiters > 0; --delimiters) text_ += form_.delimiter;
    return *this;
  }
  /// Appends values that are separated already.
  CsvText& append(std::string_view values) {
    text_ += values;
    return *this;
  }
  CsvText& endLine() {
    text_ += '\n';
    return *this;
  }

  const std::string& str() const { return text_; }
  void clear() { text_.clear(); }

 private:
  void appendText(std::string_view text);

  CsvForm form_;
  std::string text_;
};

}  // namespace VelkTool
