#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace VelkTool {

/// A table for eyes: columns with blanks between them, numbers to the right and texts to the left.
class AlignedTable {
 public:
  /// Adds a column after the others. Those that are keys begin every piece of a table that is too wide for the page.
  void addColumn(std::string heading, bool isKey = false);
  /// Adds a cell below the others of a column.
  void addCell(std::size_t column, std::string text, bool isNumber);

  /// Appends the lines, each at most `width` characters if the columns are not wider themselves. Without headings there
  /// is no line for them.
  void write(std::string& text, std::size_t width) const;

 private:
  struct Column {
    std::string heading;
    bool isKey;
    bool isText = false;
    std::size_t width = 0;  ///< in characters
    std::vector<std::string> cells{};
  };
  using Piece = std::vector<const Column*>;

  std::vector<Piece> pieces(std::size_t width) const;
  static void writePiece(std::string& text, const Piece& piece);

  std::vector<Column> columns_;
};

}  // namespace VelkTool
