#include "AlignedTable.h"

#include <algorithm>

namespace VelkTool {
namespace {

constexpr std::size_t gap = 2;
constexpr std::size_t mostAligned = 60;  // longer texts stick out, rather than that all others are padded

/// Returns the number of characters of UTF-8.
std::size_t lengthOf(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

void appendAligned(std::string& line, std::string_view text, std::size_t width, bool isText) {
  const std::size_t blanks = width - std::min(width, lengthOf(text));
  if (!isText) line.append(blanks, ' ');
  line += text;
  if (isText) line.append(blanks, ' ');
}

void endLine(std::string& line) {
  line.resize(line.find_last_not_of(' ') + 1);
  line += '\n';
}

}  // namespace

void AlignedTable::addColumn(std::string heading, bool isKey) {
  const std::size_t width = std::min(lengthOf(heading), mostAligned);
  columns_.push_back({std::move(heading), isKey, false, width});
}

void AlignedTable::addCell(std::size_t column, std::string text, bool isNumber) {
  Column& to = columns_[column];
  to.width = std::max(to.width, std::min(lengthOf(text), mostAligned));
  to.isText = to.isText || !isNumber;
  to.cells.push_back(std::move(text));
}

std::vector<AlignedTable::Piece> AlignedTable::pieces(std::size_t width) const {
  Piece keys;
  std::size_t keyWidth = 0;
  for (const Column& column : columns_) {
    if (column.isKey) keys.push_back(&column);
    if (column.isKey) keyWidth += column.width + gap;
  }
  std::vector<Piece> pieces{keys};
  std::size_t used = keyWidth;
  for (const Column& column : columns_) {
    if (column.isKey) continue;
    if (used + column.width > width && pieces.back().size() > keys.size()) {
      pieces.push_back(keys);
      used = keyWidth;
    }
    pieces.back().push_back(&column);
    used += column.width + gap;
  }
  return pieces;
}

void AlignedTable::writePiece(std::string& text, const Piece& piece) {
  std::string line;
  std::size_t rows = 0;
  const auto writeLine = [&](const auto& cellOf) {
    line.clear();
    for (const Column* const column : piece) {
      if (column != piece.front()) line.append(gap, ' ');
      appendAligned(line, cellOf(*column), column->width, column->isText);
    }
    endLine(line);
    text += line;
  };
  const bool hasHeadings = std::ranges::any_of(piece, [](const Column* column) { return !column->heading.empty(); });
  if (hasHeadings) writeLine([](const Column& column) { return std::string_view(column.heading); });
  for (const Column* const column : piece) rows = std::max(rows, column->cells.size());
  for (std::size_t row = 0; row < rows; ++row) {
    writeLine([row](const Column& column) {
      return row < column.cells.size() ? std::string_view(column.cells[row]) : std::string_view();
    });
  }
}

void AlignedTable::write(std::string& text, std::size_t width) const {
  bool isFirst = true;
  for (const Piece& piece : pieces(width)) {
    if (!isFirst) text += '\n';
    isFirst = false;
    writePiece(text, piece);
  }
}

}  // namespace VelkTool
