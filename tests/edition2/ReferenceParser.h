#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "velk/edition2/TypeIds.h"

namespace VelkTest {

struct ReferenceTable {
  unsigned rows = 0;
  unsigned columns = 0;
  unsigned rowIdType = 0;
  unsigned columnIdType = 0;
  std::vector<unsigned> types;
  std::string rowIds;
  std::string columnIds;
  std::map<std::pair<unsigned, unsigned>, std::string> cells;  ///< by column and row; only cells with at least one byte
};

/// Parses a second-edition block byte by byte, as the instruments do: simple, slow and independent of the parser of the
/// library, which has to produce the same tables.
class ReferenceParser {
 public:
  explicit ReferenceParser(std::span<const unsigned char> block) {
    for (p_ = 0; p_ < block.size(); ++p_) step(block[p_]);
  }

  std::uint32_t id = 0, blockSize = 0, checksum = 0, alignment = 0, checksum32 = 0, updateIndex = 0;
  std::vector<ReferenceTable> tables{1};

 private:
  enum State {
    BlockId,
    BlockSize,
    Crc16,
    Alignment,
    Crc32,
    UpdateIndex,
    Rows,
    Columns,
    RowIdType,
    ColumnIdType,
    Type,
    TypeAlign,
    RowIds,
    RowIdsAlign,
    ColumnIds,
    ColumnIdsAlign,
    Data
  };

  void step(unsigned char byte) { state_ < Rows ? headerByte(byte) : tableByte(byte); }

  void headerByte(unsigned char byte) {
    switch (state_) {
      case BlockId:
        return field(id, byte, 2, BlockSize);
      case BlockSize:
        return field(blockSize, byte, 2, Crc16);
      case Crc16:
        return field(checksum, byte, 2, Alignment);
      case Alignment:
        return field(alignment, byte, 4, Crc32);
      case Crc32:
        return field(checksum32, byte, 2, UpdateIndex);
      case UpdateIndex:
        return field(updateIndex, byte, 2, Rows);
      default:
        return;
    }
  }

  void tableByte(unsigned char byte) {
    ReferenceTable& table = tables.back();
    switch (state_) {
      case Rows:
        return field(table.rows, byte, 2, Columns);
      case Columns:
        return field(table.columns, byte, 1, RowIdType);
      case RowIdType:
        return field(table.rowIdType, byte, 1, ColumnIdType);
      case ColumnIdType:
        field(table.columnIdType, byte, table.columns, Type);
        if (table.columns == 0) nextTable();
        return;
      case Type:
        table.types.push_back(byte);
        if (p_ == e_) endOfList(TypeAlign);
        return;
      case RowIds:
        return idByte(table.rowIds, table.rowIdType, byte, RowIdsAlign);
      case ColumnIds:
        return idByte(table.columnIds, table.columnIdType, byte, ColumnIdsAlign);
      case TypeAlign:
      case RowIdsAlign:
      case ColumnIdsAlign:
        if (p_ == e_) nextSection(state_);
        return;
      case Data:
        return cellByte(byte);
      default:
        return;
    }
  }

  template <class T>
  void field(T& value, unsigned char byte, std::size_t nextWidth, State next) {
    value |= static_cast<T>(byte) << (8 * k_++);
    if (p_ != e_) return;
    e_ += nextWidth;
    k_ = 0;
    state_ = next;
  }

  void endOfList(State align) {
    const std::size_t over = (p_ + 1) % 4;
    if (over == 0) return nextSection(align);
    e_ = p_ + 4 - over;
    state_ = align;
  }

  void nextSection(State previous) {
    const ReferenceTable& table = tables.back();
    k_ = r_ = b_ = 0;
    if (previous == TypeAlign && table.rowIdType != 0 && table.rows > 0) {
      e_ = p_ + table.rows * Velk::detail::typeSize(table.rowIdType);
      state_ = RowIds;
    } else if (previous != ColumnIdsAlign && table.columnIdType != 0 && table.columns > 0) {
      e_ = p_ + table.columns * Velk::detail::typeSize(table.columnIdType);
      state_ = ColumnIds;
    } else if (table.rows == 0) {
      nextTable();
    } else {
      state_ = Data;
    }
  }

  void idByte(std::string& store, unsigned type, unsigned char byte, State align) {
    const std::size_t size = Velk::detail::typeSize(type);
    if (type == Velk::TYPE_ID_STRING) {
      store += static_cast<char>(byte);
      if (byte != 0) ++e_;
    } else if (size != 0) {
      scratch_[k_] = static_cast<char>(byte);
      if (++k_ == size) {
        store.append(scratch_, size);
        k_ = 0;
      }
    }
    if (p_ == e_) endOfList(align);
  }

  void cellByte(unsigned char byte) {
    ReferenceTable& table = tables.back();
    const std::size_t size = Velk::detail::typeSize(table.types[k_]);
    if (size == 0 || b_ > 2047) return;
    scratch_[b_++] = static_cast<char>(byte);
    std::string& cell = table.cells[{static_cast<unsigned>(k_), static_cast<unsigned>(r_)}];
    if (table.types[k_] == Velk::TYPE_ID_STRING) {
      if (byte != 0) {
        cell += static_cast<char>(byte);
        return;
      }
    } else if (b_ == size) {
      cell.assign(scratch_, size);
    } else {
      return;
    }
    b_ = 0;
    if (++k_ < table.columns) return;
    k_ = 0;
    if (++r_ == table.rows) nextTable();
  }

  void nextTable() {
    tables.emplace_back();
    k_ = 0;
    e_ = p_ + 2;
    state_ = Rows;
  }

  State state_ = BlockId;
  std::size_t p_ = 0;
  std::size_t e_ = 1;
  std::size_t k_ = 0;
  std::size_t r_ = 0;
  std::size_t b_ = 0;
  char scratch_[2048] = {};
};

}  // namespace VelkTest
