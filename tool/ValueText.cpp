#include "ValueText.h"

#include "JsonWriter.h"
#include "velk/bytes/HexText.h"

namespace VelkTool {
namespace {

/// Formats the bytes of a value as " (41 00 42)".
std::string bytesText(const Velk::BlockView& block, const std::optional<Velk::FieldElement>& element) {
  std::string text;
  if (!element || !element->isInside(block.bytes.size())) return text;
  for (const unsigned char byte : block.bytes.subspan(element->offset, element->size)) {
    text += {text.empty() ? '(' : ' ', Velk::detail::hexDigits[byte >> 4U], Velk::detail::hexDigits[byte & 0xFU]};
  }
  return ' ' + text + ')';
}

/// Formats a unit as " dB"; one that begins with a number, such as 1/10000, goes in parentheses.
std::string unitText(std::string_view unit) {
  if (unit.empty()) return {};
  const bool isStep = unit.front() >= '0' && unit.front() <= '9';
  return isStep ? " (" + std::string(unit) + ')' : ' ' + std::string(unit);
}

}  // namespace

std::string valueText(Velk::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form) {
  std::string text = fieldText(block, element, form);
  if (element.field->kind == Velk::FieldKind::Text) return jsonText(text);
  if (form == Velk::ValueForm::Presented) text += unitText(element.field->unit);
  return text;
}

std::string sidesText(const Velk::BlockView& first, const Velk::BlockView& second, const Velk::Difference& difference) {
  const auto text = [](const Velk::BlockView& view, const std::optional<Velk::FieldElement>& element) {
    return element ? valueText(view.bytes, *element, Velk::ValueForm::Presented) : "none";
  };
  std::string before = text(first, difference.first);
  std::string after = text(second, difference.second);
  if (before == after) {
    before += bytesText(first, difference.first);
    after += bytesText(second, difference.second);
  }
  return before + " -> " + after;
}

void forEachChange(const Velk::BlockView& block, const QByteArray& changed,
                   const std::function<void(const std::string& change)>& act) {
  Velk::BlockView after = block;
  after.bytes = Velk::bytesOf(changed);
  compareBlocks(block, after, [&](const Velk::Difference& difference) {
    act(Velk::blockName(block) + ' ' + difference.path.text() + ": " + sidesText(block, after, difference));
  });
}

}  // namespace VelkTool
