#include "velk/fields/Fields.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <system_error>
#include <utility>

#include "velk/fields/Calendar.h"
#include "velk/fields/FieldValue.h"
#include "velk/text/NumberText.h"

namespace Velk {
namespace {

using detail::numberText;

constexpr std::size_t extendedSize = 10;

/// Returns whether a number that is out of range for some type is too small for it, rather than too large.
bool isTiny(std::string_view text) {
  long double value = 0;
  return std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc{} && std::abs(value) < 1;
}

/// Reads the whole text as one number.
template <class T>
FieldResult parseNumber(std::string_view text, T& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size() || error == std::errc::invalid_argument) return FieldResult::NotAValue;
  if (error == std::errc{}) return FieldResult::Done;
  if (!std::is_floating_point_v<T> || !isTiny(text)) return FieldResult::OutOfRange;
  value = 0;
  return FieldResult::Done;
}

FieldResult parseDate(std::string_view text, std::int64_t& packed) {
  const std::size_t first = text.find('-');
  const std::size_t second = first == text.npos ? text.npos : text.find('-', first + 1);
  PackedDate date;
  if (second == text.npos || parseNumber(text.substr(0, first), date.year) != FieldResult::Done ||
      parseNumber(text.substr(first + 1, second - first - 1), date.month) != FieldResult::Done ||
      parseNumber(text.substr(second + 1), date.day) != FieldResult::Done) {
    return FieldResult::NotAValue;
  }
  if (date.year < PackedDate::firstYear || date.year > PackedDate::lastYear) return FieldResult::OutOfRange;
  if (date.month > 12 || date.day > 31) return FieldResult::NotAValue;
  packed = date.packed();
  return isOfCalendar(date) || packed == 0 ? FieldResult::Done : FieldResult::NotAValue;
}

FieldResult setText(MutableBytes block, FieldElement element, std::string_view text) {
  if (text.find('\0') != text.npos) return FieldResult::NotAValue;
  if (text.size() > element.size) return FieldResult::OutOfRange;
  for (std::size_t i = 0; i < element.size; ++i) {
    detail::store(block, element.offset + i, i < text.size() ? text[i] : '\0');
  }
  return FieldResult::Done;
}

struct Range {
  std::int64_t least;
  std::int64_t most;
};

Range rangeOf(Bits bits) {
  const std::int64_t span = std::int64_t{1} << bits.width;
  const std::int64_t least = bits.isSigned ? -span / 2 : 0;
  return {least, least + span - 1};
}

/// Stores an integer if the field's type, or the bits of it that the field has, can hold the value.
template <class T>
FieldResult storeInteger(MutableBytes block, FieldElement element, std::int64_t value) {
  const Bits bits = element.field->bits;
  if (bits.width == 0) {
    if (!std::in_range<T>(value)) return FieldResult::OutOfRange;
    detail::store(block, element.offset, static_cast<T>(value));
    return FieldResult::Done;
  }
  const Range range = rangeOf(bits);
  if (value < range.least || value > range.most) return FieldResult::OutOfRange;
  detail::store(block, element.offset, detail::withPart(detail::load<T>(block, element.offset), bits, value));
  return FieldResult::Done;
}

/// In stored form, dates may be numbers as well, since records hold dates that no calendar has.
template <class T>
FieldResult setInteger(MutableBytes block, FieldElement element, std::string_view text, ValueForm form) {
  if (std::is_same_v<T, std::uint64_t> && !text.starts_with('-')) {
    std::uint64_t value = 0;
    const FieldResult parsed = parseNumber(text, value);
    if (parsed == FieldResult::Done) detail::store(block, element.offset, value);
    return parsed;
  }
  std::int64_t value = 0;
  const bool isDate = element.field->kind == FieldKind::Date;
  FieldResult parsed = isDate ? parseDate(text, value) : parseNumber(text, value);
  if (isDate && parsed == FieldResult::NotAValue && form == ValueForm::Stored) parsed = parseNumber(text, value);
  return parsed == FieldResult::Done ? storeInteger<T>(block, element, value) : parsed;
}

/// Stores a number if the floating field can hold it; infinities and NaN are accepted.
template <class T>
FieldResult storeFloating(MutableBytes block, FieldElement element, double value) {
  const bool finite = std::abs(value) <= std::numeric_limits<double>::max();
  if (finite && std::abs(value) > static_cast<double>(std::numeric_limits<T>::max())) return FieldResult::OutOfRange;
  detail::store(block, element.offset, static_cast<T>(value));
  return FieldResult::Done;
}

template <class T>
FieldResult setFloating(MutableBytes block, FieldElement element, std::string_view text) {
  T value{};
  const FieldResult parsed = parseNumber(text, value);
  if (parsed == FieldResult::Done) detail::store(block, element.offset, value);
  return parsed;
}

FieldResult setExtended(MutableBytes block, FieldElement element, std::string_view text) {
  long double value = 0;
  const FieldResult parsed = parseNumber(text, value);
  if (parsed == FieldResult::Done) std::memcpy(block.data() + element.offset, &value, extendedSize);
  return parsed;
}

/// Stores the number whose presented value is nearest to the one in the text.
FieldResult setPresented(MutableBytes block, FieldElement element, std::string_view text) {
  const FieldInfo& field = *element.field;
  double value = 0;
  if (const FieldResult parsed = parseNumber(text, value); parsed != FieldResult::Done) return parsed;
  const double distance = value - field.bias;
  const double stored = field.divisor != 0 ? distance * field.divisor : distance / field.scale;
  FieldResult result = FieldResult::OutOfRange;
  detail::withScalarType(field.type, [&]<class T>(T) {
    if constexpr (std::is_floating_point_v<T>) {
      result = storeFloating<T>(block, element, stored);
    } else if (std::isnan(stored)) {
      result = FieldResult::NotAValue;
    } else if (std::abs(stored) < static_cast<double>(std::numeric_limits<std::int64_t>::max())) {
      result = storeInteger<T>(block, element, std::llround(stored));
    }
  });
  return result;
}

FieldResult setNumber(MutableBytes block, FieldElement element, std::string_view text, ValueForm form) {
  if (element.field->type == ScalarType::F80) return setExtended(block, element, text);
  FieldResult result = FieldResult::NotAValue;
  detail::withScalarType(element.field->type, [&]<class T>(T) {
    if constexpr (std::is_floating_point_v<T>) {
      result = setFloating<T>(block, element, text);
    } else {
      result = setInteger<T>(block, element, text, form);
    }
  });
  return result;
}

/// The bytes of a value, with zeros for those that the block lacks.
struct ExtendedElement {
  ExtendedElement(ConstBytes block, FieldElement there)
      : bytes(detail::firstBytes<16>(block.subspan(std::min(there.offset, block.size())))),
        element{there.field, 0, there.size} {}

