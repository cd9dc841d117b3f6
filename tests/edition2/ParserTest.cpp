#include <chrono>
#include <random>

#include "edition2/Edition2Support.h"

namespace Velk {
namespace {

using VelkTest::bytesOf;
using VelkTest::expectSameTables;
using VelkTest::fromHex;
using VelkTest::joined;
using VelkTest::newBlock;
using VelkTest::Parsed;
using VelkTest::SecondEditionBuilder;
using VelkTest::sized;
using VelkTest::Table;

/// A header without checksums, and the size of the whole.
QByteArray block(const char* tables, const char* alignment = "00 00") {
  return sized(fromHex("07 00 00 00 00 00") + fromHex(alignment) + fromHex("00 00 00 00 7B 00") + fromHex(tables));
}

std::string rowIds(const Parsed& parsed, unsigned table = 0) {
  std::vector<std::string> out;
  parsed.getDataInStringVector(out, ROW_TYPE, parsed.tables().at(table).rowIdType, 0, table);
  return joined(out);
}

std::string cells(const Parsed& parsed, unsigned column, unsigned table = 0) {
  std::vector<std::string> out;
  parsed.getDataInStringVector(out, DATA_TYPE, parsed.tables().at(table).columnTypes.at(column), column, table);
  return joined(out);
}

TEST(SecondEditionParser, PadsListsFromTheStartOfTheBlock) {
  const Parsed parsed(block("02 00 01 00 03 00 09 00 00 00 01 01 02 02 00 00 80 3F 00 00 20 C0"));
  EXPECT_EQ(parsed.getId(), 7);
  EXPECT_DOUBLE_EQ(parsed.getUpdateIndex(), 1.23);
  ASSERT_EQ(parsed.tables().size(), 2U);
  EXPECT_EQ(rowIds(parsed), "257|514");
  EXPECT_EQ(cells(parsed, 0), "1|-2.5");
  EXPECT_EQ(parsed.getRowCount(1), 0U);
}

TEST(SecondEditionParser, StringsLengthenTheirLists) {
  // "A" and "BC", padded by three; cells "", 5 and "xy", 6; then a second table, which begins at an odd offset.
  const Parsed parsed(
      block("02 00 02 00 19 00 19 01 00 00 41 00 42 43 00 00 00 00 00 05 78 79 00 06"
            "01 00 01 00 00 00 01 00 00 00 2A"));
  ASSERT_EQ(parsed.tables().size(), 3U);
  EXPECT_EQ(rowIds(parsed), "A|BC");
  EXPECT_EQ(cells(parsed, 0), "|xy");
  EXPECT_EQ(cells(parsed, 1), "5|6");
  EXPECT_EQ(cells(parsed, 0, 1), "42");
}

TEST(SecondEditionParser, TablesWithoutRowsOrColumnsAreTables) {
  // No columns, whatever the rows and ids; no rows, but column ids 1 and 2 with two bytes after them; one cell.
  const Parsed parsed(
      block("05 00 00 00 01 01"
            "00 00 02 00 03 01 01 01 01 02 00 00"
            "01 00 01 00 00 00 01 00 2A"));
  ASSERT_EQ(parsed.tables().size(), 4U);
  EXPECT_EQ(parsed.getRowCount(0), 5U);
  EXPECT_EQ(parsed.tables()[1].columnIds, (std::vector<char>{1, 2}));
  EXPECT_TRUE(parsed.tables()[1].rowIds.empty());
  EXPECT_TRUE(parsed.tables()[2].complete);
}

TEST(SecondEditionParser, OnlyTablesWithACellFillABlock) {
  const auto isFilled = [](const char* tables) { return isFilledByTables(VelkTest::viewOf(block(tables))); };
  EXPECT_FALSE(isFilled("05 00 00 00 01 01"));
  EXPECT_FALSE(isFilled("00 00 02 00 00 00 01 01 00 00"));
  EXPECT_TRUE(isFilled("05 00 00 00 01 01 01 00 01 00 00 00 01 00 2A"));
  EXPECT_FALSE(isFilled("05 00 00 00 01 01 01 00 01 00 00 00 01 00 2A 00")) << "nor tables before other bytes";
}

TEST(SecondEditionParser, KeepsToTheNormalHeaderWhateverTheAlignment) {
  const QByteArray bytes = block("02 00 01 00 00 00 01 00 00 00 08 09", "04 00");
  const Parsed parsed(bytes);
  EXPECT_EQ(parsed.getRowCount(0), 2U);
  EXPECT_EQ(cells(parsed, 0), "8|9");
  const std::unique_ptr<HwDatablock2Edition> compact(newBlock(bytes));
  EXPECT_EQ(compact->getNumberOfRows(0), 0x7B);
  EXPECT_EQ(compact->getNumberOfColumns(0), 2);
}

TEST(SecondEditionParser, TakesTheSmallerOfSizeFieldAndBuffer) {
  QByteArray bytes = block("02 00 01 00 00 00 01 00 00 00 08 09");
  bytes[2] = static_cast<char>(0xFF);
  EXPECT_EQ(cells(Parsed(bytes), 0), "8|9");
  bytes[2] = static_cast<char>(bytes.size() - 1);
  EXPECT_FALSE(Parsed(bytes).tables()[0].complete);
}

TEST(SecondEditionParser, CountsAloneCostNothing) {
  const QByteArray bytes = block("FF FF FF FF 01 01 01 01 01 01 01 01 01 01 01 01");
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 1000; ++i) Parsed{bytes};
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1)) << "for a thousand of them";
  const Parsed parsed(bytes);
  ASSERT_EQ(parsed.tables().size(), 1U);
  EXPECT_EQ(parsed.getRowCount(0), 65535U);
  EXPECT_EQ(parsed.tables()[0].columnTypes.size(), 10U);
}

