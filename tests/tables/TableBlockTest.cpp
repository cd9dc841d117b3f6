#include <limits>

#include "FieldSupport.h"
#include "TestSupport.h"
#include "velk/oldstyle/BlockCatalogue.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"
#include "velk/tables/LornRfboTables.h"
#include "velk/tables/MbrdTables.h"
#include "velk/tables/MiscData.h"
#include "velk/tables/QelRfboTables.h"
#include "velk/tables/VaskTables.h"

namespace Velk {
namespace {

using VelkTest::ErrorCapture;
using VelkTest::hexOf;

template <class Table>
typename Table::TableImage imageOf(Table& table) {
  typename Table::TableImage image;
  std::memcpy(&image, table.getData(), sizeof image);
  return image;
}

HwDatablockVaskRfboAttCalVecData indexTable() {
  HwDatablockVaskRfboAttCalVecData table(false);
  table.setCounts(2, 3);
  table.setStoredValue(-5, 0, 0);
  table.setStoredValue(0x01020304, 1, 2);
  table.setIndex(-77, 0);
  table.setIndex(88, 26);
  return table;
}

TEST(TableBlock, CellsCountsLabelsAndTextsHaveTheirPlaces) {
  HwDatablockVaskRfboAttCalVecData index = indexTable();
  EXPECT_TRUE(index.verifyChecksum());
  const QByteArray bytes = index.getByteArrayData();
  EXPECT_EQ(bytes.mid(8, 12).toHex(' '), "02 00 00 00 03 00 00 00 fb ff ff ff");
  EXPECT_EQ(bytes.mid(16 + (20 + 2) * 4, 4).toHex(' '), "04 03 02 01") << "rows are as far apart as the capacity says";
  EXPECT_EQ(bytes.mid(16 + 27 * 20 * 4, 4).toHex(' '), "b3 ff ff ff");
  EXPECT_EQ(bytes.right(4).toHex(' '), "58 00 00 00");

  HwDatablockMbrdExtCalUserDataA extended(false);
  extended.setCounts(1, 2);
  extended.setDescriptor("sixteen bytes....and more", 9);
  extended.setDescriptor("none", 10);
  extended.setStoredValue(-2, 12, 599);
  EXPECT_TRUE(extended.verifyChecksum());
  EXPECT_EQ(extended.getByteArrayData().mid(8 + 16 * 9, 24), QByteArray("sixteen bytes...\1\0\0\0\2\0\0\0", 24));
  EXPECT_TRUE(hexOf(extended).ends_with("00 FE FF"));
  EXPECT_EQ(extended.getDescriptorCount(), 10U);
  EXPECT_EQ(extended.getDescriptor(9), "sixteen bytes...");
  EXPECT_EQ(extended.getDescriptor(10), "");
}

TEST(TableBlock, NothingExistsOutsideTheCapacity) {
  HwDatablockVaskRfboAttCalVecData table = indexTable();
  const std::string before = hexOf(table);
  const std::int64_t most = std::numeric_limits<std::int64_t>::max();
  for (const auto& [row, col] :
       {std::pair<std::int64_t, std::int64_t>{-1, 0}, {0, -1}, {27, 0}, {0, 20}, {most, most}}) {
    table.setStoredValue(1, row, col);
    EXPECT_EQ(table.getStoredValue(row, col), 0);
    EXPECT_EQ(table.getValue(row, col), 0);
  }
  for (const std::int64_t row : {std::int64_t{-1}, std::int64_t{27}, most}) {
    table.setIndex(1, row);
    EXPECT_EQ(table.getIndex(row), 0);
  }
  EXPECT_EQ(hexOf(table), before);
  table.setCounts(4000000000U, 5);
  EXPECT_EQ(table.getRowCount(), 4000000000U) << "counts are not held to the capacity";
}

TEST(TableBlock, PresentsCharactersAsSignedNumbersAndCutsWholeOnes) {
  HwDatablockVaskVectorLevconTemp temperatures(false);
  temperatures.setStoredValue(static_cast<char>(0xEC), 11, 0);
  EXPECT_EQ(temperatures.getValue(11, 0), -20.0);
  HwDatablockBaseTemplate<double, int, 1, 5> whole({.id = 1, .key = "WHOLE", .scale = 0.5}, false);
  const double infinite = std::numeric_limits<double>::infinity();
  int col = 0;
  for (const double stored : {-3.9, 1e10, infinite, std::numeric_limits<double>::quiet_NaN(), 4294967294.0}) {
    whole.setStoredValue(stored, 0, col++);
  }
  EXPECT_EQ(whole.getValue(0, 0), -1);
  EXPECT_EQ(whole.getValue(0, 1), 705032704) << "the lower half of 5 000 000 000";
  EXPECT_EQ(whole.getValue(0, 2), 0);
  EXPECT_EQ(whole.getValue(0, 3), 0);
  EXPECT_EQ(whole.getValue(0, 4), 2147483647);
}

TEST(TableBlock, TakesOverAnImageWithItsIdAndChecksum) {
  HwDatablockVaskRfboAttCalVecData source = indexTable();
  source.setBlockId(4711);
  source.setAlignment(9);
  source.setBlockSize(2000);
  const unsigned short sumOfAll = detail::load<unsigned short>({source.getData(), 2284}, 4);
  auto image = imageOf(source);
  HwDatablockVaskRfboAttCalVecData table(false);
  table.swapBlock(&image);
  EXPECT_EQ(table.getId(), 4711);
  EXPECT_EQ(table.getBlockSize(), 2000) << "unchecked: the size that the image claims";
  EXPECT_EQ(table.getAlignment(), 0);
  EXPECT_EQ(table.getChecksum(), sumOfAll);
  EXPECT_EQ(table.getByteArrayData().mid(8), source.getByteArrayData().mid(8));

  source.setBlockSize(2284);
  image = imageOf(source);
  image.header.blockSize = 2000;
  image.header.checksum = static_cast<unsigned short>(image.header.checksum + 284);
  EXPECT_EQ(table.setBlock(&image), 0);
  EXPECT_EQ(table.getBlockSize(), 2284) << "checked: the size of the class";
  EXPECT_EQ(table.getAlignment(), 0);
  EXPECT_EQ(table.getChecksum(), image.header.checksum);
  EXPECT_EQ(table.getByteArrayData().mid(8), source.getByteArrayData().mid(8));
}

TEST(TableBlock, RefusesADamagedImageByItsId) {
  ErrorCapture errors;
  HwDatablockVaskRfboAttCalVecData table = indexTable();
  const std::string before = hexOf(table);
  auto image = imageOf(table);
  image.cells[3][3] += 1;
  EXPECT_EQ(table.setBlock(&image), 1);
  EXPECT_EQ(table.setBlock(nullptr), 1);
  table.swapBlock(nullptr);
  EXPECT_EQ(hexOf(table), before);
  EXPECT_EQ(errors.errors, (std::vector<std::string>{"1040001:15843", "1040001:0"}));
}

TEST(TableBlock, TakesOverTextsOfAnExtendedImageAndBlocksThatAreShort) {
  HwDatablockQelRfboExtCalUserData source(false);
  source.setDescriptor("CABLE", 3);
  source.setStoredValue(5, 4, 749);
  const auto image = imageOf(source);
  HwDatablockQelRfboExtCalUserData table(false);
  table.resizeData(100);
  EXPECT_EQ(table.getDescriptor(5), "");
  table.swapBlock(&image);
  EXPECT_EQ(table.getByteArrayData(), source.getByteArrayData());
}

TEST(TableBlock, ConversionOfAShortBlockKeepsItsBytes) {
  HwDatablockQelRfboAlcData table(false);
  table.setAlignment(3);
  table.resizeData(175);
  const QByteArray before = table.getByteArrayData();
  EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 15731, &table));
  EXPECT_EQ(table.getByteArrayData(), before);
  HwDatablock levels(false);
  EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 15862, &levels));
  EXPECT_FALSE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 15863, &levels));
}

