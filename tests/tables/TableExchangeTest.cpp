#include "tables/ExchangeTables.h"

namespace Velk {
namespace {

using VelkTest::Attenuations;
using VelkTest::Compensation;
using VelkTest::CompensationPoints;
using VelkTest::fromText;
using VelkTest::messagesOf;
using VelkTest::Points;
using VelkTest::printed;
using VelkTest::QelRegisters;
using VelkTest::Registers;
using VelkTest::written;

std::string lornText(const std::string& title, const std::string& key, const std::string& counts,
                     const std::string& rows) {
  return "#   Tamsin&Orlund, LORN - RF-Board - " + title + " - Data\n#   \n#   \n#   \n#   \nID:     " + key +
         "\n#   \n#       Parameter COUNT: <rows> * <columns>\nCOUNT:  " + counts + "\n#   \n#   \n#   \n#   \n#   \n" +
         rows + "\n";
}

TEST(ExchangeText, OfRegisterWords) {
  Registers table(false);
  table.setCounts(2, 5);
  table.setStoredValue(0xFFFFFFFFU, 0, 0);
  table.setStoredValue(0xABCU, 1, 3);
  const std::string zero = "    0x00000000";
  const std::string text = lornText("ATT-REG-DATA", "LORN_RFBO_ATTREG_DATA", "2 * 5",
                                    "1:      0xFFFFFFFF" + zero + zero + zero + zero + "\n2:  " + zero + zero + zero +
                                        "    0x00000ABC" + zero + "\n");
  EXPECT_EQ(written(table), text);
  EXPECT_TRUE(printed(table).starts_with("ID:  LORN_RFBO_ATTREG_DATA\nCOUNT:  2*5\n1: \t4294967295.000\t0.000\t"));
  auto again = fromText<Registers>(text);
  EXPECT_EQ(again.getStoredValue(0, 0), 0xFFFFFFFFU);
  EXPECT_EQ(again.getStoredValue(1, 3), 0xABCU);
  EXPECT_EQ(again.getStoredValue(1, 0), 0U) << "the fifth word of the first row lies there until the second comes";
}

TEST(ExchangeText, OfOneRegisterALineLeavesTheStreamHexadecimal) {
  QelRegisters table(false);
  table.setCounts(3, 1);
  table.setStoredValue(0xFFFFFFFFU, 0, 0);
  table.setStoredValue(0x1AU, 2, 0);
  const std::string text = "ID:  RFBO_ATTREG_DATA\nCOUNT:  3 * 1\n1:  0xffffffff\n2:  0\n3:  0x1a\n";
  std::ostringstream os = VelkTest::hostileStream();
  QelRegisters::conv2ascii(os, table);
  EXPECT_EQ(os.str(), text);
  std::ostringstream plain;
  QelRegisters::conv2ascii(plain, table) << 255;
  EXPECT_EQ(plain.str(), text + "0xff");
  EXPECT_EQ(printed(table), "ID:  RFBO_ATTREG_DATA\nCOUNT:  3*1\n1:  4294967295.000\n2:  0.000\n3:  26.000\n\n");
  EXPECT_EQ(fromText<QelRegisters>(text).getByteArrayData(), table.getByteArrayData());
  std::ostringstream dump;
  table.conv2ascii(dump, static_cast<HwDatablock&>(table));
  EXPECT_EQ(dump.str(), printed(table)) << "any other block is dumped";
}

TEST(ExchangeText, OfAttenuationsAndPointsIsWhatThePrintShows) {
  Attenuations attenuations(false);
  attenuations.setCounts(10, 1);
  attenuations.setStoredValue(-0.126F, 0, 0);
  attenuations.setStoredValue(120.5F, 9, 0);
  std::string rows = " 1:             -0.13\n";
  for (const char* const row : {" 2", " 3", " 4", " 5", " 6", " 7", " 8", " 9"})
    rows += std::string(row) + ":              0.00\n";
  EXPECT_EQ(printed(attenuations), lornText("ATT-REG-ATTENUATION", "LORN_RFBO_ATTREG_ATTENUATION", "10 * 1",
                                            rows + "10:            120.50\n"));

  Points points(false);
  points.setCounts(1, 1);
  points.setStoredValue(10000000.5, 0, 0);
  EXPECT_EQ(printed(points),
            lornText("ATT-CAL-FREQ", "BLOCK_LORN_RFBO_ATT_CAL_FREQ", "1 * 1", "1:      1000000050.0000000000\n"));
  CompensationPoints compensationPoints(false);
  compensationPoints.setCounts(1, 2);
  compensationPoints.setStoredValue(0.1, 0, 0);
  EXPECT_EQ(printed(compensationPoints), lornText("TEMP-COMP-FREQ", "BLOCK_LORN_RFBO_TEMP_COMP_FREQ", "1 * 2",
                                                  "1:               0.1000000000             0.0000000000\n"));
  Compensation compensation(false);
  compensation.setCounts(1, 1);
  compensation.setStoredValue(-17, 0, 0);
  compensation.setIndex(99, 0);
  EXPECT_EQ(printed(compensation),
            lornText("TEMP-COMP-DATA", "BLOCK_LORN_RFBO_TEMP_COMP_DATA", "1 * 1", "1:             -17.0000000000\n"));
}

template <class Table>
class EveryExchangeTable : public testing::Test {};
using ExchangeTables = testing::Types<QelRegisters, Points, Attenuations, Registers, Compensation, CompensationPoints>;
TYPED_TEST_SUITE(EveryExchangeTable, ExchangeTables);

TYPED_TEST(EveryExchangeTable, FullComesBackFromItsText) {
  TypeParam table(false);
  const unsigned rows = table.getRowCapacity();
  const unsigned cols = table.getColCapacity();
  QByteArray bytes = table.getByteArrayData();
  const MutableBytes cells(reinterpret_cast<unsigned char*>(bytes.data()), static_cast<std::size_t>(bytes.size()));
  using Cell = typename TypeParam::StorageType;
  for (unsigned i = 0; i < rows * cols; ++i) {
    const unsigned value = std::is_integral_v<Cell> ? i * 0x9E3779B9U : i;
    detail::store(cells, TypeParam::layout.cellsOffset + i * sizeof(Cell), static_cast<Cell>(value));
  }
  table.setData(bytes);
  table.setCounts(rows, cols);
  auto again = fromText<TypeParam>(written(table));
  EXPECT_EQ(again.getByteArrayData(), table.getByteArrayData());
}

TYPED_TEST(EveryExchangeTable, EmptyTextEmptiesIt) {
  TypeParam table(false);
  const QByteArray empty = table.getByteArrayData();
  table.setCounts(1, 1);
  table.setStoredValue(1, 0, 0);
  table.setBlockId(9);
  EXPECT_EQ(messagesOf(table, "nothing\nCOUNT: 1 * 1\n1: 1\n"), "ERROR: FOUND NO ID !\n");
  EXPECT_EQ(table.getId(), 0);
  EXPECT_EQ(table.getByteArrayData().mid(8), empty.mid(8));
  EXPECT_EQ(messagesOf(table, "ID: " + table.getBlockString() + '\n'), "ERROR: FOUND NO COUNT VALUES !\n");
  EXPECT_EQ(table.getByteArrayData().left(4), empty.left(4));
  EXPECT_EQ(table.getByteArrayData().mid(8), empty.mid(8));
}

TYPED_TEST(EveryExchangeTable, HostileTextsStayInside) {
  const std::string id = "ID: " + TypeParam(false).getBlockString() + '\n';
  std::string lineOfNumbers = "1: ";
  for (int i = 0; i < 20000; ++i) lineOfNumbers += "-1\t";
  std::string manyRows;
  for (int i = 0; i < 2000; ++i) manyRows += "x: 1 2 3 4\n";
  const std::string zeros("1: \0 1\0 : 2\n", 12);
  for (const char* const count :
       {"1 * 1", "-1 * -1", "99999999999999999999 * 99999999999999999999", "*", "", "* 4", "**"}) {
    for (const std::string& rows : {lineOfNumbers, manyRows, zeros, std::string(100000, ':')}) {
      TypeParam table(false);
      messagesOf(table, id + "COUNT:" + count + '\n' + rows + '\n');
      if constexpr (requires { table.getIndex(0); }) {
        for (unsigned row = 0; row < table.getRowCapacity(); ++row) EXPECT_EQ(table.getIndex(row), 0);
      }
    }
  }
}

}  // namespace
}  // namespace Velk
