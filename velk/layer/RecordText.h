#pragma once

#include <iosfwd>

#include "velk/layer/HwRecordBlock.h"
#include "velk/text/TextWriter.h"

namespace Velk::detail {

/// Writes the comment lines and the ID line of a record.
void printHeading(TextWriter& text, ConstBytes block, const RecordTraits& traits);

/// Writes the whole text of a record of any fields: a line for each value in use, with its name, value and unit.
std::ostream& printFields(std::ostream& os, ConstBytes block, const RecordTraits& traits);

/// Writes the whole text of a record whose fields are a count and a list of values: one line per value, as many as the
/// count says. Values past the capacity are 0.
VELK_EXPORT std::ostream& printList(std::ostream& os, ConstBytes block, const RecordTraits& traits);

/// Writes the whole text of a record with a number of steps and a table: one line per step, with all its columns.
VELK_EXPORT std::ostream& printGrid(std::ostream& os, ConstBytes block, const RecordTraits& traits);

/// Writes the COUNT line of a table: its steps, and the name of the count of its companion list of frequencies.
void printTableCount(TextWriter& text, ConstBytes block, const RecordTraits& traits, unsigned steps);

/// Writes the lines between a table's COUNT line and its rows.
void printColumnComments(TextWriter& text, const TextForm& form);

/// Writes `rows` rows of a table with `columns` values each, whatever its capacity: one line per row, with its number
/// and its values, each after two tabs and a blank. Values past the capacity are 0.
VELK_EXPORT void printRows(TextWriter& text, ConstBytes block, const FieldInfo& cells, const TextForm& form,
                           std::uint64_t rows, std::uint64_t columns);

/// Returns a value of a list as its text presents it: scaled, and increased by the twin step if the value before it is
/// stored alike. Returns 0 past the capacity.
VELK_EXPORT double presentedValue(ConstBytes block, const FieldInfo& values, const TextForm& form, std::int64_t index);

}  // namespace Velk::detail
