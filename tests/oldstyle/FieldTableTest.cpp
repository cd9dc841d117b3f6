#include "CatalogueSupport.h"
#include "TestSupport.h"
#include "velk/data/ValueAxes.h"
#include "velk/fields/Notation.h"
#include "velk/fields/Quantity.h"

namespace Velk {
namespace {

/// What the values at a path lie over: "rows: level (1/100 dB), columns: frequency (Hz)".
std::string axesText(int id, std::string_view path) {
  constexpr const char* axes[] = {"elements", "rows", "columns"};
  std::string text;
  for (const BlockPair& pair : axesOf(id)) {
    const std::string_view values = pair.values;
    const bool isAbout =
        path.starts_with(values) && (path.size() == values.size() || path.substr(values.size()).starts_with('.'));
    if (!isAbout) continue;
    const std::string unit = ValueAxis(pair, nullptr).unit();
    text +=
        (text.empty() ? "" : ", ") + std::string(axes[static_cast<int>(pair.axis)]) + ": " + pointsOf(pair).quantity;
    if (!unit.empty()) text += " (" + unit + ')';
  }
  return text;
}

void addFields(std::string& table, const std::string& ids, int id, std::span<const FieldInfo> fields,
               const std::string& prefix) {
  for (const FieldInfo& field : fields) {
    const std::string path = prefix + field.name;
    if (field.type == ScalarType::Record) {
      addFields(table, ids, id, field.members, path + '.');
      continue;
    }
    const Quantity quantity = quantityOf(field);
    std::string base(quantity.unit);
    if (quantity.divisor != 1) base += " / " + std::to_string(static_cast<int>(quantity.divisor));
    if (quantity.factor != 1) base += " * " + std::to_string(static_cast<int>(quantity.factor));
    table += ids;
    for (const std::string& cell : {path, std::string(field.key), std::string(exampleOf(field.notation)),
                                    std::string(field.unit), base, axesText(id, path)}) {
      table += " | " + (cell.empty() ? "-" : cell);
    }
    table += '\n';
  }
}

TEST(Catalogue, FieldsHaveTheNamesUnitsAndPairsOfTheList) {
  std::string table = "ids | field | key in the text | written as | unit | quantity | lies over\n";
  for (const CatalogueRow& row : VelkTest::allRows()) {
    std::string ids = std::to_string(row.firstId);
    if (row.lastId != row.firstId) ids += '-' + std::to_string(row.lastId);
    addFields(table, ids, row.firstId, row.fields, "");
    for (int id = row.firstId; id <= row.lastId; ++id) {
      for (const FieldInfo& field : row.fields)
        EXPECT_EQ(axesText(id, field.name), axesText(row.firstId, field.name)) << id << ": layouts show the first id's";
    }
  }
  EXPECT_TRUE(VelkTest::isGolden("fields.txt", table));
}

}  // namespace
}  // namespace Velk
