#include "TestSupport.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::fromHex;
using VelkTest::hexOf;

TEST(Datablock, NewBlockIsAnEmptyHeader) {
  HwDatablock block(false);
  EXPECT_EQ(hexOf(block), "00 00 08 00 00 00 00 00");
  EXPECT_EQ(block.getBlockSize(), 8);
  EXPECT_FALSE(block.getStopConversionOnError());
  EXPECT_TRUE(HwDatablock(true).getStopConversionOnError());
  EXPECT_EQ(block.getDataFormatTyp(), INTEL_Conform);
  EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassOrdinary);
}

TEST(Datablock, HeaderFieldsNeedTheirBytes) {
  struct Case {
    const char* bytes;
    int id, size, checksum, alignment;
    unsigned checksum32;
  };
  const Case cases[] = {
      {"", 0, 0, 0, 0, 0},
      {"01", 0, 0, 0, 0, 0},
      {"01 02", 0x0201, 0, 0, 0, 0},
      {"01 02 03", 0x0201, 0, 0, 0, 0},
      {"01 02 03 04", 0x0201, 0x0403, 0, 0, 0},
      {"01 02 03 04 05", 0x0201, 0x0403, 0, 0, 0},
      {"01 02 03 04 05 06", 0x0201, 0x0403, 0x0605, 0, 0},
      {"01 02 03 04 05 06 07", 0x0201, 0x0403, 0x0605, 0, 0},
      {"01 02 03 04 05 06 07 08 09 0A 0B", 0x0201, 0x0403, 0x0605, 0x0807, 0},
      {"01 02 03 04 05 06 07 08 09 0A 0B 0C", 0x0201, 0x0403, 0x0605, 0x0807, 0x0C0B0A09},
      {"FF FF", 0xFFFF, 0, 0, 0, 0},
      {"FF FF 20", 0xFFFF, 0, 0, 0, 0},
      {"FF FF 20 00", 0xFFFF, 4, 0, 0, 0},
      {"FF FF 20 00 05 06 07 08", 0xFFFF, 4, 0x0605, 0x0807, 0},
  };
  ConsoleCapture console;
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.bytes);
    HwDatablock block(false);
    block.setData(fromHex(expected.bytes));
    EXPECT_EQ(block.getId(), expected.id);
    EXPECT_EQ(block.getBlockSize(), expected.size);
    EXPECT_EQ(block.getChecksum(), expected.checksum);
    EXPECT_EQ(block.getAlignment(), expected.alignment);
    EXPECT_EQ(block.getChecksum32(), expected.checksum32);
  }
}

TEST(Datablock, HeaderWritesBeyondTheBufferDoNothing) {
  ConsoleCapture console;
  for (const char* const bytes : {"", "01", "01 02 03", "01 02 03 04 05", "01 02 03 04 05 06 07"}) {
    HwDatablock block(false);
    block.setData(fromHex(bytes));
    if (block.getByteArrayData().size() < 2) block.setBlockId(7);
    if (block.getByteArrayData().size() < 4) block.setBlockSize(7);
    if (block.getByteArrayData().size() < 4) block.setBlockSizeWithoutCalcChecksumm(7);
    if (block.getByteArrayData().size() < 6) block.setChecksum(7);
    block.setAlignment(7);
    EXPECT_EQ(block.getByteArrayData(), fromHex(bytes));
  }
}

TEST(Datablock, HeaderSettersKeepTheChecksumRightButNotAllOfThem) {
  HwDatablock block(false);
  block.setData(fromHex("00 00 0C 00 00 00 00 00 11 22 33 44"));
  block.setBlockId(4711);
  EXPECT_TRUE(block.verifyChecksum());
  block.setAlignment(3);
  EXPECT_TRUE(block.verifyChecksum());
  block.setBlockSize(8);
  EXPECT_TRUE(block.verifyChecksum());
  EXPECT_EQ(block.getByteArrayData().size(), 12) << "the buffer keeps its length";
  ConsoleCapture console;
  block.setBlockSizeWithoutCalcChecksumm(12);
  EXPECT_FALSE(block.verifyChecksum());
}

