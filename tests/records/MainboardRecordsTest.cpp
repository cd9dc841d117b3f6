#include "TestSupport.h"
#include "velk/records/HwDatablockCommonStatisticData.h"
#include "velk/records/MainboardRecords.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::ErrorCapture;
using VelkTest::hexOf;
using VelkTest::printed;

TEST(MainboardRecords, SerialNumberBlockStartsWithoutAChecksum) {
  ConsoleCapture console;
  HwDatablockMbrdSerialNumber block;
  EXPECT_EQ(hexOf(block), "E0 2E 0C 00 00 00 00 00 00 00 00 00");
  EXPECT_FALSE(block.verifyChecksum());
  block.setSerialNumber(123456);
  EXPECT_EQ(block.getChecksum(), 0xEED3);
  EXPECT_TRUE(block.verifyChecksum());
}

TEST(MainboardRecords, ModelLeavesItsLastByteAlone) {
  ConsoleCapture console;
  HwDatablockMbrdModel block;
  EXPECT_FALSE(block.getStopConversionOnError());
  block.setModel(QString(40, 'm'));
  EXPECT_EQ(block.getModel(), QString(31, 'm'));
  block.getBlock()->model[31] = 'z';
  EXPECT_EQ(block.getModel(), QString(31, 'm') + 'z');
  block.setModel("short");
  EXPECT_EQ(block.getModel(), "short");
  EXPECT_EQ(block.getBlock()->model[31], 'z');

  HwDatablockMbrdModel source;
  source.setModel("other");
  source.getBlock()->model[31] = 'y';
  source.getBlock()->model[20] = 'x';
  source.setChecksum(source.computeChecksum());
  EXPECT_EQ(block.setBlock(source.getBlock()), 0);
  EXPECT_EQ(block.getBlock()->model[31], 'z');
  EXPECT_EQ(block.getBlock()->model[20], 0);
  EXPECT_EQ(block.getModel(), "other");
}

TEST(MainboardRecords, MacLengthBecomesTheFieldsLength) {
  ErrorCapture errors;
  ConsoleCapture console;
  HwDatablockMbrdMac block;
  EXPECT_EQ(block.getByteArrayData().mid(12), QByteArray(244, '\xFF'));
  const unsigned char address[] = {0x00, 0x90, 0xB8, 1, 2, 3};
  block.setMac(address, 6);
  unsigned int length = 0;
  EXPECT_EQ(std::memcmp(block.getMac(&length), address, 6), 0);
  EXPECT_EQ(length, 6U);
  EXPECT_EQ(block.getByteArrayData().mid(18, 10), QByteArray(10, '\xFF'));
  EXPECT_FALSE(block.verifyChecksum()) << "setMac stores no checksum";

  const unsigned char long20[20] = {1, 2, 3};
  block.setMac(long20, 20);
  EXPECT_EQ(block.getMacLength(), 20U);
  EXPECT_EQ(block.getByteArrayData().at(28), '\xFF') << "at most 16 bytes are copied";
  block.setMac(nullptr, 3);
  EXPECT_EQ(block.getMacLength(), 20U);

  HwDatablockMbrdMac source;
  source.setMac(address, 6);
  source.setAlignment(5);
  EXPECT_EQ(block.setBlock(source.getBlock()), 0);
  EXPECT_EQ(block.getMacLength(), 16U);
  EXPECT_EQ(block.getAlignment(), 5);
  EXPECT_EQ(block.getChecksum(), source.getChecksum());

  source.setBlockSize(255);
  source.getBlock();
  EXPECT_NE(block.setBlock(source.getBlock()), 0) << "a right checksum, but another size";
  EXPECT_NE(block.setBlock(nullptr), 0);
  EXPECT_EQ(errors.errors, std::vector<std::string>(2, "1040001:   HwDatablockMbrdMac"));
}

TEST(MainboardRecords, AnalogOutputCalibrationIsAHeader) {
  HwObelDatablockAnalogOutputCalibration second(1, false);
  EXPECT_EQ(hexOf(second), "8D 3C 08 00 00 00 00 00");
  EXPECT_EQ(hexOf(*std::make_unique<HwObelDatablockAnalogOutputCalibration>(0, true)), "8C 3C 08 00 00 00 00 00");
  EXPECT_EQ(printed(second), "");
  HwSDatablockAnalogOutputCalibration record{{15500, 8, 0xC36C, 0}};
  ErrorCapture errors;
  ConsoleCapture console;
  EXPECT_EQ(second.setBlock(&record), 0);
  EXPECT_EQ(hexOf(second), "8C 3C 08 00 6C C3 00 00");
  record.header.id = 15501;
  EXPECT_EQ(second.setBlock(&record), 1);
  EXPECT_EQ(hexOf(second), "8C 3C 08 00 6C C3 00 00");
  EXPECT_EQ(errors.errors, std::vector<std::string>{"1040001:   HwSDatablockAnalogOutputCalibration"});
}

TEST(CommonStatisticData, NamesFourCountsAndPrintsAllBytes) {
  HwDatablockCommonStatisticData block(11310);
  EXPECT_EQ(hexOf(block).substr(0, 35), "2E 2C 0C 02 00 00 00 00 00 02 00 00");
  for (const auto& [id, name] : {std::pair(11310, "POWERON COUNT"),
                                 {11311, "BACKUP OF POWERON COUNT "},
                                 {11312, "OPERATING TIME COUNT"},
                                 {11313, "BACKUP OF OPERATING TIME COUNT"},
                                 {3, ""}}) {
    HwDatablockCommonStatisticData named(id);
    const std::string text = printed(named);
    EXPECT_EQ(text.substr(0, text.find("1: ")), "# Sonstige statistische Daten:\nID: \t " + std::string(name) + "\n");
  }
  std::vector<unsigned char> data(600, 0x11);
  block.setCommonStatisticData(data.data(), 600);
  EXPECT_EQ(block.getCommonStatisticDataLength(), 512U);
  block.setCommonStatisticData(reinterpret_cast<const unsigned char*>("\1\2\xFF"), 3);
  EXPECT_EQ(block.getByteArrayData().mid(8, 8).toHex(' '), "03 00 00 00 01 02 ff 11");
  const std::string text = printed(block);
  EXPECT_NE(text.find("\n1: \t1\n2: \t2\n3: \t255\n4: \t0\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("\n512: \t0\n\n"));
  EXPECT_EQ(block.getCommonStatisticData(nullptr)[3], 0x11);
}

TEST(CommonStatisticData, TakesOverIdAlignmentAndValidBytesOfAnyRecord) {
  HwSDatablockCommonStatisticData record{{11313, 7, 8, 9}, 2, {5, 6, 7}};
  HwDatablockCommonStatisticData block(11310);
  EXPECT_EQ(block.setBlock(&record), 0);
  EXPECT_EQ(block.setBlock(nullptr), 1);
  EXPECT_EQ(block.getId(), 11313);
  EXPECT_EQ(block.getBlockSize(), 524);
  EXPECT_EQ(block.getAlignment(), 9);
  EXPECT_EQ(block.getByteArrayData().mid(8, 7).toHex(' '), "02 00 00 00 05 06 00");
  EXPECT_EQ(block.getInstance(), 11310);
  block.swapBlock(&record);
  EXPECT_EQ(hexOf(block).substr(0, 35), "31 2C 07 00 08 00 00 00 02 00 00 00");
}

}  // namespace
}  // namespace Velk
