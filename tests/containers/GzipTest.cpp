// gzip around memory images: one or several members, whatever container is inside, and what damage leaves.
#include <libdeflate.h>

#include <memory>

#include "ContainerSupport.h"
#include "TestSupport.h"

namespace Velk {
namespace {

QByteArray gzip(const QByteArray& contents) {
  const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
      libdeflate_alloc_compressor(6), libdeflate_free_compressor);
  const auto size = static_cast<std::size_t>(contents.size());
  QByteArray result(static_cast<qsizetype>(libdeflate_gzip_compress_bound(compressor.get(), size)), '\0');
  result.resize(static_cast<qsizetype>(libdeflate_gzip_compress(
      compressor.get(), contents.constData(), size, result.data(), static_cast<std::size_t>(result.size()))));
  return result;
}

std::string findingOf(const ImageFile& image) {
  return image.findings.empty() ? image.error : image.findings.front().describe();
}

TEST(Gzip, HoldsAnImageInAnyContainer) {
  const QByteArray dump = VelkTest::fromHex("02 00 08 00 FF 00");
  const ImageFile raw = decodeImage(gzip(dump));
  EXPECT_EQ(raw.container, Container::Gzip);
  EXPECT_TRUE(raw.bytes == dump && raw.findings.empty());
  EXPECT_EQ(writingObstacle(raw), "gzip cannot be written");

  const ImageFile hex = decodeImage(gzip(":0201000011AA42\n:0101040022D8\n"));
  EXPECT_EQ(hex.container, Container::Gzip);
  EXPECT_EQ(hex.address, 0x100U);
  EXPECT_EQ(hex.gaps, (std::vector<ImageRange>{{2, 2}}));
  EXPECT_EQ(findingOf(hex), "has no end record; it may have been cut");
  EXPECT_TRUE(hex.text.isEmpty()) << "what is changed is not written into the text that was compressed";

  const ImageFile twice = decodeImage(gzip(gzip(dump)));
  EXPECT_EQ(twice.bytes, gzip(dump));
  EXPECT_EQ(findingOf(twice), "looks like gzip; taken as a raw dump");
}

TEST(Gzip, MembersFollowEachOther) {
  const QByteArray first = gzip("first");
  const QByteArray zeros(100'000, '\0');
  const ImageFile joined = decodeImage(first + gzip(zeros) + gzip("") + gzip("last"));
  EXPECT_TRUE(joined.bytes == "first" + zeros + "last" && joined.error.empty());

  const ImageFile padded = decodeImage(first + QByteArray(8, '\0'));
  EXPECT_EQ(padded.bytes, "first");
  EXPECT_TRUE(findingOf(padded).ends_with("of the gzip file on, it holds no gzip data")) << findingOf(padded);
  const ImageFile cut = decodeImage(first + gzip(zeros).chopped(1));
  EXPECT_EQ(cut.bytes, "first");
  EXPECT_TRUE(findingOf(cut).ends_with("of the gzip file on, its data is damaged or cut")) << findingOf(cut);
}

TEST(Gzip, DamageIsAnErrorAndSizesAreNotBelieved) {
  const QByteArray whole = gzip(QByteArray(100'000, 'x'));
  for (qsizetype size = 3; size < whole.size(); ++size) {
    const ImageFile cut = decodeImage(whole.first(size));
    EXPECT_EQ(cut.error, "gzip data is damaged or cut") << size;
    EXPECT_TRUE(cut.bytes.isEmpty() && cut.container == Container::Gzip);
  }
  QByteArray damaged = whole;
  damaged[damaged.size() - 6] ^= 1;
  EXPECT_EQ(decodeImage(damaged).error, "gzip data is damaged or cut");
  damaged = whole;
  damaged[damaged.size() - 1] = '\x7F';
  EXPECT_EQ(decodeImage(damaged).error, "gzip data is damaged or cut") << "2 GiB are claimed";
  EXPECT_EQ(decodeImage("text", Container::Gzip).error, "gzip data is damaged or cut");
}

TEST(Gzip, TextThatIsStoredAsItIsIsNotTakenForTheContainer) {
  const QByteArray text = ":0201000011AA42\n:00000001FF\n";
  const std::uint32_t crc = libdeflate_crc32(0, text.constData(), static_cast<std::size_t>(text.size()));
  QByteArray stored = VelkTest::fromHex("1F 8B 08 00 00 00 00 00 00 03 01 1C 00 E3 FF") + text;
  for (unsigned i = 0; i < 4; ++i) stored += static_cast<char>(crc >> (8 * i));
  stored += VelkTest::fromHex("1C 00 00 00");
  const ImageFile image = decodeImage(stored);
  EXPECT_EQ(image.container, Container::Gzip);
  EXPECT_EQ(image.bytes, VelkTest::fromHex("11 AA"));
}

}  // namespace
}  // namespace Velk
