// Blocks out of sequence, and what the walk makes of the bytes between them.
#include "SecondEditionBuilder.h"
#include "TestSupport.h"
#include "image/WalkSupport.h"

namespace Velk {
namespace {

using Examples::ImageBuilder;
using VelkTest::fromHex;
using VelkTest::ident;
using VelkTest::twoIdents;
using VelkTest::walked;

TEST(FoundBlocks, BlocksAreFoundAtEveryOffset) {
  for (const int front : {1, 3, 37, 512}) {
    for (const char fill : {'\xFF', 'x', '\0'}) {
      const std::string text = walked(QByteArray(front, fill) + twoIdents());
      EXPECT_NE(text.find(std::to_string(front) + " IDENT_2 44 sound, " + std::to_string(front + 44) + " IDENT_2"),
                std::string::npos)
          << text;
    }
  }
  QByteArray lost = twoIdents();
  lost.remove(20, 1);
  EXPECT_EQ(walked(lost), "0 IDENT_2 43 damaged size, 43 IDENT_2 44 sound, 87 END 4 sound");
  QByteArray more = twoIdents();
  more.insert(20, 'x');
  EXPECT_EQ(walked(more),
            "0 IDENT_2 44 wrong checksum, 44 (bytes) 1 too short for a block, 45 IDENT_2 44 sound, 89 END 4 sound");
  QByteArray erasedHeader = twoIdents();
  erasedHeader.replace(0, 8, QByteArray(8, '\xFF'));
  EXPECT_EQ(walked(erasedHeader), "0 END 4 sound, 4 (bytes) 40 not erased, 44 IDENT_2 44 sound, 88 END 4 sound");
}

TEST(FoundBlocks, NothingIsReadAfterAShortBlockAtTheEndOfTheMemory) {
  const QByteArray counter = fromHex("92 10 0D 00 00 00 00 00 0D 00 2D 45 00");
  // A vector's bytes end where the sanitizer says so.
  std::vector<unsigned char> bytes(40, 'x');
  bytes.insert(bytes.end(), counter.begin(), counter.end());
  bytes.shrink_to_fit();
  BlockWalk walk(bytes);
  ASSERT_TRUE(walk.next());
  EXPECT_EQ(walk.block().bytes.size(), bytes.size());
}

TEST(FoundBlocks, UnknownBlocksAreFoundBeforeBlocksThatProveThemselves) {
  HwDatablockIdent known = ident(1);
  const QByteArray unknown = ImageBuilder().add(4242, "two bytes more").add(4243, "four more").finish(0).chopped(4);
  const QByteArray front(40, 'x');
  EXPECT_EQ(walked(front + unknown + known.getByteArrayData()),
            "0 (bytes) 40 no block, 40 ID_4242 22 sound, 62 ID_4243 17 sound, 79 IDENT_2 44 sound");
  EXPECT_EQ(walked(front + unknown), "0 (bytes) 79 no block");
  const QByteArray uniform = fromHex("00 00 0C 00 F4 FF 00 00 00 00 00 00");
  EXPECT_EQ(walked(front + uniform.left(8) + known.getByteArrayData()), "0 (bytes) 48 no block, 48 IDENT_2 44 sound");
}

TEST(FoundBlocks, ABlockInsideAnotherIsThatOnesOwn) {
  HwDatablockIdent inner = ident(1);
  HwDatablockIdent last = ident(2);
  const QByteArray outer = ImageBuilder().add(4242, "ab" + inner.getByteArrayData() + "cd").finish(0).chopped(4);
  const std::string whole = " ID_4242 56 sound, ";
  EXPECT_EQ(walked(outer + last.getByteArrayData()), "0" + whole + "56 IDENT_2 44 sound");
  EXPECT_EQ(walked(QByteArray(9, 'x') + outer + last.getByteArrayData()),
            "0 (bytes) 9 no block, 9" + whole + "65 IDENT_2 44 sound");
  // Its size is confirmed by what follows, whatever its sum.
  QByteArray damaged = outer;
  damaged[8] = 'x';
  EXPECT_EQ(walked(damaged + last.getByteArrayData()), "0 ID_4242 56 wrong checksum, 56 IDENT_2 44 sound");

  QByteArray counter = fromHex("12 04 40 00 00 00 00 00 40 00 2D 45") + inner.getByteArrayData() + QByteArray(8, 'x');
  const QByteArray junk(20, 'y');
  EXPECT_EQ(walked(counter + junk), "0 ID_1042 64 sound, 64 ID_31097 20 damaged size");
  EXPECT_EQ(walked(junk + counter + last.getByteArrayData()),
            "0 (bytes) 20 no block, 20 ID_1042 64 sound, 84 IDENT_2 44 sound");
  // A byte that it has lost makes the next block begin in it.
  counter.chop(1);
  EXPECT_EQ(walked(counter + last.getByteArrayData()), "0 ID_1042 63 damaged size, 63 IDENT_2 44 sound");
}

TEST(FoundBlocks, BytesWithoutABlockAreOneView) {
  QByteArray noise(5000, '\0');
  for (unsigned i = 0; i < 5000; ++i) noise[i] = static_cast<char>(i * i * 2654435761U >> 16U);
  EXPECT_EQ(walked(noise), "0 (bytes) 5000 no block");
  EXPECT_EQ(describe(*MemoryImage(noise).begin(), Finding::NoBlock),
            "5000 bytes hold no block; they look like high-entropy");
  EXPECT_EQ(walked(noise + twoIdents()),
            "0 (bytes) 5000 no block, 5000 IDENT_2 44 sound, 5044 IDENT_2 44 sound, 5088 END 4 sound");
  EXPECT_EQ(walked(twoIdents() + noise + twoIdents()),
            "0 IDENT_2 44 sound, 44 IDENT_2 44 sound, 88 END 4 sound, 92 (bytes) 5036 not erased, "
            "5128 IDENT_2 44 sound, 5172 IDENT_2 44 sound, 5216 END 4 sound");
}

TEST(FoundBlocks, TheWalkLooksNoFurtherBackThanItsStart) {
  const QByteArray image = twoIdents();
  EXPECT_EQ(walked(image, 10), "10 (bytes) 34 no block, 44 IDENT_2 44 sound, 88 END 4 sound");
  EXPECT_EQ(walked(image, 45), "45 (bytes) 83 no block");
}

TEST(FoundBlocks, AStrictWalkBelievesNothingButTheSequence) {
  const auto strict = [](const QByteArray& bytes) {
    std::string text;
    for (const BlockView& block : MemoryImage(bytes, 0, 0, Search::SequenceOnly)) {
      text += std::to_string(block.offset) + ' ' + std::to_string(block.bytes.size()) + ' ' + verdictName(block) + ", ";
    }
    return text;
  };
  EXPECT_EQ(strict(twoIdents()), "0 44 sound, 44 44 sound, 88 4 sound, ");
  EXPECT_EQ(strict(twoIdents().left(88) + QByteArray(4, '\xFF') + twoIdents()),
            "0 44 sound, 44 44 sound, 88 4 sound, 92 128 not erased, ");
  QByteArray damaged = twoIdents();
  damaged[2] = 45;
  EXPECT_EQ(strict(damaged), "0 128 damaged size, ");
}

TEST(FoundBlocks, RegionsAreWhatNoBlockCovers) {
  const QByteArray image = QByteArray(64, '\0') + twoIdents() + QByteArray(50, 'x');
  const std::vector<Region> regions = {{0, 64, RegionLook::Zeros}, {156, 86, RegionLook::Other}};
  EXPECT_EQ(MemoryImage(image).regions(), regions);
  const std::vector<Region> erased = {{92, 36, RegionLook::Erased}, {220, 36, RegionLook::Erased}};
  EXPECT_EQ(MemoryImage(twoIdents() + twoIdents()).regions(), erased);
  EXPECT_EQ(MemoryImage(twoIdents(), 200).regions().size(), 0U);
}

TEST(FoundBlocks, SectorsAreSuggestedWhereSequencesBeginOnTheirGrid) {
  const auto suggested = [](const QByteArray& bytes, std::uint64_t start = 0) {
    return MemoryImage(bytes, start).suggestedSectorSize();
  };
  const QByteArray sector = twoIdents() + QByteArray(1024 - 128, '\xFF');
  EXPECT_EQ(suggested(sector), 0U);
  EXPECT_EQ(suggested(sector + sector), 1024U);
  EXPECT_EQ(suggested(sector + QByteArray(1024, '\xFF') + sector), 2048U);
  EXPECT_EQ(suggested(QByteArray(7, 'x') + sector + sector, 7), 1024U);
  EXPECT_EQ(suggested(sector + '\xFF' + sector), 0U);
  EXPECT_EQ(MemoryImage(sector + sector, 0, automaticSectorSize).sectorSize(), 1024U);
  EXPECT_EQ(MemoryImage(sector, 0, automaticSectorSize).sectorSize(), 0U);
}

}  // namespace
}  // namespace Velk
