#include <limits>
#include <tuple>

#include "edition2/Edition2Support.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::fromHex;
using VelkTest::joined;
using VelkTest::Parsed;
using VelkTest::Table;

/// The value as each of the targets: u8 s8 u16 s16 u32 s32 u64 s64, then float and double.
std::string asEveryTarget(unsigned type, const QByteArray& bytes) {
  const auto as = [&]<class... T>(std::tuple<T...>) {
    std::ostringstream os;
    ((os << +CommonDatablockAccess::convValue<T>(bytes.constData(), type) << ' '), ...);
    return os.str();
  };
  return as(std::tuple<unsigned char, signed char, unsigned short, short, unsigned int, int, unsigned long long,
                       long long, float, double>{});
}

TEST(SecondEditionValues, EveryTypeAsEveryTarget) {
  const struct {
    ETypeId type;
    const char* bytes;
    const char* expected;
  } cases[] = {
      {TYPE_ID_UINT8, "FF", "255 -1 255 255 255 255 255 255 255 255 "},
      {TYPE_ID_INT8, "FF", "255 -1 65535 -1 4294967295 -1 18446744073709551615 -1 -1 -1 "},
      {TYPE_ID_UINT16, "FE 80", "254 -2 33022 -32514 33022 33022 33022 33022 33022 33022 "},
      {TYPE_ID_INT16, "FE 80", "254 -2 33022 -32514 4294934782 -32514 18446744073709519102 -32514 -32514 -32514 "},
      {TYPE_ID_UINT32, "01 02 03 84",
       "1 1 513 513 2214789633 -2080177663 2214789633 2214789633 2.21479e+09 2.21479e+09 "},
      {TYPE_ID_INT32, "01 02 03 84",
       "1 1 513 513 2214789633 -2080177663 18446744071629373953 -2080177663 -2.08018e+09 -2.08018e+09 "},
      // 64 bits go through their lower 32.
      {TYPE_ID_UINT64, "00 00 00 00 01 00 00 00", "0 0 0 0 0 0 0 0 0 0 "},
      {TYPE_ID_UINT64, "FF FF FF FF 00 00 00 00",
       "255 -1 65535 -1 4294967295 -1 4294967295 4294967295 4.29497e+09 4.29497e+09 "},
      {TYPE_ID_INT64, "FF FF FF FF 00 00 00 00", "255 -1 65535 -1 4294967295 -1 18446744073709551615 -1 -1 -1 "},
      {TYPE_ID_FLOAT, "CD CC 2C C0", "254 -2 65534 -2 4294967294 -2 18446744073709551614 -2 -2.7 -2.7 "},
      {TYPE_ID_FLOAT, "00 00 80 7F", "0 0 0 0 0 0 9223372036854775808 -9223372036854775808 inf inf "},
      {TYPE_ID_DOUBLE, "00 00 00 00 00 00 F8 7F", "0 0 0 0 0 0 9223372036854775808 -9223372036854775808 nan nan "},
      // 65537.9; then 1.5 times 2 to the power of 63, which only the unsigned 64 bits hold.
      {TYPE_ID_DOUBLE, "66 66 66 66 1E 00 F0 40", "1 1 1 1 65537 65537 65537 65537 65537.9 65537.9 "},
      {TYPE_ID_DOUBLE, "00 00 00 00 00 00 E8 43",
       "0 0 0 0 0 0 13835058055282163712 -9223372036854775808 1.38351e+19 1.38351e+19 "},
      {TYPE_ID_CHAR, "C1", "193 -63 193 193 193 193 193 193 2.70451e-43 9.53547e-322 "},
      {TYPE_ID_CHAR5, "41 42 43 44 45",
       "65 65 16961 16961 1145258561 1145258561 297498001985 297498001985 781.035 1.46984e-312 "},
      {TYPE_ID_CHAR10, "00 00 00 00 00 00 F8 3F 01 01", "0 0 0 0 0 0 4609434218613702656 4609434218613702656 0 1.5 "},
  };
  ConsoleCapture console;
  for (const auto& c : cases)
    EXPECT_EQ(asEveryTarget(c.type, fromHex(c.bytes)), c.expected) << c.type << ' ' << c.bytes;
  EXPECT_EQ(console.output, "");
}

