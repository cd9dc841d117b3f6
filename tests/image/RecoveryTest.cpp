#include "velk/image/Recovery.h"

#include "TestSupport.h"

namespace {

using Velk::MemoryImage;
using Velk::Recovery;

/// What dumps of one memory show together, which they outlive.
struct Recovered {
  explicit Recovered(const std::vector<QByteArray>& bytes, std::optional<std::size_t> preferred = std::nullopt) {
    std::vector<const MemoryImage*> dumps;
    for (const QByteArray& dump : bytes) images.push_back(std::make_unique<MemoryImage>(dump));
    for (const auto& image : images) dumps.push_back(image.get());
    recovery = Velk::recoverBlocks(dumps, preferred);
  }
  QByteArray laidOut(qsizetype size) const {
    return Velk::layOut(recovery.blocks, static_cast<std::uint64_t>(size)).value_or(QByteArray());
  }

  std::vector<std::unique_ptr<MemoryImage>> images;
  Recovery recovery;
};

/// The image as it is laid out: its end block has a data word of 0.
QByteArray clean(const char* name) { return VelkTest::exampleImage(name); }

QByteArray flipped(QByteArray image, qsizetype at) {
  image[at] = static_cast<char>(image[at] ^ 0x40);
  return image;
}

TEST(Recovery, OneCleanDumpStaysAsItIs) {
  for (const QString& name : VelkTest::exampleImages()) {
    const QByteArray image = VelkTest::exampleImage(name);
    const Recovered recovered({image});
    EXPECT_TRUE(recovered.laidOut(image.size()) == image) << name.toStdString();
    EXPECT_TRUE(recovered.recovery.damage.empty());
  }
}

TEST(Recovery, DumpsMendEachOther) {
  const QByteArray image = clean("rf_board_tables.bin");
  const QByteArray first = flipped(flipped(image, 100), 3000);
  struct Case {
    const char* what;
    QByteArray second;
  };
  const Case cases[] = {
      {"other bits flipped", flipped(image, 1000)},
      {"a byte lost", QByteArray(image).remove(1000, 1)},
      {"a byte too many", QByteArray(image).insert(1000, 'x')},
      {"bytes in front", QByteArray(37, 'x') + flipped(image, 1500)},
      {"a page erased", QByteArray(image).replace(1024, 256, QByteArray(256, '\xFF'))},
  };
  for (const Case& damaged : cases) {
    SCOPED_TRACE(damaged.what);
    for (const auto& dumps : {std::vector{first, damaged.second}, std::vector{damaged.second, first}}) {
      const Recovered recovered(dumps);
      EXPECT_TRUE(recovered.recovery.conflicts.empty());
      EXPECT_TRUE(recovered.laidOut(image.size()) == image);
    }
  }
}

TEST(Recovery, ThreeDumpsOfWhichNoneIsWholeGiveTheMemory) {
  const QByteArray image = clean("dac_board.bin");
  const Recovered recovered({flipped(image, 20), flipped(QByteArray(image).remove(300, 1), 400), image.left(60)});
  EXPECT_TRUE(recovered.laidOut(image.size()) == image);
  for (const Velk::DumpDamage& damage : recovered.recovery.damage) {
    EXPECT_GT(damage.recovered, 0U) << "dump " << damage.view.dump << ", offset " << damage.view.view.offset;
  }
}

TEST(Recovery, SoundBlocksThatDifferAreAConflictUnlessADumpIsRight) {
  const QByteArray image = clean("rf_board.bin");
  QByteArray other = image;
  // The serial number, and the checksum that makes up for it.
  other[20] = static_cast<char>(other[20] + 1);
  other[4] = static_cast<char>(other[4] - 1);
  const Recovered undecided({image, other});
  ASSERT_EQ(undecided.recovery.conflicts.size(), 1U);
  EXPECT_EQ(undecided.recovery.conflicts[0].first.dump, 0U);
  EXPECT_EQ(undecided.recovery.conflicts[0].second.dump, 1U);
  const Recovered decided({image, other}, 1);
  EXPECT_TRUE(decided.recovery.conflicts.empty());
  EXPECT_TRUE(decided.laidOut(image.size()) == other);
}

TEST(Recovery, BlocksThatOnlyOneDumpHasKeepTheirPlace) {
  const QByteArray image = clean("dac_board.bin");
  const QByteArray withoutFirst = QByteArray(image).replace(0, 8, QByteArray(8, '\xFF'));
  const Recovered recovered({withoutFirst, image});
  EXPECT_TRUE(recovered.laidOut(image.size()) == image);
  EXPECT_EQ(recovered.recovery.blocks.front().dump, 1U);
}

TEST(Recovery, LaysOutNoMoreThanThereIsRoomFor) {
  const QByteArray image = clean("rf_board.bin");
  const Recovered recovered({image});
  constexpr qsizetype blocks = 110;
  EXPECT_EQ(recovered.laidOut(blocks), image.left(blocks)) << "no room for an end block";
  EXPECT_EQ(recovered.laidOut(blocks + 4), image.left(blocks + 4));
  EXPECT_FALSE(Velk::layOut(recovered.recovery.blocks, blocks - 1));
  EXPECT_EQ(Velk::layOut({}, 6), QByteArray::fromHex("ffff0000ffff"));
}

}  // namespace
