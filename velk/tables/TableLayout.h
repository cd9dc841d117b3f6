#pragma once

#include <array>
#include <limits>

#include "velk/bytes/NumberConversion.h"
#include "velk/layer/HwRecordBlock.h"

namespace Velk {

static_assert(std::is_signed_v<char>, "cells of type char are signed numbers");

/// A table image: the bytes of one table block. `rows` and `cols` are the numbers in use; they are not limited to the
/// capacity.
template <class StorageType, unsigned MaxRows, unsigned MaxCols>
struct VELK_RECORD HwSTable {
  HwSDatablockHeader header;
  unsigned int rows;
  unsigned int cols;
  StorageType cells[MaxRows][MaxCols];

  bool operator==(const HwSTable&) const = default;

  static constexpr std::array<FieldInfo, 3> fields(double scale) {
    return {VELK_FIELD(HwSTable, rows), VELK_FIELD(HwSTable, cols),
            VELK_FIELD(HwSTable, cells).in("", scale).counted("rows", "cols")};
  }
};

/// A table image whose rows are labelled by an index column.
template <class StorageType, unsigned MaxRows, unsigned MaxCols>
struct VELK_RECORD HwSTableIndex {
  HwSDatablockHeader header;
  unsigned int rows;
  unsigned int cols;
  StorageType cells[MaxRows][MaxCols];
  int indexColumn[MaxRows];

  bool operator==(const HwSTableIndex&) const = default;

  static constexpr std::array<FieldInfo, 4> fields(double scale) {
    return {VELK_FIELD(HwSTableIndex, rows), VELK_FIELD(HwSTableIndex, cols),
            VELK_FIELD(HwSTableIndex, cells).in("", scale).counted("rows", "cols"),
            VELK_FIELD(HwSTableIndex, indexColumn).counted("rows")};
  }
};

/// The size of a descriptor in bytes; a text that fills it has no terminating zero.
inline constexpr unsigned descriptorSize = 16;

/// A table image with texts that describe it.
template <class StorageType, unsigned Descriptors, unsigned MaxRows, unsigned MaxCols>
struct VELK_RECORD HwSTableExtended {
  HwSDatablockHeader header;
  char descriptors[Descriptors][descriptorSize];
  unsigned int rows;
  unsigned int cols;
  StorageType cells[MaxRows][MaxCols];

  bool operator==(const HwSTableExtended&) const = default;

  static constexpr std::array<FieldInfo, 4> fields(double scale) {
    return {VELK_FIELD(HwSTableExtended, descriptors).asText().personal(), VELK_FIELD(HwSTableExtended, rows),
            VELK_FIELD(HwSTableExtended, cols),
            VELK_FIELD(HwSTableExtended, cells).in("", scale).counted("rows", "cols")};
  }
};

namespace detail {

/// An offset outside every block: loads return 0 and stores do nothing.
inline constexpr std::size_t nowhere = std::numeric_limits<std::size_t>::max();

/// The layout of the images of one kind of table, and the form of their dump, as data.
struct TableLayout {
  RecordTraits record;
  unsigned rowCapacity;
  unsigned colCapacity;
  std::size_t rowsOffset;
  std::size_t colsOffset;
  std::size_t cellsOffset;
  std::size_t cellSize;
  /// Returns the presented value of the cell at an offset. A double holds the values of every value type exactly.
  double (*present)(ConstBytes block, std::size_t cell, double scale);
  std::size_t descriptorsOffset = nowhere;
  unsigned descriptorCount = 0;
  std::size_t indexOffset = nowhere;
  int decimals;
  bool alwaysWide;  ///< one line per row even if the rows outnumber the columns

  constexpr std::size_t cellCount() const { return std::size_t{rowCapacity} * colCapacity; }
  constexpr std::size_t cell(std::uint64_t row, std::uint64_t col) const {
    return row < rowCapacity && col < colCapacity ? cellsOffset + (row * colCapacity + col) * cellSize : nowhere;
  }
  constexpr std::size_t index(std::uint64_t row) const {
    return hasIndex() && row < rowCapacity ? indexOffset + row * sizeof(int) : nowhere;
  }
  constexpr std::size_t descriptor(std::uint64_t number) const {
    return number < descriptorCount ? descriptorsOffset + number * descriptorSize : nowhere;
  }
  constexpr bool hasIndex() const { return indexOffset != nowhere; }
};

/// Returns stored * scale, computed in extended precision and converted to the value type.
template <class StorageType, class ValueType>
double present(ConstBytes block, std::size_t cell, double scale) {
  const long double stored = loadPadded<StorageType>(block, cell);
  const long double value = Velk::presentedValue<Rounding::Product>({.factor = scale}, stored);
  if constexpr (std::is_integral_v<ValueType>) {
    return toInteger<ValueType>(value);
  } else {
    return static_cast<ValueType>(value);
  }
}

template <class Image>
using StorageTypeOf = std::remove_all_extents_t<decltype(Image::cells)>;

template <class Image, class ValueType>
constexpr TableLayout layoutOf(int decimals, bool alwaysWide) {
  TableLayout layout{.record = {.size = sizeof(Image)},
                     .rowCapacity = std::extent_v<decltype(Image::cells), 0>,
                     .colCapacity = std::extent_v<decltype(Image::cells), 1>,
                     .rowsOffset = offsetof(Image, rows),
                     .colsOffset = offsetof(Image, cols),
                     .cellsOffset = offsetof(Image, cells),
                     .cellSize = sizeof(StorageTypeOf<Image>),
                     .present = present<StorageTypeOf<Image>, ValueType>,
                     .decimals = decimals,
                     .alwaysWide = alwaysWide};
  if constexpr (requires { Image::descriptors; }) {
    layout.descriptorsOffset = offsetof(Image, descriptors);
    layout.descriptorCount = std::extent_v<decltype(Image::descriptors)>;
  }
  if constexpr (requires { Image::indexColumn; }) {
    layout.indexOffset = offsetof(Image, indexColumn);
    layout.alwaysWide = true;
  }
  return layout;
}

/// Reads a table in a block's bytes, which may be fewer than the layout has.
class TableView {
 public:
  TableView(const TableLayout& layout, double scale, ConstBytes block)
      : layout_(layout), scale_(scale), block_(block) {}

  const TableLayout& layout() const { return layout_; }
  unsigned rows() const { return loadPadded<unsigned>(block_, layout_.rowsOffset); }
  unsigned cols() const { return loadPadded<unsigned>(block_, layout_.colsOffset); }
  /// Returns the presented value; 0 outside the capacity.
  double value(std::uint64_t row, std::uint64_t col) const {
    return layout_.present(block_, layout_.cell(row, col), scale_);
  }
  /// Returns a row's entry in the index column; 0 outside the capacity.
  int index(std::uint64_t row) const { return loadPadded<int>(block_, layout_.index(row)); }
  /// Returns a descriptor up to its first zero byte, as far as the block holds it.
  std::string_view descriptor(unsigned number) const {
    return textAt(block_, layout_.descriptor(number), descriptorSize);
  }

 private:
  const TableLayout& layout_;
  double scale_;
  ConstBytes block_;
};

}  // namespace detail
}  // namespace Velk
