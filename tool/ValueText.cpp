#include "ValueText.h"

#include "JsonWriter.h"
#include "velk/bytes/HexText.h"
#include "velk/fields/Quantity.h"

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

}  // namespace

std::string valueText(Velk::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form) {
  const bool isPresented = form == Velk::ValueForm::Presented;
  std::string text = isPresented ? quantityText(block, element) : fieldText(block, element, form);
  return element.field->kind == Velk::FieldKind::Text ? jsonText(text) : text;
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
