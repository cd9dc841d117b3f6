#include "velk/image/MemoryImage.h"

#include <algorithm>

#include "velk/datablock/Checksums.h"
#include "velk/datablock/HexText.h"
#include "velk/edition2/StoredTable.h"

namespace Velk {
namespace {

using detail::ConstBytes;

constexpr std::size_t headerSize = sizeof(HwSDatablockHeader);
constexpr std::size_t endSize = 4;
constexpr unsigned char erased = 0xFF;

unsigned short idOf(ConstBytes block) { return detail::load<unsigned short>(block, offsetof(HwSDatablockHeader, id)); }

unsigned short sizeOf(ConstBytes block) {
  return detail::load<unsigned short>(block, offsetof(HwSDatablockHeader, blockSize));
}

/// What stands where a block that has a CRC-32 keeps it; 0 in shorter blocks.
std::uint32_t storedCrc(ConstBytes block) { return detail::load<std::uint32_t>(block, detail::crcOffset); }

bool hasRightCrc(ConstBytes block) {
  return block.size() >= detail::shortestCrcBlock && storedCrc(block) == detail::crcOf(block);
}

bool hasCounterIdentifier(ConstBytes block) { return storedCrc(block) == detail::eventCounterMagic(sizeOf(block)); }

/// Says what a block is if its size is right.
void classify(BlockView& block) {
  if (hasRightCrc(block.bytes)) {
    block.kind = BlockKind::SecondEdition;
  } else if (hasCounterIdentifier(block.bytes)) {
    block.kind = BlockKind::EventCounter;
  } else if (block.row != nullptr) {
    block.kind = BlockKind::OldStyle;
  } else if (isFilledByTables(block.bytes)) {
    block.kind = BlockKind::SecondEdition;
    block.add(Finding::WrongCrc);
  }
}

bool hasCrc(BlockKind kind) { return kind == BlockKind::SecondEdition || kind == BlockKind::EventCounter; }

/// Says what a block is and what is wrong with it; false where its size cannot be believed after all.
bool judge(BlockView& block) {
  classify(block);
  const bool rightSum = detail::sumOfWords(block.bytes) == 0;
  if (hasCrc(block.kind)) {
    block.row = nullptr;
    if (!rightSum) block.add(Finding::WrongSumBesideCrc);
    return true;
  }
  const bool ownSize = block.row == nullptr || block.row->acceptsSize(block.declaredSize);
  if (!rightSum) block.add(Finding::WrongChecksum);
  if (!ownSize) block.add(Finding::SizeNotOfClass);
  return rightSum || ownSize;
}

std::string describeChecksum(const BlockView& block) {
  const auto stored = detail::load<unsigned short>(block.bytes, offsetof(HwSDatablockHeader, checksum));
  return "checksum is " + detail::hexText(stored, 4) + ", the bytes give " +
         detail::hexText(detail::checksumOf(block.bytes), 4);
}

std::string describeCrc(const BlockView& block) {
  return "CRC-32 is " + detail::hexText(storedCrc(block.bytes), 8) + ", the bytes give " +
         detail::hexText(detail::crcOf(block.bytes), 8);
}

std::string describeNotErased(const BlockView& block) {
  const auto first = std::find_if(block.bytes.begin(), block.bytes.end(), [](unsigned char b) { return b != erased; });
  const auto at = static_cast<std::uint64_t>(first - block.bytes.begin());
  return std::to_string(block.bytes.size()) + " bytes behind the end block are not erased, the first at " +
         detail::hexText(block.offset + at, 4);
}

/// By finding.
constexpr const char* findingNames[] = {"damaged size",          "wrong checksum", "wrong CRC",
                                        "too short for a block", "not erased",     "unexpected size",
                                        "wrong 16-bit checksum"};
static_assert(std::size(findingNames) == findingCount);

constexpr Finding firstRemark = Finding::SizeNotOfClass;

}  // namespace

bool BlockView::isSound() const {
  constexpr std::bitset<findingCount> damage((1U << static_cast<unsigned>(firstRemark)) - 1U);
  return (findings & damage).none();
}

const char* kindName(BlockKind kind) {
  constexpr const char* names[] = {"old-style", "second-edition", "event-counter", "end", "unknown", "stray"};
  return names[static_cast<std::size_t>(kind)];
}

std::string blockName(const BlockView& block) {
  if (block.row != nullptr) return block.row->key(block.id);
  return block.kind == BlockKind::Stray ? "-" : "ID_" + std::to_string(block.id);
}

const char* findingName(Finding finding) { return findingNames[static_cast<std::size_t>(finding)]; }

bool isRemark(Finding finding) { return finding >= firstRemark; }

const char* verdictName(const BlockView& block) {
  if (block.isSound()) return "sound";
  std::size_t worst = 0;
  while (!block.findings[worst]) ++worst;
  return findingNames[worst];
}

std::string describe(const BlockView& block, Finding finding) {
  switch (finding) {
    case Finding::UnbelievableSize:
      return "size " + std::to_string(block.declaredSize) + " cannot be right, " + std::to_string(block.bytes.size()) +
             " bytes taken up to the next block";
    case Finding::WrongChecksum:
    case Finding::WrongSumBesideCrc:
      return describeChecksum(block);
    case Finding::WrongCrc:
      return describeCrc(block);
    case Finding::TooShort:
      return std::to_string(block.bytes.size()) + " bytes are too few for a block";
    case Finding::NotErased:
      return describeNotErased(block);
    case Finding::SizeNotOfClass:
      return "size " + std::to_string(block.declaredSize) + ", blocks of this id have " +
             std::to_string(block.row->size);
  }
  return {};
}

MemoryImage::MemoryImage(QByteArray bytes, std::uint64_t start, std::uint64_t sectorSize)
    : bytes_(std::move(bytes)), start_(start), sectorSize_(sectorSize) {}

ConstBytes MemoryImage::bytes() const {
  return {reinterpret_cast<const unsigned char*>(bytes_.constData()), static_cast<std::size_t>(bytes_.size())};
}

MemoryImage::Iterator MemoryImage::begin() const { return Iterator(*this); }

MemoryImage::Iterator::Iterator(const MemoryImage& image)
    : sectorSize_(image.sectorSize_),
      sectorStart_(std::min<std::uint64_t>(image.start_, image.bytes().size())),
      ahead_(image.bytes().subspan(sectorStart_)),
      walk_(takeSector(), sectorStart_) {
  ++*this;
}

ConstBytes MemoryImage::Iterator::takeSector() {
  const std::size_t size = sectorSize_ == 0 ? ahead_.size() : std::min<std::uint64_t>(sectorSize_, ahead_.size());
  const ConstBytes sector = ahead_.first(size);
  ahead_ = ahead_.subspan(size);
  return sector;
}

MemoryImage::Iterator& MemoryImage::Iterator::operator++() {
  while (!(atBlock_ = walk_.next()) && !ahead_.empty()) {
    sectorStart_ += sectorSize_;
    walk_ = BlockWalk(takeSector(), sectorStart_);
  }
  return *this;
}

bool BlockWalk::next() {
  if (position_ >= image_.size() || isErasedBehindEnd()) return false;
  const ConstBytes ahead = rest();
  block_ = BlockView{.offset = start_ + position_, .bytes = ahead};
  if (ended_) {
    takeStray(Finding::NotErased);
  } else if (ahead.size() >= sizeof(erasedBlockId) && idOf(ahead) == erasedBlockId) {
    takeEnd();
  } else if (ahead.size() < headerSize) {
    takeStray(Finding::TooShort);
  } else {
    takeBlock();
  }
  position_ += block_.bytes.size();
  return true;
}

bool BlockWalk::isErasedBehindEnd() const {
  return ended_ && std::ranges::all_of(rest(), [](unsigned char byte) { return byte == erased; });
}

void BlockWalk::takeStray(Finding finding) {
  block_.kind = BlockKind::Stray;
  block_.add(finding);
}

void BlockWalk::takeEnd() {
  block_.bytes = block_.bytes.first(std::min(endSize, block_.bytes.size()));
  block_.id = erasedBlockId;
  block_.declaredSize = static_cast<unsigned short>(block_.bytes.size());
  block_.kind = BlockKind::End;
  block_.row = findCatalogueRow(erasedBlockId);
  ended_ = true;
}

void BlockWalk::takeBlock() {
  const ConstBytes ahead = block_.bytes;
  block_.id = idOf(ahead);
  block_.declaredSize = sizeOf(ahead);
  block_.row = findCatalogueRow(block_.id, block_.declaredSize);
  if (block_.declaredSize >= headerSize && block_.declaredSize <= ahead.size()) {
    block_.bytes = ahead.first(block_.declaredSize);
    if (judge(block_)) return;
  }
  block_.bytes = ahead.first(resumeBehind(position_) - position_);
  block_.kind = block_.row != nullptr ? BlockKind::OldStyle : BlockKind::Unknown;
  block_.findings.reset();
  block_.add(Finding::UnbelievableSize);
}

/// Where the walk goes on behind a block whose size is damaged.
std::uint64_t BlockWalk::resumeBehind(std::uint64_t offset) {
  surveyImage();
  for (std::uint64_t at = offset + 2 - offset % 2; at + endSize <= image_.size(); at += 2) {
    if (endBlockAt(at) || soundBlockAt(at)) return at;
  }
  return image_.size();
}

/// Whether nothing but erased memory, with or without an end block before it, follows.
bool BlockWalk::endBlockAt(std::uint64_t offset) const {
  return offset >= erasedFrom_ || (offset + endSize >= erasedFrom_ && idOf(image_.subspan(offset)) == erasedBlockId);
}

bool BlockWalk::soundBlockAt(std::uint64_t offset) {
  const ConstBytes block = claimedBlockAt(offset);
  if (block.empty()) return false;
  if (!hasCounterIdentifier(block)) return isSoundWithSum(offset, block);
  // No checksum follows the counters: that something begins where they end speaks for a block as well.
  return hasRightSum(offset, block) || blockBeginsAt(offset + block.size());
}

/// The block at an offset, as long as it claims to be; nothing where it cannot be.
ConstBytes BlockWalk::claimedBlockAt(std::uint64_t offset) const {
  const ConstBytes ahead = image_.subspan(offset);
  const std::size_t size = sizeOf(ahead);
  return size < headerSize || size > ahead.size() ? ConstBytes{} : ahead.first(size);
}

bool BlockWalk::hasRightSum(std::uint64_t offset, ConstBytes block) {
  if (offset % 2 == 0) return sums_[(offset + block.size()) / 2] == sums_[offset / 2];
  return mayCheck(block) && detail::sumOfWords(block) == 0;
}

bool BlockWalk::mayCheck(ConstBytes block) {
  if (block.size() > checkable_) return false;
  checkable_ -= block.size();
  return true;
}

/// Whether a block that is no event counter has a right sum, and a known id with its own size or a right CRC-32.
bool BlockWalk::isSoundWithSum(std::uint64_t offset, ConstBytes block) {
  if (!hasRightSum(offset, block)) return false;
  const CatalogueRow* const row = findCatalogueRow(idOf(block), sizeOf(block));
  return (row != nullptr && row->acceptsSize(sizeOf(block))) || (mayCheck(block) && hasRightCrc(block));
}

/// Whether a block begins at an offset, for all that a short look at it tells, or the memory ends there.
bool BlockWalk::blockBeginsAt(std::uint64_t offset) {
  if (offset >= image_.size() || endBlockAt(offset)) return true;
  const ConstBytes block = claimedBlockAt(offset);
  return !block.empty() && (hasCounterIdentifier(block) || isSoundWithSum(offset, block));
}

void BlockWalk::surveyImage() {
  if (!sums_.empty()) return;
  const auto lastUsed = std::find_if(image_.rbegin(), image_.rend(), [](unsigned char byte) { return byte != erased; });
  erasedFrom_ = static_cast<std::uint64_t>(image_.rend() - lastUsed);
  constexpr std::uint64_t looksAtEachByte = 16;
  checkable_ = looksAtEachByte * image_.size();
  sums_.resize(image_.size() / 2 + 1);
  for (std::size_t word = 0; word + 1 < sums_.size(); ++word) {
    sums_[word + 1] = static_cast<unsigned short>(sums_[word] + detail::load<unsigned short>(image_, 2 * word));
  }
}

}  // namespace Velk
