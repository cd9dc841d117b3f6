#pragma once

#include <QByteArray>
#include <span>
#include <vector>

#include "velk/edition2/StoredTable.h"

namespace Velk {

/// The stored bytes of a table's cells: cells[column][row]. Strings are without their terminating zero. A cell that the
/// table does not have, or whose bytes the block lacks, is empty. Copies share the block's bytes; a cell's bytes are
/// valid as long as one of the copies exists.
class VELK_EXPORT TableCells {
 public:
  class Column {
   public:
    Column(const StoredTable& table, std::size_t column) : table_(table), column_(column) {}

    std::span<const char> operator[](std::size_t row) const {
      const ConstBytes cell = table_.cell(column_, row);
      return {reinterpret_cast<const char*>(cell.data()), cell.size()};
    }
    CellRun run() const { return table_.run(column_); }

   private:
    const StoredTable& table_;
    std::size_t column_;
  };

  TableCells() = default;
  /// `table` views the bytes of `block`.
  TableCells(QByteArray block, StoredTable table) : block_(std::move(block)), table_(std::move(table)) {}

  Column operator[](std::size_t column) const { return {table_, column}; }

 private:
  QByteArray block_;
  StoredTable table_;
};

/// One table of a parsed second-edition block. The counts and types are as the block claims them; the ids and cells are
/// what the block really holds of the table.
struct VELK_EXPORT CommonSubDatablock {
  unsigned int rows = 0;
  unsigned int columns = 0;
  unsigned int rowIdType = TYPE_ID_NONE;
  unsigned int columnIdType = TYPE_ID_NONE;
  bool complete = false;  ///< whether the block holds all of the table
  std::vector<unsigned int> columnTypes;
  std::vector<char> rowIds;  ///< the stored ids back to back, strings with their terminating zeros
  std::vector<char> columnIds;
  TableCells cells;

  CommonSubDatablock() = default;
  /// `stored` views the bytes of `block`.
  CommonSubDatablock(const QByteArray& block, StoredTable stored);
};

}  // namespace Velk
