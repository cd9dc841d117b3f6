#include <QTemporaryDir>
#include <algorithm>
#include <random>

#include "TestSupport.h"
#include "velk/diag/HwDebug.h"
#include "velk/platform/ErrorLog.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::fromHex;
using VelkTest::hexOf;

unsigned char* raw(QByteArray& bytes) { return reinterpret_cast<unsigned char*>(bytes.data()); }

TEST(Checksum16, IsTheNegatedSumOfTheOtherWords) {
  HwDatablock block(false);
  block.setDataWithoutChecksumCheck(raw(*std::make_unique<QByteArray>(fromHex("01 00 08 00 34 12 00 00"))), 8);
  EXPECT_EQ(block.computeChecksum(), 0xFFF7);
  EXPECT_EQ(hexOf(block), "01 00 08 00 00 00 00 00") << "computing leaves 0 in the field";
  block.setChecksum(0xFFF7);
  EXPECT_TRUE(block.verifyChecksum());
}

TEST(Checksum16, SizesAtTheEdges) {
  struct Case {
    const char* bytes;
    bool right;
    const char* log;
  };
  const Case cases[] = {
      {"01 00 00 00 00 00 00 00", false, ""},
      {"01 00 01 00 00 00 00 00", true, ""},
      {"00 00 03 00 00 00 00 00", true, ""},
      {"01 00 03 00 00 00 00 00", false, "Alignment of Block 1 is wrong!\n"},
      {"01 00 0A 00 00 00 00 00 00 00", false, "Alignment of Block 1 is wrong!\n"},
      {"01 00 0C 00 00 00 00 00 00 00 00 00", false, ""},
      {"00 00 0D 00 F3 FF 00 00 00 00 00 00 77", true, ""},
      {"01 00 09 00 F6 FF 00 00", true,
       "HwDatablock::verifyChecksum: size mismatch (blockId 1 swapBlockId 1 blockSize 9 / arraySize 8)\n"},
      {"", false, ""},
      {"FF FF 01 00", true, ""},
      {"FF FF 02 00", false, ""},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.bytes);
    ConsoleCapture console;
    HwDatablock block(false);
    EXPECT_EQ(block.setData(fromHex(expected.bytes)), expected.right);
    EXPECT_EQ(console.error, expected.log);
    EXPECT_EQ(block.getByteArrayData(), fromHex(expected.bytes));
  }
}

TEST(Checksum16, ReportsSizesThatAreOddOrBeyondTheBuffer) {
  ConsoleCapture console;
  HwDatablock block(false);
  block.setData(fromHex("01 00 09 00 00 00 00 00"));
  console.error.clear();
  EXPECT_EQ(block.computeChecksum(), 0xFFF6);
  EXPECT_EQ(console.error,
            "Compute datablock checksum: Block size not an even number !\n"
            "HwDatablock::computeChecksum: size mismatch (blockId 1 swapBlockId 1 blockSize 9 / arraySize 8)\n");
}

TEST(Checksum16, LogLinesReachTheErrorLogToo) {
  QTemporaryDir directory;
  const std::string path = (directory.path() + "/error.log").toStdString();
  std::FILE* const log = std::fopen(path.c_str(), "w");
  ErrorLog::setLogAccess(log);
  ConsoleCapture console;
  HwDatablock block(false);
  block.setData(fromHex("01 00 0A 00 00 00 00 00 00 00"));
  EXPECT_EQ(VelkTest::readFile(path), console.error) << "the log is flushed";
  EXPECT_EQ(console.error, "Alignment of Block 1 is wrong!\n");
  ErrorLog::setLogAccess(nullptr);
  std::fclose(log);
}

TEST(Checksum16, OfRecordsAtAnyAddressWithoutWritingToThem) {
  ConsoleCapture console;
  HwDatablock block(false);
  QByteArray room = fromHex("EE 01 00 08 00 F7 FF 00 00 05");
  const QByteArray before = room;
  auto* const odd = reinterpret_cast<unsigned short*>(raw(room) + 1);
  EXPECT_EQ(block.computeChecksum(odd, 8), 0xFFF7);
  EXPECT_TRUE(block.verifyChecksum(odd, 8, true));
  EXPECT_TRUE(block.verifyChecksum(odd, 6, false));
  EXPECT_FALSE(block.verifyChecksum(odd, 4, false));
  EXPECT_EQ(block.computeChecksum(odd, 4), 0xFFF7) << "too short for a checksum word";
  EXPECT_EQ(block.computeChecksum(odd, 5), 0xFFF7);
  EXPECT_EQ(block.computeChecksum(odd, 1), 0);
  EXPECT_TRUE(block.verifyChecksum(odd, 1, true));
  EXPECT_TRUE(block.verifyChecksum(odd, 0, true));
  EXPECT_EQ(room, before);
  EXPECT_EQ(console.error,
            "Compute datablock checksum: Block size not an even number !\n"
            "Compute datablock checksum: Block size not an even number !\n");
}

