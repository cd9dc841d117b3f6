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

/// Remembers which slot a call took.
class SlotRecorder : public HwDatablockEnd {
 public:
  unsigned short computeChecksum() override { return take("own sum"); }
  unsigned short computeChecksum(unsigned short*, unsigned short) override { return take("unsigned sum"); }
  unsigned short computeChecksum(unsigned short*, short) override { return take("signed sum"); }
  bool verifyChecksum() override { return take("own check") == 0; }
  bool verifyChecksum(unsigned short*, unsigned short, bool) override { return take("flagged check") == 0; }
  bool verifyChecksum(unsigned short*, short) override { return take("signed check") == 0; }

  std::string taken;

 private:
  unsigned short take(const char* slot) {
    taken = slot;
    return 0;
  }
};

TEST(EndBlock, EveryCallTakesTheSlotThatItNames) {
  SlotRecorder recorder;
  HwDatablockEnd& end = recorder;
  unsigned short words[4] = {1, 8, 0, 0};
  const auto slot = [&](auto /*result*/) { return recorder.taken; };
  EXPECT_EQ(slot(end.computeChecksum()), "own sum");
  EXPECT_EQ(slot(end.computeChecksum(words, 8)), "signed sum");
  EXPECT_EQ(slot(end.computeChecksum(nullptr, 0)), "signed sum");
  EXPECT_EQ(slot(end.computeChecksum(words, short{8})), "signed sum");
  EXPECT_EQ(slot(end.computeChecksum(words, static_cast<signed char>(8))), "signed sum");
  EXPECT_EQ(slot(end.computeChecksum(words, 8LL)), "signed sum");
  EXPECT_EQ(slot(end.computeChecksum(words, static_cast<unsigned short>(8))), "unsigned sum");
  EXPECT_EQ(slot(end.computeChecksum(words, 8U)), "unsigned sum");
  EXPECT_EQ(slot(end.computeChecksum(words, sizeof words)), "unsigned sum");
  EXPECT_EQ(slot(static_cast<HwDatablock&>(end).computeChecksum(words, 8)), "unsigned sum");
  EXPECT_EQ(slot(end.verifyChecksum()), "own check");
  EXPECT_EQ(slot(end.verifyChecksum(words, 8)), "signed check");
  EXPECT_EQ(slot(end.verifyChecksum(words, static_cast<unsigned short>(8))), "signed check");
  EXPECT_EQ(slot(end.verifyChecksum(words, 8, true)), "flagged check");
  EXPECT_EQ(HwDatablockEnd().computeChecksum(words, 8U), 0xFFF7) << "the count goes through whole";
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
