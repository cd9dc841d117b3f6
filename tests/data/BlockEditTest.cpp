#include "velk/data/BlockRedaction.h"
#include "velk/data/BlockSeal.h"
#include "velk/data/DataLookup.h"
#include "velk/data/ValueEdit.h"
#include "velk/data/WrittenForm.h"
#include "velk/fields/Notation.h"
#include "velk/fields/Quantity.h"

#include "DataSupport.h"
#include "velk/data/BlockDiff.h"
#include "velk/datablock/Checksums.h"

namespace Velk {
namespace {

using VelkTest::OwnedBlock;

std::vector<std::string> differences(const OwnedBlock& first, const OwnedBlock& second) {
  std::vector<std::string> lines;
  const BlockView a = first.view();
  const BlockView b = second.view();
  const auto text = [](const BlockView& block, const std::optional<FieldElement>& element) {
    return element ? fieldText(block.bytes, *element, ValueForm::Presented) : "none";
  };
  compareBlocks(a, b, [&](const Difference& difference) {
    lines.push_back(difference.path.text() + ": " + text(a, difference.first) + " -> " + text(b, difference.second));
  });
  return lines;
}

OwnedBlock detectorBlock(std::size_t index) {
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    if (block.name.starts_with("ID_104") && index-- == 0) return block;
  }
  return {};
}

// In every kind of block: an edit changes only the field and the checks, and comparing tells exactly the edit.
TEST(BlockEdit, IsWhatTheComparisonTells) {
  std::mt19937 random(9);
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    fill(block, random);
    std::vector<std::string> paths;
    const BlockView view = block.view();
    const BlockData data(view, Extent::Capacity);
    const auto collect = [&](const DataPath& path, const FieldElement& element) {
      if (!element.field->isFixed) paths.push_back(path.text());
    };
    forEachValue(data.root(), {}, collect);
    EXPECT_EQ(differences(block, block), std::vector<std::string>{});
    for (std::size_t i = 0; i < paths.size(); i += paths.size() / 12 + 1) {
      const std::string& path = paths[i];
      OwnedBlock edited = block;
      const FieldElement element = findValue(data.root(), path).value->element();
      const std::string before = fieldText(block.bytes, element, ValueForm::Presented);
      const std::string after = VelkTest::anyText(element, random);
      const std::string refusal = setValue(edited.bytes, edited.view(), path, after, ValueForm::Stored);
      if (refusal.find("has room for") != refusal.npos) continue;
      ASSERT_EQ(refusal, "") << block.name;
      sealBlock(edited.bytes, view.kind);
      EXPECT_TRUE(edited.view().isSound()) << block.name << ' ' << path;
      const std::string now = fieldText(edited.bytes, element, ValueForm::Presented);
      const std::vector<std::string> told = differences(block, edited);
      if (now == before) continue;
      EXPECT_EQ(std::ranges::count(told, path + ": " + before + " -> " + now), 1) << block.name << ' ' << path;
      // Parts of one word go under several names.
      EXPECT_LE(told.size(), 3U) << block.name << ' ' << path;
      for (std::size_t at = 0; at < block.bytes.size(); ++at) {
        const bool check = (at >= 4 && at < 6) || (view.kind == BlockKind::SecondEdition && at >= 8 && at < 12);
        const bool field = at >= element.offset && at < element.offset + element.size;
        if (!check && !field) EXPECT_EQ(edited.bytes[at], block.bytes[at]) << block.name << ' ' << path;
      }
    }
  }
}

TEST(BlockEdit, SaysWhyAValueCannotBeSet) {
  struct Case {
    const char* path;
    const char* text;
    const char* refusal;
  };
  OwnedBlock block = detectorBlock(1);
  const std::vector<unsigned char> before = block.bytes;
  const Case cases[] = {
      {"tables[0].cells[0][3]", "32768", "tables[0].cells[0][3]: 32768 is out of range: -32768 to 32767"},
      {"tables[0].cells[0][3]", "1.5", "tables[0].cells[0][3]: \"1.5\" is no whole number"},
      {"tables[0].cells[0][9]", "much", "tables[0].cells[0][9]: \"much\" is no number"},
      {"tables[0].cells[0][10]", "1e5000",
       "tables[0].cells[0][10]: 1e5000 is out of range: -1.189731495357231765e+4932 to 1.189731495357231765e+4932"},
      {"tables[0].cells[0][11]", "4000", "tables[0].cells[0][11]: 4000 is out of range: -3276.8 to 3276.7"},
      {"tables[0].cells[0][20]", "sixteen", "tables[0].cells[0][20]: \"sixteen\" has 7 bytes, there is room for 5"},
      {"tables[0].cells[0][24]", "x", "tables[0].cells[0][24]: cannot be changed: the rest of the block depends on it"},
      {"tables[0].rows", "1", "tables[0].rows: cannot be changed: the rest of the block depends on it"},
      {"tables[2].rows", "1", "tables has 2 elements, counted from 0"},
      {"tables[0].cell[0][1]", "1", "no field \"cell\"; the nearest is cells"},
      {"tables[0].cells[0]", "1", "tables[0].cells[0] is a list, as tables[0].cells[0][0]"},
      {"tables[0]", "1", "tables[0] has fields, as tables[0].rows"},
      {"tables.rows", "1", "tables is a list, as tables[0]"},
      {"updateIndex[0]", "1", "updateIndex is a single value"},
      {"[0]", "1", "a block has fields, as updateIndex"},
      {"updateIndex[", "1", "updateIndex is followed by no index in brackets"},
  };
  for (const Case& expected : cases) {
    EXPECT_EQ(setValue(block.bytes, block.view(), expected.path, expected.text, ValueForm::Presented),
              expected.refusal);
    EXPECT_EQ(block.bytes, before);
  }
}

