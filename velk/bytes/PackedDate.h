#pragma once

#include <charconv>
#include <string_view>

#include "velk/bytes/Bits.h"

namespace Velk {

/// A date as records store it in 16 bits. Damaged records hold days and months that no calendar has; they stay as they
/// are.
struct PackedDate {
  static constexpr unsigned firstYear = 1980;
  static constexpr unsigned lastYear = firstYear + 127;
  static constexpr Bits dayBits{.shift = 0, .width = 5};
  static constexpr Bits monthBits{.shift = 5, .width = 4};
  static constexpr Bits yearBits{.shift = 9, .width = 7};  ///< of the years since firstYear

  unsigned year = firstYear;
  unsigned month = 0;
  unsigned day = 0;

  static constexpr PackedDate of(unsigned short packed) noexcept {
    const auto part = [packed](Bits bits) { return static_cast<unsigned>(detail::partOf(packed, bits)); };
    return {firstYear + part(yearBits), part(monthBits), part(dayBits)};
  }
  /// Each part is reduced to the bits that it has.
  constexpr unsigned short packed() const noexcept {
    const auto withYear = detail::withPart<unsigned short>(0, yearBits, year - firstYear);
    return detail::withPart(detail::withPart(withYear, monthBits, month), dayBits, day);
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