TEST(TcxoTable, HoldsItsIndexAndBothCountsToEight) {
  ErrorCapture errors;
  HwDatablockQelRfboTcxoCal table(false);
  for (const int index : {0, 7}) {
    EXPECT_EQ(table.setTcxoValue(-5, index), 0);
    EXPECT_EQ(table.getStoredValue(index, 0), -5);
  }
  for (const int index : {8, -1, std::numeric_limits<int>::min()}) EXPECT_EQ(table.setTcxoValue(5, index), -1);
  EXPECT_TRUE(errors.errors.empty()) << "an index is refused without a word";
  table.setRowCount(20);
  table.setColCount(9);
  EXPECT_EQ(table.getRowCount(), 8U);
  EXPECT_EQ(table.getColCount(), 8U);
  table.setRowCount(3);
  EXPECT_EQ(table.getRowCount(), 3U);
  EXPECT_EQ(table.getColCount(), 8U);
  EXPECT_TRUE(table.verifyChecksum());
}

TEST(TcxoTable, ReportsAMissingValue) {
  ErrorCapture errors;
  VelkTest::ConsoleCapture console;
  HwDatablockQelRfboTcxoCal table(false);
  table.resizeData(40);
  EXPECT_EQ(table.setTcxoValue(5, 5), 0);
  EXPECT_EQ(table.setTcxoValue(5, 6), -1);
  EXPECT_EQ(errors.errors, std::vector<std::string>{"1040002:Setting TXCO value failed"});
}

TEST(TableFields, NameEveryPartOfATable) {
  HwDatablockMbrdExtCalUserDataB table(false);
  table.setDescriptor("CABLE", 9);
  table.setStoredValue(-7, 12, 599);
  table.setCounts(2, 3);
  const std::span<const FieldInfo> fields = findCatalogueRow(14806)->fields;
  const auto text = [&](std::string_view path) {
    return fieldText({table.getData(), 15776}, VelkTest::findField(fields, path).value());
  };
  EXPECT_EQ(text("descriptors[9]"), "CABLE");
  EXPECT_EQ(text("rows"), "2");
  EXPECT_EQ(text("cols"), "3");
  EXPECT_EQ(text("cells[12][599]"), "-7");
  EXPECT_FALSE(VelkTest::findField(fields, "descriptors[10]"));
  EXPECT_FALSE(VelkTest::findField(fields, "descriptors[0][0]"));
  EXPECT_EQ(
      setFieldText({table.getData(), 15776}, VelkTest::findField(fields, "descriptors[0]").value(), "sixteen bytes..."),
      FieldResult::Done);
  EXPECT_EQ(table.getDescriptor(0), "sixteen bytes...");
  EXPECT_EQ(table.getDescriptor(1), "");

  const std::span<const FieldInfo> points = findCatalogueRow(15755)->fields;
  EXPECT_EQ(VelkTest::findField(points, "cells[149][0]").value().field->scale, 10.0);
  EXPECT_TRUE(VelkTest::findField(findCatalogueRow(15843)->fields, "indexColumn[26]"));
}

}  // namespace
}  // namespace Velk
