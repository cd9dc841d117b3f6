#pragma once

#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "velk/data/ValueAxes.h"
#include "velk/fields/Quantity.h"

namespace Velk {

/// What heads the points of a second-edition table.
inline constexpr const char* rowIdHeading = "row id";
inline constexpr const char* columnIdHeading = "column id";

/// Returns what heads the points of all axes that blocks with an id can have, such as "frequency [Hz]", or
/// "temperature" if no unit is known.
VELK_EXPORT std::set<std::string> axisHeadings(int id);

/// An axis of a field, with the point of each of its values.
class VELK_EXPORT FieldAxis {
 public:
  explicit FieldAxis(ValueAxis axis);
  /// Takes the ids of the rows or columns of a second-edition table in a block.
  FieldAxis(Axis direction, const DataNode& ids, ConstBytes block);

  /// Returns the quantity, and the unit in brackets if it is known: "frequency [Hz]".
  const std::string& heading() const { return heading_; }
  /// Returns whether there is a point for each column, not for each row.
  bool isAcross() const { return direction_ == Axis::Columns; }
  /// Returns whether the point of a value depends only on its row, or only on its column if the axis is across.
  bool isShared() const;
  /// Returns whether the points are the values of this field of the same block.
  bool isField(std::string_view path) const;

  /// Returns the point of a value in bytes(); nothing if it is not there, or its block is not sound.
  std::optional<FieldElement> point(ValuePlace value) const;
  /// Returns how many of `count` values of a list along the axis are in use; the first of them is at `value`.
  std::size_t valuesInUse(ValuePlace value, std::size_t count) const;
  ConstBytes bytes() const { return bytes_; }
  /// Returns the quantity in whose unit the points are shown.
  const Quantity& quantity() const { return quantity_; }

 private:
  std::variant<ValueAxis, DataNode> points_;
  Axis direction_;
  ConstBytes bytes_;
  Quantity quantity_;
  std::string heading_;
};

/// The values in use of one row of a field.
class VELK_EXPORT ValueRow {
 public:
  /// Returns the number of columns; 1 unless the field is a table.
  std::size_t size() const { return size_; }
  /// Returns a value; nothing if it is not there, as in the last row of a short block.
  std::optional<FieldElement> at(std::size_t column) const;

 private:
  friend class ValueField;

  /// One step from a node to a part of it: to a certain one, or to that of the row or column.
  struct Step {
    enum class To : unsigned char { Part, Row, Column } to;
    std::size_t index = 0;
  };
  using Steps = std::span<const Step>;

  ValueRow(std::size_t size, std::size_t blockSize) : size_(size), blockSize_(blockSize) {}
  static std::optional<DataNode> follow(DataNode node, Steps steps, ValuePlace place);

  std::size_t size_;
  std::size_t blockSize_;
  std::optional<FieldElement> first_{};  ///< of values that are stored one after another
  std::optional<DataNode> start_{};      ///< of any others
  Steps steps_{};                        ///< from there to a value
};

/// The values in use of one field: a single value, or a list with a row for each element, or a table.
///
/// Lists in a list are a table. Deeper ones are fields of their own, one for each element. Values that nothing counts
/// are in use as far as there are points for them.
class VELK_EXPORT ValueField {
 public:
  /// Returns the path without the indices that are a row and a column: "values", "blocks.gain", "tables[0].cells",
  /// "cells.coefficients[2]".
  const std::string& path() const { return path_; }
  /// Returns 0 for a single value, 1 for a list, 2 for a table.
  unsigned rank() const { return rank_; }
  /// Returns the number of rows; 1 for a single value.
  std::size_t rows() const { return rows_; }
  /// Returns a row, which views the field; `index` must be below rows().
  ValueRow row(std::size_t index) const;
  std::optional<FieldElement> at(ValuePlace place) const { return row(place.row).at(place.column); }
  /// Returns the axes, rows before columns.
  const std::vector<FieldAxis>& axes() const { return axes_; }
  /// Returns the text of a list that is written as one value, such as a network address; nothing for any other field.
  const std::optional<std::string>& text() const { return text_; }

 private:
  friend class FieldCollector;
  using Step = ValueRow::Step;
  using Steps = ValueRow::Steps;

  explicit ValueField(const BlockData& data) : start_(data.root()), blockSize_(data.bytes().size()) {}
  /// Returns the steps up to a row or column, or all if there is none, and the others.
  std::pair<Steps, Steps> splitAt(Step::To to) const;
  void findRows();
  void findFirst(const DataNode& list, Steps toValue);

  DataNode start_;
  std::size_t blockSize_;
  std::vector<Step> steps_{};  ///< from there to a value
  std::string path_{};
  std::string plainPath_{};  ///< without any index
  unsigned rank_ = 0;
  std::size_t rows_ = 1;
  std::optional<FieldElement> first_{};  ///< of a list of values that are stored at equal distances
  std::size_t distance_ = 0;             ///< bytes from one of these to the next
  std::vector<FieldAxis> axes_{};
  std::optional<std::string> text_{};
};

/// The values in use of a block, field by field, with the points that they belong to. Fields that count others are left
/// out. Blocks whose bytes have no known meaning have no fields.
class VELK_EXPORT ValueTable {
 public:
  /// `occurrence` is counted from 0 among the blocks of the same id. The image must outlive the table.
  ValueTable(const BlockView& block, std::size_t occurrence, const ImageAxes& axes);

  const std::vector<ValueField>& fields() const& { return fields_; }
  void fields() const&& = delete;  // they view the table
  ConstBytes bytes() const { return data_.bytes(); }

 private:
  BlockData data_;
  std::vector<ValueField> fields_;
};

}  // namespace Velk
