// Intel HEX and S-record texts: what they mean, what is refused, and that writing gives back what was read.
#include <random>

#include "TestSupport.h"
#include "velk/bytes/HexText.h"
#include "velk/image/IntelHex.h"
#include "velk/image/SRecord.h"

namespace Velk {
namespace {

/// "0x0100 AABB, 0x0200 CC; entry 0x00000010": everything that a text said.
std::string summary(const SparseImage& image) {
  if (!image.error.empty()) return "line " + std::to_string(image.errorLine) + ": " + image.error;
  std::string text;
  for (const ImageSegment& segment : image.segments) {
    if (!text.empty()) text += ", ";
    text += detail::hexText(segment.address, 4) + ' ' + segment.bytes.toHex().toUpper().toStdString();
  }
  if (const auto& entry = image.details.entry) {
    text += std::string("; ") + (entry->segmented ? "segmented " : "") + "entry " + detail::hexText(entry->address, 8);
  }
  if (!image.details.header.isEmpty()) text += "; header " + image.details.header.toStdString();
  if (!image.details.ended) text += "; no end";
  return text;
}

struct Case {
  const char* text;
  const char* meaning;
};

TEST(IntelHex, Meaning) {
  const Case cases[] = {
      {":0201000011AA42\n:00000001FF\n", "0x0100 11AA"},
      {":0201000011aa42\r\n\r\n:00000001ff  \r\n", "0x0100 11AA"},
      {":0201000011AA42\n", "0x0100 11AA; no end"},
      {":00000001FF", ""},
      {"", "; no end"},
      // Neighbours become one stretch, whatever their order.
      {":0101010022DB\n:0101030044B7\n:0101000011ED\n:0101020033C9\n:00000001FF\n", "0x0100 11223344"},
      {":0101000011ED\n:0101020033C9\n:00000001FF\n", "0x0100 11, 0x0102 33"},
      // Base addresses; 16-bit addresses stay in their segment, linear ones run on.
      {":020000021234B6\n:0101000011ED\n:00000001FF\n", "0x12440 11"},
      {":020000020001FB\n:02FFFF00AABB9B\n:00000001FF\n", "0x0010 BB, 0x1000F AA"},
      {":020000040001F9\n:02FFFF00AABB9B\n:00000001FF\n", "0x1FFFF AABB"},
      {":02000004FFFFFC\n:02FFFF00AABB9B\n:00000001FF\n", "0x0000 BB, 0xFFFFFFFF AA"},
      {":020000040001F9\n:0101000011ED\n:020000020000FC\n:0101000022DC\n:00000001FF\n", "0x0100 22, 0x10100 11"},
      {":0400000312345678E5\n:00000001FF\n", "; segmented entry 0x12345678"},
      {":0400000512345678E3\n:00000001FF\n", "; entry 0x12345678"},
      // What is refused.
      {":0201000011AA43\n", "line 1: checksum is 0x43, the bytes give 0x42"},
      {":0201000011AA42\n\n:0101000011EE\n", "line 3: checksum is 0xEE, the bytes give 0xED"},
      {":0301000011AA41\n", "line 1: length of the record is wrong"},
      {":0101000011AA43\n", "line 1: length of the record is wrong"},
      {":00000001F\n", "line 1: an odd number of digits"},
      {":0000000G01FF\n", "line 1: not hexadecimal"},
      {":0000\n", "line 1: length of the record is wrong"},
      {":\n", "line 1: length of the record is wrong"},
      {"0201000011AA42\n", "line 1: no ':' at its start"},
      {":00000006FA\n", "line 1: record type 6 is unknown"},
      {":01000001AA54\n", "line 1: length does not fit record type 1"},
      {":0100000412E9\n", "line 1: length does not fit record type 4"},
      {":00000001FF\n:0101000011ED\n", "line 2: a record behind the end record"},
      {":0201000011AA42\n:0101010022DB\n", "line 2: address 0x00000101 is given twice"},
      {":0101010022DB\n:0201000011AA42\n", "line 2: address 0x00000101 is given twice"},
  };
  for (const Case& expected : cases) EXPECT_EQ(summary(readIntelHex(expected.text)), expected.meaning) << expected.text;
  EXPECT_EQ(summary(readIntelHex(':' + std::string(1'000'000, '0'))), "line 1: too long for a record");
}

TEST(SRecord, Meaning) {
  const Case cases[] = {
      {"S00600004844521B\nS105010011AA3E\nS9030000FC\n", "0x0100 11AA; entry 0x00000000; header HDR"},
      {"S105010011aa3e\r\n\r\nS9030010ec\t\r\n", "0x0100 11AA; entry 0x00000010"},
      {"S105010011AA3E\n", "0x0100 11AA; no end"},
      {"S206010000AABB93\nS80401000AF0\n", "0x10000 AABB; entry 0x0001000A"},
      {"S30780000000AABB13\nS70580000010"
       "6A\n",
       "0x80000000 AABB; entry 0x80000010"},
      {"S307FFFFFFFEAABB98\n", "0xFFFFFFFE AABB; no end"},
      {"S105010011AA3E\nS5030001FB\nS9030000FC\n", "0x0100 11AA; entry 0x00000000"},
      {"S105010011AA3E\nS604000001FA\nS9030000FC\n", "0x0100 11AA; entry 0x00000000"},
      // What is refused.
      {"S105010011AA3F\n", "line 1: checksum is 0x3F, the bytes give 0x3E"},
      {"S104010011AA3E\n", "line 1: length of the record is wrong"},
      {"S1020100FC\n", "line 1: length of the record is wrong"},
      {"S4030000FC\n", "line 1: record type S4 is unknown"},
      {"SA030000FC\n", "line 1: no S and digit at its start"},
      {"S\n", "line 1: no S and digit at its start"},
      {"S1\n", "line 1: length of the record is wrong"},
      {"S904000011EA\n", "line 1: length does not fit record type S9"},
      {"S105010011AA3E\nS5030002FA\n", "line 2: 2 data records are counted, there are 1"},
      {"S9030000FC\nS105010011AA3E\n", "line 2: a record behind the end record"},
      {"S307FFFFFFFFAABB97\n", "line 1: goes beyond the last address"},
      {"S105010011AA3E\nS104010122D7\n", "line 2: address 0x00000101 is given twice"},
  };
  for (const Case& expected : cases) EXPECT_EQ(summary(readSRecords(expected.text)), expected.meaning) << expected.text;
}

TEST(IntelHex, Text) {
  SparseImage image;
  image.segments = {{0x0FFFE, VelkTest::fromHex("AA BB CC DD EE")}, {0xFFFFFFFF, VelkTest::fromHex("11")}};
  image.details.entry = {0x1000, true};
  image.details.recordLength = 2;
  EXPECT_EQ(writeIntelHex(image).toStdString(),
            ":02FFFE00AABB9C\n:020000040001F9\n:02000000CCDD55\n:01000200EE0F\n:02000004FFFFFC\n:01FFFF0011F0\n"
            ":0400000300001000E9\n:00000001FF\n");
  image = {};
  image.details.carriageReturns = true;
  image.details.lowerCase = true;
  EXPECT_EQ(writeIntelHex(image).toStdString(), ":00000001ff\r\n");
  EXPECT_EQ(readIntelHex(":00000001ff\r\n").details, image.details);
}

TEST(SRecord, TextHasTheShortestAddressesThatReachEverything) {
  SparseImage image;
  image.segments = {{0xFFFE, VelkTest::fromHex("AA BB")}};
  image.details.header = "HDR";
  EXPECT_EQ(writeSRecords(image).toStdString(), "S00600004844521B\nS105FFFEAABB98\nS9030000FC\n");
  image.segments[0].bytes += '\xCC';
  EXPECT_EQ(writeSRecords(image).toStdString(), "S00600004844521B\nS20600FFFEAABB97\nS205010000CC2D\nS804000000FB\n");
  image.details.entry = {0x1000000, false};
  EXPECT_EQ(writeSRecords(image).toStdString(),
            "S00600004844521B\nS3070000FFFEAABB96\nS30600010000CC2C\nS70501000000F9\n");
}

TEST(TextRecords, WhatIsWrittenIsReadBack) {
  std::mt19937 random(1);
  for (const unsigned recordLength : {1U, 16U, 252U, 255U}) {
    SparseImage image;
    for (std::uint64_t address = 0xFF00; image.segments.size() < 20; address += 1 + random() % 100'000) {
      QByteArray bytes(static_cast<qsizetype>(1 + random() % 600), '\0');
      for (char& byte : bytes) byte = static_cast<char>(random());
      image.segments.push_back({address, bytes});
      address = image.segments.back().end();
    }
    image.details.entry = {0x1234, false};
    image.details.recordLength = static_cast<unsigned char>(recordLength);
    const QByteArray hex = writeIntelHex(image);
    EXPECT_TRUE(readIntelHex(hex.toStdString()) == image) << recordLength;
    const SparseImage fromRecords = readSRecords(writeSRecords(image).toStdString());
    EXPECT_TRUE(fromRecords.segments == image.segments) << recordLength;
    EXPECT_EQ(fromRecords.details.entry, image.details.entry);
  }
}

}  // namespace
}  // namespace Velk
