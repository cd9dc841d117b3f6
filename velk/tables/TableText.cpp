#include "velk/tables/TableText.h"

#include <ostream>

#include "velk/text/TextWriter.h"

namespace Velk::detail {
namespace {

// The row and column counts are what the block claims, up to billions: every loop over them stops when the stream
// fails, and rows that have no columns, and so write nothing, are not iterated over.

/// Writes one line per row: what `label` writes, then the cells.
template <class Label, class Cell>
void writeRows(TextWriter& text, const TableView& table, Label label, Cell cell) {
  const std::uint64_t rows = table.rows();
  const std::uint64_t cols = table.cols();
  for (std::uint64_t row = 0; row < rows && text.ok(); ++row) {
    label(row);
    for (std::uint64_t col = 0; col < cols && text.ok(); ++col) cell(table.value(row, col));
    text.endLine();
  }
}

/// Writes one line per cell, labelled with the number of its row.
template <class Cell>
void writeCells(TextWriter& text, const TableView& table, Cell cell) {
  const std::uint64_t cols = table.cols();
  const std::uint64_t rows = cols == 0 ? 0 : table.rows();
  for (std::uint64_t row = 0; row < rows && text.ok(); ++row) {
    for (std::uint64_t col = 0; col < cols && text.ok(); ++col) {
      text.number(row + 1).text(":  ");
      cell(table.value(row, col));
      text.endLine();
    }
  }
}

void writeCount(TextWriter& text, const TableView& table, std::string_view star) {
  text.text("COUNT:  ").number(table.rows()).text(star).number(table.cols()).endLine();
}

void writeDescriptors(TextWriter& text, const TableView& table) {
  const unsigned count = table.layout().descriptorCount;
  if (count == 0) return;
  text.endLine();
  for (unsigned i = 0; i < count; ++i) {
    text.text("DESCRIPTOR").number(i + 1).text(": ").line(table.descriptor(i));
  }
  text.endLine();
  text.endLine();
}

void writeComments(TextWriter& text, int lines) {
  for (int i = 0; i < lines; ++i) text.line("#   ");
}

/// Writes the form with comments at the top and one line per row.
void writeTitled(TextWriter& text, std::string_view key, const ExchangeForm& form, const TableView& table) {
  text.text("#   Tamsin&Orlund, LORN - RF-Board - ").text(form.title).line(" - Data");
  writeComments(text, 4);
  text.text("ID:     ").line(key);
  writeComments(text, 1);
  text.line("#       Parameter COUNT: <rows> * <columns>");
  writeCount(text, table, " * ");
  writeComments(text, 5);
  const std::size_t width = std::to_string(table.rows()).size();
  writeRows(
      text, table, [&](std::uint64_t row) { text.number(row + 1, width).text(":  "); },
      [&](double value) { form.writeCell(text, value); });
  text.endLine();
}

void writeUntitled(TextWriter& text, std::string_view key, const ExchangeForm& form, const TableView& table) {
  text.text("ID:  ").line(key);
  writeCount(text, table, " * ");
  writeCells(text, table, [&](double value) { form.writeCell(text, value); });
}

}  // namespace

void writeDump(std::ostream& os, std::string_view key, const TableView& table) {
  TextWriter text(os);
  const TableLayout& layout = table.layout();
  text.text("ID:  ").line(key);
  writeDescriptors(text, table);
  writeCount(text, table, "*");
  const auto write = [&](double value) { text.fixed(value, layout.decimals); };
  if (table.cols() < table.rows() && !layout.alwaysWide) {
    writeCells(text, table, write);
  } else {
    writeRows(
        text, table,
        [&](std::uint64_t row) {
          (layout.hasIndex() ? text.number(table.index(row)) : text.number(row + 1)).text(": ");
        },
        [&](double value) {
          text.text("\t");
          write(value);
        });
  }
  text.endLine();
}

void writeExchange(std::ostream& os, std::string_view key, const ExchangeForm& form, const TableView& table) {
  TextWriter text(os);
  if (form.title != nullptr) {
    writeTitled(text, key, form, table);
  } else {
    writeUntitled(text, key, form, table);
    os << std::hex << std::showbase;
  }
}

}  // namespace Velk::detail
