#pragma once

#include "SecondEditionBuilder.h"
#include "TestSupport.h"
#include "edition2/ReferenceParser.h"
#include "velk/edition2/CommonDatablockAccess.h"

namespace VelkTest {

using Examples::SecondEditionBuilder;
using Examples::Table;

inline std::span<const unsigned char> viewOf(const QByteArray& bytes) {
  return {reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

/// Returns a block of these bytes, unchecked, for an accessor to own.
inline Velk::HwDatablock2Edition* newBlock(const QByteArray& bytes) {
  auto* const block = new Velk::HwDatablock2Edition;
  block->setDataWithoutChecksumCheck(viewOf(bytes).data(), static_cast<unsigned>(bytes.size()));
  return block;
}

/// Returns the bytes of a block. Messages about an odd size are discarded.
inline QByteArray bytesOf(const SecondEditionBuilder& builder) {
  ConsoleCapture oddSize;
  return builder.finish().getByteArrayData();
}

/// Sets the size field to the number of bytes.
inline QByteArray sized(QByteArray bytes) {
  for (int i = 0; i < 2 && 2 + i < bytes.size(); ++i) bytes[2 + i] = static_cast<char>(bytes.size() >> (8 * i));
  return bytes;
}

/// A parsed accessor.
class Parsed : public Velk::CommonDatablockAccess {
 public:
  explicit Parsed(const Table& table) : Parsed(bytesOf(SecondEditionBuilder(1).add(table))) {}
  explicit Parsed(const QByteArray& bytes) : CommonDatablockAccess(newBlock(bytes), nullptr, true) {}
};

/// Returns a list of numbers or texts as "1|2|-3".
template <class T>
std::string joined(const std::vector<T>& values) {
  std::string text;
  for (const T& value : values) {
    if (&value != &values.front()) text += '|';
    if constexpr (std::is_same_v<T, std::string>) {
      text += value;
    } else {
      std::ostringstream os;
      os << +value;
      text += os.str();
    }
  }
  return text;
}

/// Checks that a table equals that of the reference.
inline void expectSameTable(const Velk::CommonSubDatablock& table, const ReferenceTable& expected, std::size_t rows) {
  EXPECT_EQ(table.rows, expected.rows);
  EXPECT_EQ(table.columns, expected.columns);
  EXPECT_EQ(table.rowIdType, expected.rowIdType);
  EXPECT_EQ(table.columnIdType, expected.columnIdType);
  EXPECT_EQ(table.columnTypes, expected.types);
  EXPECT_EQ(std::string(table.rowIds.begin(), table.rowIds.end()), expected.rowIds);
  EXPECT_EQ(std::string(table.columnIds.begin(), table.columnIds.end()), expected.columnIds);
  const bool strings = std::ranges::count(table.columnTypes, Velk::TYPE_ID_STRING) != 0;
  for (unsigned column = 0; column <= table.columnTypes.size(); ++column) {
    const Velk::CellRun run = table.cells[column].run();
    for (unsigned row = 0; row <= std::min<std::size_t>(rows, table.rows); ++row) {
      const auto found = expected.cells.find({column, row});
      const auto cell = table.cells[column][row];
      EXPECT_EQ(std::string(cell.begin(), cell.end()), found == expected.cells.end() ? "" : found->second);
      EXPECT_EQ(row < run.count, !strings && !cell.empty());
      if (row < run.count) {
        EXPECT_EQ(static_cast<const void*>(run.first + row * run.distance), cell.data());
      }
    }
  }
}

/// Checks that the library parses a whole block into the same tables as the reference.
inline void expectSameTables(const QByteArray& bytes) {
  const Parsed parsed(bytes);
  constexpr qsizetype sizeFieldEnd = 4;  // a block without a size field has no bytes
  const ReferenceParser expected(viewOf(bytes.size() < sizeFieldEnd ? QByteArray() : bytes));
  EXPECT_EQ(parsed.getId(), expected.id);
  EXPECT_DOUBLE_EQ(parsed.getUpdateIndex(), expected.updateIndex * 0.01);
  ASSERT_EQ(parsed.tables().size(), expected.tables.size());
  for (std::size_t i = 0; i < expected.tables.size(); ++i) {
    expectSameTable(parsed.tables()[i], expected.tables[i], static_cast<std::size_t>(bytes.size()));
    EXPECT_EQ(parsed.tables()[i].complete, i + 1 < expected.tables.size());
  }
}

}  // namespace VelkTest
