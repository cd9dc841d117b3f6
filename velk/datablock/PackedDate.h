#pragma once

#include <charconv>
#include <string_view>

namespace Velk {

/// A date as records store it in 16 bits: day in bits 0 to 4, month in bits 5 to 8, year minus 1980 in bits 9 to 15.
/// Damaged records hold days and months that no calendar has; they stay as they are.
struct PackedDate {
  static constexpr unsigned firstYear = 1980;
  static constexpr unsigned lastYear = firstYear + 127;

  unsigned year = firstYear;
  unsigned month = 0;
  unsigned day = 0;

  static constexpr PackedDate of(unsigned short packed) noexcept {
    return {firstYear + (packed >> 9U), packed >> 5U & 0xFU, packed & 0x1FU};
  }
  /// Each part is reduced to the bits that it has.
  constexpr unsigned short packed() const noexcept {
    return static_cast<unsigned short>((year - firstYear) << 9U | (month & 0xFU) << 5U | (day & 0x1FU));
  }
};

/// A date as text: 2017-03-15. Its parts are those of a stored date.
class DateText {
 public:
  explicit DateText(PackedDate date) {
    char* at = std::to_chars(digits_, digits_ + 4, date.year).ptr;
    for (const unsigned part : {date.month, date.day}) {
      *at++ = '-';
      *at++ = static_cast<char>('0' + part / 10);
      *at++ = static_cast<char>('0' + part % 10);
    }
  }
  std::string_view view() const { return {digits_, sizeof digits_}; }

 private:
  char digits_[10]{};
};

}  // namespace Velk
