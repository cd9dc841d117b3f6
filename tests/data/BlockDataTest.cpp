#include <nlohmann/json.hpp>
#include <set>

#include "../../tool/Csv.h"
#include "../../tool/DataJson.h"
#include "DataSupport.h"
#include "velk/data/BlockSeal.h"
#include "velk/data/DataLookup.h"
#include "velk/data/ValueEdit.h"

namespace Velk {
namespace {

using nlohmann::json;
using VelkTest::OwnedBlock;

json exported(const OwnedBlock& block, ValueForm form = ValueForm::Presented) {
  const BlockView view = block.view();
  const BlockData data(view);
  std::string text;
  VelkTool::JsonWriter writer([&](std::string_view piece) { text += piece; });
  writeData(writer, data, form);
  writer.finish();
  return json::parse(text);
}

std::string csv(const OwnedBlock& block, std::size_t table = 0, bool stored = false) {
  const BlockView view = block.view();
  const BlockData data(view);
  std::string text;
  VelkTool::CsvTable(data, table, stored).write([&](std::string_view piece) { text += piece; });
  return text;
}

/// The value in a document that a path leads to.
const json& at(const json& document, const std::string& path) {
  std::string pointer = "/";
  for (const char c : path) {
    if (c == '[' || c == '.') pointer += '/';
    if (c != '[' && c != '.' && c != ']') pointer += c;
  }
  return document.at(json::json_pointer(pointer));
}

OwnedBlock example(const char* image, unsigned short id) {
  const QByteArray bytes = VelkTest::exampleImage(image);
  const MemoryImage walked(bytes);
  for (const BlockView& block : walked) {
    if (block.id == id) return {image, std::vector<unsigned char>(block.bytes.begin(), block.bytes.end())};
  }
  ADD_FAILURE() << id;
  return {};
}

// What export shows, set into a zeroed block, gives the same bytes and is exported alike: for every field of every kind
// of block, as presented and as stored.
TEST(BlockData, IsSetBackFromWhatIsExported) {
  std::mt19937 random(20261125);
  for (const OwnedBlock& empty : VelkTest::everyKindOfBlock()) {
    OwnedBlock block = empty;
    fill(block, random);
    ASSERT_TRUE(block.view().isSound()) << block.name;
    for (const ValueForm form : {ValueForm::Presented, ValueForm::Stored}) {
      const json document = exported(block, form);
      OwnedBlock copy = empty;
      const BlockView view = copy.view();
      const BlockData data(view, Extent::Capacity);
      const auto set = [&](const DataPath& path, const FieldElement& element) {
        if (element.field->isFixed) return;
        const json& value = at(document, path.text());
        const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
        ASSERT_EQ(setFieldText(copy.bytes, element, text, form), FieldResult::Done) << block.name << ' ' << path.text();
      };
      forEachValue(data.root(), {}, set);
      sealBlock(copy.bytes, view.kind);
      EXPECT_EQ(copy.bytes, block.bytes) << block.name;
      EXPECT_EQ(exported(copy, form), document) << block.name;
    }
  }
}

TEST(BlockData, ListsEndWithTheElementsInUseOrWithTheBlock) {
  OwnedBlock table = example("rf_board_tables.bin", 15750);
  EXPECT_EQ(exported(table)["rows"], 6);
  EXPECT_EQ(exported(table)["cells"].size(), 6U);
  table.bytes[8] = 0xFF;
  table.bytes[9] = 0xFF;
  const std::size_t capacity = findCatalogueRow(15750)->fields[2].rows;
  EXPECT_EQ(exported(table)["cells"].size(), capacity) << "a count that lies";
  table.bytes.resize(16 + 4 * 3 + 2);
  EXPECT_EQ(exported(table)["cells"].size(), 3U) << "the fourth is cut off";
  table.bytes.resize(14);
  EXPECT_EQ(exported(table), json::parse(R"({"rows": 65535, "cols": null, "cells": []})"));

  EXPECT_EQ(exported({"", {0x78, 0, 8, 0, 0x80, 0xFF, 0, 0}}), json::parse(R"({"serviceCode": []})"));
  EXPECT_EQ(exported({"", {0x78, 0, 12, 0, 0x72, 0xFF, 0, 0, 4, 0, 6, 0}}),
            json::parse(R"({"serviceCode": [393220]})"));
}

TEST(BlockData, NumbersKeepTheirPrecision) {
  const json types = exported(example("detector.bin", 1041))["tables"][0];
  const json& most = types["cells"][1];
  const json expected = json::parse(
      R"([255, 127, 65535, 32767, 4294967295, 2147483647, 4294967295, 2147483647, 1.5, 2.5, 0.3, 12.3, 1.23, 0.12,
          0.012, 1234.5, 123.45, 12.345, 1.2345, "z", "ABCDE", "ABCDEFGHIJ", "ABCDEFGHIJKLMNO",
          "ABCDEFGHIJKLMNOPQRST", "a string"])");
  EXPECT_EQ(most, expected);

