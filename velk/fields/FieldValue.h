#pragma once

#include <cmath>

#include "velk/bytes/PackedDate.h"
#include "velk/fields/ScalarDispatch.h"

namespace Velk::detail {

/// Returns the number whose ten x87 bytes are at `offset`; NaN for bytes that are not a valid x87 number.
VELK_EXPORT long double loadExtended(ConstBytes bytes, std::size_t offset);

constexpr bool isScaled(const FieldInfo& field) { return field.scale != 1 || field.bias != 0; }

/// Calls `act` with a presented number: a whole one as an integer, so that it is written as 100000000 and not as 1e+08.
template <class Act>
void withPresented(double value, Act& act) {
  constexpr double exact = 9007199254740992;  // 2^53: up to here every integer is a double
  if (std::abs(value) < exact && value == std::trunc(value)) return act(static_cast<std::int64_t>(value));
  act(value);
}

/// Calls `act` with what a stored number of a field means.
template <class T, class Act>
void withNumber(const FieldInfo& field, T stored, ValueForm form, Act& act) {
  if (field.kind == FieldKind::Date) return act(DateText(PackedDate::of(static_cast<unsigned short>(stored))).view());
  if (field.kind == FieldKind::Name) return act(std::string_view(field.nameOf(static_cast<std::int64_t>(stored))));
  if (form == ValueForm::Presented && isScaled(field)) {
    return withPresented(presentedValue(field, static_cast<double>(stored)), act);
  }
  act(stored);
}

/// Calls `act` with the value of an element: an integer, a float, double or long double, a std::string_view, which is
/// valid during the call, or nullptr if the block is too short to have the element.
template <class Act>
void withValue(ConstBytes block, FieldElement element, ValueForm form, Act act) {
  const FieldInfo& field = *element.field;
  if (!element.isInside(block.size())) return act(nullptr);
  if (field.kind == FieldKind::Text) return act(textAt(block, element.offset, element.size));
  if (field.type == ScalarType::F80) return withNumber(field, loadExtended(block, element.offset), form, act);
  withScalarType(field.type, [&]<class T>(T) {
    const T stored = load<T>(block, element.offset);
    if constexpr (std::is_integral_v<T>) {
      if (field.bits.width != 0) return withNumber(field, partOf(stored, field.bits), form, act);
    }
    withNumber(field, stored, form, act);
  });
}

/// Calls `act` with each of `count` elements that are stored one after another, as withValue does. The block must have
/// all of them.
template <class Act>
void withValues(ConstBytes block, FieldElement first, std::size_t count, ValueForm form, Act act) {
  const FieldInfo& field = *first.field;
  if (field.kind == FieldKind::Number && field.bits.width == 0 && field.type != ScalarType::F80) {
    const bool scaled = form == ValueForm::Presented && isScaled(field);
    return withScalarType(field.type, [&]<class T>(T) {
      for (std::size_t i = 0; i < count; ++i) {
        const T stored = load<T>(block, first.offset + i * field.stride);
        scaled ? withPresented(presentedValue(field, static_cast<double>(stored)), act) : act(stored);
      }
    });
  }
  for (std::size_t i = 0; i < count; ++i, first.offset += field.stride) withValue(block, first, form, act);
}

}  // namespace Velk::detail