TEST(SecondEditionValues, OfOtherTypesAreZeroAndSaidSo) {
  for (const unsigned type : {0U, 11U, 12U, 13U, 19U, 25U, 26U, 255U}) {
    ConsoleCapture console;
    EXPECT_EQ(CommonDatablockAccess::convValue<double>(QByteArray(20, 'x').constData(), type), 0);
    EXPECT_EQ(console.output, "CommonDatablockAccess::convValue: type (" + std::to_string(type) + ") not supported\n");
  }
}

TEST(SecondEditionValues, TypesBeyondTheTableHaveNoSizeAndNoName) {
  EXPECT_EQ(HwDatablock2Edition::size_in_byte(TYPE_ID_STRING), 0U);
  EXPECT_EQ(CommonDatablockAccess::getSizeInBytes(TYPE_ID_STRING, 0), 1U);
  EXPECT_EQ(HwDatablock2Edition::size_in_byte(TYPE_ID_LONG_DOUBLE), 10U);
  EXPECT_EQ(CommonDatablockAccess::getSizeInBytes(TYPE_ID_CHAR20, 7), 20U);
  EXPECT_STREQ(HwDatablock2Edition::getTypeString(TYPE_ID_LONG_DOUBLE), "LONG DOUBLE");
  for (const unsigned beyond : {26U, 255U}) {
    EXPECT_EQ(HwDatablock2Edition::size_in_byte(static_cast<ETypeId>(beyond)), 0U);
    EXPECT_EQ(CommonDatablockAccess::getSizeInBytes(beyond, 0), 0U);
    EXPECT_STREQ(HwDatablock2Edition::getTypeString(static_cast<ETypeId>(beyond)), "NONE");
  }
  for (unsigned type = 0; type <= TYPE_ID_MAX; ++type) EXPECT_EQ(TypeIdTable[type].typeId, type);
}

template <class T>
std::string column(const CommonDatablockAccess& access, unsigned number, unsigned table = 0) {
  std::vector<T> out;
  EXPECT_TRUE(access.getDataColumn(number, out, table));
  return joined(out);
}

template <class T>
std::string rowIds(const CommonDatablockAccess& access) {
  std::vector<T> out;
  EXPECT_TRUE(access.getRowIdList(out, 0));
  return joined(out);
}

template <class T>
std::string columnIds(const CommonDatablockAccess& access) {
  std::vector<T> out;
  EXPECT_TRUE(access.getColIdList(out, 0));
  return joined(out);
}

const Table mixed{.rowIdType = TYPE_ID_UINT16,
                  .rowIds = {0x0102, 0x0304},
                  .columnIdType = TYPE_ID_FLOAT,
                  .columnIds = {1.9, -1.9, 3},
                  .columnTypes = {TYPE_ID_INT16, TYPE_ID_STRING, TYPE_ID_CHAR5},
                  .rows = {{-5, "five", "AB"}, {6, "", "CDEFG"}}};

TEST(SecondEditionReaders, AppendConvertedColumns) {
  const Parsed parsed(mixed);
  EXPECT_EQ(column<double>(parsed, 0), "-5|6");
  EXPECT_EQ(column<unsigned char>(parsed, 0), "251|6");
  std::vector<int> twice;
  parsed.getDataColumn(0, twice, 0);
  parsed.getDataColumn(0, twice, 0);
  EXPECT_EQ(joined(twice), "-5|6|-5|6");
}

