#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "velk/Export.h"
#include "velk/bytes/Bytes.h"
#include "velk/datablock/HwDatablockTypes.h"
#include "velk/edition2/TypeIds.h"

namespace Velk {

/// The header of a second-edition block; its tables follow back to back.
struct VELK_RECORD HwSDatablockHeader2Edition {
  HwSDatablockHeader header;
  unsigned int checksum32;     ///< CRC-32 without bytes 4 to 11, or the event counter identifier
  unsigned short updateIndex;  ///< in units of updateIndexUnit

  bool operator==(const HwSDatablockHeader2Edition&) const = default;
};
static_assert(sizeof(HwSDatablockHeader2Edition) == 14);

inline constexpr double updateIndexUnit = 0.01;

/// The header of a table; one type byte per column follows.
struct VELK_RECORD HwSTableHeader2Edition {
  unsigned short rows;
  unsigned short columns;
  unsigned char rowIdType;
  unsigned char columnIdType;

  bool operator==(const HwSTableHeader2Edition&) const = default;
};
static_assert(sizeof(HwSTableHeader2Edition) == 6);

/// Cells of one column at a fixed distance: fast access to all of them.
struct CellRun {
  const unsigned char* first = nullptr;
  std::size_t cellSize = 0;
  std::size_t distance = 0;
  std::size_t count = 0;
};

/// One table of a second-edition block: its header, and where its parts lie in the block's bytes.
///
/// The stored counts are not trusted; every part is cut to the bytes of the block. Ids and numeric cells are complete
/// or missing; a string that is cut off keeps the part inside the block. The table views the block's bytes, which must
/// outlive it. Parsing takes time and space proportional to the bytes of the table, whatever counts they claim.
class VELK_EXPORT StoredTable {
 public:
  /// Makes a table without bytes.
  StoredTable() = default;
  /// Reads the table that begins at `offset` of a block.
  StoredTable(ConstBytes block, std::size_t offset);

  unsigned int rows() const { return rows_; }
  unsigned int columns() const { return columns_; }
  ETypeId rowIdType() const { return rowIdType_; }
  ETypeId columnIdType() const { return columnIdType_; }

  /// Returns one type byte per column; fewer if the block ends early.
  ConstBytes columnTypes() const { return columnTypes_; }
  /// Return the stored ids back to back, strings with their terminating zeros.
  ConstBytes rowIds() const { return rowIds_; }
  ConstBytes columnIds() const { return columnIds_; }
  /// Returns a cell's bytes, without the zero that ends a string; empty if the table or the block lacks it.
  ConstBytes cell(std::size_t column, std::size_t row) const {
    if (column >= columns() || row >= rows()) return {};
    return starts_.empty() ? placedCell(column, row) : foundCell(column, row);
  }

  /// Returns the cells of a column from row 0 on; none if the table has strings.
  CellRun run(std::size_t column) const;

  /// Returns whether the block holds all of the table. A table without rows ends after its column ids, one without
  /// columns after its header.
  bool isComplete() const { return complete_; }
  /// Returns the offset after a complete table, where the next one begins.
  std::size_t end() const { return end_; }

  /// Returns the row ids of a table without columns, of which only the header is parsed. `block` has them if it ends
  /// with them, or if nothing after the header parses as a table. Empty if some are missing.
  ConstBytes rowIdsBehindHeader(ConstBytes block) const;

 private:
  /// Each parses a part from end_ on and returns whether the block holds all of it.
  bool takeHeader(ConstBytes block);
  bool takeColumnTypes(ConstBytes block);
  bool takeIds(ConstBytes block, ETypeId type, std::size_t count, ConstBytes& ids);
  bool takeIdBytes(ConstBytes block, ETypeId type, std::size_t count, ConstBytes& ids);
  bool takePadding(ConstBytes block);
  bool placeCells(ConstBytes rest);
  bool findCells(ConstBytes rest);

  ConstBytes placedCell(std::size_t column, std::size_t row) const {
    if (column + 1 >= places_.size()) return {};
    const std::size_t at = row * places_.back() + places_[column];
    const std::size_t size = places_[column + 1] - places_[column];
    return detail::fits(cells_.size(), at, size) ? cells_.subspan(at, size) : ConstBytes{};
  }
  ConstBytes foundCell(std::size_t column, std::size_t row) const;

  unsigned short rows_ = 0;
  unsigned short columns_ = 0;
  ETypeId rowIdType_ = TYPE_ID_NONE;
  ETypeId columnIdType_ = TYPE_ID_NONE;
  bool complete_ = false;
  std::size_t end_ = 0;
  ConstBytes columnTypes_{};
  ConstBytes rowIds_{};
  ConstBytes columnIds_{};
  ConstBytes cells_{};
  /// If all cells have fixed sizes: the offset of each column in a row, then the size of a row.
  std::vector<std::uint32_t> places_;
  /// If some are strings: the offset of each cell in the block, row by row, then that of the next one.
  std::vector<std::uint32_t> starts_;
};

/// Iterates over the tables of a block. The last one may be incomplete.
class VELK_EXPORT TableWalk {
 public:
  explicit TableWalk(ConstBytes block) : block_(block) {}

  /// Returns the next table, or nothing at the end of the block.
  std::optional<StoredTable> next();

 private:
  ConstBytes block_;
  std::size_t position_ = sizeof(HwSDatablockHeader2Edition);
};

/// Returns whether a block consists of complete tables up to its end, at least one of them with a cell. A
/// second-edition block with a wrong CRC is recognised by this.
VELK_EXPORT bool isFilledByTables(ConstBytes block);

}  // namespace Velk
