#include "ValueText.h"

#include "JsonWriter.h"
#include "velk/data/BlockDiff.h"

namespace VelkTool {

std::string valueText(Velk::detail::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form) {
  std::string text = fieldText(block, element, form);
  if (element.field->kind == Velk::FieldKind::Text) return jsonText(text);
  const char* const unit = element.field->unit;
  if (form == Velk::ValueForm::Presented && *unit != '\0') text.append(" ").append(unit);
  return text;
}

std::string changeText(const std::string& block, const std::string& path, const std::string& before,
                       const std::string& after) {
  return block + ' ' + path + ": " + before + " -> " + after;
}

void forEachChange(const Velk::BlockView& block, const QByteArray& changed,
                   const std::function<void(const std::string& change)>& act) {
  Velk::BlockView after = block;
  after.bytes = {reinterpret_cast<const unsigned char*>(changed.constData()), static_cast<std::size_t>(changed.size())};
  const auto text = [](const Velk::BlockView& view, const std::optional<Velk::FieldElement>& element) {
    return element ? valueText(view.bytes, *element, Velk::ValueForm::Presented) : "none";
  };
  compareBlocks(block, after, [&](const Velk::Difference& difference) {
    act(changeText(Velk::blockName(block), difference.path.text(), text(block, difference.first),
                   text(after, difference.second)));
  });
}

}  // namespace VelkTool
