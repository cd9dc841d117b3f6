#include "velk/image/BlockWalk.h"

#include "velk/edition2/StoredTable.h"
#include "velk/image/BlockHeader.h"

namespace Velk {
namespace {

constexpr std::uint64_t endSize = 4;

bool beginsWithEnd(ConstBytes bytes) {
  return bytes.size() >= sizeof(erasedBlockId) && detail::idOf(bytes) == erasedBlockId;
}

/// Sets the kind of a block whose size is assumed to be right.
void classify(BlockView& block) {
  if (detail::hasRightCrc(block.bytes)) {
    block.kind = BlockKind::SecondEdition;
  } else if (detail::hasCounterIdentifier(block.bytes)) {
    block.kind = BlockKind::EventCounter;
  } else if (block.row != nullptr) {
    block.kind = BlockKind::OldStyle;
  } else if (isFilledByTables(block.bytes)) {
    block.kind = BlockKind::SecondEdition;
    block.add(Finding::WrongCrc);
  }
}

bool hasCrc(BlockKind kind) { return kind == BlockKind::SecondEdition || kind == BlockKind::EventCounter; }

/// Sets the kind and the findings of a block. Returns false if its size cannot be right after all.
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

/// Returns whether nothing confirms the size that a block claims.
bool hasDoubtfulSize(const BlockView& block) { return !block.isSound() && block.kind == BlockKind::Unknown; }

}  // namespace

bool BlockWalk::next() {
  if (ended_ && !skipErased()) return false;
  if (position_ >= image_.size()) return false;
  const ConstBytes ahead = from(position_);
  block_ = BlockView{.offset = start_ + position_, .bytes = ahead, .found = found_};
  if (ended_) {
    takeBehindEnd();
  } else if (found_ == Found::InSequence && beginsWithEnd(ahead)) {
    takeEnd();
  } else if (ahead.size() < detail::headerSize) {
    takeStray(Finding::TooShort, image_.size());
  } else {
    takeBlock();
  }
  return true;
}

bool BlockWalk::skipErased() {
  if (detail::isErased(from(position_))) return false;
  const std::uint64_t next = nextProven(position_);
  if (detail::isErased(from(position_).first(next - position_))) {
    position_ = next;
    ended_ = false;
    found_ = Found::OutOfSequence;
  }
  return true;
}

void BlockWalk::takeStray(Finding finding, std::uint64_t end) {
  block_.bytes = image_.subspan(position_, end - position_);
  block_.id = 0;
  block_.declaredSize = 0;
  block_.row = nullptr;
  block_.kind = BlockKind::Stray;
  block_.found = Found::InSequence;
  block_.findings.reset();
  block_.add(finding);
  position_ = end;
  found_ = Found::OutOfSequence;
}

void BlockWalk::takeBehindEnd() {
  ended_ = false;
  takeStray(Finding::NotErased, nextProven(position_));
}

void BlockWalk::takeEnd() {
  std::uint64_t size = std::min<std::uint64_t>(endSize, block_.bytes.size());
  const auto data = detail::load<unsigned short>(block_.bytes, sizeof(erasedBlockId));
  // What is not a data word of an end block may be the first bytes of another one, after erased memory.
  if (data != 0 && data != erasedBlockId) size = std::min(size, nextProven(position_ + 2) - position_);
  block_.bytes = block_.bytes.first(size);
  block_.id = erasedBlockId;
  block_.declaredSize = static_cast<unsigned short>(size);
  block_.kind = BlockKind::End;
  block_.row = findCatalogueRow(erasedBlockId);
  position_ += size;
  ended_ = true;
}

void BlockWalk::takeBlock() {
  const ConstBytes ahead = block_.bytes;
  block_.id = detail::idOf(ahead);
  block_.declaredSize = detail::sizeOf(ahead);
  block_.row = findCatalogueRow(block_.id, block_.declaredSize);
  const ConstBytes claimed = detail::claimedBlock(ahead);
  if (claimed.empty() || !mayDoubt(0)) return takeBroken(nextProven(position_ + 1));
  block_.bytes = claimed;
  const std::uint64_t end = position_ + claimed.size();
  const bool mayBeRight = judge(block_);
  const std::uint64_t cut = mayBeRight ? cutOf(end) : nextProven(position_ + 1);
  if (!mayBeRight || !isBelieved(end, cut)) {
    mayDoubt(claimed.size());
    return takeBroken(cut < end ? cut : nextProven(end));
  }
  position_ = end;
  found_ = Found::InSequence;
}

/// Counts bytes of blocks that are not as long as they claim, of which very many could overlap. Returns whether more of
/// them may be examined.
bool BlockWalk::mayDoubt(std::uint64_t bytes) {
  constexpr std::uint64_t freely = 16 * 1024 * 1024;
  constexpr std::uint64_t perByte = 2;
  doubted_ += bytes;
  return found_ == Found::OutOfSequence || doubted_ <= freely + perByte * image_.size();
}

/// Takes a block that is not as long as it claims, up to the next block that can be verified.
void BlockWalk::takeBroken(std::uint64_t end) {
  const std::uint64_t size = end - position_;
  if (size < detail::headerSize) return takeStray(Finding::TooShort, end);
  const CatalogueRow* const row = findCatalogueRow(block_.id, block_.declaredSize);
  const bool isNothing = row == nullptr && block_.kind == BlockKind::Unknown;
  if (position_ == 0 && isNothing && search_ == Search::Everywhere) return takeStray(Finding::NoBlock, end);
  found_ = Found::OutOfSequence;
  if (end == image_.size()) {
    end = endBehind(position_ + 2);
    found_ = Found::InSequence;
  }
  block_.bytes = image_.subspan(position_, end - position_);
  block_.row = row;
  block_.kind = row != nullptr ? BlockKind::OldStyle : BlockKind::Unknown;
  block_.findings.reset();
  block_.add(Finding::UnbelievableSize);
  position_ = end;
}

/// Returns whether a block is assumed to be as long as it claims.
bool BlockWalk::isBelieved(std::uint64_t end, std::uint64_t cut) {
  if (cut != end) return false;
  return search_ == Search::SequenceOnly || !hasDoubtfulSize(block_) || leadsOn(end);
}

/// Returns where a verified block begins inside one whose check does not confirm its end, or else that end.
std::uint64_t BlockWalk::cutOf(std::uint64_t end) {
  const bool counter = block_.kind == BlockKind::EventCounter;
  if (search_ == Search::SequenceOnly || block_.found == Found::OutOfSequence) return end;
  if (block_.isSound() && (!counter || isPlausibleAt(end))) return end;
  if (isProven(end)) return end;
  // A counter stores its size twice: a few bytes may be missing in it, but blocks wholly inside are part of it.
  constexpr std::uint64_t mostMissing = 64;
  std::uint64_t cut =
      nextProven(counter ? std::max(position_ + 1, end - std::min(end, mostMissing)) : position_ + 1, end);
  while (counter && cut < end && cut + detail::sizeOf(from(cut)) <= end) cut = nextProven(cut + 1, end);
  return cut;
}

/// Returns whether the bytes at an offset look like the next block of a sequence, or like its end.
bool BlockWalk::isPlausibleAt(std::uint64_t offset) const {
  if (offset >= image_.size()) return true;
  if (beginsWithEnd(from(offset))) return !beginsWithEnd(from(offset - 2));  // not just anywhere in erased memory
  const ConstBytes claimed = detail::claimedBlock(from(offset));
  const auto size = static_cast<unsigned short>(claimed.size());
  const CatalogueRow* const row = findCatalogueRow(detail::idOf(claimed), size);
  return !claimed.empty() && ((row != nullptr && row->acceptsSize(size)) || detail::sumOfWords(claimed) == 0);
}

/// Returns whether a sequence leads from an offset to a block that looks like one, or to its end.
bool BlockWalk::leadsOn(std::uint64_t offset) {
  constexpr int furthest = 3;
  for (int blocks = 0; blocks < furthest; ++blocks) {
    if (isPlausibleAt(offset) || isProven(offset)) return true;
    const ConstBytes claimed = detail::claimedBlock(from(offset));
    if (claimed.empty() || !mayDoubt(claimed.size())) return false;
    offset += claimed.size();
  }
  return false;
}

/// Returns where an end block begins that only erased memory follows, or else the memory's end.
std::uint64_t BlockWalk::endBehind(std::uint64_t offset) const {
  if (search_ == Search::SequenceOnly) return image_.size();
  const auto used = std::find_if(image_.rbegin(), image_.rend(), [](auto byte) { return byte != detail::erasedByte; });
  const auto erasedFrom = static_cast<std::uint64_t>(image_.rend() - used);
  for (std::uint64_t at = std::max(offset, std::max(erasedFrom, endSize) - endSize); at + endSize <= image_.size();
       ++at) {
    if (at >= erasedFrom || beginsWithEnd(from(at))) return at;
  }
  return image_.size();
}

const detail::ProvenStarts& BlockWalk::proven() {
  if (!proven_) proven_.emplace(image_, position_);
  return *proven_;
}

}  // namespace Velk
