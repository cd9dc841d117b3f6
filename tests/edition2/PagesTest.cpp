#include <ctime>

#include "edition2/Edition2Support.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::fromHex;
using VelkTest::hostileStream;
using VelkTest::SecondEditionBuilder;
using VelkTest::sized;
using VelkTest::Table;

using Page = std::ostream& (HwDatablock2Edition::*)(std::ostream&, HwSDataBlockCfg);
constexpr Page summary = &HwDatablock2Edition::printDebugPageSummary;
constexpr Page detail = &HwDatablock2Edition::printDebugPageDetail;
constexpr Page complete = &HwDatablock2Edition::printDebugPageComplete;

std::string printed(Page page, HwDatablock2Edition& block, std::ostringstream os = {}) {
  HwSDataBlockCfg cfg;
  cfg.blockName = "ATT";
  (block.*page)(os, cfg);
  return os.str();
}

std::string printed(Page page, const QByteArray& bytes) {
  HwDatablock2Edition block;
  block.setDataWithoutChecksumCheck(VelkTest::viewOf(bytes).data(), static_cast<unsigned>(bytes.size()));
  return printed(page, block);
}

/// Every type that a page shows, with ids of both kinds.
Table everyType() {
  Table table{.rowIdType = TYPE_ID_UINT16, .rowIds = {1, 500}, .columnIdType = TYPE_ID_CHAR5};
  for (unsigned type = TYPE_ID_UINT8; type <= TYPE_ID_CHAR20; ++type) {
    table.columnTypes.push_back(static_cast<ETypeId>(type));
    table.columnIds.emplace_back(("c" + std::to_string(type)).c_str());
  }
  for (const int sign : {1, -1}) {
    table.rows.emplace_back();
    for (const ETypeId type : table.columnTypes) {
      const bool isUnsigned = type <= TYPE_ID_UINT64 && type % 2 == 1;
      if (detail::isCharacters(type)) {
        table.rows.back().emplace_back(sign > 0 ? "OK" : "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
      } else {
        table.rows.back().emplace_back(isUnsigned ? 100.0L : sign * (type < TYPE_ID_FLOAT ? 100.0L : 1.2346L));
      }
    }
  }
  return table;
}

TEST(SecondEditionPages, OfEveryType) {
  ConsoleCapture console;
  HwDatablock2Edition block = SecondEditionBuilder(1040, 150).add(everyType()).finish();
  block.setEepromSector(3);
  block.setEepromAddress(0x1F40);
  const std::string text = printed(detail, block) + "\n--------\n\n" + printed(complete, block);
  EXPECT_EQ(text, VelkTest::golden("every_type.pages.txt", text));
  EXPECT_EQ(printed(detail, block, hostileStream()) + "\n--------\n\n" + printed(complete, block, hostileStream()),
            text);
  std::ostringstream os;
  os << std::hex;
  block.printDebugPageDetail(os, {});
  os.str({});
  os << 16;
  EXPECT_EQ(os.str(), "16") << "the detail page returns to decimal";
}

TEST(SecondEditionPages, HeadingAndSummary) {
  const std::string frame(50, '#');
  for (const bool isSummary : {false, true}) {
    std::ostringstream os = hostileStream();
    HwDatablock2Edition().printDebugPageHeading(os, isSummary);
    EXPECT_EQ(os.str(), "\n" + frame + "\n         D E B U G - I N F O R M A T I O N        \n" +
                            "         EEPROM / FLASH                           \n" +
                            (isSummary ? "         Block Summary                            \n"
                                       : "         Block Details                            \n") +
                            frame + "\n\n");
  }
  HwDatablock2Edition block = SecondEditionBuilder(1040, 150).finish();
  block.setEepromSector(12);
  const std::string gap(20, ' ');
  const std::string text =
      "############# NEW CONCEPT #####################################\nSECTOR:     12\n\n"
      "Block Id:           Block Name:           Update Index:           Date:\n\n1040" +
      gap;
  EXPECT_EQ(printed(summary, block, hostileStream()), text + "ATT" + gap + "1.5" + gap + "\n\n");
  std::ostringstream os;
  block.printDebugPageSummary(os, {});
  EXPECT_TRUE(os.bad()) << "a null name fails the stream";
  EXPECT_EQ(os.str(), text);
}

TEST(SecondEditionPages, CompleteShowsEveryTableAndStringsInColumns) {
  HwDatablock2Edition block = SecondEditionBuilder(7, -1)
                                  .add({.rowIdType = TYPE_ID_STRING,
                                        .rowIds = {"a", "long label"},
                                        .columnIdType = TYPE_ID_UINT16,
                                        .columnIds = {10, 20},
                                        .columnTypes = {TYPE_ID_STRING, TYPE_ID_INT8},
                                        .rows = {{"first cell", -1}, {"", 2}}})
                                  .add({.rowIdType = TYPE_ID_UINT8, .rows = {{}, {}}})
                                  .add({.columnTypes = {TYPE_ID_FLOAT}})
                                  .finish();
  const auto line = [](const char* label, std::string value) {
    value.resize(15, ' ');
    return label + value + '\n';
  };
  const std::string rule = '#' + std::string(71, '=') + '\n';
  EXPECT_EQ(
      printed(complete, block),
      "############# NEW CONCEPT  #####################################\n\n" + line("ID:                 ", "USER_7") +
          "UPDATE_INDEX:       655.35\n" + line("ROWS:               ", "2") + line("COLUMNS:            ", "2") +
          line("ROW_ID_TYPE:        ", "STRING") + line("COLUMN_ID_TYPE:     ", "UINT16") + rule +
          "DESC:  10          20          \n"
          "TYPE:  STRING      INT8        \n"
          "a      first cell  -1          \n"
          "long label             2           \n" +
          line("ROWS:               ", "2") + line("COLUMNS:            ", "0") +
          line("ROW_ID_TYPE:        ", "UINT8") + line("COLUMN_ID_TYPE:     ", "NONE") + rule + "TYPE:  \n" +
          line("ROWS:               ", "0") + line("COLUMNS:            ", "1") + line("ROW_ID_TYPE:        ", "NONE") +
          line("COLUMN_ID_TYPE:     ", "NONE") + rule + "TYPE:  FLOAT  \n");
  HwDatablock2Edition open;
  open.setListFormat(true);
  EXPECT_EQ(printed(complete, open).find("ROWS"), std::string::npos) << "an open table is not shown";
}

TEST(SecondEditionPages, DetailFollowsTheCompactHeader) {
  // Two bytes shorter, and nothing padded.
  const QByteArray bytes =
      sized(fromHex("07 00 00 00 00 00 04 00 00 00 64 00"
                    "02 00 02 00 03 01 01 02  01 00 02 00  09 0A  FF FF 02 03"));
  const std::string text = printed(detail, bytes);
  EXPECT_NE(text.find("\nUPDATE INDEX:       1\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n# COL         1         2\nDESC:         9    10    \nTYPE:          UINT8         INT8\n#"),
            std::string::npos)
      << text;
  EXPECT_EQ(text.substr(text.rfind("=\n\n")), "=\n\n1: 1    255    -1    \n2: 2    2    3    \n");
}

TEST(SecondEditionPages, DetailGoesNoFurtherThanTheBytes) {
  const std::string end = "=\n\n";
  const auto rows = [&](const char* table) {
    const std::string text = printed(detail, sized(QByteArray(14, '\0') + fromHex(table)));
    return text.substr(text.rfind(end) + end.size());
  };
  EXPECT_EQ(rows("FF FF FF FF 01 01 01 01"), "");
  EXPECT_EQ(rows("FF FF 01 00 00 00 03 00 00 00 01 00 02 00 03"), "1: 1    \n2: 2    \n3: \n");
  EXPECT_EQ(rows("FF FF 02 00 00 00 03 01 00 00 01 00 02"), "1: 1    2    \n");
  EXPECT_EQ(rows("FF FF 02 00 00 00 03 01 00 00 01 00 02 03 00"), "1: 1    2    \n2: 3    \n");
  EXPECT_EQ(rows("FF FF 02 00 00 00 07 01 00 00 01 02 03"), "1: \n") << "no value in the place of another";
  EXPECT_EQ(rows("03 00 01 00 00 00 19 00 00 00 41 00 42 00 00"), "1: \n2: \n3: \n") << "strings are not shown";
  EXPECT_EQ(rows("FF FF 01 00 00 00 00 00 00 00 41 42"), "1: \n2: \n");
  EXPECT_NE(printed(detail, QByteArray()).find("\nBLOCK ID:           USER_0\n"), std::string::npos);
}

TEST(SecondEditionPages, DetailShowsTheRowIdsOfATableWithoutColumns) {
  const std::string end = "=\n\n";
  const auto rows = [&](const char* table, const char* header = "00 00 00 00 00 00 00 00 00 00 00 00 00 00") {
    const std::string text = printed(detail, sized(fromHex(header) + fromHex(table)));
    return text.substr(text.rfind(end) + end.size());
  };
  EXPECT_EQ(rows("03 00 00 00 01 00 01 02 03"), "1: 1    \n2: 2    \n3: 3    \n");
  EXPECT_EQ(rows("FF FF 00 00 03 00 01 00 02 00 03"), "1: 1    \n2: 2    \n3: \n") << "as far as the block goes";
  EXPECT_EQ(rows("02 00 00 00 03 00  07 00 08 00", "07 00 00 00 00 00 04 00 00 00 64 00"), "1: 7    \n2: 8    \n")
      << "after the compact header";
  EXPECT_EQ(rows("02 00 00 00 19 00 41 00 42 00"), "1: \n2: \n") << "strings are not shown";
  for (const char* const claim :
       {"FF FF 00 00 01 00", "FF FF 00 00 19 00", "FF FF 00 00 00 00 01 02", "FF FF 00 00 C8 00 01"}) {
    EXPECT_EQ(rows(claim), "") << claim;
  }
}

TEST(SecondEditionPages, CompleteShowsTheRowIdsOfATableWithoutColumns) {
  ConsoleCapture console;
  const auto tables = [](const char* bytes) {
    const std::string text = printed(complete, sized(QByteArray(14, '\0') + fromHex(bytes)));
    std::string lines;
    for (std::size_t at = text.find("\nTYPE:"); at != text.npos; at = text.find("\nTYPE:", at + 1)) {
      const std::size_t start = text.find('\n', at + 1) + 1;
      lines += '|' + text.substr(start, text.find("ROWS:", start) - start);
    }
    return lines;
  };
  EXPECT_EQ(tables("02 00 00 00 03 00  07 00 08 00"), "|7      \n8      \n");
  EXPECT_EQ(tables("04 00 00 00 05 00  01 00 00 00 02 00 00 00 03 00 00 00 04 00 00 00"),
            "|1      \n2      \n3      \n4      \n")
      << "ids up to the block's end, although they would read as tables";
  EXPECT_EQ(tables("01 00 00 00 03 00  07 00 00 00"), "|7      \n") << "with their padding";
  EXPECT_EQ(tables("02 00 00 00 19 00  41 00 42 43 00"), "|A      \nBC     \n");
  EXPECT_EQ(tables("01 00 00 00 0C 00  8B FF"), "|-11.6999998092651 \n") << "row ids of fixed point are scaled";
  EXPECT_EQ(tables("02 00 00 00 01 00  01 00 01 00 00 00 01 00 09"), "||       9      \n") << "another table, no ids";
  for (const char* const claim : {"FF FF 00 00 01 00", "FF FF 00 00 19 00 41 00", "03 00 00 00 03 00 01 00 02 00"}) {
    EXPECT_EQ(tables(claim), "|") << claim;
  }
}

/// The processor time that hostile blocks take is bounded by their bytes, not by the rows times columns that they
/// claim.
TEST(SecondEditionPages, TakeTimeByTheBytes) {
  ConsoleCapture console;
  constexpr int size = 0xFFFF;
  const unsigned counts[][2] = {{21633, 21633}, {0xFFFF, 0xFFFF}, {32000, 32000}, {0xFFFF, 20000}, {20000, 1000}};
  for (const auto [rows, columns] : counts) {
    for (const int type : {TYPE_ID_NONE + 0, TYPE_ID_UINT8 + 0, TYPE_ID_STRING + 0, 200}) {
      for (const int rowIds : {TYPE_ID_NONE + 0, TYPE_ID_UINT8 + 0, TYPE_ID_STRING + 0}) {
        QByteArray bytes(size, static_cast<char>(type));
        for (int i = 0; i < 2; ++i) {
          bytes[2 + i] = '\xFF';
          bytes[6 + i] = '\0';
          bytes[14 + i] = static_cast<char>(rows >> (8 * i));
          bytes[16 + i] = static_cast<char>(columns >> (8 * i));
        }
        bytes[18] = static_cast<char>(rowIds);
        bytes[19] = TYPE_ID_NONE;
        const std::clock_t start = std::clock();
        for (const Page page : {detail, complete}) printed(page, bytes);
        EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 2)
            << rows << " rows, " << columns << " columns of type " << type << ", row ids of type " << rowIds;
      }
    }
  }
}

