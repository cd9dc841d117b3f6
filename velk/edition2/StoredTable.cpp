#include "velk/edition2/StoredTable.h"

#include <algorithm>

namespace Velk {
namespace {

constexpr std::size_t alignment = 4;
/// Readers hold a cell in a buffer of this size, terminating zero included: parsing stops after a longer
/// string.
constexpr std::size_t longestStringCell = 2048;

constexpr std::size_t notFound = static_cast<std::size_t>(-1);

/// Returns the offset of the first zero byte among the first `limit`.
std::size_t findZero(ConstBytes bytes, std::size_t limit = notFound) {
  if (bytes.empty()) return notFound;
  const void* const zero = std::memchr(bytes.data(), 0, std::min(limit, bytes.size()));
  return zero == nullptr ? notFound : static_cast<std::size_t>(static_cast<const unsigned char*>(zero) - bytes.data());
}

/// Returns the size of `count` strings with their zeros, or of all bytes if there are fewer.
std::size_t sizeOfStrings(ConstBytes bytes, std::size_t count, bool& complete) {
  std::size_t size = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t zero = findZero(bytes.subspan(size));
    complete = zero != notFound;
    if (!complete) return bytes.size();
    size += zero + 1;
  }
  return size;
}

}  // namespace

StoredTable::StoredTable(ConstBytes block, std::size_t offset) : end_(std::min(offset, block.size())) {
  if (!takeHeader(block)) return;
  if (columns_ != 0) {
    if (!takeColumnTypes(block) || !takeIds(block, rowIdType_, rows_, rowIds_) ||
        !takeIds(block, columnIdType_, columns_, columnIds_)) {
      return;
    }
    const bool strings = std::ranges::find(columnTypes_, TYPE_ID_STRING) != columnTypes_.end();
    const ConstBytes rest = block.subspan(end_);
    if (rows_ != 0 && !(strings ? findCells(rest) : placeCells(rest))) return;
    end_ += cells_.size();
  }
  complete_ = true;
}

bool StoredTable::takeHeader(ConstBytes block) {
  using Header = HwSTableHeader2Edition;
  const auto bytes = detail::firstBytes<sizeof(Header)>(block.subspan(end_));
  const std::size_t size = std::min(sizeof(Header), block.size() - end_);
  rows_ = detail::load<unsigned short>(bytes, offsetof(Header, rows));
  columns_ = detail::load<unsigned short>(bytes, offsetof(Header, columns));
  rowIdType_ = ETypeId{bytes[offsetof(Header, rowIdType)]};
  columnIdType_ = ETypeId{bytes[offsetof(Header, columnIdType)]};
  end_ += size;
  return size == sizeof(Header);
}

bool StoredTable::takeColumnTypes(ConstBytes block) {
  columnTypes_ = block.subspan(end_, std::min<std::size_t>(columns_, block.size() - end_));
  end_ += columnTypes_.size();
  return columnTypes_.size() == columns_ && takePadding(block);
}

bool StoredTable::takeIds(ConstBytes block, ETypeId type, std::size_t count, ConstBytes& ids) {
  if (type == TYPE_ID_NONE || count == 0) return true;
  return takeIdBytes(block, type, count, ids) && takePadding(block);
}

bool StoredTable::takeIdBytes(ConstBytes block, ETypeId type, std::size_t count, ConstBytes& ids) {
  const ConstBytes rest = block.subspan(end_);
  const std::size_t size = detail::typeSize(type);
  if (size == 0) return false;  // the end of the ids is unknown
  bool complete = false;
  if (type == TYPE_ID_STRING) {
    ids = rest.first(sizeOfStrings(rest, count, complete));
  } else {
    ids = rest.first(size * std::min(count, rest.size() / size));
    complete = ids.size() == size * count;
  }
  end_ += ids.size();
  return complete;
}

ConstBytes StoredTable::rowIdsBehindHeader(ConstBytes block) const {
  if (!complete_ || columns_ != 0 || rows_ == 0 || rowIdType_ == TYPE_ID_NONE) return {};
  const bool isLast = !StoredTable(block, end_).isComplete();
  // Finding the end of strings takes a scan: with many such tables only the last one is scanned.
  if (rowIdType_ == TYPE_ID_STRING && !isLast) return {};
  StoredTable list;
  list.end_ = end_;
  ConstBytes ids;
  if (!list.takePadding(block) || !list.takeIdBytes(block, rowIdType_, rows_, ids)) return {};
  list.takePadding(block);  // may be cut off
  return isLast || list.end_ == block.size() ? ids : ConstBytes{};
}

bool StoredTable::takePadding(ConstBytes block) {
  const std::size_t padded = (end_ + alignment - 1) / alignment * alignment;
  end_ = std::min(padded, block.size());
  return end_ == padded;
}

bool StoredTable::placeCells(ConstBytes rest) {
  places_.reserve(columns_ + 1U);
  std::uint32_t place = 0;
  places_.push_back(place);
  for (const unsigned char type : columnTypes_) {
    const unsigned int size = detail::typeSize(type);
    if (size == 0) {  // the start of the next cell is unknown
      cells_ = rest.first(std::min<std::size_t>(place, rest.size()));
      return false;
    }
    places_.push_back(place += size);
  }
  const std::size_t size = std::size_t{rows_} * place;
  cells_ = rest.first(std::min(size, rest.size()));
  return cells_.size() == size;
}

bool StoredTable::findCells(ConstBytes rest) {
  cells_ = rest;
  std::size_t at = 0;
  starts_.push_back(0);
  for (std::size_t row = 0; row < rows_; ++row) {
    for (const unsigned char type : columnTypes_) {
      const bool string = type == TYPE_ID_STRING;
      const std::size_t zero = string ? findZero(rest.subspan(at), longestStringCell) : notFound;
      const std::size_t size = string ? zero + 1 : detail::typeSize(type);
      if (string && zero == notFound) {
        // Cut off: treated as if the zero followed the last byte.
        starts_.push_back(static_cast<std::uint32_t>(at + std::min(longestStringCell, rest.size() - at) + 1));
        return false;
      }
      if (size == 0 || size > rest.size() - at) return false;
      starts_.push_back(static_cast<std::uint32_t>(at += size));
    }
  }
  cells_ = rest.first(at);
  return true;
}

ConstBytes StoredTable::foundCell(std::size_t column, std::size_t row) const {
  const std::size_t index = row * columns_ + column;
  if (index + 1 >= starts_.size()) return {};
  const std::size_t terminator = columnTypes_[column] == TYPE_ID_STRING ? 1 : 0;
  return cells_.subspan(starts_[index], starts_[index + 1] - starts_[index] - terminator);
}

CellRun StoredTable::run(std::size_t column) const {
  if (column + 1 >= places_.size()) return {};
  const std::size_t size = places_[column + 1] - places_[column];
  const std::size_t distance = places_.back();
  if (!detail::fits(cells_.size(), places_[column], size)) return {};
  const std::size_t count = (cells_.size() - places_[column] - size) / distance + 1;
  return {cells_.data() + places_[column], size, distance, std::min<std::size_t>(count, rows_)};
}

std::optional<StoredTable> TableWalk::next() {
  if (position_ >= block_.size()) return std::nullopt;
  StoredTable table(block_, position_);
  position_ = table.isComplete() ? table.end() : block_.size();
  return table;
}

bool isFilledByTables(ConstBytes block) {
  TableWalk walk(block);
  bool cells = false;
  while (const auto table = walk.next()) {
    if (!table->isComplete()) return false;
    cells = cells || (table->rows() != 0 && table->columns() != 0);
  }
  return cells;
}

}  // namespace Velk