TEST(Datablock, SetDataTakesTheBytesWhateverTheirChecksum) {
  ConsoleCapture console;
  const QByteArray sound = fromHex("01 00 08 00 F7 FF 00 00");
  const QByteArray broken = fromHex("01 00 08 00 F6 FF 00 00");
  HwDatablock block(false);
  EXPECT_TRUE(block.setData(sound));
  EXPECT_FALSE(block.setData(broken));
  EXPECT_EQ(block.getByteArrayData(), broken);

  const auto* const none = static_cast<const unsigned char*>(nullptr);
  EXPECT_FALSE(block.setData(none, 10));
  EXPECT_TRUE(block.setDataWithoutChecksumCheck(none, 10));
  EXPECT_FALSE(block.setData(static_cast<HwDatablock*>(nullptr)));
  EXPECT_FALSE(block.setDataWithoutChecksumCheck(static_cast<HwDatablock*>(nullptr)));
  block.setHwDatablockFirmwareConform(nullptr);
  EXPECT_EQ(block.getByteArrayData(), broken);

  EXPECT_TRUE(block.setData(reinterpret_cast<const unsigned char*>(sound.constData()), 8));
  EXPECT_TRUE(block.setDataWithoutChecksumCheck(block.getData() + 2, 4)) << "from its own buffer";
  EXPECT_EQ(hexOf(block), "08 00 F7 FF");
}

TEST(Datablock, TakingOverABlockTakesItsFormatAndReplacingDoesNot) {
  HwDatablock source(false);
  source.setData(fromHex("01 00 08 00 F7 FF 00 00"));
  source.setDataFormatTyp(PPC_Conform);
  HwDatablock taken(false);
  EXPECT_TRUE(taken.setData(&source));
  EXPECT_EQ(taken.getDataFormatTyp(), PPC_Conform);
  HwDatablock replaced(false);
  replaced.replaceDataInList(&source);
  EXPECT_EQ(replaced.getDataFormatTyp(), INTEL_Conform);
  EXPECT_EQ(replaced.getByteArrayData(), source.getByteArrayData());
  replaced.getData()[0] = 9;
  EXPECT_EQ(source.getId(), 1) << "buffers are detached before they are written";
}

TEST(Datablock, ResizingZeroesWhatItAddsAndGivesBackWhatItCuts) {
  HwDatablock block(false);
  block.resizeData(60000);
  EXPECT_EQ(block.getByteArrayData().right(59992), QByteArray(59992, '\0'));
  block.resizeData(8);
  EXPECT_LT(block.getByteArrayData().capacity(), 100);
  EXPECT_EQ(hexOf(block), "00 00 08 00 00 00 00 00");
}

TEST(Datablock, KeepsItsBookkeeping) {
  ConsoleCapture console;
  HwDatablock block(false);
  EXPECT_TRUE(block.setEepromAddress(0x1234));
  EXPECT_TRUE(block.setEepromSector(7));
  EXPECT_TRUE(block.setDatablockClassTyp(HwDatablockClassEventCounter));
  EXPECT_EQ(block.getEepromAddress(), 0x1234U);
  EXPECT_EQ(block.getEepromSector(), 7U);
  EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassEventCounter);
  block.setBlockSize(0x40);
  EXPECT_EQ(block.getMagicIdentifierEventCount(), 0x452D0040U);
}

TEST(Datablock, RawPrintBreaksItsLines) {
  HwDatablock block(false);
  const auto print = [&](qsizetype count) {
    block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(QByteArray(count, 'x').constData()),
                                      static_cast<unsigned>(count));
    return VelkTest::printed(block);
  };
  EXPECT_EQ(print(0), "\n\n");
  EXPECT_EQ(print(60), "\n" + std::string(60, 'x') + "\n");
  EXPECT_EQ(print(61), "\n" + std::string(61, 'x') + "\n");
  EXPECT_EQ(print(62), "\n" + std::string(61, 'x') + "\nx\n");
  EXPECT_EQ(print(122), "\n" + std::string(61, 'x') + "\n" + std::string(60, 'x') + "\nx\n");
}

TEST(Datablock, HexDumpBreaksAfterSixteenBytesAndAtTheEnd) {
  HwDatablock block(false);
  char bytes[17] = {'\x01', '\xFF'};
  const auto dump = [&](unsigned count) {
    ConsoleCapture console;
    block.printHexDump(bytes, count);
    return console.output;
  };
  EXPECT_EQ(dump(2), "01 ff \n");
  EXPECT_EQ(dump(0), "\n");
  const std::string sixteen = "01 ff 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \n";
  EXPECT_EQ(dump(16), sixteen + "\n");
  EXPECT_EQ(dump(17), sixteen + "00 \n");
}

}  // namespace
}  // namespace Velk
