#include "TestSupport.h"
#include "velk/datablock/HwDatablockEnd.h"

namespace Velk {
namespace {

using VelkTest::hexOf;

TEST(EndBlock, IsFourBytesThatAlwaysVerify) {
  HwDatablockEnd end;
  EXPECT_EQ(hexOf(end), "FF FF 00 00");
  EXPECT_EQ(end.getBlockSize(), 4);
  EXPECT_EQ(end.getChecksum(), 0);
  EXPECT_EQ(end.computeChecksum(), 0);
  EXPECT_TRUE(end.verifyChecksum());
  EXPECT_TRUE(end.getStopConversionOnError());
  EXPECT_EQ(VelkTest::printed(end), "# Das ist der END Block\nID:              END\n\n");
}

TEST(EndBlock, StoresNoChecksum) {
  HwDatablockEnd end;
  end.setBlockId(5);
  EXPECT_EQ(hexOf(end), "05 00 00 00");
  end.resizeData(8);
  EXPECT_EQ(end.getBlockSize(), 8);
  end.setChecksum(0x1234);
  EXPECT_EQ(hexOf(end), "05 00 00 00 00 00 00 00");
  end.setEndBlock();
  end.setEndBlockData(0xABCD);
  EXPECT_EQ(hexOf(end), "FF FF CD AB 00 00 00 00");
}

TEST(EndBlock, RecordsOfSignedAndUnsignedCountsAreDifferentOperations) {
  HwDatablockEnd end;
  unsigned short words[4] = {1, 8, 0, 0};
  EXPECT_EQ(end.computeChecksum(words, static_cast<short>(8)), 0);
  EXPECT_TRUE(end.verifyChecksum(words, static_cast<short>(8)));
  EXPECT_EQ(end.computeChecksum(words, static_cast<unsigned short>(8)), 0xFFF7);
  EXPECT_FALSE(end.verifyChecksum(words, 8, true));
}

TEST(EndBlock, SurvivesAShortBuffer) {
  HwDatablockEnd end;
  end.resizeData(3);
  EXPECT_EQ(end.getBlockSize(), 0);
  end.setEndBlockData(7);
  EXPECT_EQ(hexOf(end), "FF FF 00");
  EXPECT_EQ(end.getBlock()->data, 0) << "handing the record out extends the buffer";
  const HwSDatablockEnd record{3, 4};
  EXPECT_EQ(end.setBlock(&record), 0);
  EXPECT_EQ(hexOf(end), "03 00 04 00");
}

}  // namespace
}  // namespace Velk
