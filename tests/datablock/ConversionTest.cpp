#include "TestSupport.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::fromHex;
using VelkTest::hexOf;

constexpr const char* selfDescribing = "01 00 10 00 00 00 00 00 D7 03 AE DE AA BB CC DD";
constexpr const char* unknownId = "39 30 08 00 00 00 05 00";

TEST(Conversion, PrimitivesKeepValuesOnThisHost) {
  unsigned short u16 = 0x1234;
  HwDatablock::SwapIntel2Ppc(u16);
  unsigned long u32 = 0xFFFFFFFF12345678UL;
  HwDatablock::SwapIntel2Ppc(u32);
  double real = 1.5;
  HwDatablock::SwapIntel2Ppc(real);
  EXPECT_EQ(u16, 0x1234);
  EXPECT_EQ(u32, 0xFFFFFFFF12345678UL);
  EXPECT_EQ(real, 1.5);
}

TEST(Conversion, OfASelfDescribingBlockSetsItsFormat) {
  HwDatablock block(false);
  block.setData(fromHex(selfDescribing));
  for (const HwEDataFormatTyp target : {PPC_Conform, PPC_Conform, INTEL_Conform}) {
    block.swapDataTo(target, block.getId(), &block);
    EXPECT_EQ(block.getDataFormatTyp(), target);
    EXPECT_EQ(block.getByteArrayData(), fromHex(selfDescribing));
  }
}

TEST(Conversion, OfAnUnknownIdChangesNothing) {
  ConsoleCapture console;
  HwDatablock block(false);
  block.setData(fromHex(unknownId));
  block.swapDataTo(PPC_Conform, block.getId(), &block);
  EXPECT_EQ(block.getDataFormatTyp(), INTEL_Conform);
  EXPECT_FALSE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 12345, &block));
  EXPECT_FALSE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 65535, &block));
  EXPECT_FALSE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 2, nullptr));
  EXPECT_EQ(hexOf(block), unknownId);
}

TEST(Conversion, ChecksumsEndInTheFormatTheyStartedIn) {
  ConsoleCapture console;
  for (const char* const bytes : {selfDescribing, unknownId}) {
    HwDatablock block(false);
    block.setData(fromHex(bytes));
    block.setDataFormatTyp(PPC_Conform);
    block.setChecksum(block.computeChecksum());
    EXPECT_TRUE(block.verifyChecksum());
    EXPECT_EQ(block.getDataFormatTyp(), PPC_Conform);
  }
}

TEST(Conversion, BringsASourceIntoTheFirmwaresLayout) {
  HwDatablock source(false);
  source.setData(fromHex(selfDescribing));
  source.setDataFormatTyp(PPC_Conform);
  HwDatablock block(false);
  block.setHwDatablockFirmwareConform(&source);
  EXPECT_EQ(source.getDataFormatTyp(), INTEL_Conform);
  EXPECT_EQ(block.getDataFormatTyp(), INTEL_Conform);
  EXPECT_EQ(hexOf(block), selfDescribing);
}

}  // namespace
}  // namespace Velk
