#include "velk/checks/FindingTable.h"

#include <set>

#include "data/DataSupport.h"
#include "velk/checks/Checks.h"
#include "velk/data/BlockSeal.h"
#include "velk/data/DataLookup.h"

namespace Velk {
namespace {

using VelkTest::OwnedBlock;

using Found = std::vector<std::pair<std::string, std::string>>;

/// The code and the description of everything that the bytes of a block tell.
Found foundIn(const BlockView& block) {
  Found found;
  for (const CheckFinding& finding : checkBlock(block, {.enabled = walkChecks() | dataChecks()})) {
    found.emplace_back(finding.kind->code, finding.text);
  }
  return found;
}

TEST(FindingTable, EveryFindingOfTheWalkHasItsRow) {
  struct Case {
    Finding finding;
    const char* code;
    const char* text;
    bool isSound;
  };
  const Case cases[] = {
      {Finding::UnbelievableSize, "damaged-size", "size 48 cannot be right, 44 bytes taken up to the next block",
       false},
      {Finding::WrongChecksum, "wrong-checksum", "checksum is 0x0000, the bytes give 0xEAEB", false},
      {Finding::WrongCrc, "wrong-crc", "CRC-32 is 0x01010101, the bytes give 0x59137A2C", false},
      {Finding::TooShort, "too-short", "44 bytes are too few for a block", false},
      {Finding::NotErased, "not-erased", "44 bytes behind the end block are not erased, the first at 0x0040", false},
      {Finding::NoBlock, "no-block", "44 bytes hold no block", false},
      {Finding::SizeNotOfClass, "unexpected-size", "size 48, blocks of this id have 44", true},
      {Finding::WrongSumBesideCrc, "wrong-16-bit-checksum", "checksum is 0x0000, the bytes give 0xEAEB", true},
  };
  std::vector<unsigned char> bytes(44, 1);
  bytes[4] = bytes[5] = 0;
  for (const Case& expected : cases) {
    BlockView block{.offset = 0x40, .bytes = bytes, .declaredSize = 48, .row = findCatalogueRow(2)};
    EXPECT_EQ(describe(block, expected.finding), "");
    block.add(expected.finding);
    EXPECT_EQ(foundIn(block), (Found{{expected.code, expected.text}}));
    EXPECT_EQ(describe(block, expected.finding), expected.text);
    EXPECT_EQ(block.isSound(), expected.isSound) << expected.code;
    EXPECT_EQ(verdictName(block) == std::string("sound"), expected.isSound) << expected.code;
  }
}

TEST(FindingTable, CodesAreUniqueWordsOfACommandLine) {
  std::set<std::string> codes;
  for (const FindingKind& kind : findingKinds()) {
    EXPECT_TRUE(codes.insert(kind.code).second) << kind.code;
    EXPECT_EQ(std::string(kind.code).find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"), std::string::npos);
    EXPECT_EQ(findKind(kind.code), static_cast<std::size_t>(&kind - findingKinds().data()));
    const std::string_view explanation = kind.explanation;
    EXPECT_NE(explanation.find("Example"), std::string_view::npos) << kind.code;
    EXPECT_TRUE(explanation.ends_with('.')) << kind.code;
  }
}

TEST(FindingTable, EveryImpossibleCountIsReportedOnce) {
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    EXPECT_EQ(foundIn(block.view()), Found()) << block.name;
    std::set<std::string_view> counters;
    for (const FieldInfo& field :
         block.view().row == nullptr ? std::span<const FieldInfo>() : block.view().row->fields) {
      counters.insert({field.usedRows, field.usedCols});
    }
    counters.erase("");
    for (const std::string_view counter : counters) {
      const BlockData data(block.view());
      setFieldText(block.bytes, findValue(data.root(), counter).value->element(), "30000");
    }
    sealBlock(block.bytes, block.view().kind);
    std::set<std::string> reported;
    for (const auto& [code, text] : foundIn(block.view())) {
      EXPECT_EQ(code, "impossible-count");
      EXPECT_TRUE(reported.insert(text.substr(0, text.find(": 30000 is more than the "))).second) << text;
    }
    EXPECT_EQ(reported, std::set<std::string>(counters.begin(), counters.end())) << block.name;
  }
}

TEST(FindingTable, ATableThatItsBlockCutsOffIsIncomplete) {
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    if (block.name != "ID_1040") continue;
    block.bytes[sizeof(HwSDatablockHeader2Edition)] = 0xFF;  // rows of the first table
    sealBlock(block.bytes, BlockKind::SecondEdition);
    EXPECT_EQ(foundIn(block.view()),
              (Found{{"incomplete-table", "tables[0] is not there whole: it claims 255 rows and 3 columns"}}));
    return;
  }
  FAIL() << "no such block";
}

}  // namespace
}  // namespace Velk
