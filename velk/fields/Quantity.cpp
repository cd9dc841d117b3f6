#include "velk/fields/Quantity.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "velk/fields/FieldValue.h"
#include "velk/fields/Notation.h"
#include "velk/text/NumberText.h"

namespace Velk {
namespace {

using detail::numberText;

std::string_view withoutBlanks(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// Returns a unit as it follows a number; one that begins with a digit, such as 1/10000, is in parentheses.
std::string shownUnit(const Quantity& quantity) {
  const std::string unit(quantity.unit);
  if (unit.empty()) return {};
  const bool isFactor = unit.front() >= '0' && unit.front() <= '9';
  return isFactor ? " (" + unit + ')' : ' ' + unit;
}

/// Reads the whole text as a number.
std::optional<double> parseDecimal(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

bool presentsWholeNumbers(const FieldInfo& field) { return !isFloating(field.type) && !detail::isScaled(field); }

}  // namespace

Quantity quantityOf(std::string_view unit) {
  constexpr std::string_view fraction = "1/";
  const bool isFraction = unit.starts_with(fraction);
  std::string_view name = isFraction ? unit.substr(fraction.size()) : unit;
  double step = 1;
  name.remove_prefix(
      static_cast<std::size_t>(std::from_chars(name.data(), name.data() + name.size(), step).ptr - name.data()));
  if (name.starts_with(' ')) name.remove_prefix(1);
  if (name.empty()) return {unit};
  return isFraction ? Quantity{.unit = name, .divisor = step} : Quantity{.unit = name, .factor = step};
}

std::string quantityText(ConstBytes block, FieldElement element) {
  const FieldInfo& field = *element.field;
  const Quantity quantity = quantityOf(field);
  std::string text = writtenText(block, element);
  if (quantity.isOfSteps()) text = numberText(inUnit(quantity, parseDecimal(text).value_or(0)));
  return field.notation == Notation::Plain ? text + shownUnit(quantity) : text;
}

FieldResult setQuantityText(MutableBytes block, FieldElement element, std::string_view text) {
  const FieldInfo& field = *element.field;
  const Quantity quantity = quantityOf(field);
  std::string_view number = text;
  const std::string shown = shownUnit(quantity);
  const std::string_view end = std::string_view(shown).substr(std::min<std::size_t>(shown.size(), 1));
  const bool hasUnit = field.kind == FieldKind::Number && !end.empty() && text.ends_with(end);
  if (hasUnit) number = withoutBlanks(text.substr(0, text.size() - end.size()));
  const bool isInUnit =
      quantity.isOfSteps() && (hasUnit || (presentsWholeNumbers(field) && number.find_first_of(".eE") != number.npos));
  constexpr double most = 9e15;  // up to here every whole number is a double
  if (!isInUnit) return setWrittenText(block, element, number, ValueForm::Presented);
  const auto value = parseDecimal(number);
  if (!value) return FieldResult::NotAValue;
  const double presented = *value * quantity.divisor / quantity.factor;
  if (!presentsWholeNumbers(field)) return setFieldText(block, element, numberText(presented), ValueForm::Presented);
  if (!(std::abs(presented) < most)) return std::isnan(presented) ? FieldResult::NotAValue : FieldResult::OutOfRange;
  return setFieldText(block, element, numberText(std::llround(presented)), ValueForm::Presented);
}

}  // namespace Velk
