#include "velk/layer/RecordText.h"

#include <ostream>
#include <string>

#include "velk/fields/ScalarDispatch.h"

namespace Velk::detail {
namespace {

template <class T>
T element(ConstBytes block, const FieldInfo& field, std::int64_t index) {
  const std::int64_t capacity = std::int64_t{field.rows} * field.cols;
  return index < capacity ? loadPadded<T>(block, field.offset + static_cast<std::size_t>(index) * sizeof(T)) : T{};
}

template <class T>
void writeValue(TextWriter& text, T value, int decimals) {
  if (decimals >= 0) {
    text.fixed(static_cast<double>(value), decimals);
  } else if constexpr (std::is_integral_v<T>) {
    text.number(value);
  } else {
    text.general(static_cast<double>(value));
  }
}

std::int64_t storedCount(ConstBytes block, const FieldInfo& count) {
  return integerValue(block, {&count, count.offset});
}

/// "EXT_CAL_DAT_A_LEVEL" names its companion "COUNT_OF_EXT_CAL_DAT_A_FREQ".
std::string companionCount(std::string key, std::string_view word) {
  const std::size_t at = key.find(word);
  if (at == key.npos) return key;
  return "COUNT_OF_" + key.replace(at, word.size(), "FREQ");
}

void printComments(TextWriter& text, std::span<const char* const> comments) {
  for (const char* const comment : comments) {
    if (comment != nullptr) text.line(comment);
  }
}

void printRecordFields(TextWriter& text, ConstBytes block, std::span<const FieldInfo> fields, std::size_t offset,
                       const std::string& path);

void printElement(TextWriter& text, ConstBytes block, FieldElement element, const std::string& name) {
  const FieldInfo& field = *element.field;
  if (field.type == ScalarType::Record) {
    return printRecordFields(text, block, field.members, element.offset, name + '.');
  }
  text.key(name + ": ").text(fieldText(block, element, ValueForm::Presented));
  if (*field.unit != '\0') text.text(" ").text(field.unit);
  text.endLine();
}

void printElements(TextWriter& text, ConstBytes block, FieldElement first, const std::string& name, std::size_t rows,
                   std::size_t columns) {
  const FieldInfo& field = *first.field;
  for (std::size_t row = 0; row < rows; ++row) {
    const std::string rowName = field.rank == 0 ? name : name + '[' + std::to_string(row) + ']';
    for (std::size_t column = 0; column < columns && text.ok(); ++column) {
      const std::size_t index = row * field.cols + column;
      printElement(text, block, {&field, first.offset + index * field.stride},
                   field.rank < 2 ? rowName : rowName + '[' + std::to_string(column) + ']');
    }
  }
}

void printRecordFields(TextWriter& text, ConstBytes block, std::span<const FieldInfo> fields, std::size_t offset,
                       const std::string& path) {
  for (const FieldInfo& field : fields) {
    const std::size_t at = offset + field.offset;
    const std::size_t capacity = field.openEnded ? roomFor(field, at, block.size()) : field.rows;
    const std::size_t rows = elementsInUse(block, fields, offset, field.usedRows, capacity);
    const std::size_t columns = elementsInUse(block, fields, offset, field.usedCols, field.cols);
    // A single value is shown whatever its count.
    printElements(text, block, {&field, at}, path + field.name, field.rank == 0 ? 1 : rows, columns);
  }
}

}  // namespace

std::ostream& printFields(std::ostream& os, ConstBytes block, const RecordTraits& traits) {
  TextWriter text(os);
  printHeading(text, block, traits);
  printRecordFields(text, block, traits.fields, 0, "");
  text.endLine();
  return os;
}

void printHeading(TextWriter& text, ConstBytes block, const RecordTraits& traits) {
  printComments(text, traits.text.comments);
  const auto id = load<unsigned short>(block, offsetof(HwSDatablockHeader, id));
  text.key("ID:", traits.text.idWidth).text(traits.key(id)).endLine();
}

double presentedValue(ConstBytes block, const FieldInfo& values, const TextForm& form, std::int64_t index) {
  if (static_cast<std::uint64_t>(index) >= values.rows) return 0;
  const auto stored = element<unsigned>(block, values, index);
  const bool isTwin = index > 0 && stored == element<unsigned>(block, values, index - 1);
  return Velk::presentedValue(values, stored) + (isTwin ? form.twinStep : 0);
}

std::ostream& printList(std::ostream& os, ConstBytes block, const RecordTraits& traits) {
  const FieldInfo& countField = traits.fields[0];
  const FieldInfo& values = traits.fields[1];
  const TextForm& form = traits.text;
  const std::int64_t count = storedCount(block, countField);
  TextWriter text(os);
  printHeading(text, block, traits);
  if (form.countWidth != 0) text.key(form.countKey, form.countWidth).number(count).endLine();
  withScalarType(values.type, [&]<class T>(T) {
    for (std::int64_t i = 0; i < count && text.ok(); ++i) {
      text.text(form.rowKey).number(i + form.firstRow).text(form.separator);
      if (values.scale != 1) {
        text.fixed(presentedValue(block, values, form, i), form.decimals);
      } else {
        writeValue(text, element<T>(block, values, i), form.decimals);
      }
      text.endLine();
    }
  });
  text.endLine();
  return os;
}

std::ostream& printGrid(std::ostream& os, ConstBytes block, const RecordTraits& traits) {
  const FieldInfo& cells = traits.fields[1];
  const TextForm& form = traits.text;
  const auto steps = loadPadded<unsigned>(block, traits.fields[0].offset);
  TextWriter text(os);
  printHeading(text, block, traits);
  printTableCount(text, block, traits, steps);
  printColumnComments(text, form);
  printRows(text, block, cells, form, steps, cells.cols);
  text.endLine();
  return os;
}

void printTableCount(TextWriter& text, ConstBytes block, const RecordTraits& traits, unsigned steps) {
  const TextForm& form = traits.text;
  const auto id = load<unsigned short>(block, offsetof(HwSDatablockHeader, id));
  text.key(form.countKey, form.countWidth).number(steps).text(form.countJoint);
  text.text(companionCount(traits.key(id), form.countWord)).endLine();
}

void printColumnComments(TextWriter& text, const TextForm& form) { printComments(text, form.columnComments); }

void printRows(TextWriter& text, ConstBytes block, const FieldInfo& cells, const TextForm& form, std::uint64_t rows,
               std::uint64_t columns) {
  withScalarType(cells.type, [&]<class T>(T) {
    for (std::uint64_t row = 0; row < rows && text.ok(); ++row) {
      text.text(form.rowKey).number(form.firstRow + row * form.rowStep).text(form.separator);
      for (std::uint64_t column = 0; column < columns && text.ok(); ++column) {
        const bool exists = row < cells.rows && column < cells.cols;
        const T value = exists ? element<T>(block, cells, static_cast<std::int64_t>(row * cells.cols + column)) : T{};
        text.text("\t\t ");
        writeValue(text, value, form.decimals);
      }
      text.endLine();
    }
  });
}

}  // namespace Velk::detail
