#include "velk/oldstyle/BlockPairs.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Velk {
namespace {

using enum Axis;
using enum PairCount;
using enum PointOrder;

/// A pair, and those that follow it: blocks with consecutive ids (paths, copies, boards) pair one by one with blocks
/// whose ids are consecutive too, or all with one block.
struct Series {
  BlockPair first;
  unsigned char ids = 1;
  bool sharesAxis = false;

  constexpr BlockPair pair(unsigned number) const {
    BlockPair pair = first;
    pair.valuesId = static_cast<unsigned short>(pair.valuesId + number);
    if (!sharesAxis) pair.axisId = static_cast<unsigned short>(pair.axisId + number);
    return pair;
  }
};

// Wide on purpose: one line per field and axis, family by family.
// clang-format off
constexpr Series series[] = {
    {{10003, "values", Elements, 10002, "values", Equal}},
    // The blocks of the operating states, and the one of the second version, have the frequencies in common.
    {{10303, "blocks", Elements, 10302, "values", Points}, 12, true},
    {{10316, "blocks", Elements, 10302, "values", Points}},
    {{10501, "blocks", Elements, 10500, "values", Points}},
    {{10602, "attenuation", Columns, 10601, "values", Points}},
    {{10603, "tempGradient", Columns, 10601, "values", Points}},
    {{10902, "levAtt20", Elements, 10901, "values", Points}},
    {{10902, "levAtt40", Elements, 10901, "values", Points}},
    {{10902, "daValueBz", Columns, 10901, "values", Points}},
    {{11001, "attenuation", Columns, 11200, "values", Points}},
    {{11202, "tempGradient", Columns, 11200, "values", Points}},
    {{11306, "cells", Columns, 11305, "cells", Equal}},
    {{11307, "cells", Columns, 11305, "cells", Equal}},

    {{12041, "cells", Columns, 12040, "values", Equal}},
    {{12042, "values", Elements, 12040, "values", Equal}},
    {{12043, "cells", Rows, 12041, "cells", Equal}},
    {{12043, "cells", Columns, 12040, "values", Equal}},
    {{12045, "cells", Columns, 12044, "values", Equal}},
    {{12047, "cells", Columns, 12046, "values", Equal}},
    {{12060, "cells", Columns, 12050, "values", Points}, 4},
    {{12080, "cells", Columns, 12070, "values", Points}, 2},
    {{12095, "cells", Columns, 12090, "values", Points}, 2},
    {{12110, "values", Elements, 12100, "values", Equal}, 4},
    {{12120, "values", Elements, 12100, "values", Equal}, 4},
    {{12130, "values", Elements, 12100, "values", Equal}, 4},
    {{12140, "values", Elements, 12100, "values", Equal}, 4},
    {{12160, "cells", Columns, 12150, "values", Points}, 4},
    {{12180, "cells", Columns, 12170, "values", Points}, 4},
    {{12200, "cells", Columns, 12190, "values", Points}, 4},
    // Four rows of a table, one for each level, are those of one low-pass filter.
    {{12230, "cells", Columns, 12210, "cells", EqualByRow, 4}, 4},
    {{12240, "cells", Columns, 12210, "cells", EqualByRow, 4}, 4},
    {{12270, "cells", Columns, 12260, "values", Equal}, 4},
    // Only some of the listed frequencies need be valid.
    {{12292, "values", Rows, 12290, "values", AtMost}, 2},
    {{12292, "values.correction", Columns, 12292, "values.level", Same}, 2},

    {{12301, "cells", Columns, 12300, "cells", Equal}},
    {{12302, "cells", Columns, 12300, "cells", Equal}},
    {{12303, "cells", Columns, 12300, "cells", Equal}},
    {{12304, "cells", Columns, 12300, "cells", Equal}},
    {{12306, "cells", Rows, 12305, "cells", Equal}},
    {{12306, "cells", Columns, 12300, "cells", Equal}},
    {{12307, "cells", Rows, 12305, "cells", Equal}},
    {{12307, "cells", Columns, 12300, "cells", Equal}},
    {{12308, "cells", Rows, 12305, "cells", Equal}},
    {{12308, "cells", Columns, 12300, "cells", Equal}},
    {{12314, "cells", Rows, 12313, "cells", Equal}},
    {{12315, "cells", Rows, 12313, "cells", Equal}},

    // The rear outputs, and the operation with I and Q swapped, have no frequencies of their own.
    {{13600, "values", Elements, 13500, "values", Equal}},
    {{13700, "values", Elements, 13500, "values", Equal}},
    {{14000, "values", Elements, 13900, "values", Equal}},
    {{14100, "values", Elements, 13900, "values", Equal}},
    {{14200, "values", Elements, 13900, "values", Equal}},
    {{14300, "values", Elements, 13900, "values", Equal}},
    {{14400, "values", Elements, 13500, "values", Equal}},
    {{14500, "values", Elements, 13500, "values", Equal}},
    {{14700, "values", Elements, 13900, "values", Equal}},
    {{14800, "values", Elements, 13900, "values", Equal}},
    {{14805, "cells", Columns, 14803, "cells", Equal}, 2},

    {{15021, "values", Elements, 15020, "values", Equal}},
    {{15023, "cells", Rows, 15022, "cells", Equal}},
    {{15601, "values", Elements, 15600, "values", Equal}, 4, true},
    {{15652, "entries.referenceOffset", Elements, 15652, "entries.gain", Same}},
    {{15652, "entries.detectorOffset", Elements, 15652, "entries.gain", Same}},

    {{15706, "cells", Columns, 15705, "cells", Equal}},
    {{15716, "cells", Columns, 15715, "cells", Equal}},
    {{15721, "cells", Rows, 15721, "indexColumn", Same}},
    {{15721, "cells", Columns, 15720, "cells", Equal}},
    {{15726, "cells", Columns, 15725, "cells", Equal}},
    {{15731, "cells", Columns, 15730, "cells", Equal}},
    {{15740, "cells", Columns, 15735, "cells", Equal}},
    {{15745, "cells", Columns, 15735, "cells", Equal}},
    {{15756, "cells", Rows, 15756, "indexColumn", Same}},
    {{15756, "cells", Columns, 15755, "cells", Equal}},
    {{15761, "cells", Rows, 15761, "indexColumn", Same}},
    {{15761, "cells", Columns, 15760, "cells", Equal}},
    {{15771, "cells", Rows, 15771, "indexColumn", Same}},
    {{15771, "cells", Columns, 15770, "cells", Equal}},
    // Each of the four columns has registers of its own.
    {{15799, "cells", Rows, 15798, "cells", Equal}},
    {{15801, "cells", Columns, 15800, "cells", Equal}},
    {{15811, "cells", Columns, 15810, "cells", Equal}},
    {{15821, "cells", Columns, 15820, "cells", Equal}},
    {{15831, "cells", Columns, 15830, "cells", Equal}},
    {{15841, "cells", Columns, 15840, "cells", Equal}},
    {{15843, "cells", Rows, 15843, "indexColumn", Same}},
    {{15843, "cells", Columns, 15842, "cells", Equal}},
    {{15845, "cells", Columns, 15844, "cells", Equal}},
    {{15853, "cells", Rows, 15851, "cells", Equal}, 10, true},
    {{15853, "cells", Columns, 15852, "cells", Equal}, 10, true},
    {{16001, "cells", Columns, 16000, "cells", Equal}},
    {{16003, "cells", Columns, 16002, "cells", Equal}},
};

// Texts of several lists tell two equal frequencies apart. Other boards' external calibrations may have such ones too.
constexpr AxisPoints points[] = {
    {10002, 10002, "values", "frequency", Strict},
    {10302, 10302, "values", "frequency", Strict},
    {10500, 10500, "values", "frequency", Strict},
    {10601, 10601, "values", "frequency", Strict},
    {10901, 10901, "values", "frequency", Strict},
    {11200, 11200, "values", "frequency", Strict},
    {11305, 11305, "cells", "frequency", Strict},
    {12040, 12040, "values", "frequency", Ascending},
    {12041, 12041, "cells", "level", Unknown},
    {12044, 12044, "values", "frequency", Ascending},
    {12046, 12046, "values", "frequency", Ascending},
    {12050, 12053, "values", "frequency", Ascending},
    {12070, 12071, "values", "frequency", Ascending},
    {12090, 12091, "values", "frequency", Ascending},
    {12100, 12103, "values", "frequency", Strict},
    {12150, 12153, "values", "frequency", Ascending},
    {12170, 12173, "values", "frequency", Strict},
    {12190, 12193, "values", "frequency", Strict},
    {12210, 12213, "cells", "frequency", Strict},
    {12260, 12263, "values", "frequency", Strict},
    {12290, 12291, "values", "frequency", Strict},
    {12292, 12293, "values.level", "level", Unknown},
    {12300, 12300, "cells", "frequency", Strict},
    {12305, 12305, "cells", "loop gain", Unknown},
    {12313, 12313, "cells", "frequency", Strict, "GHz"},
    {13500, 13500, "values", "frequency", Strict},
    {13900, 13900, "values", "frequency", Strict},
    {14803, 14804, "cells", "frequency", Ascending},
    {15020, 15020, "values", "frequency", Strict},
    {15022, 15022, "cells", "temperature", Strict},
    {15600, 15600, "values", "frequency", Strict},
    {15652, 15652, "entries.gain", "gain", Strict},
    {15705, 15705, "cells", "frequency", Strict},
    {15715, 15715, "cells", "frequency", Strict},
    {15720, 15720, "cells", "frequency", Strict},
    {15721, 15721, "indexColumn", "index", Unknown},
    {15725, 15725, "cells", "frequency", Ascending},
    {15730, 15730, "cells", "frequency", Strict},
    {15735, 15735, "cells", "frequency", Strict},
    {15755, 15755, "cells", "frequency", Strict},
    {15756, 15756, "indexColumn", "index", Unknown},
    {15760, 15760, "cells", "frequency", Strict},
    {15761, 15761, "indexColumn", "index", Unknown},
    {15770, 15770, "cells", "frequency", Strict},
    {15771, 15771, "indexColumn", "index", Unknown},
    {15798, 15798, "cells", "attenuation", Unknown},
    {15800, 15800, "cells", "frequency", Strict},
    {15810, 15810, "cells", "frequency", Strict},
    {15820, 15820, "cells", "frequency", Strict},
    {15830, 15830, "cells", "frequency", Strict},
    {15840, 15840, "cells", "frequency", Ascending},
    {15842, 15842, "cells", "frequency", Strict},
    {15843, 15843, "indexColumn", "index", Unknown},
    {15844, 15844, "cells", "frequency", Strict},
    {15851, 15851, "cells", "frequency", Strict},
    {15852, 15852, "cells", "level control", Unknown},
    {16000, 16000, "cells", "frequency", Ascending},
    {16002, 16002, "cells", "frequency", Ascending},
};
// clang-format on

static_assert(std::ranges::adjacent_find(points, [](const AxisPoints& point, const AxisPoints& next) {
                return point.firstId > point.lastId || point.lastId >= next.firstId;
              }) == std::ranges::end(points));

constexpr std::size_t pairCount = [] {
  std::size_t count = 0;
  for (const Series& one : series) count += one.ids;
  return count;
}();
using Pairs = std::array<BlockPair, pairCount>;

/// Sorts by an id and keeps the order of pairs with the same one. std::ranges::stable_sort is no constant expression.
constexpr Pairs sortedBy(Pairs pairs, unsigned short BlockPair::*id) {
  for (auto next = pairs.begin(); next != pairs.end(); ++next) {
    std::rotate(std::ranges::upper_bound(pairs.begin(), next, (*next).*id, {}, id), next, next + 1);
  }
  return pairs;
}

constexpr Pairs byValues = [] {
  Pairs pairs{};
  std::size_t place = 0;
  for (const Series& one : series) {
    for (unsigned number = 0; number < one.ids; ++number) pairs[place++] = one.pair(number);
  }
  return sortedBy(pairs, &BlockPair::valuesId);
}();
constexpr Pairs byAxis = sortedBy(byValues, &BlockPair::axisId);

constexpr const AxisPoints* findPoints(const BlockPair& pair) {
  const auto* const found = std::ranges::lower_bound(points, pair.axisId, {}, &AxisPoints::lastId);
  const bool isThere = found != std::ranges::end(points) && found->firstId <= pair.axisId &&
                       std::string_view(found->points) == pair.points;
  return isThere ? found : nullptr;
}
static_assert(std::ranges::all_of(byValues, findPoints), "of all points it is known what they are");

/// Returns the pairs with an id, of pairs sorted by it.
std::span<const BlockPair> findIn(const Pairs& pairs, int id, unsigned short BlockPair::*key) {
  const auto first = std::ranges::lower_bound(pairs, id, {}, key);
  return {first, std::ranges::upper_bound(first, pairs.end(), id, {}, key)};
}

}  // namespace

std::span<const BlockPair> blockPairs() { return byValues; }

std::span<const BlockPair> axesOf(int id) { return findIn(byValues, id, &BlockPair::valuesId); }

std::span<const BlockPair> valuesOver(int id) { return findIn(byAxis, id, &BlockPair::axisId); }

std::span<const AxisPoints> axisPoints() { return points; }

const AxisPoints& pointsOf(const BlockPair& pair) { return *findPoints(pair); }

}  // namespace Velk