  OwnedBlock wide = example("detector.bin", 1041);
  const BlockView view = wide.view();
  const auto set = [&](const char* path, const char* text) {
    EXPECT_EQ(setValue(wide.bytes, view, path, text, ValueForm::Presented), "") << path;
  };
  set("tables[0].cells[0][6]", "18446744073709551615");
  set("tables[0].cells[0][7]", "-9223372036854775808");
  set("tables[0].cells[0][8]", "nan");
  set("tables[0].cells[0][10]", "1.2345678901234567e4000");
  const BlockData data(view);
  const auto text = [&](const char* path) {
    return fieldText(view.bytes, findValue(data.root(), path).value->element(), ValueForm::Presented);
  };
  EXPECT_EQ(text("tables[0].cells[0][6]"), "18446744073709551615");
  EXPECT_EQ(text("tables[0].cells[0][7]"), "-9223372036854775808");
  EXPECT_EQ(text("tables[0].cells[0][10]"), "1.2345678901234567e+4000");
  wide.bytes[findValue(data.root(), "tables[0].cells[0][10]").value->element().offset + 7] &= 0x7F;
  EXPECT_EQ(text("tables[0].cells[0][10]"), "nan") << "no number to the x87";
  std::string written;
  VelkTool::JsonWriter writer([&](std::string_view piece) { written += piece; }, VelkTool::JsonWriter::Layout::OneLine);
  writeData(writer, data, ValueForm::Presented);
  writer.finish();
  EXPECT_NE(written.find("18446744073709551615, -9223372036854775808, null, -2.5, null"), written.npos) << written;
}

TEST(BlockData, ClaimsOfADamagedTableAreNotBelieved) {
  OwnedBlock block = example("detector.bin", 1040);
  BlockView view = block.view();
  ASSERT_EQ(view.kind, BlockKind::SecondEdition);
  const std::size_t rowsOffset = sizeof(HwSDatablockHeader2Edition);
  block.bytes[rowsOffset] = block.bytes[rowsOffset + 1] = 0xFF;
  view.bytes = block.bytes;
  const BlockData data(view);
  std::size_t values = 0;
  const auto count = [&](const DataPath&, const FieldElement& element) {
    ++values;
    EXPECT_TRUE(element.offset <= block.bytes.size());
  };
  forEachValue(data.root(), {}, count);
  EXPECT_LT(values, block.bytes.size());
}

TEST(Csv, HasALineForEachIndexOfTheLists) {
  EXPECT_EQ(csv(example("rf_board.bin", 2)),
            "eepromSize,partNumber,variant,hardwareCode,productIndex,serialNumber,productDate,readCode,testInstruction,"
            "name\n1024,11411000,2,3,1234,100234,2017-03-15,1,205,RF-BOARD\n");
  EXPECT_EQ(csv(example("rf_board_tables.bin", 15750)), "row,cells[0]\n0,0\n1,31\n2,62\n3,93\n4,124\n5,155\n");
  EXPECT_EQ(csv(example("detector.bin", 1040)),
            "row,rowId,LOW,HIGH,POINTS\n0,100000,0.25,0.125,10\n1,1000000,0.5,-0.0625,10\n2,10000000,1.75,0.1,20\n"
            "3,100000000,-2.5,1e-09,40\n");
  EXPECT_EQ(csv(example("detector.bin", 1040), 1),
            "row,cells[0],cells[1]\n0,2018-06-21,\"calibration hall, place 7\"\n1,2019-01-09,after repair\n");
  // Nothing is in use, and the columns are there all the same.
  OwnedBlock unused = example("rf_board_tables.bin", 15750);
  unused.bytes[8] = 0;
  EXPECT_EQ(csv(unused), "row,cells[0]\n");
  const std::string fixedPoint = csv(example("detector.bin", 1041), 0, true);
  EXPECT_NE(fixedPoint.find(",cells[11],cells[11].stored,"), fixedPoint.npos);
  EXPECT_NE(fixedPoint.find(",-12.3,-123,-1.23,-123,"), fixedPoint.npos);
}

}  // namespace
}  // namespace Velk
