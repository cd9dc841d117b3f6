#include "AnnotationSupport.h"
#include "DataSupport.h"

namespace Velk {
namespace {

using VelkTest::faultOfAnnotation;
using VelkTest::fromHex;

/// The spans from an offset on, as "14+2 value tables[0].rows".
std::vector<std::string> described(const BlockView& block, std::size_t from) {
  constexpr const char* roles[] = {"header", "checksum", "value", "unused", "padding", "uncovered", "unknown", "stray"};
  std::vector<std::string> lines;
  for (const AnnotatedSpan& span : annotatedBytes(block)) {
    if (span.offset < from) continue;
    std::string& line = lines.emplace_back(std::to_string(span.offset) + '+' + std::to_string(span.size) + ' ');
    line += roles[static_cast<std::size_t>(span.role)];
    for (const AnnotatedValue& value : span.values) line += ' ' + value.path + (value.isCut ? " cut" : "");
  }
  return lines;
}

TEST(AnnotatedBytes, HaveEveryByteOnceHoweverABlockIsCutOrDamaged) {
  std::mt19937 random(20261125);
  for (VelkTest::OwnedBlock& block : VelkTest::everyKindOfBlock()) {
    EXPECT_EQ(faultOfAnnotation(block.view()), "") << block.name << ", nothing in use";
    VelkTest::fill(block, random);
    BlockView view = block.view();
    EXPECT_EQ(faultOfAnnotation(view), "") << block.name << ", everything in use";
    const ConstBytes all = view.bytes;
    const bool isSmall = all.size() < 512;  // larger ones are lists and tables of the same kinds
    for (std::size_t size = 1; size < all.size(); size += isSmall ? 1 : all.size() / 3 + random() % all.size()) {
      view.bytes = all.first(size);
      ASSERT_EQ(faultOfAnnotation(view), "") << block.name << ", " << size << " bytes";
    }
    view.bytes = all;
    for (int i = 0; i < (isSmall ? 8 : 1); ++i) {
      for (int bytes = 0; bytes < 4; ++bytes)
        block.bytes[random() % block.bytes.size()] = static_cast<unsigned char>(random());
      ASSERT_EQ(faultOfAnnotation(view), "") << block.name << ", damaged";
    }
  }
}

TEST(AnnotatedBytes, HaveEveryByteOfTheExamples) {
  const QDir folder(VELK_SOURCE_DIR "/examples/images");
  for (const QString& name : folder.entryList({"*.bin", "*.dump"}, QDir::Files)) {
    if (name == "every_id.bin") continue;  // large, and no block of it is of another kind than those above
    const MemoryImage image(VelkTest::exampleImage(name));
    for (const BlockView& block : image)
      EXPECT_EQ(faultOfAnnotation(block), "") << name.toStdString() << ' ' << block.offset;
  }
}

TEST(AnnotatedBytes, OfATableAreItsPartsWithTheirPadding) {
  const QByteArray bytes = fromHex(
      "1104 2700 0000 0000 00000000 7B00"  // the header, and the update index
      "0200 0200 00 19  03 19 0000"        // two rows of a 16-bit number and a text
      "41 00 42 43 00 000000"              // "A" and "BC"
      "0500 78 00  0600 00");              // 5 and "x", 6 and an empty text
  const std::vector<std::string> whole = {
      "12+2 value updateIndex",
      "14+2 value tables[0].rows",
      "16+2 value tables[0].cols",
      "18+1 value tables[0].rowIdType",
      "19+1 value tables[0].columnIdType",
      "20+1 value tables[0].columnTypes[0]",
      "21+1 value tables[0].columnTypes[1]",
      "22+2 padding",
      "24+2 value tables[0].columnIds[0]",
      "26+3 value tables[0].columnIds[1]",
      "29+3 padding",
      "32+2 value tables[0].cells[0][0]",
      "34+2 value tables[0].cells[0][1]",
      "36+2 value tables[0].cells[1][0]",
      "38+1 value tables[0].cells[1][1]",
  };
  struct Cut {
    std::size_t size;
    std::size_t whole;      // the number of spans that stay
    const char* last = "";  // what the last one becomes
  };
  const Cut cuts[] = {
      {39, 15},
      {38, 14},
      {37, 13, "36+1 uncovered"},
      {35, 12, "34+1 value tables[0].cells[0][1] cut"},
      {31, 10, "29+2 uncovered"},
      {28, 9, "26+2 value tables[0].columnIds[1] cut"},
      {17, 2, "16+1 value tables[0].cols cut"},
      {13, 0, "12+1 value updateIndex cut"},
  };
  for (const Cut& cut : cuts) {
    std::vector<std::string> expected(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(cut.whole));
    if (*cut.last != '\0') expected.emplace_back(cut.last);
    const BlockView view{.bytes = bytesOf(bytes).first(cut.size), .kind = BlockKind::SecondEdition};
    EXPECT_EQ(described(view, 12), expected) << cut.size;
  }
}

/// A block of an id that has a class, with these bytes and then zeros.
struct ClassBlock {
  ClassBlock(unsigned short id, std::size_t size, const char* hex = "") {
    const QByteArray begin = fromHex(hex);
    bytes.resize(size);
    std::ranges::copy(begin, bytes.begin());
    view = {.bytes = bytes, .id = id, .kind = BlockKind::OldStyle, .row = findCatalogueRow(id)};
  }

