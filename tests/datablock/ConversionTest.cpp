#include <random>

#include "CatalogueSupport.h"
#include "TestSupport.h"
#include "velk/oldstyle/BlockCatalogue.h"
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

/// The bytes of a block of `id`, `size` long, that hold anything, with a right size field.
QByteArray anything(std::mt19937& random, unsigned short id, unsigned size) {
  QByteArray bytes(static_cast<qsizetype>(size), '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  for (int i = 0; i < std::min<int>(2, static_cast<int>(size)); ++i) bytes[i] = static_cast<char>(id >> (8 * i));
  for (int i = 2; i < std::min<int>(4, static_cast<int>(size)); ++i) {
    bytes[i] = static_cast<char>(size >> (8 * (i - 2)));
  }
  return bytes;
}

TEST(Conversion, ServesTheseRecordsAndNoOthers) {
  constexpr int converted[] = {2,   3,   4,   5,   6,   7,   8,   9,   10,    100,   110,   120,   200,   201,  202,
                               203, 204, 205, 206, 207, 208, 209, 300, 11310, 11311, 11312, 11313, 12000, 12001};
  for (const int id : converted) {
    HwDatablock block(true);
    EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, id, &block)) << id;
  }
  for (const int id : {1, 11, 299, 10000, 10301, 10503, 10504, 12004, 12050, 12306, 13600, 15650, 65535}) {
    HwDatablock block(true);
    EXPECT_FALSE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, id, &block)) << id;
  }
}

TEST(Conversion, KeepsTheAlignmentOfIdentAndListOnly) {
  for (const auto& [id, size, kept] :
       {std::tuple(2, 44, true), {120, 12, true}, {100, 28, false}, {200, 24, false}, {11310, 524, false}}) {
    HwDatablock block(true);
    block.resizeData(static_cast<unsigned>(size));
    block.setAlignment(5);
    const unsigned short checksum = block.getChecksum();
    HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, id, &block);
    EXPECT_EQ(block.getAlignment(), kept ? 5 : 0) << id;
    EXPECT_EQ(block.getChecksum(), checksum) << id;
  }
}

TEST(Conversion, OfAnyBytesUnderEveryKnownIdKeepsPayloadChecksumAndLength) {
  ConsoleCapture console;
  std::mt19937 random(3);
  for (const CatalogueRow& row : VelkTest::allRows()) {
    for (const unsigned size : {0U, 1U, 7U, 8U, row.size - 1U, row.size + 0U, row.size + 5U}) {
      SCOPED_TRACE(std::string(row.className) + ", " + std::to_string(size) + " bytes");
      const QByteArray before = anything(random, row.firstId, size);
      HwDatablock block(false);
      block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(before.constData()), size);
      const bool converted = HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, row.firstId, &block);
      EXPECT_EQ(converted, row.conversion != Conversion::None);
      EXPECT_EQ(block.getDataFormatTyp(), converted ? PPC_Conform : INTEL_Conform);
      if (size < row.size || !converted) {
        EXPECT_EQ(block.getByteArrayData(), before);
        continue;
      }
      const QByteArray once = block.getByteArrayData();
      EXPECT_EQ(once.size(), before.size());
      EXPECT_EQ(once.mid(0, 2), before.mid(0, 2));
      EXPECT_EQ(once.mid(4, 2), before.mid(4, 2)) << "the source's checksum is kept";
      HwDatablockOldStyleInterpreter::swapHwDatablock(INTEL_Conform, row.firstId, &block);
      EXPECT_EQ(block.getByteArrayData(), once) << "the way back changes nothing more";
      block.setDataFormatTyp(PPC_Conform);
      block.verifyChecksum();
      block.setBlockId(row.firstId);
      EXPECT_EQ(block.getDataFormatTyp(), PPC_Conform);
    }
  }
}

}  // namespace
}  // namespace Velk
