#include "velk/data/ValueEdit.h"

#include <algorithm>

#include "velk/data/DataLookup.h"
#include "velk/data/ElementCounts.h"
#include "velk/fields/FieldValue.h"

namespace Velk {
namespace {

bool takesFractions(const FieldInfo& field, ValueForm form) {
  return isFloating(field.type) || (form == ValueForm::Presented && detail::isScaled(field));
}

std::string describeRefusal(FieldResult result, const FieldElement& element, std::string_view text, ValueForm form) {
  const FieldInfo& field = *element.field;
  const std::string given(text);
  switch (result) {
    case FieldResult::Done:
      return {};
    case FieldResult::NotAValue:
      if (field.kind == FieldKind::Date) return '"' + given + "\" is no date such as 2017-03-15";
      return '"' + given + "\" is no " + (takesFractions(field, form) ? "number" : "whole number");
    case FieldResult::OutOfRange:
      if (field.kind == FieldKind::Text) {
        return '"' + given + "\" has " + std::to_string(given.size()) + " bytes, there is room for " +
               std::to_string(element.size);
      }
      return given + " is out of range: " + fieldLimits(field, form);
    case FieldResult::OutsideBlock:
      return "the block ends before it";
    case FieldResult::Fixed:
      return "cannot be changed: the rest of the block depends on it";
  }
  return {};
}

}  // namespace

std::string setValue(MutableBytes block, const BlockView& view, std::string_view path, std::string_view text,
                     ValueForm form) {
  const BlockData data(view, Extent::Capacity);
  const DataLookup lookup = findValue(data.root(), path);
  if (!lookup.value) return lookup.complaint;
  const FieldElement& element = lookup.value->element();
  const std::vector<unsigned char> before(block.begin(), block.end());
  const FieldResult result = setFieldText(block, element, text, form);
  std::string refusal = describeRefusal(result, element, text, form);
  if (refusal.empty()) refusal = detail::noSuchCount(data.root(), path, integerValue(block, element));
  if (refusal.empty()) return {};
  std::ranges::copy(before, block.begin());
  return std::string(path) + ": " + refusal;
}

}  // namespace Velk
