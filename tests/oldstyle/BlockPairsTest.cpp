#include "velk/oldstyle/BlockPairs.h"

#include <set>
#include <tuple>

#include "CatalogueSupport.h"
#include "TestSupport.h"

namespace Velk {
namespace {

/// The field that a path leads to; its shape and counts are those of its record's array.
struct Found {
  const FieldInfo* array = nullptr;
  const FieldInfo* value = nullptr;  ///< `array`, or a member of its records
  std::ptrdiff_t place = 0;          ///< in the order of the fields
};

const FieldInfo* fieldIn(std::span<const FieldInfo> fields, std::string_view name) {
  const auto found = std::ranges::find_if(fields, [&](const FieldInfo& field) { return field.name == name; });
  return found == fields.end() ? nullptr : &*found;
}

Found findField(int id, std::string_view path) {
  const CatalogueRow* const row = findCatalogueRow(id);
  if (row == nullptr) return {};
  const std::size_t dot = path.find('.');
  Found found{.array = fieldIn(row->fields, path.substr(0, dot))};
  if (found.array == nullptr) return {};
  found.place = found.array - row->fields.data();
  found.value = dot == std::string_view::npos ? found.array : fieldIn(found.array->members, path.substr(dot + 1));
  return found;
}

bool isTable(const FieldInfo& field) { return field.rank == 2 && field.cols > 1; }
unsigned capacityAlong(const FieldInfo& field, Axis axis) { return axis == Axis::Columns ? field.cols : field.rows; }
std::string_view countAlong(const FieldInfo& field, Axis axis) {
  return axis == Axis::Columns ? field.usedCols : field.usedRows;
}

std::string nameOf(int id, const char* path) {
  return std::to_string(id) + ' ' + findCatalogueRow(id)->key(static_cast<unsigned short>(id)) + '.' + path;
}

std::string textOf(const BlockPair& pair) {
  constexpr const char* axes[] = {"elements", "rows", "columns"};
  constexpr const char* counts[] = {"equal", "equal by row", "at most", "of the points", "the same"};
  constexpr const char* orders[] = {"order unknown", "ascending", "strictly ascending"};
  const AxisPoints& points = pointsOf(pair);
  const std::string_view fieldUnit = findField(pair.axisId, pair.points).value->unit;
  std::string text = nameOf(pair.valuesId, pair.values) + "  " + axes[static_cast<int>(pair.axis)];
  if (pair.rowsPerList > 1) text += ", " + std::to_string(pair.rowsPerList) + " rows a list";
  text += "  " + nameOf(pair.axisId, pair.points) + "  (" + points.quantity;
  if (const auto unit = fieldUnit.empty() ? points.unit : fieldUnit; !unit.empty()) text.append(", ").append(unit);
  return text + ", " + orders[static_cast<int>(points.order)] + "; count " + counts[static_cast<int>(pair.count)] + ')';
}

TEST(BlockPairs, NameFieldsThatFit) {
  for (const BlockPair& pair : blockPairs()) {
    const Found values = findField(pair.valuesId, pair.values);
    const Found points = findField(pair.axisId, pair.points);
    ASSERT_TRUE(values.value != nullptr && points.value != nullptr) << pair.valuesId << ' ' << pair.values;
    SCOPED_TRACE(textOf(pair));
    EXPECT_EQ(values.array->rank, pair.axis == Axis::Elements ? 1 : 2);
    EXPECT_GE(points.array->rank, 1);
    EXPECT_EQ(points.value->rank, points.value == points.array ? points.array->rank : 0) << "points are single values";
    EXPECT_TRUE(points.value->members.empty());

    // Points that are a list have their elements along the axis; those that are a table lie like the values.
    const bool pointsAreTable = isTable(*points.array);
    const Axis pointsAxis = pointsAreTable ? pair.axis : Axis::Rows;
    EXPECT_EQ(capacityAlong(*points.array, pointsAxis), capacityAlong(*values.array, pair.axis));
    if (pointsAreTable && pair.axis == Axis::Columns) {
      EXPECT_EQ(points.array->rows * pair.rowsPerList, values.array->rows);
    } else {
      EXPECT_EQ(pair.rowsPerList, 1);
      EXPECT_TRUE(!pointsAreTable || points.array->cols == values.array->cols);
    }

    const std::string_view valuesCount = countAlong(*values.array, pair.axis);
    const std::string_view pointsCount = countAlong(*points.array, pointsAxis);
    EXPECT_EQ(valuesCount.empty(), pair.count == PairCount::Points || pair.count == PairCount::EqualByRow);
    EXPECT_EQ(pointsCount.empty(), pair.count == PairCount::EqualByRow);
    EXPECT_EQ(pair.axisId == pair.valuesId && valuesCount == pointsCount, pair.count == PairCount::Same);
    if (pair.count == PairCount::EqualByRow) {
      for (const int id : {+pair.valuesId, +pair.axisId}) {
        const Found counts = findField(id, "counts");
        EXPECT_TRUE(counts.value != nullptr && counts.value->rows == points.array->rows) << id;
      }
    }
  }
}

TEST(BlockPairs, AreInOrderAndFoundFromBothSides) {
  const auto rank = [](const BlockPair& pair) {
    return std::tuple(pair.valuesId, findField(pair.valuesId, pair.values).place, pair.axis);
  };
  const auto pairs = blockPairs();
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const BlockPair& pair = pairs[i];
    SCOPED_TRACE(textOf(pair));
    if (i > 0) EXPECT_LE(rank(pairs[i - 1]), rank(pair));
    const auto isThis = [&](const BlockPair& other) { return textOf(other) == textOf(pair); };
    EXPECT_EQ(std::ranges::count_if(axesOf(pair.valuesId), isThis), 1);
    EXPECT_EQ(std::ranges::count_if(valuesOver(pair.axisId), isThis), 1);
  }
  EXPECT_EQ(axesOf(15857).size(), 2U);
  EXPECT_EQ(axesOf(10902).size(), 3U);
  EXPECT_EQ(valuesOver(10302).size(), 13U);
  for (const int id : {-1, 0, 10000, 12250, 14801, 65535, 65536 + 12060}) {
    EXPECT_TRUE(axesOf(id).empty() && valuesOver(id).empty()) << id;
  }
}

TEST(BlockPairs, StayOnTheirPathAndEdition) {
  for (const BlockPair& pair : blockPairs()) {
    SCOPED_TRACE(textOf(pair));
    const CatalogueRow& values = *findCatalogueRow(pair.valuesId);
    const CatalogueRow& points = *findCatalogueRow(pair.axisId);
    if (points.firstId < points.lastId) {
      EXPECT_EQ(pair.axisId - points.firstId, pair.valuesId - values.firstId);
      EXPECT_EQ(points.lastId - points.firstId, values.lastId - values.firstId);
    }
    const std::string valuesKey = values.key(pair.valuesId) + std::string("_");
    const std::string pointsKey = points.key(pair.axisId) + std::string("_");
    for (const char* const word : {"_A_", "_B_", "_C_", "_D_", "_2_EDITION_", "_ENH_", "_USER_", "_VEC_", "_SE_"}) {
      EXPECT_EQ(valuesKey.find(word) == std::string::npos, pointsKey.find(word) == std::string::npos) << word;
    }
  }
}

TEST(BlockPairs, LeaveOutNoListOfFrequencies) {
  // One frequency, values at one, and the baseband's list, whose values no known block has.
  const std::set<int> others = {12250, 12251, 12252, 12253, 12312, 15025, 15026, 15027, 15028};
  for (const CatalogueRow& row : VelkTest::allRows()) {
    for (int id = row.firstId; id <= row.lastId; ++id) {
      const std::string_view key = row.key(static_cast<unsigned short>(id));
      if (key.find("FREQ") == std::string_view::npos || key.find("FREQUENCY_COMP") != std::string_view::npos) continue;
      EXPECT_EQ(valuesOver(id).empty(), others.contains(id)) << id << ' ' << key;
    }
  }
}

TEST(BlockPairs, KnowWhatEachOfTheirPointsAre) {
  for (const AxisPoints& points : axisPoints()) {
    for (int id = points.firstId; id <= points.lastId; ++id) {
      const Found found = findField(id, points.points);
      ASSERT_NE(found.value, nullptr) << id << ' ' << points.points;
      EXPECT_TRUE(std::string_view(points.unit).empty() || std::string_view(found.value->unit).empty()) << id;
      const auto pairs = valuesOver(id);
      EXPECT_FALSE(pairs.empty()) << id;
      EXPECT_TRUE(std::ranges::all_of(pairs, [&](const BlockPair& pair) { return &pointsOf(pair) == &points; })) << id;
    }
  }
}

TEST(BlockPairs, AreThoseOfTheList) {
  std::string text;
  for (const BlockPair& pair : blockPairs()) text += textOf(pair) + '\n';
  EXPECT_TRUE(VelkTest::isGolden("pairs.txt", text));
}

}  // namespace
}  // namespace Velk