  std::array<unsigned char, 16> bytes;
  FieldElement element;
};

}  // namespace

bool isOfCalendar(PackedDate date) {
  using namespace std::chrono;
  return year_month_day(year(static_cast<int>(date.year)), month(date.month), day(date.day)).ok();
}

long double detail::loadExtended(ConstBytes bytes, std::size_t offset) {
  static_assert(std::numeric_limits<long double>::digits == 64, "the stored form has to be the host's");
  constexpr std::size_t exponentAt = 8;
  if (!fits(bytes.size(), offset, extendedSize)) return 0;
  const bool leadingOne = load<std::uint64_t>(bytes, offset) >> 63U != 0;
  const bool wantsOne = (load<unsigned short>(bytes, offset + exponentAt) & 0x7FFFU) != 0;
  if (wantsOne && !leadingOne) return std::numeric_limits<long double>::quiet_NaN();
  long double value = 0;
  std::memcpy(&value, bytes.data() + offset, extendedSize);
  return value;
}

std::int64_t integerValue(ConstBytes block, FieldElement element) {
  std::int64_t value = 0;
  detail::withScalarType(element.field->type, [&]<class T>(T) {
    if constexpr (std::is_integral_v<T>) {
      const T word = detail::loadPadded<T>(block, element.offset);
      const Bits bits = element.field->bits;
      value = bits.width == 0 ? static_cast<std::int64_t>(word) : detail::partOf(word, bits);
    }
  });
  return value;
}

std::size_t elementsInUse(ConstBytes block, std::span<const FieldInfo> fields, std::size_t offset,
                          std::string_view counter, std::size_t capacity) {
  if (counter.empty()) return capacity;
  const auto field = std::ranges::find(fields, counter, &FieldInfo::name);
  if (field == fields.end()) return capacity;
  const std::int64_t count = integerValue(block, {&*field, offset + field->offset});
  return count < 0 ? capacity : std::min(capacity, static_cast<std::size_t>(count));
}

std::string fieldText(ConstBytes block, FieldElement element, ValueForm form) {
  if (element.field->kind == FieldKind::Text) {
    return std::string(detail::textAt(block, element.offset, element.size));
  }
  std::string text;
  const ExtendedElement whole(block, element);
  detail::withValue(whole.bytes, whole.element, form, [&]<class T>(T value) {
    if constexpr (std::is_arithmetic_v<T>) {
      text = numberText(value);
    } else if constexpr (std::is_same_v<T, std::string_view>) {
      text = value;
    }
  });
  return text;
}

std::string fieldLimits(const FieldInfo& field, ValueForm form) {
  if (field.kind == FieldKind::Date) {
    const std::string calendar = "1980-01-01 to 2107-12-31";
    return form == ValueForm::Presented ? calendar : calendar + ", or 0 to 65535";
  }
  const bool scaled = form == ValueForm::Presented && detail::isScaled(field);
  const auto limits = [&](auto least, auto most) {
    const auto text = [&](auto number) {
      return scaled ? numberText(presentedValue(field, static_cast<double>(number))) : numberText(number);
    };
    return text(least) + " to " + text(most);
  };
  using Extended = std::numeric_limits<long double>;
  if (field.type == ScalarType::F80) return limits(Extended::lowest(), Extended::max());
  std::string text;
  detail::withScalarType(field.type, [&]<class T>(T) {
    const Range part = rangeOf(field.bits);
    text = field.bits.width != 0 ? limits(part.least, part.most)
                                 : limits(std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max());
  });
  return text;
}

FieldResult setFieldText(MutableBytes block, FieldElement element, std::string_view text, ValueForm form) {
  const FieldInfo& field = *element.field;
  if (field.isFixed) return FieldResult::Fixed;
  if (!element.isInside(block.size())) return FieldResult::OutsideBlock;
  if (field.kind == FieldKind::Text) return setText(block, element, text);
  const bool scaled = form == ValueForm::Presented && detail::isScaled(field);
  return scaled ? setPresented(block, element, text) : setNumber(block, element, text, form);
}

}  // namespace Velk
