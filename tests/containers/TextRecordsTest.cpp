// Intel HEX and S-record texts: what they mean, also with other text around the records, what is wrong with them, and
// that writing gives back what was read.
#include <random>

#include "ContainerSupport.h"
#include "TestSupport.h"
#include "velk/containers/ImageFile.h"

namespace Velk {
namespace {

using VelkTest::expectMeanings;
using VelkTest::summary;
using Case = VelkTest::ContainerCase;

TEST(IntelHex, Meaning) {
  const Case cases[] = {
      {":0201000011AA42\n:00000001FF\n", "0x0100 11AA"},
      {":0201000011aa42\r\n\r\n:00000001ff  \r\n", "0x0100 11AA"},
      {":0201000011AA42\n", "0x0100 11AA (has no end record; it may have been cut)"},
      {":00000001FF", ""},
      {":0101010022DB\n:0101030044B7\n:0101000011ED\n:0101020033C9\n:00000001FF\n", "0x0100 11223344"},
      {":0101000011ED\n:0101020033C9\n:00000001FF\n", "0x0100 11__33"},
      // Base addresses; 16-bit addresses stay in their segment, linear ones run on.
      {":020000021234B6\n:0101000011ED\n:00000001FF\n", "0x12440 11"},
      {":02000004FFFFFC\n:01FFFF00AA57\n:00000001FF\n", "0xFFFFFFFF AA"},
      {":020000040001F9\n:02FFFF00AABB9B\n:00000001FF\n", "0x1FFFF AABB"},
      {":020000040001F9\n:0101000011ED\n:020000021000EC\n:0101010022DB\n:00000001FF\n", "0x10100 1122"},
      {":0400000312345678E5\n:00000001FF\n", "; segmented entry 0x12345678"},
      {":0400000512345678E3\n:00000001FF\n", "; entry 0x12345678"},
      // What stands around the records.
      {"\xEF\xBB\xBF; a comment: 12:30\n> :0201000011AA42 ; two bytes\n[12:01] :00000001FF\n\x1A", "0x0100 11AA"},
      {":0101000011ED\r:0101010022DB\r\r\n:00000001FF\r", "0x0100 1122"},
      {":0101000011ED:0101010022DB\n:00000001FF", "0x0100 1122"},
      {":0201000011AA42\n:0201000011AA42\n:00000001FF\n", "0x0100 11AA"},
      // A base address that is missing where lines fill 64 KiB.
      {":01FFFF0011F0\n:0100000022DD\n:00000001FF\n",
       "0xFFFF 1122 (line 2: base address is missing, taken as 0x00010000)"},
      {":0200000408AA49\n:01FFFF0011F0\n:0200000408ABFF\n:020000040801F1\n:0100000022DD\n:00000001FF\n",
       "0x800FFFF 1122 (line 1: checksum is 0x49, the bytes give 0x48) (line 3: checksum is 0xFF, the bytes give "
       "0x47) (line 4: base address before this line is missing, taken as 0x08000000)"},
      {":01FFFF0011F0\n:020000040801F1\n:0100000022DD\n:00000001FF\n",
       "0x800FFFF 1122 (line 2: base address before this line is missing, taken as 0x08000000)"},
      // A base address that changed places with a line.
      {":01FFFE0010F2\n:020000040001F9\n:01FFFF0011F0\n:0100000022DD\n:00000001FF\n",
       "0xFFFE 101122 (line 4: base address 0x00010000 comes a line too early)"},
      {":0100000011EE\n:020000040800F2\n:0100010022DC\n:00000001FF\n",
       "0x8000000 1122 (line 3: base address 0x08000000 comes after lines that it is for)"},
      {":00000001FF\n:0101000011ED\n", "0x0100 11 (line 2: a record behind the end record)"},
      {":0201000011AA42\n:0101010022DB\n:00000001FF\n",
       "0x0100 1122 (line 2: other bytes for address 0x00000101 than line 1; these are taken)"},
  };
  expectMeanings(cases, Container::IntelHex);
}

TEST(IntelHex, WrongLines) {
  const Case cases[] = {
      {"", "no line of it is Intel HEX"},
      {"a log of 12:30\n", "no line of it is Intel HEX"},
      {":0201000011AA43\n", "line 1: checksum is 0x43, the bytes give 0x42"},
      {":0301000011AA41\n", "line 1: length of the record is wrong"},
      {":00000001F\n", "line 1: an odd number of digits"},
      {":0000000G01FF\n", "line 1: not hexadecimal"},
      {":0000\n", "line 1: length of the record is wrong"},
      {":00000006FA\n", "line 1: record type 6 is unknown"},
      {":01000001AA54\n", "line 1: length does not fit record type 1"},
      {":0100000412E9\n", "line 1: length does not fit record type 4"},
      // The bytes of a wrong line are lost: where its own address is believable, where those around it leave room.
      {":0101000011ED\n:0101010022DC\n:0101020033C9\n:00000001FF\n",
       "0x0100 11??33 (line 2: checksum is 0xDC, the bytes give 0xDB)"},
      {":0101000011ED\n:01010Z0022DB\n:0101030033C8\n:00000001FF\n", "0x0100 11????33 (line 2: not hexadecimal)"},
      {":0101000011ED\n:0101010022D\n:00000001FF\n", "0x0100 11?? (line 2: an odd number of digits)"},
      {":0101000011ED\n:01 0101000022DB\n:00000001FF\n", "0x0100 11?? (line 2: length of the record is wrong)"},
      {":0Z01000011ED\n:0101010022DB\n:00000001FF\n", "0x0100 ??22 (line 1: not hexadecimal)"},
      {":0101000011ED\n;0101010022DB\n:0101020033C9\n:00000001FF\n", "0x0100 11??33 (line 2: no ':' at its start)"},
      {":0101000011ED\n:00000001FE\n",
       "0x0100 11 (has no end record; it may have been cut) (line 2: checksum is 0xFE, the bytes give 0xFF)"},
  };
  expectMeanings(cases, Container::IntelHex);
  EXPECT_EQ(summary(':' + QByteArray(1'000'000, '0'), Container::IntelHex), "line 1: too long for a record");
}

TEST(SRecord, Meaning) {
  const Case cases[] = {
      {"S00600004844521B\nS105010011AA3E\nS9030000FC\n", "0x0100 11AA; entry 0x00000000; header HDR"},
      {"S105010011aa3e\r\n\r\nS9030010ec\t\r\n", "0x0100 11AA; entry 0x00000010"},
      {"S105010011AA3E\n", "0x0100 11AA (has no end record; it may have been cut)"},
      {"S206010000AABB93\nS80401000AF0\n", "0x10000 AABB; entry 0x0001000A"},
      {"S307FFFFFFFEAABB98\nS705800000106A\n", "0xFFFFFFFE AABB; entry 0x80000010"},
      {"S105010011AA3E\nS604000001FA\nS9030000FC\n", "0x0100 11AA; entry 0x00000000"},
      {"S105010011AA3E\nS5030001FB\n", "0x0100 11AA"},
      {"> s105010011AA3E S9030000FC\n", "0x0100 11AA; entry 0x00000000"},
      {"S105010011AA3E\nS5030002FA\nS9030000FC\n",
       "0x0100 11AA (line 2: 2 data records are counted, there are 1); entry 0x00000000"},
      {"S9030000FC\nS105010011AA3E\n", "0x0100 11AA (line 2: a record behind the end record); entry 0x00000000"},
      // What is wrong.
      {"S105010011AA3F\n", "line 1: checksum is 0x3F, the bytes give 0x3E"},
      {"S104010011AA3E\n", "line 1: length of the record is wrong"},
      {"S1020100FC\n", "line 1: length of the record is wrong"},
      {"S4030000FC\n", "line 1: record type S4 is unknown"},
      {"SA030000FC\n", "line 1: no S and digit at its start"},
      {"S30600000100AA4E\nS20600000101BB3C\nS30600000102CC2A\nS9030000FC\n",
       "0x0100 AA??CC (line 2: record type is S2, as S3 it continues the lines before it); entry 0x00000000"},
      {"S904000011EA\n", "line 1: length does not fit record type S9"},
      {"S307FFFFFFFFAABB97\n", "line 1: goes beyond the last address"},
      {"S104010011E9\nS104010122D8\nS104010233C5\nS9030000FC\n",
       "0x0100 11??33 (line 2: checksum is 0xD8, the bytes give 0xD7); entry 0x00000000"},
  };
  expectMeanings(cases, Container::SRecord);
}

ImageFile imageAt(std::uint64_t address, const char* bytes, Container container) {
  return {.bytes = VelkTest::fromHex(bytes), .container = container, .address = address};
}

TEST(IntelHex, Text) {
  ImageFile image = imageAt(0x0FFFE, "AA BB CC DD EE FF FF 11", Container::IntelHex);
  image.gaps = {{5, 2}};
  image.details.entry = {0x1000, true};
  image.details.recordLength = 2;
  EXPECT_EQ(encodeImage(image).toStdString(),
            ":02FFFE00AABB9C\n:020000040001F9\n:02000000CCDD55\n:01000200EE0F\n:0100050011E9\n"
            ":0400000300001000E9\n:00000001FF\n");
  image = {.container = Container::IntelHex};
  image.details.carriageReturns = true;
  image.details.lowerCase = true;
  EXPECT_EQ(encodeImage(image).toStdString(), ":00000001ff\r\n");
  EXPECT_EQ(decodeImage(":00000001ff\r\n").details, image.details);
}

TEST(SRecord, TextHasTheShortestAddressesThatReachEverything) {
  ImageFile image = imageAt(0xFFFE, "AA BB", Container::SRecord);
  image.details.header = "HDR";
  EXPECT_EQ(encodeImage(image).toStdString(), "S00600004844521B\nS105FFFEAABB98\nS9030000FC\n");
  image.bytes += '\xCC';
  EXPECT_EQ(encodeImage(image).toStdString(), "S00600004844521B\nS20600FFFEAABB97\nS205010000CC2D\nS804000000FB\n");
  image.details.entry = {0x1000000, false};
  EXPECT_EQ(encodeImage(image).toStdString(),
            "S00600004844521B\nS3070000FFFEAABB96\nS30600010000CC2C\nS70501000000F9\n");
}

TEST(TextRecords, OnlyTheLinesOfChangedBytesChange) {
  struct Edit {
    const char* before;
    std::uint64_t offset;
    char byte;
    const char* after;
  };
  const Edit edits[] = {
      {"log\r\n> :0201000011aa42 ;x\r\n:0101040022D8\r\n:00000001FF\r\n", 1, '\x0B',
       "log\r\n> :02010000110be1 ;x\r\n:0101040022D8\r\n:00000001FF\r\n"},
      {"S104010122D7\nS104010011E9\nS104010122D7\nS5030003F9\n", 1, '\x23',
       "S104010123D6\nS104010011E9\nS104010123D6\nS5030003F9\n"},
      // Bytes between the lines and after them get a line of their own.
      {":0101000011ED\n:0101020033C9\n:00000001FF\n", 1, '\x22',
       ":0101000011ED\n:0101020033C9\n:0101010022DB\n:00000001FF\n"},
      {":020000040001F9\n:0101000011ED\n:00000001FF", 1, '\x22',
       ":020000040001F9\n:0101000011ED\n:0101010022DB\n:00000001FF"},
      {":0101000011ED\n:020000040001F9\n:00000001FF\n", 1, '\x22',
       ":0101000011ED\n:0101010022DB\n:020000040001F9\n:00000001FF\n"},
      {":020000021000EC\n:0101000011ED", 1, '\x22', ":020000021000EC\n:0101000011ED\n:020000040001F9\n:0101010022DB\n"},
      {"S20500010011E8\nS5030001FB\n", 1, '\x22', "S20500010011E8\nS20500010122D6\nS5030002FA\n"},
  };
  for (const Edit& edit : edits) {
    SCOPED_TRACE(edit.before);
    ImageFile image = decodeImage(edit.before);
    EXPECT_EQ(encodeImage(image), QByteArray(edit.before));
    if (edit.offset == static_cast<std::uint64_t>(image.bytes.size())) image.bytes += ' ';
    image.bytes[static_cast<qsizetype>(edit.offset)] = edit.byte;
    const QByteArray after = encodeImage(image);
    EXPECT_EQ(after.toStdString(), edit.after);
    EXPECT_TRUE(decodeImage(after).bytes == image.bytes);
  }
}

TEST(TextRecords, ALineThatIsWrongCannotBeWrittenBack) {
  ImageFile image = decodeImage(":0101000011ED\n:0101010022DC\n:0101020033C9\n:00000001FF\n");
  EXPECT_EQ(writingObstacle(image),
            "its lines cannot be kept as they are: line 2: checksum is 0xDC, the bytes give 0xDB");
  moveTo(image, Container::SRecord);
  EXPECT_EQ(writingObstacle(image), "");
  image.address = 0xFFFFFFFE;
  EXPECT_EQ(writingObstacle(image), "S-record reaches no address past 4 GiB");
  image.container = Container::Raw;
  EXPECT_EQ(writingObstacle(image), "");
}

TEST(TextRecords, LostBytesAreCountedInAnyPart) {
  ImageFile image;
  image.lost = {{10, 5}, {20, 5}};
  EXPECT_EQ(lostBytes(image, 0, 100), 10U);
  EXPECT_EQ(lostBytes(image, 14, 7), 2U);
  EXPECT_EQ(lostBytes(image, 11, 2), 2U);
  EXPECT_EQ(lostBytes(image, 15, 5), 0U);
  EXPECT_EQ(lostBytes(image, 25, 5), 0U);
}

TEST(TextRecords, FindingsDoNotGrowWithTheLines) {
  QByteArray text = ":0101000011ED\n";
  for (int i = 0; i < 1000; ++i) text += ":0101010022DC\n";
  const ImageFile image = decodeImage(text);
  ASSERT_EQ(image.findings.size(), 18U);
  EXPECT_EQ(image.findings.back().describe(), "984 more lines are wrong");
}

TEST(TextRecords, WhatIsWrittenIsReadBack) {
  std::mt19937 random(1);
  for (const unsigned recordLength : {1U, 16U, 252U, 255U}) {
    for (const Container container : {Container::IntelHex, Container::SRecord}) {
      ImageFile image{.container = container, .address = 0xFF00};
      for (int i = 0; i < 20; ++i) {
        if (i > 0) image.gaps.push_back({static_cast<std::uint64_t>(image.bytes.size()), 1 + random() % 100'000});
        if (i > 0) image.bytes.append(static_cast<qsizetype>(image.gaps.back().size), '\xFF');
        for (unsigned left = 1 + random() % 600; left > 0; --left) image.bytes += static_cast<char>(random() % 255);
      }
      image.details.entry = {0x1234, false};
      image.details.recordLength = static_cast<unsigned char>(recordLength);
      const ImageFile again = decodeImage(encodeImage(image));
      EXPECT_TRUE(again.bytes == image.bytes && again.findings.empty());
      EXPECT_TRUE(again.gaps == image.gaps);
      EXPECT_TRUE(again.address == image.address && again.details.entry == image.details.entry);
    }
  }
}

}  // namespace
}  // namespace Velk
