// Hex dumps as several tools print them: what they mean, also with other text around them, what is wrong with them, and
// what is taken for one.
#include "ContainerSupport.h"
#include "TestSupport.h"

namespace Velk {
namespace {

using Case = VelkTest::ContainerCase;

std::string summary(const QByteArray& text) { return VelkTest::summary(text, Container::HexDump); }
void expectMeanings(std::span<const Case> cases) { VelkTest::expectMeanings(cases, Container::HexDump); }

constexpr const char* sixteen = "000102030405060741422020434431FF";

TEST(HexDump, EveryFormOfALineHasTheSameBytes) {
  const char* const lines[] = {
      "00000100: 0001 0203 0405 0607 4142 2020 4344 31ff  ........AB  CD1.\n",
      "0000100: 0001 0203 0405 0607 4142 2020 4344 31FF  ........AB  CD1.\n",
      "00000100: 00 01 02 03 04 05 06 07 41 42 20 20 43 44 31 ff  ........AB  CD1.\n",
      "00000100: 000102030405060741422020434431ff  ........AB  CD1.\n",
      "00000100: 00010203 04050607 41422020 434431ff\n",
      "00000100: 000102 030405 060741 422020 434431 ff  ........AB  CD1.\n",
      "00000100  00 01 02 03 04 05 06 07  41 42 20 20 43 44 31 ff  |........AB  CD1.|\n00000110\n",
      "00000100  00 01 02 03 04 05 06 07  41 42 20 20 43 44 31 ff\n00000110\n",
      "0x00000100  00 01 02 03 04 05 06 07  41 42 20 20 43 44 31 FF  |........AB  CD1.|\n0x00000110\n",
      "000100 00 01 02 03 04 05 06 07 41 42 20 20 43 44 31 ff  >........AB  CD1.<\n000110\n",
      "0000400 00 01 02 03 04 05 06 07 41 42 20 20 43 44 31 ff\n0000420\n",
      "0000256 00 01 02 03 04 05 06 07 41 42 20 20 43 44 31 ff\n0000272\n",
  };
  for (const char* const line : lines) {
    const ImageFile image = decodeImage(line, Container::HexDump);
    EXPECT_EQ(image.address, 0x100U) << line;
    EXPECT_EQ(image.bytes, VelkTest::fromHex(sixteen)) << line;
  }
}

TEST(HexDump, Meaning) {
  const Case cases[] = {
      {"00000000: 0102\n00000002: 03\n", "0x0000 010203"},
      {"00000010: 0102  ..\n00000014: 0304  ..\n", "0x0010 0102____0304"},
      // The text beside the bytes may look like bytes.
      {"00000000: 0102 6162 2064 65              ..ab de\n", "0x0000 01026162206465"},
      {"00000000: 6162 6364  abcd\n00000004: 3131 2031  11 1\n", "0x0000 6162636431312031"},
      {"00000000  31 31 20 31 31 20 31 31                           |11 11 11|\n00000008\n", "0x0000 3131203131203131"},
      {"00000000  7c 7c 20 7c                                       ||| ||\n00000004\n", "0x0000 7C7C207C"},
      // An asterisk repeats the line before it.
      {"00000000  01 02\n*\n00000006  03\n00000007\n", "0x0000 01020102010203"},
      {"00000000  01 02\n*\n00000006\n", "0x0000 010201020102"},
      {"00000000  01 02\n*\n00000004  01 02\n*\n00000008\n", "0x0000 0102010201020102"},
      {"* \n00000000  01 02\n00000002\n", "0x0000 0102"},
      // Octal and decimal offsets.
      {"0000000 01 02 03 04 05 06 07 08\n0000010 09\n0000011\n", "0x0000 010203040506070809"},
      {"00000000: 01020304 05060708 090a\n00000010: 0b\n", "0x0000 0102030405060708090A0B"},
      // Words.
      {"0000000 0201 0403\n0000004 0005\n0000005\n",
       "0x0000 0102030405 (is printed in words of 16 bits; their lower bytes are taken first, hexdump -C or xxd shows "
       "the "
       "order)"},
      {"00000000: 04030201 08070605  ........\n", "0x0000 0403020108070605"},
      {"00000000: 64636261  abcd\n00000004: 68676665  efgh\n",
       "0x0000 6463626168676665 (the text beside the bytes does not show them; they may be printed as words)"},
      // Digits alone.
      {"01020304\n05060708\n09\n", "0x0000 010203040506070809"},
      {"\xEF\xBB\xBF> 0102aa\r\n>\r\n> 03BB\r\n", "0x0000 0102AA03BB"},
      // What stands around the lines.
      {"\xEF\xBB\xBF$ xxd dump.bin\r\n00000000: 0102  ..\r\n00000002: 0304  ..\r\n$", "0x0000 01020304"},
      {"Hello,\n* read at 12:30 *\n > > 00000000  01 02  |..|\n > > 00000002\n -- \nMe", "0x0000 0102"},
      {"[12:30:01] 00000000: 0102 0304 0506 0708\n[12:30:02] 00000008: 09\n", "0x0000 010203040506070809"},
      {"00000000  01 02\nerror at 00001234 10 in module\n0x0000002C  10     IDENT_10    44\n00000002\n", "0x0000 0102"},
      {"00000000: 0102 0304 0506 0708 <- id and size\n00000008: 09\n", "0x0000 010203040506070809"},
      {"00000000: 0102\n00000000: 0102\n00000002: 03\n", "0x0000 010203"},
      {"00000000: 0102\n00000002: 0304\n00000002: 0305\n",
       "0x0000 01020305 (line 3: other bytes for address 0x00000003 than line 2; these are taken)"},
  };
  expectMeanings(cases);
}

TEST(HexDump, WrongLines) {
  const Case cases[] = {
      {"", "holds no line of a hex dump"},
      {"a log of 12:30\n", "line 1: not hexadecimal"},
      {"0102\n010\n0304\n", "0x0000 0102????0304 (line 2: an odd number of digits)"},
      {"00000000: 0102\n00000002: 0z04\n00000004: 05\n", "0x0000 0102????05 (line 2: not hexadecimal)"},
      {"00000000: 0102 0304\n00000004: 0506 078\n00000008: 09\n",
       "0x0000 01020304????????09 (line 2: an odd number of digits)"},
      {"00000000: 0102 0304\n00000004: 05 0708\n00000008: 09\n",
       "0x0000 01020304????????09 (line 2: its groups of digits differ in length)"},
      {"00000000: 0102 0304\n0000z004: 0506 0708\n00000008: 09\n",
       "0x0000 01020304????????09 (line 2: its offset is damaged)"},
      {"00000000: 0102 0304\n0000004: 0506 0708\n00000008: 09\n",
       "0x0000 01020304????????09 (line 2: its offset is damaged)"},
      {"00000000: 0102 0304\n0506 0708  ....\n00000008: 09\n",
       "0x0000 01020304????????09 (line 2: no offset at its start)"},
      {"00000000: 0102\n00f00002: 0304\n00000004: 05\n",
       "0x0000 0102????05 (line 2: offset 0x00F00002 is not between those of the lines around it)"},
      {"00000000: 0102\n00000002: 03\n00000004: 05\n", "0x0000 010203??05 (line 2: 1 byte is missing in it)"},
      {"00000000  01 02\n00000002\n00000004  01\n",
       "0x0000 0102____01 (has no offset at its end; it may have been cut)"},
      {"00000000  01 02\n00000004\n",
       "0x0000 0102 (line 2: ends at offset 0x00000004, the bytes before it at 0x00000002)"},
      {"00000000  01 02\n00000002  0z 04\n00000004\n", "0x0000 0102???? (line 2: not hexadecimal)"},
      // What an asterisk repeats has to be known, and how often.
      {"00000000  01 02\n00000002  0z 04\n*\n00000008  05\n00000009\n",
       "0x0000 0102????????????05 (line 2: not hexadecimal)"},
      {"00000000  01 02\n*\n",
       "0x0000 0102 (has no offset at its end; it may have been cut) (line 2: no offset says how "
       "often the line before it is repeated)"},
      {"00000002  01 02\n*\n00000001  01\n00000002\n",
       "0x0001 010102 (line 2: the offset after it is lower than the one before it)"},
      {"00000000  01 02\n*\nffffff00  01\n", "3 bytes are scattered over addresses 0x00000000 to 0xFFFFFF00"},
  };
  expectMeanings(cases);
}

TEST(HexDump, RepeatedBytesAreBoundedHoweverOftenTheyAreRepeated) {
  QByteArray text;
  for (int i = 0; i < 10; ++i) text += "00000000  01 02\n*\n00f00000  01 02\n";
  EXPECT_EQ(summary(text), "its lines put 157286420 bytes at 15728642 addresses");
}

TEST(HexDump, IsRecognisedByLinesThatConfirmEachOther) {
  struct Recognition {
    const char* text;
    Container container;
  };
  const Recognition cases[] = {
      {"00000000: 0102\n00000002: 0304\n", Container::HexDump},
      {"a log\n00000000: 4142 4344  ABCD\n", Container::HexDump},
      {"00000000  01 02\n*\n00000010\n", Container::HexDump},
      {"00: 01 02 03 04 05 06 07 08    ????????\n08: 01 02 03 04 05 06 07 08    ????????\n", Container::HexDump},
      {"0000000 0201 0403\n0000004\n", Container::HexDump},
      {"0102030405060708ff\n0102\n", Container::HexDump},
      // Records are asked first, whatever is around them.
      {":0201000011AA42\n00000000: 0102\n00000002: 0304\n", Container::IntelHex},
      {"S105010011AA3E\n00000000: 0102\n00000002: 0304\n", Container::SRecord},
      // Texts with numbers.
      {"", Container::Raw},
      {"00000000: 0102\n", Container::Raw},
      {"00000000  01\n00000001  02\n00000002  03\n", Container::Raw},
      {"0x00000000  2      IDENT_2    44\n0x0000002C  10     IDENT_10    44\n", Container::Raw},
      {"2017: 10\n2018: 20\n2019: 30\n", Container::Raw},
      {"12:30:01 10 20 30\n12:30:02 10 20 30\n", Container::Raw},
      {"  401000:\t48 83 ec 08\tsub\n  401004:\tc3 90\tret\n", Container::Raw},
      {"100000000000\n200000000000\n", Container::Raw},
      {"0102030405060708ff\n010203\n0102030405060708ff\n", Container::Raw},
      {"0102030405060708ff\n010\n", Container::Raw},
      {"\x01\x02\x03\x04\x05 00000000: 0102\n00000002: 0304\n\x01\x02\x03\x04\x05\x06", Container::Raw},
  };
  for (const Recognition& expected : cases) {
    EXPECT_EQ(decodeImage(expected.text).container, expected.container) << expected.text;
  }
  EXPECT_EQ(writingObstacle(decodeImage("00000000: 0102\n00000002: 0304\n")), "hex dump cannot be written");
}

TEST(HexDump, ALineMayBeAsLongAsTheText) {
  const QByteArray bytes(300'000, '\x5A');
  EXPECT_EQ(decodeImage(bytes.toHex()).bytes, bytes);
  EXPECT_EQ(decodeImage("00000000: " + bytes.toHex(), Container::HexDump).bytes, bytes);
  EXPECT_EQ(decodeImage("00000000 " + bytes.toHex(' '), Container::HexDump).bytes, bytes);
}

}  // namespace
}  // namespace Velk
