#pragma once

#include <QByteArray>
#include <cmath>
#include <concepts>
#include <string>
#include <vector>

#include "velk/bytes/ByteOrder.h"
#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/edition2/StoredTable.h"

namespace Examples {

/// A number or a text, stored in the type of its column or id. For fixed-point types, the number is the presented one.
struct Value {
  Value(std::convertible_to<long double> auto shown) : number(static_cast<long double>(shown)) {}
  Value(const char* shown) : text(shown) {}

  long double number = 0;
  std::string text;
};

struct Table {
  Velk::ETypeId rowIdType = Velk::TYPE_ID_NONE;
  std::vector<Value> rowIds{};
  Velk::ETypeId columnIdType = Velk::TYPE_ID_NONE;
  std::vector<Value> columnIds{};
  std::vector<Velk::ETypeId> columnTypes{};
  std::vector<std::vector<Value>> rows{};  ///< row by row, as stored
};

/// Builds a second-edition block from its tables.
class SecondEditionBuilder {
 public:
  explicit SecondEditionBuilder(unsigned short id, short updateIndex = 100) {
    add(id).add<unsigned short>(0).add<unsigned int>(0).add<unsigned int>(0).add(updateIndex);
  }

  SecondEditionBuilder& add(const Table& table) {
    add(static_cast<unsigned short>(table.rows.size())).add(static_cast<unsigned short>(table.columnTypes.size()));
    bytes_ += static_cast<char>(table.rowIdType);
    bytes_ += static_cast<char>(table.columnIdType);
    if (table.columnTypes.empty()) return *this;
    for (const Velk::ETypeId type : table.columnTypes) bytes_ += static_cast<char>(type);
    pad();
    addIds(table.rowIdType, table.rowIds);
    addIds(table.columnIdType, table.columnIds);
    for (const auto& row : table.rows) {
      for (std::size_t column = 0; column < row.size(); ++column) add(table.columnTypes[column], row[column]);
    }
    return *this;
  }

  /// Returns the block, with its size and checksums set.
  Velk::HwDatablock2Edition finish() const {
    Velk::HwDatablock2Edition block;
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(bytes_.constData()),
                                      static_cast<unsigned>(bytes_.size()));
    block.setBlockSizeWithoutCalcChecksumm(static_cast<unsigned short>(bytes_.size()));
    block.setChecksum32(block.computeChecksum32());
    block.setChecksum(block.computeChecksum());
    return block;
  }

 private:
  template <class T>
  requires std::is_arithmetic_v<T> SecondEditionBuilder& add(T value) {
    Velk::detail::swapStoredAndHost(value);
    bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
    return *this;
  }

  void addIds(Velk::ETypeId type, const std::vector<Value>& ids) {
    if (type == Velk::TYPE_ID_NONE || ids.empty()) return;
    for (const Value& id : ids) add(type, id);
    pad();
  }

  void add(Velk::ETypeId type, const Value& value) {
    const qsizetype end = bytes_.size() + Velk::detail::typeSize(type);
    if (type == Velk::TYPE_ID_STRING) {
      bytes_.append(value.text.c_str(), static_cast<qsizetype>(value.text.size()) + 1);
      return;
    }
    if (type == Velk::TYPE_ID_FLOAT) {
      add(static_cast<float>(value.number));
    } else if (type == Velk::TYPE_ID_DOUBLE) {
      add(static_cast<double>(value.number));
    } else if (type == Velk::TYPE_ID_LONG_DOUBLE) {
      add(value.number);
    } else if (Velk::detail::isCharacters(type)) {
      bytes_ += value.text.c_str();
      bytes_.append(std::max<qsizetype>(0, end - bytes_.size()), '\0');
    } else if (value.number < 0) {
      add(static_cast<long long>(std::round(value.number / unitOf(type))));
    } else {
      add(static_cast<unsigned long long>(std::round(value.number / unitOf(type))));
    }
    bytes_.truncate(end);  // the low bytes come first (little-endian)
  }

  static long double unitOf(Velk::ETypeId type) {
    return Velk::detail::isFixedPoint(type) ? Velk::detail::fixedPointUnit(type) : 1;
  }

  void pad() {
    while (bytes_.size() % 4 != 0) bytes_ += '\0';
  }

  QByteArray bytes_;
};

}  // namespace Examples
