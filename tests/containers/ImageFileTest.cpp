#include "velk/containers/ImageFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <fstream>
#include <numeric>

#include "TestSupport.h"

namespace Velk {
namespace {

using VelkTest::fromHex;

constexpr const char* hexWithGaps = ":0201000011AA42\n:0101040022D8\n:0101060033C5\n:00000001FF\n";
constexpr const char* recordsWithGap = "S00600004844521B\nS105010011AA3E\nS104010533C2\nS9030010EC\n";

TEST(ImageFile, IsWhatItsContentsSay) {
  struct Case {
    const char* contents;
    Container container;
    const char* finding;
  };
  const Case cases[] = {
      {hexWithGaps, Container::IntelHex, ""},
      {"\n:00000001FF", Container::IntelHex, ""},
      {recordsWithGap, Container::SRecord, ""},
      {":0201000011AA42", Container::IntelHex, "has no end record; it may have been cut"},
      {":0201000011AA42\nS9030000FC\n", Container::IntelHex, "has no end record; it may have been cut"},
      {":0201000011AA43\n", Container::Raw, "looks like text; taken as a raw dump"},
      {":\x02\x03 a dump that begins so\n", Container::Raw, ""},
      {"S", Container::Raw, "looks like text; taken as a raw dump"},
      {"VGhpcyBpcyBhIHBpY3R1cmUgb2YgYSBtb2R1bGUsIG5vdCBhIG1lbW9yeQ==\n", Container::Raw,
       "looks like base64 text; taken as a raw dump"},
      {"%PDF-1.4\n\xE2\xE3", Container::Raw, "looks like a PDF document; taken as a raw dump"},
      {"", Container::Raw, ""},
      {"\x02", Container::Raw, ""},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.contents);
    const ImageFile image = decodeImage(expected.contents);
    EXPECT_EQ(image.container, expected.container);
    EXPECT_EQ(image.findings.empty() ? "" : image.findings.front().describe(), expected.finding);
    EXPECT_EQ(image.error, "");
    if (expected.container == Container::Raw) EXPECT_EQ(image.bytes, QByteArray(expected.contents));
  }
}

TEST(ImageFile, ATextMayHaveOneOtherByteInEight) {
  for (const qsizetype length : {63, 700, 3500}) {
    for (const bool isOneTooMany : {false, true}) {
      const qsizetype others = length / 7 + (isOneTooMany ? 1 : 0);
      const QByteArray text = QByteArray(others, '\xB5') + '\n' + hexWithGaps;
      const ImageFile image = decodeImage(text.leftJustified(length + others, ' '));
      EXPECT_EQ(image.container, isOneTooMany ? Container::Raw : Container::IntelHex) << others << " of " << length;
    }
  }
}

TEST(ImageFile, IsReadWholeWhateverItsSizeAndWhereverItComesFrom) {
  QTemporaryDir directory;
  const std::string path = directory.filePath("image.bin").toStdString();
  constexpr int kibi = 1024;
  for (const int size : {0, 1, 32 * kibi - 1, 32 * kibi, 32 * kibi + 1, 64 * kibi, 64 * kibi + 1, 300'000}) {
    QByteArray contents(size, '\x55');
    std::iota(contents.begin(), contents.end(), '\0');
    std::ofstream(path, std::ios::binary).write(contents.constData(), contents.size());
    const ImageFile fromFile = readImageFile(path);
    EXPECT_TRUE(fromFile.error.empty() && fromFile.bytes == contents) << size;
    EXPECT_LE(fromFile.bytes.capacity(), size + 8) << "no more memory is held than the bytes need";

    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_GE(fcntl(ends[1], F_SETPIPE_SZ, 512 * kibi), size);
    ASSERT_EQ(write(ends[1], contents.constData(), static_cast<std::size_t>(size)), size);
    close(ends[1]);
    EXPECT_EQ(readImageFile("/dev/fd/" + std::to_string(ends[0])).bytes, contents) << size << " through a pipe";
    close(ends[0]);
  }
  EXPECT_FALSE(readImageFile("/proc/self/cmdline").bytes.isEmpty()) << "a file that claims to be empty";
  EXPECT_EQ(readImageFile(path + ".missing").error, "No such file or directory");
  EXPECT_EQ(readImageFile(directory.path().toStdString()).error, "Is a directory");
}

TEST(ImageFile, AContainerThatIsAskedForHasToFit) {
  EXPECT_EQ(decodeImage(hexWithGaps, Container::SRecord).error, "line 1: no S and digit at its start");
  EXPECT_EQ(decodeImage(hexWithGaps, Container::Raw).bytes, QByteArray(hexWithGaps));
}

TEST(ImageFile, BeginsAtTheLowestAddressAndIsErasedInItsGaps) {
  const ImageFile image = decodeImage(hexWithGaps);
  EXPECT_EQ(image.address, 0x100U);
  EXPECT_EQ(image.bytes, fromHex("11 AA FF FF 22 FF 33"));
  ASSERT_EQ(image.gaps.size(), 2U);
  EXPECT_EQ(image.gaps[0].offset, 2U);
  EXPECT_EQ(image.gaps[0].size, 2U);
  EXPECT_EQ(image.gaps[1].offset, 5U);
}

TEST(ImageFile, IsWrittenAsItWasRead) {
  for (const QByteArray contents : {hexWithGaps, recordsWithGap, "\x02\x01"}) {
    EXPECT_EQ(encodeImage(decodeImage(contents)), contents);
  }
}

TEST(ImageFile, OnlyGapsThatAreStillErasedAreLeftOut) {
  ImageFile image = decodeImage(hexWithGaps);
  image.bytes[2] = 0x77;
  const ImageFile again = decodeImage(encodeImage(image));
  EXPECT_EQ(again.bytes, fromHex("11 AA 77 FF 22 FF 33"));
  EXPECT_EQ(again.gaps, (std::vector<ImageRange>{{3, 1}, {5, 1}}));
}

TEST(ImageFile, AFewBytesCannotClaimAllMemory) {
  const ImageFile wide = decodeImage("S30600000000AA4F\nS306FFFFFFFFAA53\nS9030000FC\n");
  EXPECT_EQ(wide.error, "2 bytes are scattered over addresses 0x00000000 to 0xFFFFFFFF");
  EXPECT_EQ(wide.bytes.size(), 0);
  const ImageFile farAway = decodeImage("S306FFFFFFFFAA53\nS9030000FC\n");
  EXPECT_EQ(farAway.error, "");
  EXPECT_EQ(farAway.bytes, fromHex("AA"));
  EXPECT_EQ(decodeImage("S30600000000AA4F\nS30600FFFFFFAA52\nS9030000FC\n").bytes.size(), 16 * 1024 * 1024);
}

}  // namespace
}  // namespace Velk
