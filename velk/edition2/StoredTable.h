#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "velk/Export.h"
#include "velk/bytes/Bytes.h"
#include "velk/datablock/HwDatablockTypes.h"
#include "velk/edition2/TypeIds.h"

namespace Velk {

/// The head of a second-edition block; its tables follow, one directly behind the other.
struct VELK_RECORD HwSDatablockHeader2Edition {
  HwSDatablockHeader header;
  unsigned int checksum32;     ///< CRC-32 without bytes 4 to 11, or the event counter identifier
  unsigned short updateIndex;  ///< in units of updateIndexUnit

  bool operator==(const HwSDatablockHeader2Edition&) const = default;
};
static_assert(sizeof(HwSDatablockHeader2Edition) == 14);

inline constexpr double updateIndexUnit = 0.01;

/// The head of a table; a type byte for each column follows.
struct VELK_RECORD HwSTableHeader2Edition {
  unsigned short rows;
  unsigned short columns;
  unsigned char rowIdType;
  unsigned char columnIdType;

  bool operator==(const HwSTableHeader2Edition&) const = default;
};
static_assert(sizeof(HwSTableHeader2Edition) == 6);

/// Cells of one column that stand a fixed distance apart: the fast way to all of them.
struct CellRun {
  const unsigned char* first = nullptr;
  std::size_t cellSize = 0;
  std::size_t distance = 0;
  std::size_t count = 0;
};

/// One table of a second-edition block: what it says of itself, and where its parts lie in the block's bytes.
///
/// The counts are claims; every part is cut to the bytes that are there. Ids and numeric cells are there whole or not
/// at all, a string that its block cuts off is there as far as it goes. It views the block's bytes, which have
/// to outlive it; it is built in time and space in proportion to the bytes that it covers, whatever they claim.
class VELK_EXPORT StoredTable {
 public:
  /// A table without bytes.
  StoredTable() = default;
  /// The table that begins at `offset` of a block.
  StoredTable(ConstBytes block, std::size_t offset);

  unsigned int rows() const { return rows_; }
  unsigned int columns() const { return columns_; }
  ETypeId rowIdType() const { return rowIdType_; }
  ETypeId columnIdType() const { return columnIdType_; }

  /// One type byte a column; fewer where the block ends.
  ConstBytes columnTypes() const { return columnTypes_; }
  /// The stored ids back to back, strings with their terminating zeros.
  ConstBytes rowIds() const { return rowIds_; }
  ConstBytes columnIds() const { return columnIds_; }
  /// A cell's bytes, without the zero that ends a string; empty where the table has no such cell, or not its bytes.
  ConstBytes cell(std::size_t column, std::size_t row) const {
    if (column >= columns() || row >= rows()) return {};
    return starts_.empty() ? placedCell(column, row) : foundCell(column, row);
  }

  /// The cells from row 0 on of a column whose table has no strings; none of a table with strings.
  CellRun run(std::size_t column) const;

  /// Whether the block holds all of the table. A table of no rows ends behind its column ids, one of no columns behind
  /// its header.
  bool isComplete() const { return complete_; }
  /// The offset behind a complete table, where the next one begins.
  std::size_t end() const { return end_; }

  /// The row ids of a table without columns, of which only the header is parsed: `block` has them where it ends with
  /// them, or where nothing behind the header reads as a table. Empty where it has not all of them.
  ConstBytes rowIdsBehindHeader(ConstBytes block) const;

 private:
  /// Each goes on at end_ and returns whether the block has all of the part.
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
  /// Where cells have fixed sizes: the offset of each column in a row, then the size of a row.
  std::vector<std::uint32_t> places_;
  /// Where some are strings: the offset of each cell that is there, row by row, then where the next one would begin.
  std::vector<std::uint32_t> starts_;
};

/// The tables of a block one after the other. The last may be incomplete, the walk ends there.
class VELK_EXPORT TableWalk {
 public:
  explicit TableWalk(ConstBytes block) : block_(block) {}

  /// The next table, or nothing where the block has no further byte.
  std::optional<StoredTable> next();

 private:
  ConstBytes block_;
  std::size_t position_ = sizeof(HwSDatablockHeader2Edition);
};

/// Whether a block reads as tables that end where it ends, at least one of them with a cell: what a second-edition
/// block looks like whose CRC is wrong.
VELK_EXPORT bool isFilledByTables(ConstBytes block);

}  // namespace Velk