TEST(BlockEdit, StoresTheNearestValue) {
  OwnedBlock block = detectorBlock(1);
  EXPECT_EQ(setValue(block.bytes, block.view(), "updateIndex", "2.5", ValueForm::Presented), "");
  EXPECT_EQ(detail::load<unsigned short>(block.bytes, 12), 250);

  EXPECT_EQ(setValue(block.bytes, block.view(), "tables[0].cells[0][8]", "-1e-60", ValueForm::Presented), "");
  EXPECT_EQ(fieldText(block.bytes, findValue(BlockData(block.view()).root(), "tables[0].cells[0][8]").value->element()),
            "0");
}

TEST(BlockEdit, ACountIsNoMoreThanItsListHolds) {
  OwnedBlock list{"", std::vector<unsigned char>(412)};
  detail::store<unsigned short>(list.bytes, 0, 10002);
  detail::store<unsigned short>(list.bytes, 2, 412);
  sealBlock(list.bytes, BlockKind::OldStyle);
  EXPECT_EQ(setValue(list.bytes, list.view(), "count", "50", ValueForm::Presented), "");
  EXPECT_EQ(setValue(list.bytes, list.view(), "count", "51", ValueForm::Presented),
            "count: 51 is more than the 50 that values has room for");
  EXPECT_EQ(list.bytes[8], 50);
}

TEST(BlockDiff, TellsEveryByteOnceWayOrAnother) {
  const OwnedBlock block = detectorBlock(0);
  OwnedBlock other = block;
  other.bytes[6] = 1;
  sealBlock(other.bytes, BlockKind::SecondEdition);
  EXPECT_EQ(differences(block, other), std::vector<std::string>{"alignment: 0 -> 1"});

  other = block;
  other.bytes[4] ^= 1U;
  const auto sum = [](const OwnedBlock& of) { return std::to_string(detail::load<unsigned short>(of.bytes, 4)); };
  EXPECT_EQ(differences(block, other), std::vector<std::string>{"checksum: " + sum(block) + " -> " + sum(other)});

  other = block;
  other.bytes[8] ^= 1U;
  const auto crc = [](const OwnedBlock& of) { return std::to_string(detail::load<unsigned>(of.bytes, 8)); };
  ASSERT_EQ(other.view().kind, BlockKind::SecondEdition);
  EXPECT_EQ(differences(block, other), std::vector<std::string>{"checksum32: " + crc(block) + " -> " + crc(other)});

  // A bit that makes another kind of block of it: the bytes are all that can be compared.
  other = block;
  other.bytes[0] = 2;
  other.bytes[1] = 0;
  EXPECT_NE(block.view().kind, other.view().kind);
  EXPECT_FALSE(differences(block, other).empty());

  // Words that no field covers, and a block that its image cuts off.
  OwnedBlock mac{"", std::vector<unsigned char>(256)};
  detail::store<unsigned short>(mac.bytes, 0, 12004);
  detail::store<unsigned short>(mac.bytes, 2, 256);
  other = mac;
  other.bytes[200] = 7;
  sealBlock(other.bytes, BlockKind::OldStyle);
  EXPECT_EQ(differences(mac, other), std::vector<std::string>{"bytes[200]: 0 -> 7"});
}

TEST(BlockDiff, AnotherTypeOfTheSameNumberIsToldOnce) {
  OwnedBlock block = detectorBlock(1);
  ASSERT_EQ(setValue(block.bytes, block.view(), "tables[0].cells[0][3]", "5", ValueForm::Stored), "");
  OwnedBlock other = block;
  const BlockData data(block.view());
  const auto typeOf = [&](const char* path) { return findValue(data.root(), path).value->element().offset; };
  other.bytes[typeOf("tables[0].columnTypes[3]")] = TYPE_ID_UINT16;
  sealBlock(other.bytes, BlockKind::SecondEdition);
  EXPECT_EQ(differences(block, other), std::vector<std::string>{"tables[0].columnTypes[3]: INT16 -> UINT16"});
}

