#include "velk/datablock/Fields.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "velk/datablock/NumberText.h"
#include "velk/datablock/PackedDate.h"
#include "velk/datablock/ScalarDispatch.h"

namespace Velk {
namespace {

using detail::ConstBytes;
using detail::MutableBytes;

bool isFloating(ScalarType type) { return type == ScalarType::F32 || type == ScalarType::F64; }

/// Calls `act` with a value of the stored type of an integer field and returns its result.
template <class Result, class Act>
Result withIntegerType(ScalarType type, Act act) {
  Result result{};
  detail::withScalarType(type, [&]<class T>(T zero) {
    if constexpr (std::is_integral_v<T>) result = act(zero);
  });
  return result;
}

struct Range {
  std::int64_t least;
  std::int64_t most;
};

Range rangeOf(const FieldInfo& field) {
  if (field.bits.width != 0) {
    const std::int64_t span = std::int64_t{1} << field.bits.width;
    return field.bits.isSigned ? Range{-span / 2, span / 2 - 1} : Range{0, span - 1};
  }
  return withIntegerType<Range>(field.type, []<class T>(T) {
    return Range{std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
  });
}

std::int64_t loadInteger(ConstBytes block, FieldElement element) {
  const std::int64_t word = withIntegerType<std::int64_t>(
      element.field->type, [&]<class T>(T) -> std::int64_t { return detail::load<T>(block, element.offset); });
  const Bits bits = element.field->bits;
  if (bits.width == 0) return word;
  const std::int64_t span = std::int64_t{1} << bits.width;
  const std::int64_t part = (word >> bits.shift) & (span - 1);
  return bits.isSigned && part >= span / 2 ? part - span : part;
}

bool storeInteger(MutableBytes block, FieldElement element, std::int64_t value) {
  const Bits bits = element.field->bits;
  return withIntegerType<bool>(element.field->type, [&]<class T>(T) {
    if (bits.width == 0) return detail::store(block, element.offset, static_cast<T>(value));
    const std::int64_t mask = ((std::int64_t{1} << bits.width) - 1) << bits.shift;
    const std::int64_t others = detail::load<T>(block, element.offset) & ~mask;
    return detail::store(block, element.offset, static_cast<T>(others | ((value << bits.shift) & mask)));
  });
}

std::string loadText(ConstBytes block, FieldElement element) {
  std::string text;
  for (std::size_t i = 0; i < element.field->stride; ++i) {
    const char c = detail::load<char>(block, element.offset + i);
    if (c == '\0') break;
    text += c;
  }
  return text;
}

std::string floatingText(double value, ScalarType type) {
  char digits[32];
  const auto end = type == ScalarType::F32 ? std::to_chars(digits, digits + sizeof digits, static_cast<float>(value))
                                           : std::to_chars(digits, digits + sizeof digits, value);
  return {digits, end.ptr};
}

std::string dateText(std::int64_t packed) {
  const PackedDate date = PackedDate::of(static_cast<unsigned short>(packed));
  return std::to_string(date.year) + '-' + turnInt2String(date.month, 2) + '-' + turnInt2String(date.day, 2);
}

/// Reads a whole text as one number; nothing may be left over.
template <class T>
std::errc parseNumber(std::string_view text, T& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{}) return error;
  return end == text.data() + text.size() ? std::errc{} : std::errc::invalid_argument;
}

FieldResult resultOf(std::errc error) {
  if (error == std::errc{}) return FieldResult::Done;
  return error == std::errc::result_out_of_range ? FieldResult::OutOfRange : FieldResult::NotAValue;
}

FieldResult parseDate(std::string_view text, std::int64_t& packed) {
  const std::size_t first = text.find('-');
  const std::size_t second = first == text.npos ? text.npos : text.find('-', first + 1);
  PackedDate date;
  if (second == text.npos || parseNumber(text.substr(0, first), date.year) != std::errc{} ||
      parseNumber(text.substr(first + 1, second - first - 1), date.month) != std::errc{} ||
      parseNumber(text.substr(second + 1), date.day) != std::errc{}) {
    return FieldResult::NotAValue;
  }
  const bool inRange = date.year >= PackedDate::firstYear && date.year <= PackedDate::lastYear && date.month >= 1 &&
                       date.month <= 12 && date.day >= 1 && date.day <= 31;
  packed = date.packed();
  return inRange ? FieldResult::Done : FieldResult::OutOfRange;
}

FieldResult setText(MutableBytes block, FieldElement element, std::string_view text) {
  if (text.find('\0') != text.npos) return FieldResult::NotAValue;
  if (text.size() > element.field->stride) return FieldResult::OutOfRange;
  for (std::size_t i = 0; i < element.field->stride; ++i) {
    detail::store(block, element.offset + i, i < text.size() ? text[i] : '\0');
  }
  return FieldResult::Done;
}

FieldResult setFloating(MutableBytes block, FieldElement element, std::string_view text) {
  double value = 0;
  if (const auto error = parseNumber(text, value); error != std::errc{}) return resultOf(error);
  if (element.field->type == ScalarType::F64) {
    detail::store(block, element.offset, value);
    return FieldResult::Done;
  }
  if (std::abs(value) > std::numeric_limits<float>::max() && std::abs(value) <= std::numeric_limits<double>::max()) {
    return FieldResult::OutOfRange;
  }
  detail::store(block, element.offset, static_cast<float>(value));
  return FieldResult::Done;
}

FieldResult setInteger(MutableBytes block, FieldElement element, std::string_view text) {
  std::int64_t value = 0;
  const FieldResult parsed =
      element.field->kind == FieldKind::Date ? parseDate(text, value) : resultOf(parseNumber(text, value));
  if (parsed != FieldResult::Done) return parsed;
  const Range range = rangeOf(*element.field);
  if (value < range.least || value > range.most) return FieldResult::OutOfRange;
  storeInteger(block, element, value);
  return FieldResult::Done;
}

std::size_t elementCount(const FieldInfo& field, std::size_t blockSize) {
  if (field.openEnded) return blockSize <= field.offset ? 0 : (blockSize - field.offset) / field.stride;
  return std::size_t{field.rows} * field.cols;
}

std::string indexText(const FieldInfo& field, std::size_t index) {
  std::string text;
  if (field.rank > 0) text += '[' + std::to_string(index / field.cols) + ']';
  if (field.rank > 1) text += '[' + std::to_string(index % field.cols) + ']';
  return text;
}

void visitFrom(std::span<const FieldInfo> fields, std::size_t blockSize, std::size_t base, const std::string& prefix,
               const std::function<void(const std::string&, FieldElement)>& visit) {
  for (const FieldInfo& field : fields) {
    for (std::size_t i = 0; i < elementCount(field, blockSize); ++i) {
      const std::size_t offset = base + field.offset + i * field.stride;
      const std::string path = prefix + field.name + indexText(field, i);
      if (field.type == ScalarType::Record) {
        visitFrom(field.members, blockSize, offset, path + '.', visit);
      } else {
        visit(path, {&field, offset});
      }
    }
  }
}

/// No block has room for more elements.
constexpr std::size_t longestList = std::numeric_limits<unsigned short>::max();

/// Takes "[n]" off the front of `path`; nothing where there is none or n is not below `limit`.
std::optional<std::size_t> takeIndex(std::string_view& path, std::size_t limit) {
  const std::size_t close = path.find(']');
  std::size_t index = 0;
  if (path.empty() || path.front() != '[' || close == path.npos ||
      parseNumber(path.substr(1, close - 1), index) != std::errc{} || index >= limit) {
    return std::nullopt;
  }
  path.remove_prefix(close + 1);
  return index;
}

std::optional<FieldElement> findFrom(std::span<const FieldInfo> fields, std::size_t base, std::string_view path) {
  const std::string_view name = path.substr(0, path.find_first_of("[."));
  path.remove_prefix(name.size());
  for (const FieldInfo& field : fields) {
    if (name != field.name) continue;
    std::size_t index = 0;
    for (int dimension = 0; dimension < field.rank; ++dimension) {
      const auto next = takeIndex(path, dimension > 0 ? field.cols : field.openEnded ? longestList : field.rows);
      if (!next) return std::nullopt;
      index = dimension == 0 ? *next * field.cols : index + *next;
    }
    const std::size_t offset = base + field.offset + index * field.stride;
    if (field.type == ScalarType::Record) {
      return path.starts_with('.') ? findFrom(field.members, offset, path.substr(1)) : std::nullopt;
    }
    return path.empty() ? std::optional(FieldElement{&field, offset}) : std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

void visitFields(std::span<const FieldInfo> fields, std::size_t blockSize,
                 const std::function<void(const std::string& path, FieldElement)>& visit) {
  visitFrom(fields, blockSize, 0, "", visit);
}

std::optional<FieldElement> findField(std::span<const FieldInfo> fields, std::string_view path) {
  return findFrom(fields, 0, path);
}

FieldValue readField(ConstBytes block, FieldElement element) {
  const FieldInfo& field = *element.field;
  if (field.kind == FieldKind::Text) return loadText(block, element);
  if (field.type == ScalarType::F32) return double{detail::load<float>(block, element.offset)};
  if (field.type == ScalarType::F64) return detail::load<double>(block, element.offset);
  return loadInteger(block, element);
}

std::string fieldText(ConstBytes block, FieldElement element) {
  const FieldInfo& field = *element.field;
  const FieldValue value = readField(block, element);
  if (const auto* const text = std::get_if<std::string>(&value)) return *text;
  if (const auto* const number = std::get_if<double>(&value)) return floatingText(*number, field.type);
  const auto number = std::get<std::int64_t>(value);
  return field.kind == FieldKind::Date ? dateText(number) : std::to_string(number);
}

FieldResult setFieldText(MutableBytes block, FieldElement element, std::string_view text) {
  const FieldInfo& field = *element.field;
  if (!detail::fits(block.size(), element.offset, field.stride)) return FieldResult::OutsideBlock;
  if (field.kind == FieldKind::Text) return setText(block, element, text);
  return isFloating(field.type) ? setFloating(block, element, text) : setInteger(block, element, text);
}

}  // namespace Velk
