#include "velk/image/BlockText.h"

#include <sstream>

#include "data/DataSupport.h"
#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

namespace Velk {
namespace {

using VelkTest::OwnedBlock;

std::string printed(const BlockView& block, Page page = Page::Usual) {
  std::ostringstream text;
  printBlock(text, block, page);
  return text.str();
}

TEST(BlockText, ClassesOfTheDictionaryPrintAsTheInterpreterPrintsThem) {
  HwDatablockOldStyleInterpreter interpreter;
  std::mt19937 random(3);
  int compared = 0;
  for (OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    fill(block, random);
    const BlockView view = block.view();
    if (view.row == nullptr || view.row != findDictionaryRow(view.id)) continue;
    HwDatablock raw(true);
    raw.setDataWithoutChecksumCheck(view.bytes.data(), static_cast<unsigned>(view.bytes.size()));
    std::ostringstream expected;
    ASSERT_TRUE(interpreter.printHwDatablockOldStyleInfo(&raw, expected));
    EXPECT_EQ(printed(view), expected.str()) << block.name;
    EXPECT_EQ(printed(view, Page::Detail), expected.str()) << "pages are for blocks with tables";
    ++compared;
  }
  EXPECT_GT(compared, 100);
}

TEST(BlockText, BlocksWithTablesHavePages) {
  const QByteArray bytes = VelkTest::exampleImage("detector.bin");
  const MemoryImage image(bytes);
  for (const BlockView& view : image) {
    if (view.id != 1040) continue;
    EXPECT_EQ(printed(view), printed(view, Page::Complete));
    for (const Page page : {Page::Complete, Page::Detail, Page::Summary}) {
      EXPECT_NE(printed(view, page).find("_1040"), std::string::npos);
    }
    EXPECT_NE(printed(view, Page::Detail), printed(view, Page::Complete));
    EXPECT_TRUE(notOnPage(view, Page::Complete).empty());
    ASSERT_EQ(notOnPage(view, Page::Detail).size(), 1U) << "its column ids are strings";
    EXPECT_EQ(notOnPage(view, Page::Detail)[0].instead, Page::Complete);
    EXPECT_TRUE(notOnPage(view, Page::Hex).empty());
    return;
  }
  FAIL() << "no such block";
}

TEST(BlockText, BlocksOfUnknownIdsPrintAsBytes) {
  OwnedBlock block{"unknown", {0x92, 0x10, 0x0C, 0x00, 0x62, 0xEF, 0, 0, 0, 0, 0, 0}};
  BlockView view = block.view();
  view.offset = 0x1F40;
  const std::string text = "0x00001F40  92 10 0C 00 62 EF 00 00 00 00 00 00              |....b.......|\n\n";
  EXPECT_EQ(printed(view), text);
  EXPECT_EQ(printed(view, Page::Hex), text);
}

}  // namespace
}  // namespace Velk
