#include "velk/image/BlockPlacement.h"

#include "ImageBuilder.h"
#include "TestSupport.h"
#include "velk/records/HwDatablockIdent.h"

namespace Velk {
namespace {

using Examples::ImageBuilder;

constexpr qsizetype identSize = 44;

HwDatablockIdent ident(unsigned serialNumber) {
  HwDatablockIdent block;
  block.setSerialNumber(serialNumber);
  return block;
}

QByteArray imageOf(HwDatablockIdent first, HwDatablockIdent second, qsizetype size) {
  return ImageBuilder().add(first).add(second).finish(size);
}

TEST(BlockPlacement, ReplacesTheFirstBlockOfAnIdByOneOfItsSize) {
  const MemoryImage image(imageOf(ident(1), ident(2), 128));
  const std::optional<BlockView> first = firstBlockOf(image, 2);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->offset, 0U);
  EXPECT_FALSE(firstBlockOf(image, 3));
  HwDatablockIdent other = ident(7);
  const Placement placement = replaceBlock(image, *first, other.getByteArrayData());
  EXPECT_EQ(placement.image, imageOf(ident(7), ident(2), 128));
  const Placement longer = replaceBlock(image, *first, other.getByteArrayData() + "xx");
  EXPECT_EQ(longer.result, PlacementResult::OtherSize);
  EXPECT_TRUE(longer.image.isEmpty());
}

TEST(BlockPlacement, AppendsBeforeTheEndBlockWhichMovesOn) {
  HwDatablockIdent first = ident(1);
  HwDatablockIdent second = ident(2);
  const QByteArray bytes = second.getByteArrayData();
  constexpr qsizetype full = 2 * identSize + 4;
  for (const qsizetype size : {full, full + 1, full + 100}) {
    const Placement placement = appendBlock(MemoryImage(ImageBuilder().add(first).finish(size)), bytes);
    EXPECT_EQ(placement.image, imageOf(first, second, size)) << size;
    EXPECT_EQ(placement.offset, std::uint64_t{identSize});
  }
  const Placement tight = appendBlock(MemoryImage(ImageBuilder().add(first).finish(full - 1)), bytes);
  EXPECT_EQ(tight.result, PlacementResult::NoRoom);
  const Placement open = appendBlock(MemoryImage(first.getByteArrayData()), bytes);
  EXPECT_EQ(open.image, first.getByteArrayData() + bytes) << "without an end block the image grows";
}

TEST(BlockPlacement, AppendsNothingToWhatIsDamagedOrHasSectors) {
  HwDatablockIdent block = ident(1);
  QByteArray bytes = imageOf(ident(1), ident(2), 256);
  EXPECT_EQ(appendBlock(MemoryImage(bytes, 0, 128), block.getByteArrayData()).result, PlacementResult::HasSectors);
  bytes[identSize + 20] = 77;
  const MemoryImage image(bytes);
  const Placement placement = appendBlock(image, block.getByteArrayData());
  EXPECT_EQ(placement.result, PlacementResult::Damaged);
  ASSERT_TRUE(placement.damaged);
  EXPECT_EQ(placement.damaged->offset, std::uint64_t{identSize});
}

/// Returns each block of an image but the end block.
std::vector<BlockView> blocksOf(const MemoryImage& image) {
  std::vector<BlockView> blocks;
  for (const BlockView& block : image) {
    if (block.kind != BlockKind::End) blocks.push_back(block);
  }
  return blocks;
}

// In every example: a block that is taken out leaves the others as they were, and put back it restores every byte.
TEST(BlockPlacement, WhatIsTakenOutCanBePutBack) {
  std::size_t tried = 0;
  for (const QString& name : VelkTest::exampleImages()) {
    const QByteArray bytes = VelkTest::exampleImage(name);
    const MemoryImage image(bytes);
    const std::vector<BlockView> blocks = blocksOf(image);
    for (std::size_t i = 0; i < blocks.size(); i += blocks.size() / 30 + 1) {
      const BlockView& block = blocks[i];
      const Placement removed = removeBlock(image, block);
      if (removed.result == PlacementResult::Damaged) continue;  // another sequence follows
      ASSERT_EQ(removed.result, PlacementResult::Done) << name.toStdString() << ' ' << block.offset;
      const MemoryImage without(removed.image);
      EXPECT_EQ(blocksOf(without).size() + 1, blocks.size()) << name.toStdString() << ' ' << block.offset;
      const QByteArray taken =
          bytes.mid(static_cast<qsizetype>(block.offset), static_cast<qsizetype>(block.bytes.size()));
      const Placement back = insertBlock(without, block.offset, taken);
      ASSERT_EQ(back.result, PlacementResult::Done) << name.toStdString() << ' ' << block.offset;
      EXPECT_TRUE(back.image == bytes) << name.toStdString() << ' ' << block.offset;
      ++tried;
    }
  }
  EXPECT_GT(tried, 50U);
}

TEST(BlockPlacement, MovesOnlyTheBlocksOfOneSectorIntoErasedMemory) {
  const QByteArray sector = imageOf(ident(1), ident(2), 160);
  HwDatablockIdent third = ident(3);
  const QByteArray bytes = third.getByteArrayData();
  const MemoryImage image(sector + sector, 0, 160);
  const Placement second = insertBlock(image, 160 + identSize, bytes);
  EXPECT_EQ(second.image.left(160), sector);
  EXPECT_EQ(blocksOf(MemoryImage(second.image, 0, 160)).size(), 5U);
  const MemoryImage full(second.image, 0, 160);
  const Placement tooMany = insertBlock(full, 160, bytes);
  EXPECT_EQ(tooMany.result, PlacementResult::NoRoom);
  EXPECT_EQ(tooMany.missing, std::uint64_t{4 * identSize + 4 - 160});
  EXPECT_EQ(insertBlock(MemoryImage(third.getByteArrayData()), 0, bytes).missing, std::uint64_t{identSize})
      << "no end block, no room";
}

TEST(BlockPlacement, WhatFollowsDamageStays) {
  HwDatablockIdent first = ident(1);
  QByteArray bytes = imageOf(ident(1), ident(2), 256);
  bytes[identSize + 20] = 77;
  const MemoryImage image(bytes);
  const Placement removed = removeBlock(image, blocksOf(image).front());
  EXPECT_EQ(removed.result, PlacementResult::Damaged);
  EXPECT_EQ(removed.damaged->offset, std::uint64_t{identSize});
  const Placement last = removeBlock(image, blocksOf(image).back());
  EXPECT_EQ(last.result, PlacementResult::Done) << "the damaged block itself can go";
  EXPECT_EQ(last.image, ImageBuilder().add(first).finish(256));
}

}  // namespace
}  // namespace Velk