TEST(BlockDiff, RowsThatOneTableHasMore) {
  OwnedBlock block = detectorBlock(0);
  OwnedBlock other = block;
  const std::size_t rows = sizeof(HwSDatablockHeader2Edition);
  other.bytes[rows] = 3;
  BlockView view = other.view();
  view.kind = BlockKind::SecondEdition;
  const BlockView first = block.view();
  std::vector<std::string> paths;
  compareBlocks(first, view, [&](const Difference& difference) { paths.push_back(difference.path.text()); });
  EXPECT_EQ(paths.front(), "tables[0].rows");
  EXPECT_NE(std::ranges::find(paths, "tables[0].rowIds[3]"), paths.end());
}

TEST(Redaction, KeepsAWrongChecksumAsWrongAsItWas) {
  for (const unsigned wrong : {0U, 5U}) {
    OwnedBlock block{"", std::vector<unsigned char>(44)};
    detail::store<unsigned short>(block.bytes, 0, 2);
    detail::store<unsigned short>(block.bytes, 2, 44);
    detail::store<unsigned>(block.bytes, 20, 4711);
    block.bytes[30] = 'X';
    sealBlock(block.bytes, BlockKind::OldStyle);
    block.bytes[4] = static_cast<unsigned char>(block.bytes[4] + wrong);
    const auto error = [&] {
      return static_cast<unsigned short>(detail::load<unsigned short>(block.bytes, 4) -
                                         detail::checksumOf(block.bytes));
    };
    const unsigned short before = error();
    BlockView view = block.view();
    view.row = findCatalogueRow(2);
    EXPECT_EQ(redactBlock(block.bytes, view), (std::vector<std::string>{"serialNumber", "name"}));
    EXPECT_EQ(error(), before);
    EXPECT_EQ(detail::load<unsigned>(block.bytes, 20), 0U);
    EXPECT_EQ(redactBlock(block.bytes, view), std::vector<std::string>{}) << "nothing is left";
  }
}

TEST(Redaction, TakesWhatIsLeftOfAFieldThatIsCutOff) {
  OwnedBlock block{"", std::vector<unsigned char>(44, 'X')};
  BlockView view = block.view();
  view.row = findCatalogueRow(2);
  view.kind = BlockKind::OldStyle;
  block.bytes.resize(43);
  view.bytes = block.bytes;
  EXPECT_EQ(redactBlock(block.bytes, view), (std::vector<std::string>{"serialNumber", "name"}));
  EXPECT_EQ(std::ranges::count(std::span(block.bytes).subspan(30), 'X'), 0);
}

// In every kind of block: what people read of a value, set again, changes no byte.
TEST(BlockEdit, TakesEachValueAsItIsShown) {
  std::mt19937 random(5);
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    fill(block, random);
    const BlockView view = block.view();
    const BlockData data(view, Extent::Capacity);
    OwnedBlock edited = block;
    const auto setAgain = [&](const DataPath& path, const FieldElement& element) {
      if (element.field->isFixed) return;
      for (const std::string& text : {writtenText(block.bytes, element), quantityText(block.bytes, element),
                                      fieldText(block.bytes, element, ValueForm::Presented)}) {
        ASSERT_EQ(setValue(edited.bytes, view, path.text(), text, ValueForm::Presented), "") << block.name;
        ASSERT_EQ(fieldText(edited.bytes, element), fieldText(block.bytes, element)) << block.name << ' ' << text;
      }
    };
    forEachValue(data.root(), {}, setAgain);
    ASSERT_EQ(edited.bytes, block.bytes) << block.name;
  }
}

TEST(BlockEdit, TakesAnAddressAsAWhole) {
  OwnedBlock block;
  for (OwnedBlock& each : VelkTest::everyKindOfBlock()) {
    if (each.name == "HwDatablockMbrdMac") block = each;
  }
  const auto set = [&](const char* text) {
    return setValue(block.bytes, block.view(), "mac", text, ValueForm::Presented);
  };
  const auto shown = [&] {
    const BlockView view = block.view();
    const BlockData data(view);
    return *writtenForm(data, *data.root().find("mac"));
  };
  EXPECT_EQ(set("00:90:B8:12:34:56"), "");
  EXPECT_EQ(shown(), "00:90:B8:12:34:56");
  EXPECT_EQ(set("02-00"), "");
  EXPECT_EQ(shown(), "02:00");
  EXPECT_EQ(block.bytes[sizeof(HwSDatablockHeader) + 4 + 5], 0xFF) << "no longer in use";
  EXPECT_EQ(set("02:00:5E"), "");
  EXPECT_EQ(set("2:0"), "mac: \"2:0\" is no address such as 00:90:B8:12:34:56");
  EXPECT_EQ(set("0:1:2:3:4:5:6:7:8:9:0:1:2:3:4:5:6"),
            "mac: \"0:1:2:3:4:5:6:7:8:9:0:1:2:3:4:5:6\" is no address such as 00:90:B8:12:34:56");
  EXPECT_EQ(set("00:01:02:03:04:05:06:07:08:09:10:11:12:13:14:15:16"),
            "mac: \"00:01:02:03:04:05:06:07:08:09:10:11:12:13:14:15:16\" has 17 bytes, there is room for 16");
  EXPECT_EQ(shown(), "02:00:5E");
}

}  // namespace
}  // namespace Velk
