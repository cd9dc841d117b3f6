// Images that a check complains of, and images that nearly are such.
#include <cmath>

#include "checks/CheckSupport.h"
#include "velk/checks/FindingTable.h"

namespace Velk {
namespace {

using namespace VelkTest;

struct Case {
  const char* code;
  const char* text;
  Blocks odd;
  Blocks near;  ///< of which nothing is said
};

Examples::Table columns(const char* first, const char* second, double value = 1) {
  return {.columnIdType = TYPE_ID_STRING,
          .columnIds = {first, second},
          .columnTypes = {TYPE_ID_FLOAT, TYPE_ID_FLOAT},
          .rows = {{1, 2}, {3, value}}};
}

void examine(const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    SCOPED_TRACE(std::string(one.code) + ": " + one.text);
    const std::vector<std::pair<std::string, std::string>> expected{{one.code, one.text}};
    EXPECT_EQ(foundIn(MemoryImage(memory(one.odd))), expected);
    EXPECT_TRUE(foundIn(MemoryImage(memory(one.near))).empty())
        << foundIn(MemoryImage(memory(one.near))).front().second;
  }
}

const QByteArray points = list(13500, 3);
const QByteArray amplitudes = list(13600, 3);
const QByteArray nan = QByteArray::fromHex("000000000000F87F");

TEST(Checks, ListsAndTheirTables) {
  const QByteArray lowPass = block(12210, {{"counts[0]", "2"}, {"cells[0][0]", "400"}, {"cells[0][1]", "550"}});
  const auto correction = [](const char* freqs) {
    return block(12292, {{"steps", "1"}, {"validFreqs", freqs}, {"values[0][0].level", "1"}});
  };
  const auto attenuation = [](const char* cols) {
    return block(15721, {{"rows", "1"}, {"cols", cols}, {"cells[0][0]", "7"}});
  };
  const QByteArray frequencies =
      block(15720, {{"rows", "2"}, {"cols", "1"}, {"cells[0][0]", "100"}, {"cells[1][0]", "200"}});
  examine({
      {"different-counts",
       "DACB_FREQUENCY_COMP_AMP at 0x000000A0 has 2 values, but DACB_FREQUENCY_COMP_FREQ at 0x0000002C has 3 points "
       "(frequency)",
       {ident(), points, list(13600, 2)},
       {ident(), points, amplitudes}},
      {"different-counts",
       "RFBO_ATT_CAL_DATA at 0x0000035C has 3 columns, but RFBO_ATT_CAL_FREQ at 0x0000002C has 2 points (frequency)",
       {ident(), frequencies, attenuation("3")},
       {ident(), frequencies, attenuation("2")}},
      {"different-counts",
       "PATH_A_RF_RESPONSE_LP_AMP at 0x00001570: counts[0] is 1, but in PATH_A_RF_RESPONSE_LP_FREQ at 0x0000002C it is "
       "2",
       {ident(), lowPass, block(12230, {{"counts[0]", "1"}})},
       {ident(), lowPass, block(12230, {{"counts[0]", "2"}})}},
      {"different-counts",
       "CWOP_DETLINCORR_A_DATA at 0x000001C8 has 3 rows, but CWOP_DETLINCORR_A_FREQ at 0x0000002C has 2 points "
       "(frequency)",
       {ident(), list(12290, 2), correction("3")},
       {ident(), list(12290, 2), correction("1")}},
      {"table-without-list",
       "DACB_FREQUENCY_COMP_AMP at 0x0000002C and 1 other table: the list of points (frequency), "
       "DACB_FREQUENCY_COMP_FREQ (id 13500), is not there",
       {ident(), amplitudes, list(13700, 3)},
       {ident(), points, amplitudes, list(13700, 3)}},
      {"list-without-table",
       "DACB_FREQUENCY_COMP_FREQ at 0x0000002C: none of its tables is there, such as DACB_FREQUENCY_COMP_AMP (id "
       "13600)",
       {ident(), points},
       {ident(), points, list(14500, 3)}},
      {"list-without-table",
       "SSYN_OPU_LEVEL_FREQ at 0x0000002C: its table, SSYN_OPU_LEVEL (id 10003), is not there",
       {ident(), list(10002, 2)},
       {ident(), list(10002, 2), list(10003, 2)}},
  });
}

TEST(Checks, Points) {
  const auto gains = [](const char* second) {
    return block(15652, {{"count", "2"}, {"entries[0].gain", "10"}, {"entries[1].gain", second}});
  };
  const auto lowPass = [](const char* second) {
    return block(12210, {{"counts[1]", "2"}, {"cells[1][0]", "400"}, {"cells[1][1]", second}});
  };
  const QByteArray response = block(12230, {{"counts[1]", "2"}});
  const QByteArray levels = block(12060, {{"count", "1"}, {"cells[0][0]", "5"}});
  examine({
      {"unordered-points",
       "values[2] is 20, the same as values[1]",
       {ident(), list(13500, 3, {{"values[2]", "20"}}), amplitudes},
       {ident(), list(13500, 3, {{"values[2]", "21"}, {"values[3]", "1"}}), amplitudes}},
      {"unordered-points",
       "values[1] is 100, below values[0], 300",
       {ident(), list(12050, 2, {{"values[0]", "30"}, {"values[1]", "10"}}), levels},
       {ident(), list(12050, 2, {{"values[1]", "10"}}), levels}},
      {"unordered-points",
       "entries[1].gain is 9.5, below entries[0].gain, 10",
       {ident(), gains("9.5")},
       {ident(), gains("10.5")}},
      {"unordered-points",
       "cells[1][1] is 400, the same as cells[1][0]",
       {ident(), lowPass("400"), response},
       {ident(), lowPass("401"), response}},
  });
}

TEST(Checks, Values) {
  const Fields erased{{"values[0]", "-1"}, {"values[1]", "-1"}, {"values[2]", "-1"}};
  const Fields zero{{"values[0]", "0"}, {"values[1]", "0"}, {"values[2]", "0"}};
  const QByteArray doubler = list(10001, 2);
  examine({
      {"not-finite",
       "values[1] is not a number",
       {ident(), patched(doubler, 20, nan)},
       {ident(), patched(doubler, 28, nan)}},
      {"not-finite",
       "tables[0].cells[1][1] is infinite",
       {ident(), secondEdition(columns("LOW", "HIGH", INFINITY))},
       {ident(), secondEdition(columns("LOW", "HIGH", 3e38))}},
      {"erased-values",
       "everything in use of values is erased (FF)",
       {ident(), points, list(13600, 3, erased)},
       {ident(), points, list(13600, 3, {{"values[0]", "-1"}, {"values[1]", "-1"}})}},
      {"zero-values",
       "everything in use of values is 0",
       {ident(), points, list(13600, 3, zero)},
       {ident(), block(10000, {{"count", "1"}}), block(11310, {{"length", "4"}}), block(13800, {{"count", "0"}})}},
  });
}

TEST(Checks, IdentsAndTheirMemory) {
  examine({
      {"no-ident",
       "no ident block (ids 2 to 10) says which module this is; the first block is SERVICE_200 at 0x00000000",
       {service(200, "2019-01-09")},
       {}},
      {"ident-not-first",
       "IDENT_2 at 0x00000018 is not the first block",
       {service(200, "2019-01-09"), ident()},
       {ident(), service(200, "2019-01-09")}},
      {"conflicting-idents",
       "IDENT_2 at 0x0000002C has another part number or serial number than IDENT_2 at 0x00000000",
       {ident(), ident({{"serialNumber", "100235"}})},
       {ident(), patched(ident({{"serialNumber", "100235"}}), 0, QByteArray(1, '\x0A'))}},
      {"unset-identity",
       "serialNumber is not set: it is erased",
       {ident({{"serialNumber", "4294967295"}})},
       {ident({{"serialNumber", "4294967294"}})}},
      {"unset-identity", "name is not set: all its bytes are 0", {ident({{"name", ""}})}, {ident({{"name", "0"}})}},
      {"wrong-memory-size",
       "IDENT_2 at 0x00000000: eepromSize is 4096, but the image has 32768 bytes",
       {ident({{"eepromSize", "4096"}})},
       {ident({{"eepromSize", "0"}})}},
      {"repeated-block",
       "SERVICE_200 at 0x00000044 is there already at 0x0000002C, and 1 more time after that",
       {ident(), service(200, "2019-01-09"), service(200, "2020-01-09"), service(200, "2021-01-09")},
       {ident(), service(200, "2019-01-09"), service(201, "2020-01-09"), service(299, "2021-01-09")}},
      {"repeated-block",
       "IDENT_2 at 0x0000002C is there already at 0x00000000",
       {ident(), ident()},
       {ident(), secondEdition(columns("A", "B")), secondEdition(columns("A", "B"))}},
  });
}

TEST(Checks, Dates) {
  examine({
      {"impossible-date",
       "serviceDate is 2019-02-29, a date that no calendar has",
       {ident(), patched(service(200, "2019-02-28"), 14, QByteArray::fromHex("5D4E"))},
       {ident(), service(200, "2020-02-29")}},
      {"early-date",
       "productDate is 1989-12-31, before 1990",
       {ident({{"productDate", "1989-12-31"}})},
       {ident({{"productDate", "1990-01-01"}})}},
      {"future-date",
       "serviceDate is 2026-11-26, in the future",
       {ident(), service(200, "2026-11-26")},
       {ident(), service(200, "2026-11-25")}},
      {"date-before-production",
       "SERVICE_200 at 0x0000002C: serviceDate is 2018-06-20, before the module was made, on 2018-06-21",
       {ident(), service(200, "2018-06-20")},
       {ident(), service(200, "2018-06-21"), service(201, "1980-00-00")}},
  });
}

TEST(Checks, Counters) {
  const auto highPower = [](unsigned short id, const char* second) {
    return block(id, {{"counterValue[0]", "3"}, {"counterValue[1]", second}});
  };
  const auto powerOn = [](unsigned short id, const char* length, const char* last) {
    return block(id, {{"length", length}, {"data[0]", "17"}, {"data[3]", last}});
  };
  examine({
      {"full-counter",
       "counterValue[1] is all ones: erased, or as far as it can count",
       {ident(), highPower(11302, "4294967295")},
       {ident(), highPower(11302, "4294967294")}},
      {"full-counter",
       "opTimeTurnOn is all ones: erased, or as far as it can count",
       {ident(), block(200, {{"opTimeTurnOn", "16383"}})},
       {ident(), block(200, {{"opTimeTurnOn", "16382"}})}},
      {"full-counter",
       "bytes is all ones: erased, or as far as it can count",
       {ident(), eventCounter(QByteArray(8, '\xFF'))},
       {ident(), eventCounter(QByteArray(7, '\xFF') + '\0')}},
      {"different-copies",
       "SATTC_HPCOUNTER at 0x0000002C and SATTC_HPCOUNTER_BACKUP at 0x0000003C differ: counterValue[1] is 5 and 4",
       {ident(), highPower(11302, "5"), highPower(11303, "4")},
       {ident(), highPower(11302, "5"), highPower(11303, "5"), highPower(11301, "4")}},
      {"different-copies",
       "POWERON COUNT at 0x0000002C and BACKUP OF POWERON COUNT at 0x00000238 differ: data[3] is not in use and 0",
       {ident(), powerOn(11310, "3", "0"), powerOn(11311, "4", "0")},
       {ident(), powerOn(11310, "3", "1"), powerOn(11311, "3", "0")}},
  });
}

TEST(Checks, SecondEditionTables) {
  const QByteArray numbered = secondEdition(
      {.rowIdType = TYPE_ID_UINT32, .rowIds = {10, 20, 10}, .columnTypes = {TYPE_ID_UINT8}, .rows = {{1}, {2}, {3}}});
  examine({
      {"repeated-identifier",
       "tables[0].columnIds[1] is \"LOW\", as tables[0].columnIds[0] is already",
       {ident(), secondEdition(columns("LOW", "LOW"))},
       {ident(), secondEdition(columns("LOW", "LOWER"))}},
      {"repeated-identifier",
       "tables[0].rowIds[2] is \"10\", as tables[0].rowIds[0] is already",
       {ident(), numbered},
       {ident(), secondEdition({.columnTypes = {TYPE_ID_UINT8}, .rows = {{1}, {1}}})}},
  });
  const QByteArray unknown =
      patched(secondEdition(columns("LOW", "HIGH")), 21, QByteArray(1, 57), BlockKind::SecondEdition);
  const auto found = foundIn(MemoryImage(memory({ident(), unknown})));
  ASSERT_EQ(found.size(), 2U) << "and the table cannot be read";
  EXPECT_EQ(found[1],
            std::pair(std::string("unknown-type"), std::string("tables[0].columnTypes[1] is 57, which is no type")));
}

TEST(Checks, ADamagedBlockIsThereButItsValuesMeanNothing) {
  QByteArray damaged = list(13600, 2, {{"values[0]", "-1"}, {"values[1]", "-1"}});
  damaged[12] = 0;
  const auto found = foundIn(MemoryImage(memory({ident(), points, damaged})));
  ASSERT_EQ(found.size(), 1U) << found.back().second;
  EXPECT_EQ(found[0].first, "wrong-checksum");
}

TEST(Checks, EachSectorOfAFlashHasItsOwnBlocks) {
  const QByteArray sector = memory({ident(), service(200, "2019-01-09")}, 1024);
  const QByteArray flash = sector + memory({ident({{"serialNumber", "7"}}), service(200, "2020-01-09")}, 1024);
  EXPECT_TRUE(foundIn(MemoryImage(flash, 0, 1024)).empty());
  const QByteArray twice = memory({ident(), service(200, "2019-01-09"), service(200, "2019-01-09")}, 1024);
  EXPECT_EQ(foundIn(MemoryImage(sector + twice, 0, 1024)).size(), 1U);
}

TEST(Checks, AnImageMayEndBeforeItsMemoryIfItsContainerLeavesOutErasedBytes) {
  const MemoryImage shorter(memory({ident()}, 1024));
  EXPECT_EQ(foundIn(shorter).size(), 1U);
  EXPECT_TRUE(foundIn(shorter, {.isWhole = false}).empty());
  EXPECT_EQ(foundIn(MemoryImage(memory({ident()}, 2 * memorySize)), {.isWhole = false}).size(), 1U);
}

TEST(Checks, OptionsChooseAndRaise) {
  const MemoryImage image(memory({ident({{"productDate", "1980-01-01"}}), points}));
  const std::size_t early = *findKind("early-date");
  CheckOptions options;
  options.enabled.reset(early);
  options.raised.set();
  for (const CheckFinding& finding : checkImage(image, options)) {
    EXPECT_STREQ(finding.kind->code, "list-without-table");
    EXPECT_EQ(finding.severity, Severity::Error);
    EXPECT_EQ(finding.offset, 44U);
  }
  options = {.enabled = CheckSet().set(early)};
  const std::vector<CheckFinding> found = checkImage(image, options);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].severity, Severity::Warning);
  EXPECT_EQ(found[0].path, "productDate");
}

TEST(Checks, NothingIsSaidOfTheExamples) {
  for (const QString& name : VelkTest::exampleImages()) {
    if (name == "every_id.bin") continue;
    const auto found = foundIn(MemoryImage(VelkTest::exampleImage(name)));
    for (const auto& [code, text] : found) ADD_FAILURE() << name.toStdString() << ": " << text;
  }
}

}  // namespace
}  // namespace Velk
