#pragma once

#include "velk/tables/HwTableBlock.h"

namespace Velk {

/// A table whose images have type `Image` and whose cells are presented as `Value`. Its dump has `decimals` decimals;
/// with `alwaysWide` it has one line per row, whatever the table's shape.
template <class Image, class Value, int decimals = 3, bool alwaysWide = false>
class VELK_EXPORT HwTypedTableBlock : public HwTableBlock {
 public:
  using TableImage = Image;
  using StorageType = detail::StorageTypeOf<Image>;

  static constexpr detail::TableLayout layout = detail::layoutOf<Image, Value>(decimals, alwaysWide);

  explicit HwTypedTableBlock(const TableTraits& traits, bool stopConversionOnError, int idOffset = 0)
      : HwTableBlock(layout, traits, stopConversionOnError, idOffset) {}

  /// Copies an image and returns 0 if its checksum is valid. Otherwise reports an error, leaves the block unchanged and
  /// returns 1. The block gets the size of its class, and alignment 0.
  int setBlock(const Image* image) { return setRecord(image); }

  using HwDatablock::swapBlock;
  /// Copies an image without a check, with the size that it claims, and sets the alignment to 0.
  void swapBlock(const Image* image) { swapImage(image); }

  StorageType getStoredValue(std::int64_t row, std::int64_t col) const {
    return loadPadded<StorageType>(cell(row, col));
  }
  void setStoredValue(StorageType value, std::int64_t row, std::int64_t col) { storeField(cell(row, col), value); }
  /// Returns the stored value times the scale; an integer type drops the fraction. The product is rounded as by
  /// Rounding::Product, so it may differ from the exported field in the last digit.
  Value getValue(std::int64_t row, std::int64_t col) const {
    return static_cast<Value>(layout.present(bytes(), cell(row, col), getScale()));
  }

 private:
  static constexpr std::size_t cell(std::int64_t row, std::int64_t col) {
    return layout.cell(static_cast<std::uint64_t>(row), static_cast<std::uint64_t>(col));
  }
};

/// The scale of tables of this shape if a caller gives only their name and id.
template <class StorageType, class ValueType, unsigned MaxRows, unsigned MaxCols>
inline constexpr double usualScale = 1.0;
template <>
inline constexpr double usualScale<int, double, 1, 128> = 0.01;
template <>
inline constexpr double usualScale<unsigned int, double, 128, 1> = 100.0;

/// A table of `MaxRows` by `MaxCols` cells, stored as one type and presented as another. Lists have one column.
template <class StorageType, class ValueType, unsigned MaxRows, unsigned MaxCols>
class VELK_EXPORT HwDatablockBaseTemplate
    : public HwTypedTableBlock<HwSTable<StorageType, MaxRows, MaxCols>, ValueType> {
  using Base = HwTypedTableBlock<HwSTable<StorageType, MaxRows, MaxCols>, ValueType>;

 public:
  using Base::Base;
  HwDatablockBaseTemplate(const char* blockString, unsigned blockId, bool stopConversionOnError)
      : Base({.id = static_cast<unsigned short>(blockId),
              .key = blockString,
              .scale = usualScale<StorageType, ValueType, MaxRows, MaxCols>},
             stopConversionOnError) {}
};

/// A table whose rows are labelled by a column of integers.
template <class StorageType, class ValueType, unsigned MaxRows, unsigned MaxCols>
class VELK_EXPORT HwDatablockBaseTemplateIndex
    : public HwTypedTableBlock<HwSTableIndex<StorageType, MaxRows, MaxCols>, ValueType> {
  using Base = HwTypedTableBlock<HwSTableIndex<StorageType, MaxRows, MaxCols>, ValueType>;

 public:
  using Base::Base;

  int getIndex(std::int64_t row) const { return this->template loadPadded<int>(place(row)); }
  void setIndex(int label, std::int64_t row) { this->storeField(place(row), label); }

 private:
  static constexpr std::size_t place(std::int64_t row) { return Base::layout.index(static_cast<std::uint64_t>(row)); }
};

/// A table with texts that describe it.
template <class StorageType, class ValueType, unsigned Descriptors, unsigned MaxRows, unsigned MaxCols>
class VELK_EXPORT HwDatablockBaseTemplateExtended
    : public HwTypedTableBlock<HwSTableExtended<StorageType, Descriptors, MaxRows, MaxCols>, ValueType> {
  using Base = HwTypedTableBlock<HwSTableExtended<StorageType, Descriptors, MaxRows, MaxCols>, ValueType>;

 public:
  using Base::Base;

  static constexpr unsigned getDescriptorCount() { return Descriptors; }
  /// Returns a descriptor up to its first zero byte; empty if `number` is past the last one.
  std::string getDescriptor(unsigned number) const {
    return std::string(this->loadText(Base::layout.descriptor(number), descriptorSize));
  }
  /// Sets a descriptor to the first 16 bytes of `text`.
  void setDescriptor(const QByteArray& text, unsigned number) {
    if (number < Descriptors) this->storeText(Base::layout.descriptor(number), descriptorSize, text);
  }
};

/// A table that can be exchanged as text. `Table` is the class itself, `Base` the template for its cells.
template <class Table, class Base>
class VELK_EXPORT HwExchangeTable : public Base {
 public:
  using Base::Base;
  using Base::conv2ascii;

  /// Writes the text that searchascii reads.
  static std::ostream& conv2ascii(std::ostream& os, Table& block) { return block.writeExchangeText(os); }
  /// Replaces the whole table with one read from a text; see readExchangeText.
  static std::istream& searchascii(std::istream& is, Table& block) { return block.readExchangeText(is); }
};

/// A table of fine values, printed with ten decimals and one line per row.
template <class StorageType, class ValueType, unsigned MaxRows, unsigned MaxCols>
class VELK_EXPORT HwDatablockBaseTemplateObelW
    : public HwTypedTableBlock<HwSTable<StorageType, MaxRows, MaxCols>, ValueType, 10, true> {
  using Base = HwTypedTableBlock<HwSTable<StorageType, MaxRows, MaxCols>, ValueType, 10, true>;

 public:
  using Base::Base;
};

}  // namespace Velk
