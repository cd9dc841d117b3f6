// Truncations and flipped bits of the example images are reported, but for what nothing in a memory protects:
//   - an image that is cut between two blocks, or after the id of its end block: the end of the memory ends it as well
//   - the data word of the end block
//   - the odd last byte of a block without a CRC-32, which no 16-bit word covers
#include <algorithm>
#include <random>

#include "TestSupport.h"
#include "velk/image/MemoryImage.h"

namespace Velk {
namespace {

/// Larger images are damaged in samples, the headers of their blocks in every bit; the largest in samples only, for
/// each walk over them takes its time.
constexpr std::size_t wholly = 4096;
constexpr std::size_t headersWholly = 65536;
constexpr int samplesOfLarge = 4096;
constexpr int samplesOfLargest = 256;

std::vector<BlockView> walk(ConstBytes image) {
  std::vector<BlockView> blocks;
  BlockWalk blockWalk(image);
  while (blockWalk.next()) blocks.push_back(blockWalk.block());
  return blocks;
}

/// Whether a walk finds what the walk over the undamaged image did not.
bool reports(ConstBytes damaged, const std::vector<BlockView>& before) {
  return std::ranges::any_of(walk(damaged), [&](const BlockView& block) {
    return block.findings.any() && std::ranges::none_of(before, [&](const BlockView& former) {
             return former.offset == block.offset && former.findings == block.findings;
           });
  });
}

bool hasCrc(const BlockView& block) {
  return block.kind == BlockKind::SecondEdition || block.kind == BlockKind::EventCounter;
}

bool cutIsNotSeen(const std::vector<BlockView>& blocks, std::size_t length) {
  return std::ranges::any_of(blocks, [&](const BlockView& block) {
    const bool afterEndId = block.kind == BlockKind::End && length >= block.offset + sizeof block.id;
    return length == block.offset || afterEndId;
  });
}

/// The block that a byte belongs to, or null.
const BlockView* blockAt(const std::vector<BlockView>& blocks, std::size_t offset) {
  const auto found = std::ranges::find_if(blocks, [&](const BlockView& block) {
    return offset >= block.offset && offset - block.offset < block.bytes.size();
  });
  return found != blocks.end() ? &*found : nullptr;
}

/// What is damaged already has its finding.
bool isDamagedAt(const std::vector<BlockView>& blocks, std::size_t offset) {
  const BlockView* const block = blockAt(blocks, offset);
  return block != nullptr && !block->isSound();
}

bool flipIsNotSeen(const std::vector<BlockView>& blocks, std::size_t offset) {
  const BlockView* const block = blockAt(blocks, offset);
  if (block == nullptr) return false;
  const std::size_t at = offset - block->offset;
  if (block->kind == BlockKind::End) return at >= sizeof block->id;
  return block->bytes.size() % 2 != 0 && at + 1 == block->bytes.size() && !hasCrc(*block);
}

/// The bits to flip, counted from the first of the image.
std::vector<std::size_t> bitsToFlip(std::size_t size, const std::vector<BlockView>& blocks) {
  std::vector<std::size_t> bits;
  if (size <= wholly) {
    for (std::size_t bit = 0; bit < 8 * size; ++bit) bits.push_back(bit);
    return bits;
  }
  constexpr std::size_t longestHeader = 12;
  std::mt19937_64 random(size);
  for (const BlockView& block : blocks) {
    const std::size_t headerBits = 8 * std::min(block.bytes.size(), longestHeader);
    if (size > headersWholly) {
      bits.push_back(8 * block.offset + random() % headerBits);
      continue;
    }
    for (std::size_t bit = 0; bit < headerBits; ++bit) bits.push_back(8 * block.offset + bit);
  }
  const int samples = size > headersWholly ? samplesOfLargest : samplesOfLarge;
  for (int i = 0; i < samples; ++i) bits.push_back(random() % (8 * size));
  return bits;
}

/// The lengths to cut the image to.
std::vector<std::size_t> lengthsToCut(std::size_t size, const std::vector<BlockView>& blocks) {
  std::vector<std::size_t> lengths;
  if (size > headersWholly) {
    std::mt19937_64 random(size);
    for (const BlockView& block : blocks) lengths.push_back(block.offset + random() % block.bytes.size());
    for (int i = 0; i < samplesOfLargest; ++i) lengths.push_back(random() % size);
    return lengths;
  }
  // Behind the last block every length is like the one before.
  const std::size_t used = blocks.back().offset + blocks.back().bytes.size();
  const std::size_t longest = size <= wholly ? size : std::min(size, used + 64);
  for (std::size_t length = 0; length < longest; ++length) lengths.push_back(length);
  return lengths;
}

template <class Act>
void forEachExample(Act act) {
  for (const QString& name : VelkTest::exampleImages()) {
    SCOPED_TRACE(name.toStdString());
    QByteArray image = VelkTest::exampleImage(name);
    act(MutableBytes(reinterpret_cast<unsigned char*>(image.data()), static_cast<std::size_t>(image.size())));
  }
}

TEST(Damage, EveryTruncationIsReported) {
  forEachExample([](ConstBytes image) {
    const std::vector<BlockView> blocks = walk(image);
    for (const std::size_t length : lengthsToCut(image.size(), blocks)) {
      if (isDamagedAt(blocks, length)) continue;
      EXPECT_EQ(reports(image.first(length), blocks), !cutIsNotSeen(blocks, length)) << length;
    }
  });
}

TEST(Damage, EveryFlippedBitIsReported) {
  forEachExample([](MutableBytes image) {
    const std::vector<BlockView> blocks = walk(image);
    for (const std::size_t bit : bitsToFlip(image.size(), blocks)) {
      if (isDamagedAt(blocks, bit / 8)) continue;
      const auto mask = static_cast<unsigned char>(1U << bit % 8);
      image[bit / 8] ^= mask;
      EXPECT_EQ(reports(image, blocks), !flipIsNotSeen(blocks, bit / 8)) << "bit " << bit;
      image[bit / 8] ^= mask;
    }
  });
}

}  // namespace
}  // namespace Velk