TEST(SecondEditionPages, ValuePrinterMovesOnAndLeavesItsNotation) {
  const struct {
    ETypeId type;
    const char* bytes;
    const char* text;
    int advance;
  } cases[] = {
      {TYPE_ID_UINT8, "C8", "200    ", 1},
      {TYPE_ID_INT64, "00 00 00 00 00 00 00 80", "-9223372036854775808    ", 8},
      {TYPE_ID_DOUBLE, "9A 99 99 99 99 99 B9 3F", "0.1    ", 8},
      {TYPE_ID_LONG_DOUBLE, "00 00 00 00 00 00 00 A0 09 40", "1280    ", 10},
      {TYPE_ID_LONG_DOUBLE, "FF FF FF FF FF FF FF FF FE 7F", "1.18973e+4932    ", 10},
      {TYPE_ID_FIX16D2, "6A FF", "-1.50    ", 2},
      {TYPE_ID_FIX32D3, "40 E2 01 00", "123.456    ", 4},
      {TYPE_ID_FIX32D4, "39 30 00 00", "1.2    ", 4},
      {TYPE_ID_CHAR, "41", "A    ", 1},
      {TYPE_ID_CHAR, "00", "    ", 1},
      {TYPE_ID_CHAR5, "4F 4B 00 58 58", "OK    ", 5},
      {TYPE_ID_CHAR5, "41 42 43 44 45", "ABCDE    ", 5},
      {TYPE_ID_NONE, "41", "", 0},
      {TYPE_ID_STRING, "41", "", 0},
      {static_cast<ETypeId>(200), "41", "", 0},
  };
  for (const auto& c : cases) {
    QByteArray bytes = fromHex(c.bytes);
    auto* const value = reinterpret_cast<unsigned char*>(bytes.data());
    std::ostringstream os = hostileStream();
    EXPECT_EQ(HwDatablock2Edition().printDataTypeToStream(os, value, c.type) - value, c.advance) << c.text;
    EXPECT_EQ(os.str(), c.text);
    const bool isFixed = (os.flags() & std::ios_base::floatfield) == std::ios_base::fixed;
    EXPECT_EQ(isFixed, detail::isFixedPoint(c.type)) << c.text;
    if (isFixed) EXPECT_EQ(os.precision(), c.type == TYPE_ID_FIX32D4 ? 1 : c.type == TYPE_ID_FIX32D3 ? 3 : 2);
  }
}

}  // namespace
}  // namespace Velk
