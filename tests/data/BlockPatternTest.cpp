#include "velk/data/BlockPattern.h"

#include <gtest/gtest.h>

#include "CatalogueSupport.h"

namespace Velk {
namespace {

BlockView blockOf(unsigned short id) {
  const CatalogueRow* const row = findCatalogueRow(id);
  return {.id = id, .kind = row != nullptr ? BlockKind::OldStyle : BlockKind::Unknown, .row = row};
}

TEST(BlockPattern, CallsBlocksByIdNameClassOrPattern) {
  struct Case {
    const char* text;
    std::vector<unsigned short> matched;
  };
  constexpr unsigned short ids[] = {2, 3, 1040, 11311, 13500, 13600, 15499};
  const Case cases[] = {
      {"2", {2}},
      {"0x2", {2}},
      {"IDENT_2", {2}},
      {"HwDatablockIdent", {2, 3}},
      {"IDENT_*", {2, 3}},
      {"IDENT_?", {2, 3}},
      {"*_COMP_*", {13500, 13600}},
      {"BACKUP OF POWERON COUNT", {11311}},
      {"ID_1040", {1040}},
      {"ID_*", {1040, 15499}},
      {"*_NOTHING", {}},
      {"*", {2, 3, 1040, 11311, 13500, 13600, 15499}},
  };
  for (const Case& each : cases) {
    std::string error;
    const auto pattern = BlockPattern::parse(each.text, error);
    ASSERT_TRUE(pattern) << each.text << ": " << error;
    std::vector<unsigned short> matched;
    std::ranges::copy_if(ids, std::back_inserter(matched),
                         [&](unsigned short id) { return pattern->matches(blockOf(id)); });
    EXPECT_EQ(matched, each.matched) << each.text;
    EXPECT_FALSE(pattern->matches(BlockView{.kind = BlockKind::Stray})) << each.text;
  }
}

TEST(BlockPattern, RefusesWhatNoBlockIsCalled) {
  const std::pair<const char*, const char*> cases[] = {
      {"IDNT_2", "no block is called \"IDNT_2\"; the nearest is IDENT_2"},
      {"ident_2", "no block is called \"ident_2\"; the nearest is IDENT_2"},
      {"ID_65536", "no block is called \"ID_65536\""},
      {"", "no block is called \"\""},
      {"65536", "65536 is out of range: 0 to 65535"},
      {"99999999999999999999", "99999999999999999999 is no whole number"},
      {"2 ", "2  is no whole number"},
      {"0x", "0x is no whole number"},
  };
  for (const auto& [text, expected] : cases) {
    std::string error;
    EXPECT_FALSE(BlockPattern::parse(text, error)) << text;
    EXPECT_EQ(error, expected);
  }
}

TEST(BlockPattern, EveryNameOfTheCatalogueIsUnderstood) {
  for (const CatalogueRow& row : VelkTest::allRows()) {
    for (unsigned id = row.firstId; id <= row.lastId; ++id) {
      std::string error;
      const auto pattern = BlockPattern::parse(row.key(static_cast<unsigned short>(id)), error);
      ASSERT_TRUE(pattern) << error;
      EXPECT_TRUE(pattern->matches(row, static_cast<unsigned short>(id))) << id;
    }
  }
}

}  // namespace
}  // namespace Velk
