#include <algorithm>
#include <string_view>

#include "velk/checks/Check.h"
#include "velk/oldstyle/BlockPairs.h"

namespace Velk::detail {
namespace {

const FieldInfo* fieldOf(const BlockView& block, std::string_view name) {
  const auto found =
      std::ranges::find(block.row->fields, name, [](const FieldInfo& field) { return std::string_view(field.name); });
  return found == block.row->fields.end() ? nullptr : &*found;
}

/// Returns how many elements of a field are in use along an axis; nothing if its block does not count them.
std::optional<std::size_t> countAlong(const BlockView& block, const FieldInfo& field, Axis axis) {
  const bool alongColumns = axis == Axis::Columns && field.rank > 1;
  const char* const counter = alongColumns ? field.usedCols : field.usedRows;
  if (*counter == '\0') return std::nullopt;
  return elementsInUse(block.bytes, block.row->fields, 0, counter, alongColumns ? field.cols : field.rows);
}

/// Returns the points of a list, be it a table of one column, or of a table, along the axis.
std::optional<std::size_t> countOfPoints(const BlockView& block, const FieldInfo& field, Axis axis) {
  return countAlong(block, field, field.cols == 1 ? Axis::Rows : axis);
}

/// Two blocks that belong together.
struct PairInImage {
  const BlockPair& pair;
  const BlockView& values;
  const BlockView& points;

