#include "velk/records/HwDatablockIdent.h"

#include "TestSupport.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

namespace Velk {
namespace {

using VelkTest::ErrorCapture;
using VelkTest::hexOf;
using VelkTest::printed;

HwDatablockIdent exampleIdent() {
  HwDatablockIdent ident;
  ident.setEepromSize(0x01020304);
  ident.setPartNumber(11411000);
  ident.setVariant(2);
  ident.setHardwareCode(200);
  ident.setProductIndex(1234);
  ident.setSerialNumber(100234);
  ident.setProductDate(0x4A6F);
  ident.setReadCode(65535);
  ident.setTestInstruction(5);
  ident.setName("RF-BOARD");
  ident.setAlignment(3);
  return ident;
}

std::string line(const std::string& text, const std::string& key) {
  const std::size_t begin = text.find(key);
  return text.substr(begin, text.find('\n', begin) - begin);
}

TEST(Ident, EveryFieldHasItsPlaceAndKeepsTheChecksum) {
  HwDatablockIdent ident = exampleIdent();
  EXPECT_EQ(hexOf(ident),
            "02 00 2C 00 F1 2F 03 00 04 03 02 01 38 1E AE 00 02 C8 D2 04 8A 87 01 00 6F 4A FF FF 05 00 52 46 2D 42 4F "
            "41 52 44 00 00 00 00 00 00");
  EXPECT_TRUE(ident.verifyChecksum());
  EXPECT_TRUE(ident.getStopConversionOnError());
  EXPECT_EQ(ident.getName(), "RF-BOARD");
}

TEST(Ident, TextDoesNotDependOnTheStream) {
  HwDatablockIdent ident = exampleIdent();
  const std::string expected =
      "# Das sind die Kopfdaten\n"
      "ID:              IDENT_2\n"
      "ALIGNMENT:       3\n"
      "EEPROMSIZE:      16909060\n"
      "PARTNUMBER:      1141.1000.02\n"
      "HWCODE:          200\n"
      "PRODUCTINDEX:    12.34\n"
      "SN:              100234\n"
      "PRODUCTDATE:     2017-03-15\n"
      "READCODE:        65535\n"
      "TESTINSTRUCTION: 00.05\n"
      "NAME:            RF-BOARD\n"
      "\n";
  EXPECT_EQ(printed(ident), expected);
  std::ostringstream hostile = VelkTest::hostileStream();
  ident.printToStream(hostile);
  EXPECT_EQ(hostile.str(), expected);
}

TEST(Ident, LeavesFillAndAlignmentOnTheStream) {
  HwDatablockIdent ident = exampleIdent();
  std::ostringstream os;
  os << std::left;
  ident.printToStream(os);
  os.str("");
  os.width(4);
  os << 7;
  EXPECT_EQ(os.str(), "0007");
}

TEST(Ident, NumbersWiderThanTheirFieldsPrintInFull) {
  HwDatablockIdent ident;
  ident.setPartNumber(10005);
  ident.setVariant(12);
  ident.setProductIndex(65535);
  ident.setProductDate(0xFFFF);
  EXPECT_EQ(line(printed(ident), "PARTNUMBER"), "PARTNUMBER:      1.0005.12");
  EXPECT_EQ(line(printed(ident), "PRODUCTINDEX"), "PRODUCTINDEX:    655.35");
  EXPECT_EQ(line(printed(ident), "PRODUCTDATE"), "PRODUCTDATE:     2107-15-31");
  ident.setPartNumber(4294967295U);
  ident.setVariant(255);
  EXPECT_EQ(line(printed(ident), "PARTNUMBER"), "PARTNUMBER:      429496.7295.255");
}

TEST(Ident, NameIsFourteenBytesAtMost) {
  HwDatablockIdent ident;
  ident.setName("abcdefghijklmnopqrst");
  EXPECT_EQ(ident.getName(), "abcdefghijklmn");
  EXPECT_TRUE(hexOf(ident).ends_with("6D 6E"));
  ident.setName("xy");
  EXPECT_TRUE(hexOf(ident).ends_with("78 79 00 00 00 00 00 00 00 00 00 00 00 00"));
  EXPECT_TRUE(ident.verifyChecksum());
  ident.setBlockId(10);
  EXPECT_EQ(line(printed(ident), "NAME"), "NAME:            xy  ");
  ident.getData()[30] = 0xE4;
  EXPECT_EQ(line(printed(ident), "NAME"), "NAME:            \xE4y  ") << "bytes, not characters";
}

TEST(Ident, TakesOverARecordWithItsIdAlignmentAndChecksum) {
  HwDatablockIdent source = exampleIdent();
  source.setBlockId(7);
  HwSDatablockIdent record = *source.getBlock();
  HwDatablockIdent block;
  EXPECT_EQ(block.setBlock(&record), 0);
  EXPECT_EQ(hexOf(block), hexOf(source));
  EXPECT_EQ(block.setBlock(block.getBlock()), 0) << "a record inside the block's own buffer";
  EXPECT_EQ(hexOf(block), hexOf(source));
}

TEST(Ident, RefusesARecordWithAWrongChecksum) {
  ErrorCapture errors;
  HwSDatablockIdent record = *exampleIdent().getBlock();
  record.serialNumber += 1;
  HwDatablockIdent block;
  const std::string before = hexOf(block);
  EXPECT_EQ(block.setBlock(&record), 1);
  EXPECT_EQ(block.setBlock(nullptr), 1);
  EXPECT_EQ(hexOf(block), before);
  EXPECT_EQ(errors.errors, std::vector<std::string>(2, "1040001:   HwDatablockIdent"));

  block.swapBlock(&record);
  EXPECT_EQ(block.getSerialNumber(), 100235U) << "unchecked";
  VelkTest::ConsoleCapture console;
  EXPECT_FALSE(block.verifyChecksum()) << "the record's own checksum is kept";
}

TEST(Ident, CutsTheNameAfterItsFirstZero) {
  HwDatablockIdent block = exampleIdent();
  block.getData()[40] = 'x';
  block.setChecksum(block.computeChecksum());
  const unsigned short checksum = block.getChecksum();
  HwSDatablockIdent record = *block.getBlock();
  EXPECT_EQ(block.setBlock(&record), 0);
  EXPECT_EQ(block.getData()[40], 0);
  EXPECT_EQ(block.getChecksum(), checksum) << "kept although it is wrong now";

  HwDatablock raw(false);
  raw.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(&record), sizeof record);
  EXPECT_TRUE(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, 2, &raw));
  EXPECT_EQ(raw.getByteArrayData(), block.getByteArrayData()) << "a conversion cuts it as well, and keeps alignment 3";
}

TEST(Ident, ShortBuffersReadAsZerosAndAreNotWritten) {
  HwDatablockIdent block = exampleIdent();
  block.resizeData(22);
  EXPECT_EQ(block.getProductIndex(), 1234);
  EXPECT_EQ(block.getSerialNumber(), 0x878AU) << "two of its four bytes are missing";
  EXPECT_EQ(block.getName(), "");
  const std::string before = hexOf(block);
  block.setSerialNumber(5);
  EXPECT_EQ(hexOf(block), before);
  EXPECT_EQ(line(printed(block), "SN"), "SN:              34698");
  EXPECT_EQ(block.getBlock()->serialNumber + 0, 0x878AU) << "the record handed out is whole";
  EXPECT_EQ(block.getByteArrayData().size(), 44);
}

}  // namespace
}  // namespace Velk
