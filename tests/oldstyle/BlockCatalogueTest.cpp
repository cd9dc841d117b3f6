#include "velk/oldstyle/BlockCatalogue.h"

#include "CatalogueSupport.h"
#include "TestSupport.h"
#include "velk/data/DataLookup.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::fromHex;

TEST(BlockCatalogue, RowsTellTheTruthAboutTheirClasses) {
  for (const CatalogueRow& row : VelkTest::allRows()) {
    for (int id = row.firstId; id <= row.lastId; ++id) {
      SCOPED_TRACE(std::string(row.className) + ", id " + std::to_string(id));
      const auto blockId = static_cast<unsigned short>(id);
      const CatalogueRow* const found = findCatalogueRow(id, row.size);
      ASSERT_NE(found, nullptr);
      EXPECT_EQ(found->className, row.className);
      const std::unique_ptr<HwDatablock> block = row.make(blockId);
      EXPECT_EQ(block->getBlockSize(), row.size);
      EXPECT_EQ(block->getByteArrayData().size(), row.size);
      // A text of the class's own names the block by its key.
      const std::string text = VelkTest::printed(*block);
      if (block->getId() == blockId && text.find("ID:") != std::string::npos) {
        EXPECT_NE(text.find(row.key(blockId)), std::string::npos);
      }
    }
  }
  EXPECT_EQ(findDictionaryRow(1), nullptr);
  EXPECT_EQ(findDictionaryRow(65536), nullptr);
  EXPECT_EQ(findCatalogueRow(-1), nullptr);
}

TEST(BlockCatalogue, FieldsLieInsideTheirBlocksAndHaveNamesOfTheirOwn) {
  for (const CatalogueRow& row : VelkTest::allRows()) {
    const std::vector<unsigned char> block(row.others.longer ? row.size : 0xFFFF);
    const BlockData data(block, row.fields, Extent::Capacity);
    const auto check = [&](const DataPath& path, const FieldElement& element) {
      EXPECT_LE(element.offset + element.size, row.size) << row.className << ' ' << path.text();
      const DataLookup found = findValue(data.root(), path.text());
      EXPECT_TRUE(found.value && found.value->element().field == element.field) << row.className << ' ' << path.text();
    };
    forEachValue(data.root(), {}, check);
  }
}

TEST(OldStyleInterpreter, PrintsABlockByItsId) {
  HwDatablockOldStyleInterpreter interpreter;
  HwDatablock block(false);
  block.setData(fromHex("FF FF 00 00"));
  std::ostringstream os;
  EXPECT_TRUE(interpreter.printHwDatablockOldStyleInfo(&block, os));
  EXPECT_EQ(os.str(), "# Das ist der END Block\nID:              END\n\n");
}

TEST(OldStyleInterpreter, PrintsDamagedAndShortBlocksWithZerosForWhatIsMissing) {
  ConsoleCapture console;
  HwDatablockOldStyleInterpreter interpreter;
  HwDatablock block(false);
  block.setData(fromHex("03 00 2C 00 11 11 05 00 00 10 00 00 38 1E"));
  for (int times = 0; times < 2; ++times) {
    std::ostringstream os;
    EXPECT_TRUE(interpreter.printHwDatablockOldStyleInfo(&block, os));
    EXPECT_EQ(os.str().substr(0, 137),
              "# Das sind die Kopfdaten\nID:              IDENT_3\nALIGNMENT:       5\nEEPROMSIZE:      4096\n"
              "PARTNUMBER:      0.7736.00\nHWCODE:          0\n")
        << "half of the part number is there: 0x1E38";
  }
  EXPECT_EQ(VelkTest::hexOf(block), "03 00 2C 00 11 11 05 00 00 10 00 00 38 1E");
}

TEST(OldStyleInterpreter, RefusesWhatItDoesNotKnowEveryTime) {
  HwDatablockOldStyleInterpreter interpreter;
  std::ostringstream os;
  HwDatablock block(false);
  block.setBlockId(12309);
  EXPECT_FALSE(interpreter.printHwDatablockOldStyleInfo(nullptr, os));
  EXPECT_FALSE(interpreter.printHwDatablockOldStyleInfo(&block, os));
  EXPECT_FALSE(interpreter.printHwDatablockOldStyleInfo(&block, os));
  EXPECT_EQ(os.str(), "");
}

}  // namespace
}  // namespace Velk
