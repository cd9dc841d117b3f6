#pragma once

#include "velk/fields/Fields.h"

namespace Velk {

/// What the presented numbers of a field count: those in "1/100 dB" are hundredths of the unit "dB", those in "10 Hz"
/// tens of the unit "Hz". A fraction alone, such as "1/10000", is a unit.
struct Quantity {
  std::string_view unit;
  double factor = 1;   ///< a presented number, times this and
  double divisor = 1;  ///< divided by this, is one in the unit

  /// Returns whether the presented numbers count steps, not the unit itself.
  bool isOfSteps() const { return factor != divisor; }
};

/// Returns the quantity of numbers in a unit.
VELK_EXPORT Quantity quantityOf(std::string_view unit);
inline Quantity quantityOf(const FieldInfo& field) { return quantityOf(std::string_view(field.unit)); }

/// Returns the number of a field in its unit: 0.24 for a presented 24 in "1/100 dB".
inline double inUnit(const Quantity& quantity, double presented) {
  return presented * quantity.factor / quantity.divisor;
}

/// Returns a value as people write it: "0.24 dB", "24 (1/10000)", "13.00", "1141.1000.02", "2017-03-15".
VELK_EXPORT std::string quantityText(ConstBytes block, FieldElement element);

/// Stores the value that `text` gives, which may be what quantityText returns. A number with the unit, or with a
/// decimal point if the presented ones are whole, is in the unit; any other one is as export shows it. Any other result
/// than Done leaves the block unchanged.
VELK_EXPORT FieldResult setQuantityText(MutableBytes block, FieldElement element, std::string_view text);

}  // namespace Velk