  std::vector<unsigned char> bytes;
  BlockView view;
};

TEST(AnnotatedBytes, SayWhatIsInUseAndWhatSharesBytes) {
  const auto lines = [](const ClassBlock& block, std::size_t first, std::size_t count) {
    std::vector<std::string> all = described(block.view, 8);
    all.resize(first + count);
    return std::vector<std::string>(all.begin() + static_cast<std::ptrdiff_t>(first), all.end());
  };
  using Lines = std::vector<std::string>;
  const ClassBlock list(13600, 64, "2035 4000 0000 0000 02000000");
  EXPECT_EQ(described(list.view, 8),
            (Lines{"8+4 value count", "12+2 value values[0]", "14+2 value values[1]", "16+48 unused values[2:26]"}));
  const ClassBlock grid(12060, 3652, "1C2F 440E 0000 0000 01000000");
  const Lines rows = described(grid.view, 8);
  EXPECT_EQ(rows.size(), 262U);
  EXPECT_EQ(rows.back(), "532+3120 unused cells[1:7]");
  const ClassBlock counted(12041, findCatalogueRow(12041)->size, "092F 0000 0000 0000 01000000 02000000");
  EXPECT_EQ(lines(counted, 4, 1), Lines{"20+2996 unused cells[0][2:1500]"});
  EXPECT_EQ(lines(ClassBlock(100, 28), 0, 1), Lines{"8+2 value serviceCode[0] circularNr[0] action[0]"});
  EXPECT_EQ(described(ClassBlock(12004, 28, "E42E 1C00 0000 0000 06000000").view, 8),
            (Lines{"8+4 value macLength", "12+6 value mac", "18+10 unused mac[6:16]"}));
  EXPECT_EQ(described(ClassBlock(15500, 8).view, 4), (Lines{"4+2 checksum header.checksum", "6+2 value alignment"}))
      << "a class may have a word of the header as a field";
  EXPECT_EQ(described(ClassBlock(2, 14).view, 8), (Lines{"8+4 value eepromSize", "12+2 value partNumber cut"}));
  EXPECT_EQ(described(ClassBlock(2, 50).view, 30), (Lines{"30+14 value name", "44+6 uncovered"}));
  EXPECT_EQ(described(ClassBlock(2, 70'000).view, 31), (Lines{"44+65491 uncovered", "65535+4465 stray"}))
      << "no block is that long";
}

TEST(AnnotatedBytes, OfOtherKindsAreCountersOrUnknown) {
  const std::vector<unsigned char> bytes(22);
  using Lines = std::vector<std::string>;
  const auto of = [&](BlockKind kind, std::size_t from) { return described({.bytes = bytes, .kind = kind}, from); };
  EXPECT_EQ(of(BlockKind::EventCounter, 8), (Lines{"8+4 checksum header.identifier", "12+4 value bytes[0:4]",
                                                   "16+4 value bytes[4:8]", "20+2 uncovered"}));
  EXPECT_EQ(of(BlockKind::Unknown, 6), (Lines{"6+2 header header.alignment", "8+14 unknown bytes"}));
  EXPECT_EQ(of(BlockKind::Stray, 0), Lines{"0+22 stray"});
}

}  // namespace
}  // namespace Velk