TEST(SecondEditionParser, WhatHasNoSizeHoldsTheTableOpen) {
  for (const char* const open : {"01 00 01 00 1A 00 01 00", "01 00 01 00 00 1B 01 00", "01 00 02 00 00 00 01 00",
                                 "01 00 02 00 00 00 01 1A", "01 00 02 00 00 00 19 00"}) {
    const QByteArray bytes = block(open) + QByteArray(40, '\0');
    const Parsed parsed(sized(bytes));
    EXPECT_EQ(parsed.tables().size(), 1U) << open;
    expectSameTables(sized(bytes));
  }
}

TEST(SecondEditionParser, StringCellsMayHave2047Characters) {
  for (const int length : {2046, 2047, 2048, 2049}) {
    const std::string text(static_cast<std::size_t>(length), 'x');
    const QByteArray bytes =
        bytesOf(SecondEditionBuilder(1).add({.columnTypes = {TYPE_ID_STRING}, .rows = {{text.c_str()}, {"y"}}}));
    EXPECT_EQ(Parsed(bytes).tables().size(), length < 2048 ? 2U : 1U) << length;
    expectSameTables(bytes);
  }
}

TEST(SecondEditionParser, ListsAreOneColumnOfEmptyEntries) {
  for (const int size : {7, 8, 11, 20, 23}) {
    CommonDatablockAccess access(newBlock(sized(QByteArray(size, '\x11'))), nullptr, false);
    std::unique_ptr<IHwDatablockAccess> list(access.releaseBlock());
    list->setListFormat(true);
    const CommonDatablockAccess parsed(list.release(), nullptr, true);
    const unsigned rows = static_cast<unsigned>(std::max(0, (size - 8) / 4));
    ASSERT_EQ(parsed.tables().size(), 1U);
    EXPECT_EQ(parsed.getRowCount(0), rows);
    EXPECT_EQ(parsed.getColCount(0), size < 8 ? 0U : 1U);
    EXPECT_EQ(parsed.tables()[0].rowIds, std::vector<char>(4 * rows));
    EXPECT_EQ(parsed.getUpdateIndex(), 0);
    std::vector<int> values;
    parsed.getDataColumn(0, values, 0);
    parsed.getRowIdList(values, 0);
    EXPECT_EQ(values, std::vector<int>(2 * rows));
  }
}

