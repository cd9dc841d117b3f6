#include "Layout.h"

#include "velk/text/NumberText.h"

namespace VelkTool {
namespace {

using Velk::FieldInfo;
using Velk::ScalarType;
using Velk::detail::numberText;

const char* typeName(ScalarType type) {
  constexpr const char* names[] = {"unsigned 8-bit",  "signed 8-bit",  "unsigned 16-bit", "signed 16-bit",
                                   "unsigned 32-bit", "signed 32-bit", "unsigned 64-bit", "signed 64-bit",
                                   "float",           "double",        "extended"};
  return names[static_cast<std::size_t>(type)];
}

std::string typeText(const FieldInfo& field) {
  std::string text = typeName(field.type);
  if (field.kind == Velk::FieldKind::Text) text = "text, " + std::to_string(field.stride) + " bytes";
  if (field.kind == Velk::FieldKind::Date) text = "packed date, 16 bits";
  if (field.bits.width != 0) {
    text = "bits " + std::to_string(field.bits.shift) + " to " +
           std::to_string(field.bits.shift + field.bits.width - 1) + " of " + text;
    if (field.bits.isSigned) text += ", signed";
  }
  if (field.scale != 1) text += ", times " + numberText(field.scale);
  if (field.bias != 0) text += " plus " + numberText(field.bias);
  if (*field.unit != '\0') text += (field.scale != 1 ? " " : ", ") + std::string(field.unit);
  return text;
}

std::string capacityText(const FieldInfo& field) {
  if (field.openEnded) return "[...]";
  std::string text;
  if (field.rank > 0) text += '[' + std::to_string(field.rows) + ']';
  if (field.rank > 1) text += '[' + std::to_string(field.cols) + ']';
  return text;
}

void appendFields(std::string& text, std::span<const FieldInfo> fields, std::size_t base, const std::string& prefix,
                  std::size_t spacing) {
  for (const FieldInfo& field : fields) {
    const std::string name = prefix + field.name + capacityText(field);
    const std::size_t offset = base + field.offset;
    if (field.type == ScalarType::Record) {
      appendFields(text, field.members, offset, name + '.', field.stride);
      continue;
    }
    text += "| " + std::to_string(offset) + " | " + name + " | " + typeText(field);
    if (spacing != 0) text += ", every " + std::to_string(spacing) + " bytes";
    text += " |\n";
  }
}

std::string idRange(const Velk::CatalogueRow& row) {
  const std::string first = std::to_string(row.firstId);
  return row.firstId == row.lastId ? first : first + " to " + std::to_string(row.lastId);
}

}  // namespace

std::string layoutText(const Velk::CatalogueRow& row) {
  std::string text = "## " + idRange(row) + ": " + row.key(row.firstId);
  if (row.keys.size() > 1) text += std::string(" to ") + row.key(row.lastId);
  text += "\n\n`" + std::string(row.className) + "`, " + std::to_string(row.size) + " bytes";
  if (row.others.longer) text += " or more";
  if (row.others.also != 0) text += " or " + std::to_string(row.others.also);
  text += "\n\n| offset | field | type |\n|---:|---|---|\n";
  appendFields(text, row.fields, 0, "", 0);
  return text + '\n';
}

}  // namespace VelkTool
