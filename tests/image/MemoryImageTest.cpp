#include "velk/image/MemoryImage.h"

#include "SecondEditionBuilder.h"
#include "TestSupport.h"
#include "image/WalkSupport.h"

namespace Velk {
namespace {

using Examples::ImageBuilder;
using VelkTest::fromHex;
using VelkTest::twoIdents;
using VelkTest::walked;

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

}  // namespace
}  // namespace Velk