/// Bytes that look like tables as often as not.
QByteArray almostTables(std::mt19937& random) {
  const auto below = [&random](unsigned bound) { return static_cast<char>(random() % bound); };
  QByteArray bytes(14, '\x05');
  bytes[6] = bytes[7] = 0;
  for (unsigned tables = 1 + random() % 3; tables > 0; --tables) {
    const char rows = below(5);
    const char columns = below(4);
    bytes += rows;
    bytes += '\0';
    bytes += columns;
    bytes += '\0';
    // Now and then a type that is none, or strings.
    const auto type = [&] { return random() % 4 == 0 ? static_cast<char>(TYPE_ID_STRING) : below(28); };
    for (int i = 0; i < 2 + columns; ++i) bytes += type();
    for (unsigned i = random() % 120; i > 0; --i) bytes += random() % 3 == 0 ? '\0' : below(256);
  }
  return bytes;
}

TEST(SecondEditionParser, ComesToTheTablesOfTheReference) {
  std::mt19937 random(7);
  std::size_t complete = 0;
  for (int i = 0; i < 2000 && !testing::Test::HasFailure(); ++i) {
    QByteArray bytes = almostTables(random);
    if (i % 8 == 0) bytes.truncate(static_cast<qsizetype>(random() % 40));
    bytes = sized(bytes);
    SCOPED_TRACE(bytes.toHex(' ').toStdString());
    expectSameTables(bytes);
    complete += Parsed(bytes).tables().size() - 1;
  }
  EXPECT_GT(complete, 500U) << "or there was little to compare";
}

TEST(SecondEditionParser, ComesToTheTablesOfTheReferenceWhereverABlockIsCut) {
  const QByteArray whole =
      bytesOf(SecondEditionBuilder(1)
                  .add({.rowIdType = TYPE_ID_STRING,
                        .rowIds = {"A", "BC"},
                        .columnIdType = TYPE_ID_UINT16,
                        .columnIds = {1, 2, 3},
                        .columnTypes = {TYPE_ID_CHAR5, TYPE_ID_STRING, TYPE_ID_DOUBLE},
                        .rows = {{"one", "eins", 1}, {"two", "zwei", 2}}})
                  .add({.rowIdType = TYPE_ID_CHAR10, .rowIds = {"r"}, .columnTypes = {TYPE_ID_UINT64}, .rows = {{5}}}));
  ASSERT_EQ(Parsed(whole).tables().size(), 3U);
  for (qsizetype size = 0; size <= whole.size(); ++size) {
    SCOPED_TRACE(size);
    expectSameTables(sized(whole.left(size)));
  }
}

/// An implementation that is no HwDatablock.
class ForeignBlock : public IHwDatablockAccess {
 public:
  explicit ForeignBlock(QByteArray bytes) : bytes_(std::move(bytes)) {}

  unsigned short getNumberOfRows(unsigned) override { return 0; }
  unsigned short getNumberOfColumns(unsigned) override { return 0; }
  unsigned char* getData(unsigned) override {
    return bytes_.isEmpty() ? nullptr : reinterpret_cast<unsigned char*>(bytes_.data());
  }
  unsigned short getBlockSize(unsigned) override {
    return static_cast<unsigned short>(bytes_.isEmpty() ? 99 : bytes_.size());
  }
  bool setData(QByteArray bytes) override {
    bytes_ = std::move(bytes);
    return true;
  }
  unsigned short computeChecksum() override { return 0x1234; }
  unsigned int computeChecksum32() override { return 0x89ABCDEF; }
  unsigned short getId() override { return 0; }
  bool setEepromAddress(unsigned) override { return true; }
  bool setEepromSector(unsigned) override { return true; }
  unsigned int getEepromSector() override { return 0; }
  double getUpdateIndex() override { return 0; }
  bool isListFormat() override { return false; }
  void setListFormat(bool) override {}

 private:
  QByteArray bytes_;
};

TEST(SecondEditionParser, ReadsAnyImplementationOfABlock) {
  const QByteArray bytes = block("02 00 01 00 00 00 01 00 00 00 08 09");
  const CommonDatablockAccess access(new ForeignBlock(bytes), nullptr, true);
  std::vector<int> values;
  access.getDataColumn(0, values, 0);
  EXPECT_EQ(joined(values), "8|9");
  EXPECT_EQ(CommonDatablockAccess(new ForeignBlock({}), nullptr, true).tables().size(), 1U);
  EXPECT_EQ(CommonDatablockAccess(nullptr, nullptr, true).tables().size(), 1U);
}

}  // namespace
}  // namespace Velk
