#pragma once

#include <map>

#include "velk/data/BlockData.h"
#include "velk/oldstyle/BlockPairs.h"

namespace Velk {

/// Where a value is in its list (row) or table (row and column).
struct ValuePlace {
  std::size_t row = 0;
  std::size_t column = 0;
};

/// The points over which the values of a field lie along one axis.
class VELK_EXPORT ValueAxis {
 public:
  /// `points` is the block that has them; null if it is not there, or not sound.
  ValueAxis(const BlockPair& pair, const BlockView* points);

  const BlockPair& pair() const { return *pair_; }
  const AxisPoints& what() const { return pointsOf(*pair_); }
  /// Returns the unit of the presented points; empty if it is not known.
  const char* unit() const;
  /// Returns the bytes of the block that has the points.
  ConstBytes bytes() const { return bytes_; }
  /// Returns the point of a value in those bytes; nothing if the points are not there, or not as many.
  std::optional<FieldElement> point(ValuePlace value) const;
  /// Returns whether there is one list of points, so that the point of a value depends only on its row, or only on its
  /// column.
  bool isShared() const { return !isTable(); }
  /// Returns how many values of the list of `value` along the axis are in use, as the number of points says; nothing if
  /// the values have a count of their own, or if the points are not there.
  std::optional<std::size_t> valuesInUse(ValuePlace value) const;

 private:
  bool isTable() const { return list_ != nullptr && list_->rank > 1 && list_->cols > 1; }
  /// Returns the index of the list of points that a value belongs to.
  std::size_t listOf(ValuePlace value) const;
  std::size_t countOfPoints(std::size_t list) const;

  const BlockPair* pair_;
  ConstBytes bytes_{};
  std::span<const FieldInfo> fields_{};
  const FieldInfo* list_ = nullptr;    ///< of the points, or of the records that have them
  const FieldInfo* points_ = nullptr;  ///< the points themselves
};

/// Finds the blocks with the points that belong to the values of an image's blocks.
///
/// The points are those of the sound block with the same occurrence among those of its id as the block of the values;
/// of the first one if there are fewer. Takes one walk of the image, whose bytes must outlive it.
class VELK_EXPORT ImageAxes {
 public:
  explicit ImageAxes(const MemoryImage& image);

  /// Returns the axes of the values at a path without indices, such as "values" or "blocks.gain", rows before columns.
  /// `occurrence` is counted from 0 among the blocks of the same id.
  std::vector<ValueAxis> axesOf(const BlockView& block, std::size_t occurrence, std::string_view path) const;

 private:
  std::map<unsigned short, std::vector<BlockView>> lists_;  ///< sound blocks with points, by id
};

}  // namespace Velk