TEST(SecondEditionReaders, AppendNothingForWhatIsNotThere) {
  const Parsed parsed(mixed);
  EXPECT_EQ(column<int>(parsed, 3), "");
  EXPECT_EQ(column<std::string>(parsed, 0, 1), "");
  EXPECT_EQ(column<std::string>(parsed, 0, 2), "");
  EXPECT_EQ(column<int>(parsed, 0, 0xFFFFFFFF), "");
  std::vector<int> ids;
  EXPECT_TRUE(parsed.getRowIdList(ids, 2) && parsed.getColIdList(ids, 2));
  EXPECT_TRUE(ids.empty());
  EXPECT_EQ(parsed.getRowCount(2), 0U);
  EXPECT_EQ(parsed.getColCount(2), 0U);
}

TEST(SecondEditionReaders, CopyRowIdsAndConvertColumnIds) {
  const Parsed parsed(mixed);
  EXPECT_EQ(rowIds<unsigned>(parsed), "258|772");
  EXPECT_EQ(rowIds<unsigned char>(parsed), "2|4");
  EXPECT_EQ(columnIds<int>(parsed), "1|-1|3");
  const Parsed wide({.rowIdType = TYPE_ID_INT64,
                     .rowIds = {-1, 0x100000002},
                     .columnIdType = TYPE_ID_UINT64,
                     .columnIds = {0x100000002},
                     .columnTypes = {TYPE_ID_UINT8},
                     .rows = {{1}, {2}}});
  EXPECT_EQ(rowIds<unsigned long long>(wide), "18446744073709551615|4294967298") << "all 64 bits are copied";
  EXPECT_EQ(columnIds<unsigned long long>(wide), "2") << "a conversion takes 32 of them";
  const Parsed scaled({.rowIdType = TYPE_ID_FIX16D2, .rowIds = {-1.5}, .columnTypes = {TYPE_ID_UINT8}, .rows = {{1}}});
  EXPECT_EQ(rowIds<short>(scaled), "-150");
}

TEST(SecondEditionReaders, ZerosInTextsCountInFourWays) {
  using namespace std::string_literals;
  const Parsed parsed({.rowIdType = TYPE_ID_CHAR5,
                       .rowIds = {"AB", "CDEFG", "H"},
                       .columnIdType = TYPE_ID_CHAR5,
                       .columnIds = {"AB", "C", "VWXYZ"},
                       .columnTypes = {TYPE_ID_CHAR5, TYPE_ID_UINT16, TYPE_ID_STRING},
                       .rows = {{"AB", 0x41, "s"}, {"VWXYZ", 0x4241, ""}, {"", 0, "t"}}});
  EXPECT_EQ(rowIds<std::string>(parsed), "AB||") << "each zero of the padding ends a text";
  EXPECT_EQ(columnIds<std::string>(parsed), "AB|C|VWXYZ") << "zeros before a text are passed over";
  EXPECT_EQ(column<std::string>(parsed, 0), "AB\0\0\0|VWXYZ|\0\0\0\0\0"s) << "cells keep them";
  EXPECT_EQ(column<std::string>(parsed, 1), "A\0|AB|\0\0"s) << "of any type";
  EXPECT_EQ(column<std::string>(parsed, 2), "s||t");
  std::vector<std::string> named;
  EXPECT_TRUE(parsed.getStringColumn(2, named, 0) && parsed.getColIdStringList(named, 0));
  EXPECT_EQ(joined(named), "s||t|AB|C|VWXYZ") << "the readers of texts append, too";
  const Parsed full(
      {.rowIdType = TYPE_ID_CHAR5, .rowIds = {"ABCDE", "FG"}, .columnTypes = {TYPE_ID_UINT8}, .rows = {{1}, {2}}});
  EXPECT_EQ(rowIds<std::string>(full), "ABCDEFG|") << "a full text runs into the next";
}

