#pragma once

#include "velk/fields/FieldValue.h"
#include "velk/fields/Notation.h"
#include "velk/fields/Quantity.h"
#include "velk/text/NumberText.h"

namespace Velk::detail {

/// Returns the decimal number that a stored one stands for: 0.1 for a float of 0.1.
template <class T>
double intendedNumber(T value) {
  auto intended = static_cast<double>(value);
  if constexpr (std::is_same_v<T, float>) {
    const std::string text = numberText(value);
    std::from_chars(text.data(), text.data() + text.size(), intended);
  }
  return intended;
}

/// Calls `act` with a value in the unit of `quantity`, or in the notation of its field: an integer, a float, double or
/// long double, a std::string_view, which is valid during the call, or nullptr if the block is too short to have it.
template <class Act>
void withUnitValue(ConstBytes block, const FieldElement& element, const Quantity& quantity, Act act) {
  const bool isWritten = element.field->notation != Notation::Plain && element.isInside(block.size());
  if (isWritten) return act(std::string_view(writtenText(block, element)));
  withValue(block, element, ValueForm::Presented, [&]<class T>(T value) {
    if constexpr (std::is_arithmetic_v<T>) {
      if (quantity.isOfSteps()) return withPresented(inUnit(quantity, intendedNumber(value)), act);
    }
    act(value);
  });
}

}  // namespace Velk::detail
