#include "velk/layer/RecordText.h"

#include <ostream>
#include <string>

#include "velk/fields/Notation.h"
#include "velk/fields/ScalarDispatch.h"

namespace Velk::detail {
namespace {

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

void printComments(TextWriter& text, std::span<const char* const> comments) {
  for (const char* const comment : comments) {
    if (comment != nullptr) text.line(comment);
  }
}

TextWriter& printKey(TextWriter& text, const FieldInfo& field, std::size_t width) {
  return text.text(field.key).text(":").padTo(width);
}

TextWriter& printKeyed(TextWriter& text, ConstBytes block, const FieldInfo& field, std::size_t width) {
  return printKey(text, field, width).text(writtenText(block, {&field, field.offset}));
}

std::ostream& printKeyedFields(std::ostream& os, ConstBytes block, const RecordTraits& traits, std::size_t width) {
  TextWriter text(os);
  printHeading(text, block, traits);
  for (const FieldInfo& field : traits.fields) {
    for (std::size_t i = 0; *field.key != '\0' && i < field.rows; ++i) {
      const std::size_t offset = field.offset + i * field.stride;
      printKey(text, field, width).text(writtenText(block, {&field, offset})).endLine();
    }
  }
  text.endLine();
  return os;
}

std::ostream& printFields(std::ostream& os, ConstBytes block, const RecordTraits& traits) {
  TextWriter text(os);
  printHeading(text, block, traits);
  printRecordFields(text, block, traits.fields, 0, "");
  text.endLine();
  return os;
}

void printHeading(TextWriter& text, ConstBytes block, const RecordTraits& traits) {
  printComments(text, traits.comments);
  const auto id = load<unsigned short>(block, offsetof(HwSDatablockHeader, id));
  text.key("ID:", traits.idWidth).text(traits.key(id)).endLine();
}

void printRows(TextWriter& text, ConstBytes block, const FieldInfo& cells, const RowRange& range) {
  withScalarType(cells.type, [&]<class T>(T) {
    for (std::uint64_t row = 0; row < range.rows && text.ok(); ++row) {
      text.number(range.first + row * range.step).text(": ");
      for (std::uint64_t column = 0; column < range.columns && text.ok(); ++column) {
        const bool exists = row < cells.rows && column < cells.cols;
        text.text("\t\t ");
        printNumber(text, exists ? elementAt<T>(block, cells, row * cells.cols + column) : T{});
      }
      text.endLine();
    }
  });
}

}  // namespace Velk::detail