TEST(SecondEditionReaders, MissingBytesAreZeroInIdsAndTheValueBeforeInColumns) {
  ConsoleCapture console;
  // Of two row ids of 16 bits one and a half are there.
  const Parsed ids(
      VelkTest::sized(fromHex("01 00 00 00 00 00 00 00 00 00 00 00 00 00"
                              "02 00 01 00 03 03 03 00 00 00 01 02 03")));
  EXPECT_EQ(rowIds<int>(ids), "513|0");
  EXPECT_EQ(columnIds<int>(ids), "0");
  EXPECT_EQ(rowIds<std::string>(ids), "\1\2|");
  EXPECT_EQ(column<int>(ids, 0), "0|0");
  // Of four cells of 16 bits two and a half.
  const Parsed cells(
      VelkTest::sized(fromHex("01 00 00 00 00 00 00 00 00 00 00 00 00 00"
                              "04 00 01 00 00 00 03 00 00 00 01 00 02 00 03")));
  EXPECT_EQ(column<int>(cells, 0), "1|2|2|2");
  EXPECT_EQ(console.output, "");
}

TEST(SecondEditionReaders, NameTheTypesOfTheColumns) {
  std::vector<std::string> names{"cleared"};
  const Parsed parsed(mixed);
  parsed.getDataTypeList(names, 0);
  EXPECT_EQ(joined(names), "INT16|STRING|CHAR5");
  parsed.getDataTypeList(names, 9);
  EXPECT_TRUE(names.empty());
}

std::string texts(const CommonDatablockAccess& access, VECTOR_TYPE kind, unsigned type, unsigned number = 0) {
  std::vector<std::string> out;
  EXPECT_TRUE(access.getDataInStringVector(out, kind, type, number, 0));
  return joined(out);
}

TEST(SecondEditionReaders, GiveListsAsText) {
  ConsoleCapture console;
  const Parsed parsed({.rowIdType = TYPE_ID_FIX16D3,
                       .rowIds = {-0.123, 12.345},
                       .columnIdType = TYPE_ID_STRING,
                       .columnIds = {"f", "", "n"},
                       .columnTypes = {TYPE_ID_FLOAT, TYPE_ID_UINT8, TYPE_ID_FIX32D4},
                       .rows = {{0.1, 200, 1.5}, {1e20, 65, 2.5}}});
  EXPECT_EQ(texts(parsed, DATA_TYPE, TYPE_ID_FLOAT), "0.100000001490116|1.00000002004088e+20");
  EXPECT_EQ(texts(parsed, DATA_TYPE, TYPE_ID_UINT8, 1), "200|65");
  EXPECT_EQ(texts(parsed, DATA_TYPE, TYPE_ID_INT8, 1), "-56|65");
  EXPECT_EQ(texts(parsed, DATA_TYPE, TYPE_ID_STRING, 1), "\xC8|A");
  EXPECT_EQ(texts(parsed, COLUMN_TYPE, TYPE_ID_STRING), "f|n|") << "an empty string is a zero to pass over";
  EXPECT_EQ(texts(parsed, ROW_TYPE, TYPE_ID_FIX16D3), "-0.123000003397465|12.3450002670288");
  EXPECT_EQ(texts(parsed, ROW_TYPE, TYPE_ID_INT16), "-123|12345");
  EXPECT_EQ(console.output, "");
  EXPECT_EQ(texts(parsed, DATA_TYPE, TYPE_ID_FIX32D4, 2), "0|0");
  EXPECT_EQ(texts(parsed, ROW_TYPE, TYPE_ID_NONE), "");
  EXPECT_EQ(texts(parsed, ROW_TYPE, 26), "");
  EXPECT_EQ(texts(parsed, static_cast<VECTOR_TYPE>(3), TYPE_ID_INT16), "");
}

TEST(SecondEditionReaders, WriteNumbersWithFifteenDigits) {
  std::vector<std::string> out{"kept"};
  CommonDatablockAccess::convertVectorToStingVector(
      std::vector<double>{1.0 / 3, 1e15, 123456789012345678.0, -0.0, std::numeric_limits<double>::infinity()}, out);
  CommonDatablockAccess::convertVectorToStingVector(std::vector<long long>{-9223372036854775807LL}, out);
  EXPECT_EQ(joined(out), "kept|0.333333333333333|1e+15|1.23456789012346e+17|-0|inf|-9223372036854775807");
}

}  // namespace
}  // namespace Velk