TEST(Checksum16, WrongOnesAreDebugLinesOfTheBlockThatWasAsked) {
  ConsoleCapture console;
  HwDebug::setDebugLevel(HwObject::HwProtocolLevelWarning);
  HwDatablock block(false);
  block.setBlockId(77);
  unsigned short record[4] = {1, 8, 0, 0};
  EXPECT_FALSE(block.verifyChecksum(record, sizeof record, true));
  HwDebug::exit();
  EXPECT_EQ(console.error, "verifyChecksum(): Wrong checksum! at EepromBlockId 77\n");
}

TEST(Checksum16, LongBlocksSumLikeShortOnes) {
  std::mt19937 random(1);
  for (const int size : {62, 64, 66, 4096, 65534}) {
    QByteArray bytes(size, '\0');
    std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
    bytes[0] = 1;
    bytes[2] = static_cast<char>(size & 0xFF);
    bytes[3] = static_cast<char>(size >> 8);
    HwDatablock block(false);
    block.setDataWithoutChecksumCheck(raw(bytes), static_cast<unsigned>(size));
    block.setChecksum(block.computeChecksum());
    unsigned sum = 0;
    const QByteArray summed = block.getByteArrayData();
    for (int i = 0; i < size; ++i) sum += static_cast<unsigned>(static_cast<unsigned char>(summed[i])) << (i % 2 * 8);
    EXPECT_EQ(sum & 0xFFFFU, 0U);
    EXPECT_TRUE(block.verifyChecksum());
  }
}

TEST(Checksum32, LeavesBytes4To11Out) {
  HwDatablock block(false);
  QByteArray twelve = fromHex("01 00 0C 00 AA BB CC DD EE FF 00 11");
  EXPECT_EQ(block.computeChecksum32(raw(twelve), 12), 0x354DF775U);
  QByteArray sixteen = fromHex("01 00 10 00 11 22 33 44 55 66 77 88 AA BB CC DD");
  EXPECT_EQ(block.computeChecksum32(raw(sixteen), 16), 0xDEAE03D7U);
  EXPECT_EQ(block.computeChecksum32(raw(sixteen), 0), 0U);
  EXPECT_EQ(block.computeChecksum32(raw(twelve), 7), block.computeChecksum32(raw(twelve), 4));
}

TEST(Checksum32, AgreesWithTheTableForEveryLength) {
  std::mt19937 random(2);
  QByteArray bytes(70, '\0');
  std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
  HwDatablock block(false);
  for (unsigned count = 1; count <= 70; ++count) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (unsigned i = 0; i < count; ++i) {
      if (i >= 4 && i <= 11) continue;
      crc = HwDatablock::sTable[(crc ^ static_cast<unsigned char>(bytes[i])) & 0xFFU] ^ (crc >> 8U);
    }
    EXPECT_EQ(block.computeChecksum32(raw(bytes), count), ~crc) << count;
  }
}

TEST(Checksum32, VerifiesTheCrcOrTheEventCounterIdentifier) {
  ConsoleCapture console;
  HwDatablock block(false);
  block.setData(fromHex("01 00 10 00 00 00 00 00 D7 03 AE DE AA BB CC DD"));
  EXPECT_TRUE(block.verifyChecksum32());
  EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassOrdinary);
  block.getData()[15] ^= 1U;
  EXPECT_FALSE(block.verifyChecksum32());

  QByteArray counter(0x40, '\x5A');
  counter.replace(0, 12, fromHex("05 00 40 00 00 00 00 00 40 00 2D 45"));
  block.setData(counter);
  EXPECT_TRUE(block.verifyChecksum32());
  EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassEventCounter);
}

TEST(Checksum32, NeedsMoreThanElevenBytes) {
  ConsoleCapture console;
  HwDatablock block(false);
  QByteArray bytes = fromHex("01 00 0B 00 00 00 00 00 00 00 00 00");
  const unsigned crc = block.computeChecksum32(raw(bytes), 11);
  std::memcpy(bytes.data() + 8, &crc, sizeof crc);
  block.setData(bytes);
  EXPECT_FALSE(block.verifyChecksum32());
  bytes[2] = 12;
  block.setData(bytes.left(11));
  EXPECT_FALSE(block.verifyChecksum32()) << "cut within the CRC";
}

TEST(Checksum32, ComparesWithAnotherImageAndSaysSo) {
  ConsoleCapture console;
  HwDatablock block(false);
  QByteArray image = fromHex("01 00 10 00 00 00 00 00 D7 03 AE DE AA BB CC DD");
  block.setData(image);
  EXPECT_TRUE(block.verifyChecksum32(raw(image), 16));
  EXPECT_FALSE(block.verifyChecksum32(raw(image), 15));
  EXPECT_FALSE(block.verifyChecksum32(raw(image), 11));
  EXPECT_EQ(std::count(console.error.begin(), console.error.end(), '\n'), 3);
  EXPECT_EQ(console.error.substr(0, 38), "OUCH!!! Wieos bin ich jetzert hier?\nOU");
}

}  // namespace
}  // namespace Velk
