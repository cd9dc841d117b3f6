#include "velk/image/BlockPlacement.h"

#include "ImageBuilder.h"
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

}  // namespace
}  // namespace Velk
