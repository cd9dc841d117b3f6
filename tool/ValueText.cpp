#include "ValueText.h"

#include "JsonWriter.h"

namespace VelkTool {

std::string valueText(Velk::detail::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form) {
  std::string text = fieldText(block, element, form);
  if (element.field->kind == Velk::FieldKind::Text) return jsonText(text);
  const char* const unit = element.field->unit;
  if (form == Velk::ValueForm::Presented && *unit != '\0') text.append(" ").append(unit);
  return text;
}

}  // namespace VelkTool
