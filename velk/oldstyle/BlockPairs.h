#pragma once

#include <span>

#include "velk/Export.h"

namespace Velk {

/// Which way an axis runs along the values of a field.
enum class Axis : unsigned char {
  Elements,  ///< a point for each element of a list
  Rows,      ///< a point for each row of a table
  Columns,   ///< a point for each column of a table
};

/// How the number of values in use along an axis goes with the number of points in use.
enum class PairCount : unsigned char {
  Equal,       ///< each block counts its own, and the counts are equal
  EqualByRow,  ///< the same for each row of the points; the field `counts` of each block has the counts
  AtMost,      ///< each block counts its own; there may be fewer values than points
  Points,      ///< only the points are counted
  Same,        ///< the values and the points are in one record, which has one count for both
};

/// A field whose values belong to points that are stored elsewhere: in another block, or in another field of theirs.
///
/// The points are a list (or a table of one column), or a table themselves. Then each row of the values has points of
/// its own if the axis runs along the columns, and each column if it runs along the rows.
struct BlockPair {
  unsigned short valuesId;
  const char* values;  ///< path of the field: "values", "cells", "entries.detectorOffset"
  Axis axis;
  unsigned short axisId;  ///< the same as `valuesId` if one block has both
  const char* points;     ///< path of the field
  PairCount count;
  unsigned char rowsPerList = 1;  ///< rows of the values, one after another, that share a row of the points
};

/// Whether points can be out of order.
enum class PointOrder : unsigned char {
  Unknown,
  Ascending,  ///< two neighbours may be equal
  Strict,     ///< each is above the one before it
};

/// What the points of one block, or of consecutive ones, are.
struct AxisPoints {
  unsigned short firstId;
  unsigned short lastId;
  const char* points;    ///< path of the field
  const char* quantity;  ///< such as "frequency"
  PointOrder order;
  const char* unit = "";  ///< of the presented points if their field has none; empty if none is known
};

/// Returns all pairs, in ascending order of `valuesId`. Those of one block are in the order of its fields, the rows of
/// a table before its columns.
VELK_EXPORT std::span<const BlockPair> blockPairs();

/// Returns the pairs whose values are in blocks with this id.
VELK_EXPORT std::span<const BlockPair> axesOf(int id);

/// Returns the pairs whose points are in blocks with this id, in ascending order of `valuesId`.
VELK_EXPORT std::span<const BlockPair> valuesOver(int id);

/// Returns what all points are, in ascending order of their ids.
VELK_EXPORT std::span<const AxisPoints> axisPoints();

/// Returns what the points of a pair are.
VELK_EXPORT const AxisPoints& pointsOf(const BlockPair& pair);

}  // namespace Velk
