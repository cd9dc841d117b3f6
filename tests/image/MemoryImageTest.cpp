#include "velk/image/MemoryImage.h"

#include "ImageBuilder.h"
#include "SecondEditionBuilder.h"
#include "TestSupport.h"
#include "velk/records/HwDatablockIdent.h"

namespace Velk {
namespace {

using Examples::ImageBuilder;
using VelkTest::fromHex;

/// "0 IDENT_2 44 sound, 44 END 4 sound": what the walk sees, one block after another.
std::string walked(const QByteArray& bytes, std::uint64_t start = 0, std::uint64_t sectorSize = 0) {
  std::string text;
  for (const BlockView& block : MemoryImage(bytes, start, sectorSize)) {
    if (!text.empty()) text += ", ";
    text += std::to_string(block.offset) + ' ' + blockName(block) + ' ' + std::to_string(block.bytes.size()) + ' ' +
            verdictName(block);
  }
  return text;
}

HwDatablockIdent ident(unsigned serialNumber) {
  HwDatablockIdent block;
  block.setSerialNumber(serialNumber);
  return block;
}

QByteArray twoIdents() {
  HwDatablockIdent first = ident(1);
  HwDatablockIdent second = ident(2);
  return ImageBuilder().add(first).add(second).finish(128);
}

TEST(MemoryImage, IsBlocksUpToTheEndBlock) {
  EXPECT_EQ(walked(twoIdents()), "0 IDENT_2 44 sound, 44 IDENT_2 44 sound, 88 END 4 sound");
  EXPECT_EQ(walked(twoIdents(), 44), "44 IDENT_2 44 sound, 88 END 4 sound");
  EXPECT_EQ(walked(twoIdents(), 1000), "");
  EXPECT_EQ(walked(twoIdents().left(88)), "0 IDENT_2 44 sound, 44 IDENT_2 44 sound");
}

TEST(MemoryImage, SmallestInputs) {
  EXPECT_EQ(walked({}), "");
  EXPECT_EQ(walked(fromHex("02")), "0 (bytes) 1 too short for a block");
  EXPECT_EQ(walked(fromHex("FF")), "0 (bytes) 1 too short for a block");
  EXPECT_EQ(walked(fromHex("FF FF")), "0 END 2 sound");
  EXPECT_EQ(walked(fromHex("FF FF 00 00 FF")), "0 END 4 sound");
  EXPECT_EQ(walked(fromHex("02 00 08 00 00 00 00")), "0 (bytes) 7 too short for a block");
}

TEST(MemoryImage, SizesThatCannotBeBelievedAreSkippedToTheNextSoundBlock) {
  for (const int size : {0, 1, 7, 12, 45, 129, 65535}) {
    QByteArray image = twoIdents();
    image[2] = static_cast<char>(size & 0xFF);
    image[3] = static_cast<char>(size >> 8);
    EXPECT_EQ(walked(image), "0 IDENT_2 44 damaged size, 44 IDENT_2 44 sound, 88 END 4 sound") << size;
  }
}

TEST(MemoryImage, BlocksWithACrcAreFoundBehindDamageAsWell) {
  QByteArray image = VelkTest::exampleImage("detector.bin");
  image[0x2F] = '\x40';
  EXPECT_NE(walked(image).find("44 ID_1040 196 damaged size, 240 ID_1041 330 sound, 570 ID_1042 20 sound"),
            std::string::npos)
      << walked(image);
  image[240 + 3] = '\x40';
  image[570 + 12] = static_cast<char>(image[570 + 12] + 1);
  EXPECT_NE(walked(image).find("44 ID_1040 526 damaged size, 570 ID_1042 20 sound"), std::string::npos)
      << "whose checksum did not follow the counter: " << walked(image);

  // The remains of a counter are not one if nothing begins where they claim to end.
  const QByteArray ident = VelkTest::exampleImage("rf_board.bin").left(44);
  const QByteArray remains =
      VelkTest::fromHex("02 00 03 00 00 00 00 00 00 00 00 00 12 04 3C 00 01 00 00 00 3C 00 2D 45");
  EXPECT_EQ(walked(remains + ident + ident), "0 IDENT_2 24 damaged size, 24 IDENT_2 44 sound, 68 IDENT_2 44 sound");
}

TEST(MemoryImage, AnEndBlockIsFoundBehindDamageWhateverItsDataWord) {
  const QByteArray damaged = VelkTest::fromHex("02 00 FF 00 00 00 00 00 01 02 03 04");
  for (const char* const end : {"FF FF 00 00", "FF FF 00 FF", "FF FF FF FF"}) {
    const QByteArray image = damaged + VelkTest::fromHex(end) + QByteArray(16, '\xFF');
    EXPECT_NE(walked(image).find("0 IDENT_2 12 damaged size, 12 END 4 sound"), std::string::npos) << walked(image);
  }
}

TEST(MemoryImage, DamageBeforeTheEndBlockIsSkippedToIt) {
  QByteArray image = twoIdents();
  image[46] = 3;
  EXPECT_EQ(walked(image), "0 IDENT_2 44 sound, 44 IDENT_2 44 damaged size, 88 END 4 sound");
  image.truncate(88);
  EXPECT_EQ(walked(image), "0 IDENT_2 44 sound, 44 IDENT_2 44 damaged size");
  EXPECT_EQ(walked(image.left(80)), "0 IDENT_2 44 sound, 44 IDENT_2 36 damaged size");
}

TEST(MemoryImage, ABelievableSizeIsKeptWhateverTheBytes) {
  QByteArray image = twoIdents();
  image[20] = 9;
  EXPECT_EQ(walked(image), "0 IDENT_2 44 wrong checksum, 44 IDENT_2 44 sound, 88 END 4 sound");
  image = twoIdents();
  image[0] = 99;
  EXPECT_EQ(walked(image), "0 ID_99 44 wrong checksum, 44 IDENT_2 44 sound, 88 END 4 sound");
}

TEST(MemoryImage, ASoundBlockMayHaveAnUnexpectedSize) {
  HwDatablock longer(true);
  longer.resizeData(48);
  longer.setBlockSize(48);
  longer.setBlockId(2);
  const QByteArray bytes = ImageBuilder().add(longer).finish(0);
  EXPECT_EQ(walked(bytes), "0 IDENT_2 48 sound, 48 END 4 sound");
  const BlockView block = *MemoryImage(bytes).begin();
  EXPECT_TRUE(block.has(Finding::SizeNotOfClass));
  EXPECT_EQ(describe(block, Finding::SizeNotOfClass), "size 48, blocks of this id have 44");
}

TEST(MemoryImage, BytesBehindTheEndBlockHaveToBeErased) {
  QByteArray image = twoIdents();
  image[120] = 0;
  EXPECT_EQ(walked(image), "0 IDENT_2 44 sound, 44 IDENT_2 44 sound, 88 END 4 sound, 92 (bytes) 36 not erased");
  const MemoryImage walkedImage(image);
  for (const BlockView& block : walkedImage) {
    if (block.kind == BlockKind::Stray) {
      EXPECT_EQ(describe(block, Finding::NotErased),
                "36 bytes behind the end block are not erased, the first at 0x0078");
    }
  }
}

TEST(MemoryImage, EachSectorIsASequenceOfItsOwn) {
  const QByteArray erasedSector(128, '\xFF');
  EXPECT_EQ(walked(twoIdents() + erasedSector + twoIdents().left(44), 0, 128),
            "0 IDENT_2 44 sound, 44 IDENT_2 44 sound, 88 END 4 sound, 128 END 4 sound, 256 IDENT_2 44 sound");
  // The first sector begins where the walk does.
  EXPECT_EQ(walked(QByteArray(7, 'x') + erasedSector + twoIdents(), 7, 128),
            "7 END 4 sound, 135 IDENT_2 44 sound, 179 IDENT_2 44 sound, 223 END 4 sound");
  EXPECT_EQ(walked(twoIdents(), 0, 1000), walked(twoIdents()));
  // No block reaches over a sector's end, and damage in one sector is no matter of the next.
  EXPECT_EQ(walked(twoIdents(), 0, 64),
            "0 IDENT_2 44 sound, 44 IDENT_2 20 damaged size, 64 IDENT_2 24 damaged size, 88 END 4 sound");
  EXPECT_EQ(walked(twoIdents().left(1), 5, 1), "");
}

TEST(MemoryImage, NoSectorIsWalkedTwiceForDamageInIt) {
  QByteArray image;
  while (image.size() < 8 * 1024 * 1024) image += fromHex("02 00 FF FF 55 55 55 55");
  std::size_t blocks = 0;
  for (const BlockView& block : MemoryImage(image, 0, 64)) blocks += block.has(Finding::UnbelievableSize) ? 1 : 0;
  EXPECT_EQ(blocks, 8U * 1024 * 1024 / 64);
}

TEST(MemoryImage, CrcAndEventCounterIdentifierDecideBeforeTheId) {
  // The id of the ident block, in a block that describes itself.
  QByteArray crc = fromHex("02 00 10 00 00 00 00 00 00 00 00 00 AA BB CC DD");
  HwDatablock block(true);
  const unsigned value = block.computeChecksum32(reinterpret_cast<unsigned char*>(crc.data()), 16);
  std::memcpy(crc.data() + 8, &value, sizeof value);
  EXPECT_EQ(walked(crc), "0 ID_2 16 sound");
  EXPECT_EQ(MemoryImage(crc).begin()->kind, BlockKind::SecondEdition);
  EXPECT_TRUE(MemoryImage(crc).begin()->has(Finding::WrongSumBesideCrc));

  const QByteArray counter = fromHex("05 00 10 00 00 00 00 00 10 00 2D 45 00 00 00 00");
  EXPECT_EQ(walked(counter), "0 ID_5 16 sound");
  EXPECT_EQ(MemoryImage(counter).begin()->kind, BlockKind::EventCounter);
}

TEST(MemoryImage, TablesThatFillAnUnknownBlockAreRecognisedWhateverTheCrc) {
  const auto block = [](unsigned short id) {
    QByteArray bytes = Examples::SecondEditionBuilder(id)
                           .add({.columnTypes = {TYPE_ID_UINT8}, .rows = {{1}, {2}}})
                           .finish()
                           .getByteArrayData();
    bytes[9] = static_cast<char>(bytes[9] ^ 1);
    return bytes;
  };
  const MemoryImage image(block(1040));
  EXPECT_EQ(image.begin()->kind, BlockKind::SecondEdition);
  EXPECT_STREQ(verdictName(*image.begin()), "wrong CRC");
  EXPECT_TRUE(image.begin()->has(Finding::WrongSumBesideCrc));
  EXPECT_EQ(describe(*image.begin(), Finding::WrongCrc), "CRC-32 is 0x82E54773, the bytes give 0x82E54673");
  EXPECT_EQ(MemoryImage(block(10)).begin()->kind, BlockKind::OldStyle) << "the id decides before the bytes";
  QByteArray open = block(1040);
  open[20] = static_cast<char>(TYPE_ID_UINT16);
  EXPECT_EQ(MemoryImage(open).begin()->kind, BlockKind::Unknown);
  const QByteArray zeros = fromHex("10 04 1A 00") + QByteArray(22, '\0');
  EXPECT_EQ(MemoryImage(zeros).begin()->kind, BlockKind::Unknown) << "empty tables could be anything";
}

TEST(MemoryImage, EveryByteIsInAViewWhateverIsDamaged) {
  const QByteArray image = twoIdents();
  for (qsizetype length = 0; length <= image.size(); ++length) {
    for (const int damaged : {-1, 2, 3, 46, 47}) {
      QByteArray bytes = image.left(length);
      if (damaged >= 0 && damaged < length) bytes[damaged] = 0x55;
      std::uint64_t position = 0;
      bool ended = false;
      for (const BlockView& block : MemoryImage(bytes)) {
        EXPECT_EQ(block.offset, position);
        position += block.bytes.size();
        ended = ended || block.kind == BlockKind::End;
      }
      EXPECT_TRUE(ended || position == static_cast<std::uint64_t>(length)) << length << ' ' << damaged;
    }
  }
}

TEST(MemoryImage, LongDamagedImagesAreWalkedInProportionToTheirLength) {
  // A header of a long block at every fourth byte, none of them sound.
  const qsizetype size = 8 * 1024 * 1024;
  QByteArray image;
  image.reserve(size);
  while (image.size() < size) image += fromHex("02 00 FF FF");
  EXPECT_EQ(walked(image), "0 IDENT_2 8388602 damaged size, 8388602 END 4 sound");
  // The same with right checksums, of each of which the CRC-32 could be asked.
  image = fromHex("02 00 00 00");
  while (image.size() < size) image += fromHex("00 40");
  EXPECT_TRUE(walked(image).starts_with("0 IDENT_2 8388608 damaged size"));
}

TEST(MemoryImage, BlocksAreFoundAtEveryOffset) {
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

TEST(MemoryImage, EveryKindOfBlockIsFoundUpToTheLastByteOfTheMemory) {
  HwDatablockIdent known = ident(1);
  const QByteArray knownBlock = ImageBuilder().add(known).finish(0).chopped(4);
  const QByteArray unknown = ImageBuilder().add(4242, "two bytes more").finish(0).chopped(4);
  HwDatablock2Edition tables =
      Examples::SecondEditionBuilder(4242).add({.columnTypes = {TYPE_ID_UINT8}, .rows = {{7}}}).finish();
  const struct {
    QByteArray bytes;
    std::string shown;
  } kinds[] = {
      {knownBlock, "IDENT_2 44 sound"},
      {unknown + knownBlock, "ID_4242 22 sound, # IDENT_2 44 sound"},
      {fromHex("92 10 10 00 00 00 00 00 10 00 2D 45 00 00 00 01"), "ID_4242 16 sound"},
      {tables.getByteArrayData(), "ID_4242 25 sound"},
  };
  for (const auto& kind : kinds) {
    for (int front = 1; front <= 200; ++front) {
      std::string shown = kind.shown;
      if (const auto second = shown.find('#'); second != std::string::npos)
        shown.replace(second, 1, std::to_string(front + 22));
      const std::string before = front < 8 ? " too short for a block, " : " no block, ";
      const std::string text = walked(QByteArray(front, 'x') + kind.bytes);
      EXPECT_EQ(text, "0 (bytes) " + std::to_string(front) + before + std::to_string(front) + ' ' + shown);
    }
  }
}

TEST(MemoryImage, NothingIsReadBehindAShortBlockAtTheEndOfTheMemory) {
  const QByteArray counter = fromHex("92 10 0D 00 00 00 00 00 0D 00 2D 45 00");
  // A vector's bytes end where the sanitizer says so.
  std::vector<unsigned char> bytes(40, 'x');
  bytes.insert(bytes.end(), counter.begin(), counter.end());
  bytes.shrink_to_fit();
  BlockWalk walk(bytes);
  ASSERT_TRUE(walk.next());
  EXPECT_EQ(walk.block().bytes.size(), bytes.size());
}

TEST(MemoryImage, UnknownBlocksAreFoundBeforeBlocksThatProveThemselves) {
  HwDatablockIdent known = ident(1);
  const QByteArray unknown = ImageBuilder().add(4242, "two bytes more").add(4243, "four more").finish(0).chopped(4);
  const QByteArray front(40, 'x');
  EXPECT_EQ(walked(front + unknown + known.getByteArrayData()),
            "0 (bytes) 40 no block, 40 ID_4242 22 sound, 62 ID_4243 17 sound, 79 IDENT_2 44 sound");
  EXPECT_EQ(walked(front + unknown), "0 (bytes) 79 no block");
  const QByteArray uniform = fromHex("00 00 0C 00 F4 FF 00 00 00 00 00 00");
  EXPECT_EQ(walked(front + uniform.left(8) + known.getByteArrayData()), "0 (bytes) 48 no block, 48 IDENT_2 44 sound");
}

TEST(MemoryImage, ABlockInsideAnotherIsThatOnesOwn) {
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

TEST(MemoryImage, BytesWithoutABlockAreOneView) {
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

TEST(MemoryImage, TheWalkLooksNoFurtherBackThanItsStart) {
  const QByteArray image = twoIdents();
  EXPECT_EQ(walked(image, 10), "10 (bytes) 34 no block, 44 IDENT_2 44 sound, 88 END 4 sound");
  EXPECT_EQ(walked(image, 45), "45 (bytes) 83 no block");
}

TEST(MemoryImage, AStrictWalkBelievesNothingButTheSequence) {
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

TEST(MemoryImage, RegionsAreWhatNoBlockCovers) {
  const QByteArray image = QByteArray(64, '\0') + twoIdents() + QByteArray(50, 'x');
  const std::vector<Region> regions = {{0, 64, RegionLook::Zeros}, {156, 86, RegionLook::Other}};
  EXPECT_EQ(MemoryImage(image).regions(), regions);
  const std::vector<Region> erased = {{92, 36, RegionLook::Erased}, {220, 36, RegionLook::Erased}};
  EXPECT_EQ(MemoryImage(twoIdents() + twoIdents()).regions(), erased);
  EXPECT_EQ(MemoryImage(twoIdents(), 200).regions().size(), 0U);
}

TEST(MemoryImage, SectorsAreSuggestedWhereSequencesBeginOnTheirGrid) {
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