  std::string text(std::size_t valueCount, std::size_t pointCount) const {
    const char* const axes[] = {"value", "row", "column"};
    return placeOf(values) + " has " + counted(valueCount, axes[static_cast<std::size_t>(pair.axis)]) + ", but " +
           placeOf(points) + " has " + counted(pointCount, "point") + " (" + pointsOf(pair).quantity + ')';
  }
};

/// Compares the counts of each row, which the field `counts` of both blocks has.
void compareRowCounts(const PairInImage& pair, const Report& report) {
  const FieldInfo* const values = fieldOf(pair.values, "counts");
  const FieldInfo* const points = fieldOf(pair.points, "counts");
  if (values == nullptr || points == nullptr) return;
  for (std::size_t i = 0; i < std::min(values->rows, points->rows); ++i) {
    const auto count = [i](const BlockView& block, const FieldInfo& counts) {
      return integerValue(block.bytes, {&counts, counts.offset + i * counts.stride});
    };
    const std::int64_t valueCount = count(pair.values, *values);
    const std::int64_t pointCount = count(pair.points, *points);
    if (valueCount == pointCount) continue;
    const std::string path = "counts[" + std::to_string(i) + ']';
    return report(pair.values,
                  placeOf(pair.values) + ": " + path + " is " + std::to_string(valueCount) + ", but in " +
                      placeOf(pair.points) + " it is " + std::to_string(pointCount),
                  path);
  }
}

void compareCounts(const PairInImage& pair, const Report& report) {
  const FieldInfo* const values = fieldOf(pair.values, pair.pair.values);
  const FieldInfo* const points = fieldOf(pair.points, pair.pair.points);
  if (values == nullptr || points == nullptr) return;
  const auto valueCount = countAlong(pair.values, *values, pair.pair.axis);
  const auto pointCount = countOfPoints(pair.points, *points, pair.pair.axis);
  if (!valueCount || !pointCount) return;
  const bool fits = pair.pair.count == PairCount::AtMost ? *valueCount <= *pointCount : *valueCount == *pointCount;
  if (!fits) report(pair.values, pair.text(*valueCount, *pointCount), pair.pair.values);
}

void findDifferentCounts(const CheckedImage& image, const Report& report) {
  for (const KnownBlock& known : image.blocks()) {
    if (!known.first.isSound()) continue;
    for (const BlockPair& pair : axesOf(known.first.id)) {
      const bool areCounted = pair.count != PairCount::Points && pair.count != PairCount::Same;
      const BlockView* const points = areCounted ? image.findSound(pair.axisId) : nullptr;
      if (points == nullptr) continue;
      const auto compare = pair.count == PairCount::EqualByRow ? compareRowCounts : compareCounts;
      compare({pair, known.first, *points}, report);
    }
  }
}

/// Returns "DACB_FREQUENCY_COMP_FREQ (id 13500)".
std::string nameOfId(unsigned short id) {
  return std::string(findCatalogueRow(id)->key(id)) + " (id " + std::to_string(id) + ')';
}

/// Returns whether a pair before this one has the same two blocks.
bool isRepeated(std::span<const BlockPair> pairs, const BlockPair& pair) {
  return std::ranges::find(pairs, pair.axisId, &BlockPair::axisId)->values != pair.values;
}

/// A list that is not there, the first table that needs it, and how many do.
struct MissingList {
  const BlockPair* pair;
  const BlockView* table;
  std::size_t tables;
};

void findTablesWithoutList(const CheckedImage& image, const Report& report) {
  std::vector<MissingList> missing;
  for (const KnownBlock& known : image.blocks()) {
    const std::span<const BlockPair> pairs = axesOf(known.first.id);
    for (const BlockPair& pair : pairs) {
      if (isRepeated(pairs, pair) || image.find(pair.axisId) != nullptr) continue;
      const auto same =
          std::ranges::find(missing, pair.axisId, [](const MissingList& list) { return list.pair->axisId; });
      same == missing.end() ? missing.push_back({&pair, &known.first, 1}) : void(++same->tables);
    }
  }
  for (const MissingList& list : missing) {
    const std::string others = list.tables == 1 ? "" : " and " + counted(list.tables - 1, "other table");
    report(*list.table, placeOf(*list.table) + others + ": the list of points (" + pointsOf(*list.pair).quantity +
                            "), " + nameOfId(list.pair->axisId) + ", is not there");
  }
}

void findListsWithoutTable(const CheckedImage& image, const Report& report) {
  for (const KnownBlock& known : image.blocks()) {
    const unsigned short id = known.first.id;
    const std::span<const BlockPair> tables = valuesOver(id);
    // What has points of its own is of use without what lies over it.
    if (tables.empty() || !axesOf(id).empty()) continue;
    const bool isUsed =
        std::ranges::any_of(tables, [&](const BlockPair& pair) { return image.find(pair.valuesId) != nullptr; });
    if (isUsed) continue;
    const bool isOnly =
        std::ranges::all_of(tables, [&](const BlockPair& pair) { return pair.valuesId == tables.front().valuesId; });
    const std::string first = nameOfId(tables.front().valuesId);
    report(known.first,
           placeOf(known.first) + ": " +
               (isOnly ? "its table, " + first + ", is not there" : "none of its tables is there, such as " + first));
  }
}

constexpr Check kinds[] = {
    {{"different-counts", "different counts", Severity::Warning,
      "a table has not as many values as its list has points",
      "A table of calibration values goes with a list of points, such as frequencies, in another block, and both "
      "count what they have in use. Example: 25 amplitudes over 26 frequencies; the instrument reads the last one "
      "from unused bytes. Compare both blocks with those of an older dump; velk set corrects a count."},
     nullptr,
     findDifferentCounts},
    {{"table-without-list", "table without list", Severity::Warning, "the list of points of a table is not there",
      "Nobody can say to which points the values of the table belong. Example: LORN_RFBO_ATT_CAL_DATA without "
      "BLOCK_LORN_RFBO_ATT_CAL_FREQ. The list was lost, or it is in another memory of the module."},
     nullptr,
     findTablesWithoutList},
    {{"list-without-table", "list without table", Severity::Warning, "a list of points has no table",
      "A list of points is of no use alone. Of several tables that can go with it, one is enough. Example: "
      "DACB_FREQUENCY_COMP_FREQ with neither amplitudes nor phases. The table was lost, or it is in another memory "
      "of the module."},
     nullptr,
     findListsWithoutTable},
};

}  // namespace

std::span<const Check> pairChecks() { return kinds; }

}  // namespace Velk::detail
