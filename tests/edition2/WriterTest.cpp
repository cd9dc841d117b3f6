#include "edition2/Edition2Support.h"
#include "velk/edition2/HwDatablockEventCount.h"

namespace Velk {
namespace {

using VelkTest::bytesOf;
using VelkTest::ConsoleCapture;
using VelkTest::fromHex;
using VelkTest::hexOf;
using VelkTest::newBlock;
using VelkTest::SecondEditionBuilder;
using VelkTest::Table;

/// Keeps what it is given.
class Store : public IHwVariantEeprom {
 public:
  void writeDatablock(unsigned int blockId, HwDatablock* block) override {
    ids.push_back(blockId);
    blocks.emplace_back(block);
  }

  std::vector<unsigned> ids;
  std::vector<std::unique_ptr<HwDatablock>> blocks;
};

/// What write() makes of a block, in the store; and what it leaves in the block.
struct Written {
  explicit Written(const QByteArray& bytes) {
    ConsoleCapture complaints;
    CommonDatablockAccess access(newBlock(bytes), &store, true);
    done = access.write();
    block.reset(access.releaseBlock());
    if (!store.blocks.empty()) image = store.blocks.front()->getByteArrayData();
  }

  Store store;
  bool done;
  QByteArray image;
  std::unique_ptr<IHwDatablockAccess> block;
};

TEST(SecondEditionWriter, GivesBackTablesOfOneColumnAsTheyWere) {
  HwDatablock2Edition original =
      SecondEditionBuilder(1040, 250)
          .add({.rowIdType = TYPE_ID_STRING,
                .rowIds = {"A", "BC"},
                .columnIdType = TYPE_ID_UINT8,
                .columnIds = {9},
                .columnTypes = {TYPE_ID_DOUBLE},
                .rows = {{1.5}, {-2}}})
          .add({.columnTypes = {TYPE_ID_CHAR5}, .rows = {{"one"}}})
          .add({.columnTypes = {}, .rows = {{}, {}}})
          .add({.columnIdType = TYPE_ID_INT16, .columnIds = {7}, .columnTypes = {TYPE_ID_INT8}})
          .finish();
  const Written written(original.getByteArrayData());
  EXPECT_TRUE(written.done);
  EXPECT_EQ(written.image, original.getByteArrayData());
  EXPECT_EQ(written.store.ids, std::vector<unsigned>{1040});
  EXPECT_TRUE(written.store.blocks[0]->verifyChecksum32());
  EXPECT_TRUE(written.store.blocks[0]->verifyChecksum());
  EXPECT_EQ(written.store.blocks[0]->getDataFormatTyp(), INTEL_Conform);
  auto& own = dynamic_cast<HwDatablock2Edition&>(*written.block);
  EXPECT_EQ(own.getChecksum(), 0) << "the block itself keeps no 16-bit checksum";
  own.setChecksum(own.computeChecksum());
  EXPECT_EQ(own.getByteArrayData(), written.image);
}

TEST(SecondEditionWriter, WritesATableWithoutColumnsAsItsHeader) {
  const QByteArray bytes = bytesOf(SecondEditionBuilder(1)
                                       .add({.columnTypes = {TYPE_ID_UINT8}, .rows = {{6}}})
                                       .add({.rowIdType = TYPE_ID_UINT16, .columnTypes = {}, .rows = {{}, {}, {}}})
                                       .add({.columnTypes = {TYPE_ID_UINT8}, .rows = {{7}}}));
  const QByteArray image = Written(bytes).image;
  EXPECT_EQ(image, bytes) << "unpadded, since the next table is read from there on";
  const VelkTest::Parsed parsed(image);
  ASSERT_EQ(parsed.tables().size(), 4U);
  EXPECT_EQ(parsed.getRowCount(1), 3U);
  std::vector<int> values;
  parsed.getDataColumn(0, values, 2);
  EXPECT_EQ(values, std::vector<int>{7});
}

TEST(SecondEditionWriter, WritesCellsColumnByColumnAndStringsWithoutZeros) {
  const QByteArray bytes = bytesOf(SecondEditionBuilder(1).add(
      {.columnTypes = {TYPE_ID_UINT8, TYPE_ID_STRING, TYPE_ID_UINT16}, .rows = {{1, "ab", 0x1110}, {2, "c", 0x2120}}}));
  EXPECT_EQ(Written(bytes).image.mid(14), fromHex("02 00 03 00 00 00 01 19 03 00 01 02 61 62 63 10 11 20 21"));
  const QByteArray numbers = bytesOf(SecondEditionBuilder(1).add(
      {.columnTypes = {TYPE_ID_UINT8, TYPE_ID_UINT16}, .rows = {{1, 0x1110}, {2, 0x2120}, {3, 0x3130}}}));
  EXPECT_EQ(Written(numbers).image.mid(14), fromHex("03 00 02 00 00 00 01 03 00 00 01 02 03 10 11 20 21 30 31"));
}

TEST(SecondEditionWriter, LeavesOutThePaddingOfBlocksWithAnAlignment) {
  const Table table{.rowIdType = TYPE_ID_UINT8, .rowIds = {5}, .columnTypes = {TYPE_ID_UINT8}, .rows = {{6}}};
  QByteArray bytes = bytesOf(SecondEditionBuilder(1).add(table));
  bytes[7] = 1;  // the upper byte decides as well, and is not stored
  const QByteArray image = Written(bytes).image;
  EXPECT_EQ(image.mid(6, 2), fromHex("00 00"));
  EXPECT_EQ(image.mid(14), fromHex("01 00 01 00 01 00 01 05 06"));
}

TEST(SecondEditionWriter, WritesOnlyWhatWasParsedWhole) {
  QByteArray bytes = bytesOf(SecondEditionBuilder(1).add({.columnTypes = {TYPE_ID_UINT8}, .rows = {{6}}}));
  const QByteArray open = fromHex("FF FF FF FF 01 01 01 01 01");
  EXPECT_EQ(Written(VelkTest::sized(bytes + open)).image.mid(12), bytes.mid(12));
  ConsoleCapture complaints;
  Store store;
  CommonDatablockAccess never(newBlock(bytes), &store, false);
  EXPECT_TRUE(never.write());
  EXPECT_EQ(hexOf(*store.blocks.front()), "00 00 0E 00 45 D8 00 00 90 D6 1D 51 00 00");
}

TEST(SecondEditionWriter, RefusesWhatNoBlockCanHold) {
  Table table{.columnTypes = {TYPE_ID_UINT8}};
  table.rows.assign(40000, {1});
  Store store;
  CommonDatablockAccess twice(newBlock(bytesOf(SecondEditionBuilder(1).add(table))), &store, true);
  twice.parse();
  EXPECT_FALSE(twice.write());
  EXPECT_TRUE(store.blocks.empty());
  EXPECT_FALSE(CommonDatablockAccess(nullptr, &store, true).write());
  table.rows.assign(0xFFFF - 24, {1});
  EXPECT_EQ(Written(bytesOf(SecondEditionBuilder(1).add(table))).image.size(), 0xFFFF) << "the longest block";
}

TEST(SecondEditionWriter, HandsAnyBytesToTheStore) {
  Store store;
  CommonDatablockAccess access(nullptr, &store, false);
  QByteArray bytes = fromHex("01 00 08 00 F7 FF 00 00");
  EXPECT_TRUE(access.writeVariantBock(99, bytes));
  EXPECT_EQ(store.ids, std::vector<unsigned>{99});
  EXPECT_EQ(hexOf(*store.blocks[0]), "01 00 08 00 F7 FF 00 00");
  EXPECT_TRUE(store.blocks[0]->getStopConversionOnError());
  EXPECT_TRUE(CommonDatablockAccess(nullptr, nullptr, false).writeVariantBock(99, bytes));
}

TEST(SecondEditionBlock, AnswersForItsHeader) {
  HwDatablock2Edition block;
  EXPECT_EQ(hexOf(block), "00 00 0C 00 00 00 00 00 00 00 00 00");
  EXPECT_TRUE(block.getStopConversionOnError());
  EXPECT_TRUE(block.setChecksum32(0x89ABCDEF));
  EXPECT_EQ(block.getChecksum32(), 0x89ABCDEFU);
  EXPECT_EQ(block.getUpdateIndex(), 0) << "beyond the block's end";
  ConsoleCapture complaints;
  block.setData(fromHex("01 00 18 00 00 00 00 00 00 00 00 00 9C FF 02 00 03 00 05 16 01 FF 00 00"));
  EXPECT_DOUBLE_EQ(block.getUpdateIndex(), -1);
  EXPECT_EQ(block.getNumberOfRows(7), 2);
  EXPECT_EQ(block.getNumberOfColumns(7), 3);
  EXPECT_EQ(block.getRowIdType(), TYPE_ID_UINT32);
  EXPECT_EQ(block.getSizeOfRowIdType(), 4U);
  EXPECT_EQ(block.getSizeOfColumnIdType(), 10U);
  EXPECT_EQ(block.getColumnIdType(), TYPE_ID_CHAR10);
  EXPECT_EQ(block.getColumnType(1), 0xFF);
  for (const int none : {-1, -30, 4, 0x7FFFFFFF}) EXPECT_EQ(block.getColumnType(none), TYPE_ID_NONE) << none;
  EXPECT_EQ(block.getBlockSize(3), 24);
  EXPECT_EQ(block.getData(3), block.getData());
  EXPECT_EQ(block.computeChecksum32(), static_cast<HwDatablock&>(block).computeChecksum32());

  block.setData(fromHex("01 00 16 00 00 00 01 00 00 00 9C FF 02 00 03 00 05 16 01 FF 00 00"));
  EXPECT_DOUBLE_EQ(block.getUpdateIndex(), -1);
  EXPECT_EQ(block.getNumberOfColumns(0), 3);
  EXPECT_EQ(block.getColumnType(1), 0xFF);
}

TEST(SecondEditionBlock, KeepsItsBytesInEitherFormat) {
  HwDatablock2Edition block = SecondEditionBuilder(1).add({.columnTypes = {TYPE_ID_UINT32}, .rows = {{6}}}).finish();
  const QByteArray before = block.getByteArrayData();
  for (const HwEDataFormatTyp target : {PPC_Conform, INTEL_Conform}) {
    block.swapDataTo(target, block.getId(), &block);
    EXPECT_EQ(block.getDataFormatTyp(), target);
    EXPECT_EQ(block.getByteArrayData(), before);
  }
}

TEST(EventCountBlock, CarriesTheIdentifierOfItsSize) {
  HwDatablockEventCount block;
  EXPECT_EQ(hexOf(block), "00 00 0C 00 00 00 00 00 0C 00 2D 45");
  EXPECT_EQ(block.getDatablockClassTyp(), HwDatablockClassEventCounter);
  QByteArray bytes(64, '\x11');
  bytes[2] = 64;
  bytes[3] = 0;
  EXPECT_TRUE(block.setData(VelkTest::viewOf(bytes).data(), 64));
  EXPECT_EQ(block.getByteArrayData().mid(8, 4), fromHex("40 00 2D 45"));
  EXPECT_TRUE(block.verifyChecksum32());
  EXPECT_TRUE(block.setData(static_cast<const unsigned char*>(nullptr), 3));
  EXPECT_EQ(block.getByteArrayData().size(), 64);
}

TEST(EventCountBlock, ChangesOneByteAndNothingElse) {
  ConsoleCapture complaints;
  HwDatablockEventCount block;
  const QByteArray before = block.getByteArrayData();
  for (const unsigned beyond : {12U, 1000U, 0xFFFFFFFFU}) EXPECT_TRUE(block.updateEventCountBlock(beyond, 5));
  EXPECT_EQ(block.getByteArrayData(), before);
  EXPECT_TRUE(block.updateEventCountBlock(11, 0));
  EXPECT_EQ(hexOf(block), "00 00 0C 00 00 00 00 00 0C 00 2D 00");
  EXPECT_FALSE(block.verifyChecksum32());
}

}  // namespace
}  // namespace Velk
