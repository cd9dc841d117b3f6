#include "Layout.h"

#include <algorithm>

#include "velk/data/ValueAxes.h"
#include "velk/fields/Notation.h"
#include "velk/text/NumberText.h"

namespace VelkTool {
namespace {

using Velk::BlockPair;
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
    text = bitsText(field) + " of " + text;
    if (field.bits.isSigned) text += ", signed";
  }
  if (field.scale != 1) text += ", times " + numberText(field.scale);
  if (field.bias != 0) text += " plus " + numberText(field.bias);
  if (*field.unit != '\0') text += (field.scale != 1 ? " " : ", ") + std::string(field.unit);
  if (*field.key != '\0') text += std::string("; ") + field.key + " in the text";
  if (const std::string_view example = exampleOf(field.notation); !example.empty()) {
    text.append(*field.key != '\0' ? ", as " : "; written as ").append(example);
  }
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

std::string rangeText(const std::string& first, const std::string& last) {
  return first == last ? first : first + " to " + last;
}

std::string idRange(unsigned first, unsigned last) { return rangeText(std::to_string(first), std::to_string(last)); }

/// Returns the names of the blocks with the points of pairs, of which these are the first and the last.
std::string blocksText(const BlockPair& first, const BlockPair& last) {
  const auto key = [](unsigned short id) -> std::string { return Velk::findCatalogueRow(id)->key(id); };
  return idRange(first.axisId, last.axisId) + ", " + rangeText(key(first.axisId), key(last.axisId));
}

/// Returns a sentence on the values of blocks with consecutive ids; `last` is the pair of the last one.
std::string pairText(const BlockPair& first, const BlockPair& last) {
  constexpr const char* axes[] = {"elements", "rows", "columns"};
  const std::string unit = Velk::ValueAxis(first, nullptr).unit();
  std::string text = std::string("- the ") + axes[static_cast<std::size_t>(first.axis)] + " of `" + first.values +
                     "` lie over the " + pointsOf(first).quantity;
  if (!unit.empty()) text += " (" + unit + ')';
  text += std::string(" in `") + first.points + '`';
  text += " of " + (first.axisId == first.valuesId ? "the same block" : blocksText(first, last));
  if (first.rowsPerList > 1) text += ", a row of these for " + std::to_string(first.rowsPerList) + " rows";
  return text + '\n';
}

/// Returns a line for each pair of the first id of a row; the other ids have the same pairs.
std::string pairsText(const Velk::CatalogueRow& row) {
  const auto pairs = Velk::axesOf(row.firstId);
  const auto last = Velk::axesOf(row.lastId);
  std::string text;
  for (std::size_t i = 0; i < std::min(pairs.size(), last.size()); ++i) text += pairText(pairs[i], last[i]);
  return text.empty() ? text : text + '\n';
}

}  // namespace

const char* typeCode(ScalarType type) {
  constexpr const char* codes[] = {"u8", "i8", "u16", "i16", "u32", "i32", "u64", "i64", "f32", "f64", "f80", "record"};
  return codes[static_cast<std::size_t>(type)];
}

std::string bitsText(const FieldInfo& field) {
  return "bits " + std::to_string(field.bits.shift) + " to " + std::to_string(field.bits.shift + field.bits.width - 1);
}

std::string layoutText(const Velk::CatalogueRow& row) {
  std::string text = "## " + idRange(row.firstId, row.lastId) + ": " + row.key(row.firstId);
  if (row.keys.size() > 1) text += std::string(" to ") + row.key(row.lastId);
  text += "\n\n`" + std::string(row.className) + "`, " + std::to_string(row.size) + " bytes";
  if (row.others.longer) text += " or more";
  if (row.others.also != 0) text += " or " + std::to_string(row.others.also);
  text += "\n\n| offset | field | type |\n|---:|---|---|\n";
  appendFields(text, row.fields, 0, "", 0);
  return text + '\n' + pairsText(row);
}

}  // namespace VelkTool
