#pragma once

#include <iosfwd>

#include "velk/layer/HwRecordBlock.h"
#include "velk/text/TextWriter.h"

namespace Velk::detail {

/// Writes those of the lines that are not null.
void printComments(TextWriter& text, std::span<const char* const> comments);

/// Writes the comment lines and the ID line of a record.
void printHeading(TextWriter& text, ConstBytes block, const RecordTraits& traits);

/// Writes the key of a field as "SN:", with the blanks after it.
TextWriter& printKey(TextWriter& text, const FieldInfo& field, std::size_t width = TextWriter::keyWidth);

/// Writes the key of a field and its value, but does not end the line.
TextWriter& printKeyed(TextWriter& text, ConstBytes block, const FieldInfo& field,
                       std::size_t width = TextWriter::keyWidth);

/// Writes the whole text of a record of which each line is a field with a key; each element of a list has its line.
std::ostream& printKeyedFields(std::ostream& os, ConstBytes block, const RecordTraits& traits,
                               std::size_t width = TextWriter::keyWidth);

/// Writes the whole text of a record of any fields: a line for each value in use, with its name, value and unit.
std::ostream& printFields(std::ostream& os, ConstBytes block, const RecordTraits& traits);

/// Returns an element of a list or table field, counted row by row; 0 past the capacity.
template <class T>
T elementAt(ConstBytes block, const FieldInfo& field, std::uint64_t index) {
  const std::uint64_t capacity = std::uint64_t{field.rows} * field.cols;
  return index < capacity ? loadPadded<T>(block, field.offset + static_cast<std::size_t>(index) * sizeof(T)) : T{};
}

/// Writes an integer in decimal, another number in general notation.
template <class T>
void printNumber(TextWriter& text, T value) {
  if constexpr (std::is_integral_v<T>) {
    text.number(value);
  } else {
    text.general(static_cast<double>(value));
  }
}

/// How many rows and columns of a table are written, whatever its capacity, and how its rows are numbered.
struct RowRange {
  std::uint64_t rows;
  std::uint64_t columns;
  unsigned first = 1;
  unsigned step = 1;
};

/// Writes rows of a table: a line a row with its number and its values, each after two tabs and a blank. Values past
/// the capacity are 0.
void printRows(TextWriter& text, ConstBytes block, const FieldInfo& cells, const RowRange& range);

}  // namespace Velk::detail
