#include "CatalogueJson.h"

#include "Layout.h"
#include "velk/data/ValueAxes.h"
#include "velk/fields/Notation.h"
#include "velk/fields/Quantity.h"

namespace VelkTool {
namespace {

using Velk::CatalogueRow;
using Velk::FieldInfo;

/// Writes a member unless it is empty.
void writeText(JsonWriter& json, const char* key, std::string_view text) {
  if (!text.empty()) json.member(key, text);
}

/// Writes a unit such as "1/100 dB", and what it is a fraction of.
void writeUnit(JsonWriter& json, std::string_view unit) {
  if (unit.empty()) return;
  const Velk::Quantity quantity = Velk::quantityOf(unit);
  json.member("unit", unit).member("baseUnit", quantity.unit).member("divisor", quantity.divisor / quantity.factor);
}

void writeBits(JsonWriter& json, Velk::Bits bits) {
  if (bits.width == 0) return;
  json.key("bits").beginObject(JsonWriter::Layout::OneLine);
  json.member("shift", bits.shift).member("width", bits.width).member("signed", bits.isSigned).endObject();
}

void writeShape(JsonWriter& json, const FieldInfo& field) {
  if (field.rank > 0 && !field.openEnded) json.member("rows", field.rows);
  if (field.rank > 1) json.member("cols", field.cols);
  if (field.openEnded) json.member("openEnded", true);
  if (field.rank == 0) return;
  writeText(json, "rowsCountedBy", field.usedRows);
  writeText(json, "colsCountedBy", field.usedCols);
}

void writeFields(JsonWriter& json, const char* key, std::span<const FieldInfo> fields);

void writeField(JsonWriter& json, const FieldInfo& field) {
  constexpr const char* kinds[] = {"number", "text", "date", "name"};
  constexpr const char* notations[] = {"", "part-number", "digit-pairs", "hours", "address"};
  const bool isRecord = field.type == Velk::ScalarType::Record;
  json.beginObject().member("name", field.name);
  writeText(json, "key", field.key);
  json.member("offset", field.offset).member("type", typeCode(field.type)).member("stride", field.stride);
  writeShape(json, field);
  if (!isRecord) {
    json.member("kind", kinds[static_cast<std::size_t>(field.kind)]);
    writeText(json, "notation", notations[static_cast<std::size_t>(field.notation)]);
    writeText(json, "example", exampleOf(field.notation));
    writeBits(json, field.bits);
    json.member("scale", field.scale).member("bias", field.bias);
    writeUnit(json, field.unit);
  }
  json.member("personal", field.isPersonal).member("fixed", field.isFixed);
  if (isRecord) writeFields(json, "members", field.members);
  json.endObject();
}

void writeFields(JsonWriter& json, const char* key, std::span<const FieldInfo> fields) {
  json.key(key).beginArray();
  for (const FieldInfo& field : fields) writeField(json, field);
  json.endArray();
}

void writePair(JsonWriter& json, const Velk::BlockPair& pair) {
  constexpr const char* axes[] = {"elements", "rows", "columns"};
  constexpr const char* counts[] = {"equal", "equal-by-row", "at-most", "points", "same"};
  json.beginObject().member("valuesId", pair.valuesId).member("values", pair.values);
  json.member("axis", axes[static_cast<std::size_t>(pair.axis)]);
  json.member("axisId", pair.axisId).member("axisKey", Velk::findCatalogueRow(pair.axisId)->key(pair.axisId));
  json.member("points", pair.points).member("quantity", pointsOf(pair).quantity);
  writeUnit(json, Velk::ValueAxis(pair, nullptr).unit());
  json.member("count", counts[static_cast<std::size_t>(pair.count)]).member("rowsPerList", pair.rowsPerList);
  json.endObject();
}

/// Calls `act` with each id of a row.
template <class Act>
void forEachId(const CatalogueRow& row, Act act) {
  for (unsigned id = row.firstId; id <= row.lastId; ++id) act(static_cast<unsigned short>(id));
}

void writeRow(JsonWriter& json, const CatalogueRow& row, bool isInDictionary) {
  json.beginObject().key("ids").beginArray();
  forEachId(row, [&](unsigned short id) {
    json.beginObject(JsonWriter::Layout::OneLine).member("id", id).member("key", row.key(id)).endObject();
  });
  json.endArray().member("class", row.className).member("dictionary", isInDictionary).member("size", row.size);
  json.member("longer", row.others.longer);
  if (row.others.also != 0) json.member("alsoSize", row.others.also);
  writeFields(json, "fields", row.fields);
  json.key("pairs").beginArray();
  forEachId(row, [&](unsigned short id) {
    for (const Velk::BlockPair& pair : Velk::axesOf(id)) writePair(json, pair);
  });
  json.endArray().endObject();
}

}  // namespace

void writeCatalogue(JsonWriter& json) {
  json.beginObject().member("schema", catalogueSchema).key("blocks").beginArray();
  for (const CatalogueRow& row : Velk::dictionaryRows()) writeRow(json, row, true);
  for (const CatalogueRow& row : Velk::otherRows()) writeRow(json, row, false);
  json.endArray().endObject().finish();
}

}  // namespace VelkTool
