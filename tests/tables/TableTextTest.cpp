#include <streambuf>

#include "TestSupport.h"
#include "velk/tables/MbrdTables.h"
#include "velk/tables/MiscData.h"
#include "velk/tables/ObelWiqTables.h"
#include "velk/tables/QelRfboTables.h"
#include "velk/tables/VaskTables.h"

namespace Velk {
namespace {

using VelkTest::printed;

template <class Table>
Table numbered(Table table, unsigned rows, unsigned cols, int first = -1, int step = 1) {
  table.setCounts(rows, cols);
  for (unsigned row = 0; row < rows; ++row) {
    for (unsigned col = 0; col < cols; ++col, first += step) {
      table.setStoredValue(static_cast<typename Table::StorageType>(first), row, col);
    }
  }
  return table;
}

TEST(TableDump, LayoutFollowsTheCountsInUse) {
  auto wide = numbered(HwDatablockQelRfboAlcData(false), 2, 3);
  EXPECT_EQ(printed(wide), "ID:  RFBO_ALC_DATA\nCOUNT:  2*3\n1: \t-1.000\t0.000\t1.000\n2: \t2.000\t3.000\t4.000\n\n");
  auto square = numbered(HwDatablockQelRfboAlcData(false), 1, 1);
  EXPECT_EQ(printed(square), "ID:  RFBO_ALC_DATA\nCOUNT:  1*1\n1: \t-1.000\n\n");
  auto tall = numbered(HwDatablockQelRfboAlcData(false), 3, 2);
  EXPECT_EQ(printed(tall),
            "ID:  RFBO_ALC_DATA\nCOUNT:  3*2\n"
            "1:  -1.000\n1:  0.000\n2:  1.000\n2:  2.000\n3:  3.000\n3:  4.000\n\n");
  auto none = numbered(HwDatablockQelRfboAlcData(false), 0, 0);
  EXPECT_EQ(printed(none), "ID:  RFBO_ALC_DATA\nCOUNT:  0*0\n\n");
}

TEST(TableDump, RowsOfIndexTablesBearTheirLabels) {
  auto table = numbered(HwDatablockVaskRfboAttCalVecData(false), 29, 1);
  table.setIndex(-30, 0);
  table.setIndex(2147483647, 26);
  const std::string text = printed(table);
  EXPECT_TRUE(text.starts_with("ID:  RFBO_ATT_CAL_VEC_DATA\nCOUNT:  29*1\n-30: \t-1.000\n0: \t0.000\n")) << text;
  EXPECT_TRUE(text.ends_with("0: \t24.000\n2147483647: \t25.000\n0: \t0.000\n0: \t0.000\n\n")) << text;
}

TEST(TableDump, ExtendedTablesShowTheirDescriptors) {
  auto table = numbered(HwDatablockMbrdExtCalUserDataB(false), 1, 2);
  table.setDescriptor("CABLE", 0);
  table.setDescriptor("sixteen bytes...", 9);
  EXPECT_EQ(printed(table),
            "ID:  EXT_CAL_USER_DATA_B\n\nDESCRIPTOR1: CABLE\nDESCRIPTOR2: \nDESCRIPTOR3: \nDESCRIPTOR4: \n"
            "DESCRIPTOR5: \nDESCRIPTOR6: \nDESCRIPTOR7: \nDESCRIPTOR8: \nDESCRIPTOR9: \n"
            "DESCRIPTOR10: sixteen bytes...\n\n\nCOUNT:  1*2\n1: \t-1.000\t0.000\n\n");
}

TEST(TableDump, FineTablesHaveTenDecimalsAndStayWide) {
  HwDatablockObelWiqRfImbalanceData table("PATH_B", 1, true);
  table.setCounts(2, 1);
  table.setStoredValue(0.1F, 0, 0);
  table.setStoredValue(-2, 1, 0);
  EXPECT_EQ(printed(table), "ID:  PATH_B\nCOUNT:  2*1\n1: \t0.1000000015\n2: \t-2.0000000000\n\n");
}

TEST(TableDump, ValuesAreScaledInExtendedPrecision) {
  auto levels = numbered(HwDatablockQelRfboRfLevelMaxData(false), 1, 3, -1234, 1235);
  EXPECT_EQ(printed(levels), "ID:  RFBO_RFLEVEL_MAX_DATA\nCOUNT:  1*3\n1: \t-12.340\t0.010\t12.360\n\n");
  auto points = numbered(HwDatablockQelRfboSHFreq(false), 2, 1, -1, 1);
  EXPECT_EQ(printed(points), "ID:  RFBO_S_H_FREQ\nCOUNT:  2*1\n1:  42949672950.000\n2:  0.000\n\n");
  auto temperatures = numbered(HwDatablockVaskVectorLevconTemp(false), 3, 1, -128, 128);
  EXPECT_EQ(printed(temperatures), "ID:  VECTOR_LEVCON_TEMP\nCOUNT:  3*1\n1:  -128.000\n2:  0.000\n3:  -128.000\n\n");
}

TEST(TableDump, MiscDataHasItsOwnDecimals) {
  auto tall = numbered(MiscDataKinds::LoopgainFreq::Block(12300, "LOOPGAIN_FREQ", 0.01), 3, 1, 1234, -1236);
  EXPECT_EQ(printed(tall), "ID:  LOOPGAIN_FREQ\nCOUNT:  3*1\n1:  12.34000\n2:  -0.02000\n3:  -12.38000\n\n");
  auto wide = numbered(MiscDataKinds::LoopgainPk::Block(12301, "LOOPGAIN_PK", 1000.0), 1, 2, 1234, -1236);
  EXPECT_EQ(printed(wide), "ID:  LOOPGAIN_PK\nCOUNT:  1*2\n1: \t1234000.00000\t-2000.00000\n\n");
  wide.setStoredValue(-2147483647 - 1, 0, 0);
  wide.setCounts(2, 2);
  EXPECT_EQ(printed(wide),
            "ID:  LOOPGAIN_PK\nCOUNT:  2*2\n1: \t-2147483648000.00000\t-2000.00000\n2: \t0.00000\t0.00000\n\n");
  auto octets = numbered(MiscDataKinds::PimMwifSattCounter::Block(11304, "PIM_MWIF_SATT_COUNTER", 1.0), 1, 2);
  EXPECT_EQ(printed(octets), "ID:  PIM_MWIF_SATT_COUNTER\nCOUNT:  1*2\n1: \t255.000\t0.000\n\n");
}

TEST(TableDump, WritesAnotherBlockByItsOwnLayout) {
  const HwDatablockQelRfboAlcData table(false);
  auto other = numbered(HwDatablockQelRfboExtInGain(false), 1, 2);
  std::ostringstream os;
  table.conv2ascii(os, other);
  EXPECT_EQ(os.str(), "ID:  RFBO_ALC_DATA\nCOUNT:  1*2\n1: \t-1.000\t0.000\n\n");
  HwDatablock raw(false);
  std::ostringstream empty;
  table.conv2ascii(empty, raw);
  EXPECT_EQ(empty.str(), "ID:  RFBO_ALC_DATA\nCOUNT:  0*0\n\n");
}

TEST(TableDump, LooksAtNothingOnTheStream) {
  auto table = numbered(HwDatablockQelRfboAlcData(false), 2, 1, 1000000);
  std::ostringstream hostile = VelkTest::hostileStream();
  table.printToStream(hostile);
  EXPECT_EQ(hostile.str(), "ID:  RFBO_ALC_DATA\nCOUNT:  2*1\n1:  1000000.000\n2:  1000001.000\n\n");
}

/// Takes a number of bytes and then fails; remembers the largest piece.
class NarrowBuffer : public std::streambuf {
 public:
  explicit NarrowBuffer(std::streamsize room) : room_(room) {}
  std::streamsize largest = 0;

 protected:
  std::streamsize xsputn(const char*, std::streamsize count) override {
    largest = std::max(largest, count);
    const std::streamsize taken = std::min(count, room_);
    room_ -= taken;
    return taken;
  }

 private:
  std::streamsize room_;
};

TEST(TableDump, HugeCountsEndWithTheStreamAndTakeLittleMemory) {
  constexpr unsigned huge = 4294967295U;
  for (const auto& [rows, cols] : {std::pair{1U, huge}, {huge, 1U}, {huge, huge}, {huge, 0U}, {0U, huge}}) {
    HwDatablockQelRfboAlcData plain(false);
    HwDatablockVaskRfboAttCalVecData index(false);
    HwDatablockQelRfboAttRegData registers(false);
    for (HwTableBlock* const table : {static_cast<HwTableBlock*>(&plain), static_cast<HwTableBlock*>(&index),
                                      static_cast<HwTableBlock*>(&registers)}) {
      table->setCounts(rows, cols);
      NarrowBuffer buffer(1000000);
      std::ostream os(&buffer);
      table->printToStream(os);
      table->writeExchangeText(os);
      EXPECT_LE(buffer.largest, 66000);
    }
  }
}

}  // namespace
}  // namespace Velk
