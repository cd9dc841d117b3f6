// Reads any bytes as a memory image: the walk covers every byte, describes every block, checks it and prints it.
#include <algorithm>

#include "AnnotationSupport.h"
#include "FuzzSupport.h"
#include "ProofSupport.h"
#include "velk/bytes/ByteArray.h"
#include "velk/checks/Checks.h"
#include "velk/image/BlockText.h"
#include "velk/image/MemoryImage.h"

namespace {

using namespace Velk;

void look(const BlockView& block) {
  FUZZ_EXPECT(kindName(block.kind) != nullptr && verdictName(block) != nullptr);
  FUZZ_EXPECT(!blockName(block).empty());
  for (std::size_t i = 0; i < findingCount; ++i) {
    const auto finding = static_cast<Finding>(i);
    if (block.has(finding)) FUZZ_EXPECT(!describe(block, finding).empty());
  }
}

void print(const BlockView& block) {
  VelkFuzz::LimitedStream stream;
  printBlock(stream, block);
}

/// Checks that every byte of a block is annotated once. Blocks of all kinds can be small, and long ones take long.
void annotate(const BlockView& block) {
  constexpr std::size_t longestAnnotated = 0x200;
  if (block.bytes.size() <= longestAnnotated) FUZZ_EXPECT(VelkTest::faultOfAnnotation(block).empty());
}

/// Checks that every block found out of sequence is verified by itself, or has a valid checksum and is followed
/// directly by such a block.
void prove(const std::vector<BlockView>& views) {
  for (std::size_t i = 0; i < views.size(); ++i) {
    if (views[i].found != Found::OutOfSequence) continue;
    std::size_t last = i;
    while (!VelkTest::provesItself(views[last].bytes)) {
      FUZZ_EXPECT(VelkTest::isWorthASum(views[last].bytes) && last + 1 < views.size());
      FUZZ_EXPECT(views[last + 1].offset == views[last].offset + views[last].bytes.size());
      ++last;
    }
  }
}

/// Checks that views do not overlap, and that every byte is in exactly one view or region. Strays are in both.
void cover(const MemoryImage& image, const std::vector<BlockView>& views, std::uint64_t start) {
  const std::vector<Region> regions = image.regions();
  auto region = regions.begin();
  std::uint64_t position = std::min<std::uint64_t>(start, image.bytes().size());
  const auto takeRegionsUpTo = [&](std::uint64_t end) {
    for (; position != end; ++region) {
      FUZZ_EXPECT(region != regions.end() && region->offset == position && region->size != 0);
      position += region->size;
      FUZZ_EXPECT(position <= end);
    }
  };
  for (const BlockView& block : views) {
    FUZZ_EXPECT(!block.bytes.empty() && block.bytes.data() == image.bytes().data() + block.offset);
    FUZZ_EXPECT(block.offset >= position && detail::fits(image.bytes().size(), block.offset, block.bytes.size()));
    takeRegionsUpTo(block.offset);
    const std::uint64_t end = block.offset + block.bytes.size();
    if (block.kind == BlockKind::Stray) takeRegionsUpTo(end);
    position = end;
  }
  takeRegionsUpTo(image.bytes().size());
  FUZZ_EXPECT(region == regions.end());
}

/// Runs all checks: every finding has its text, and there are not more than the blocks have fields.
void check(const MemoryImage& image, std::size_t blocks) {
  constexpr std::size_t mostOfImage = 2048;
  constexpr std::size_t mostOfBlock = 1024;
  const std::vector<CheckFinding> findings = checkImage(image);
  FUZZ_EXPECT(findings.size() <= mostOfImage + mostOfBlock * blocks);
  for (const CheckFinding& finding : findings) {
    FUZZ_EXPECT(finding.kind != nullptr && !finding.text.empty());
    FUZZ_EXPECT(!finding.offset || *finding.offset < static_cast<std::uint64_t>(image.bytes().size()));
  }
}

void walk(const QByteArray& bytes, std::uint64_t start, std::uint64_t sectorSize, bool printing) {
  for (const Search search : {Search::Everywhere, Search::SequenceOnly}) {
    const MemoryImage image(bytes, start, sectorSize, search);
    std::vector<BlockView> views;
    for (const BlockView& block : image) views.push_back(block);
    cover(image, views, start);
    prove(views);
    check(image, views.size());
    for (const BlockView& block : views) {
      look(block);
      if (!printing || search != Search::Everywhere) continue;
      print(block);
      annotate(block);
    }
  }
  MemoryImage(bytes, start).suggestedSectorSize();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  VelkFuzz::quieten();
  const QByteArray bytes = Velk::toByteArray({data, size});
  constexpr std::size_t longestPrinted = 0x2000;  // texts take most of the time, and long images show the walk
  walk(bytes, 0, 0, size <= longestPrinted);
  const std::uint64_t start = size == 0 ? 0 : data[0];
  const std::uint64_t sectorSize = size == 0 ? 0 : 1 + data[size - 1];
  walk(bytes, start, sectorSize, false);
  return 0;
}
