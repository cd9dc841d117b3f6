// This file is built at -O3: its loop goes over every byte of what is damaged.
#include "velk/image/ProvenStarts.h"

#include <bit>

#include "velk/image/BlockHeader.h"
#include "velk/image/BlockProof.h"
#include "velk/image/WindowedSums.h"

namespace Velk::detail {
namespace {

/// The last offset of those from `begin` up to `end` at which a few bytes speak for a block: id and size are a class's,
/// its head is one of a block that describes itself or, of those that may lead to `first`, it reaches there. Else
/// `begin` less one. This is all that is asked at most offsets.
template <bool mayLead>
std::size_t lastHint(ConstBytes memory, std::size_t begin, std::size_t end, std::size_t first,
                     const KnownBlocks& known) {
  const unsigned char* const bytes = memory.data();
  while (end-- > begin) {
    const auto header = load<std::uint64_t>({bytes + end, headerSize}, 0);
    const std::size_t size = header >> 16U & 0xFFFFU;
    const bool isHint = known.mayHave(header & 0xFFFFU, size) || (mayLead && end + size >= first);
    const bool isAlignmentClear = header <= 0xFFFF'FFFF'FFFFU;
    if (!(isHint | isAlignmentClear) || size < headerSize || size > memory.size() - end) continue;
    if (isHint || describesItself({bytes + end, size})) return end;
  }
  return end;
}

/// Goes over a memory from its end to its beginning and asks at each offset whether a block begins there.
class Survey {
 public:
  Survey(ConstBytes memory, const ProvenStarts& found)
      : memory_(memory), found_(found), sums_(memory), first_(memory.size()), granted_(memory.size()) {}

  /// Hands on each offset from `end` down to `begin` at which one does. A header has to fit after each of them.
  template <class Act>
  void goOver(std::size_t begin, std::size_t end, Act act) {
    const KnownBlocks& known = KnownBlocks::get();
    while ((end = nextHint(begin, end, known)) != begin - 1) {
      const ConstBytes block = claimedBlock(memory_.subspan(end));
      if (!proves(end, block)) continue;
      first_ = end;
      act(end);
    }
  }

 private:
  std::size_t nextHint(std::size_t begin, std::size_t end, const KnownBlocks& known) const {
    constexpr std::size_t longest = 0xFFFF;
    const std::size_t near = std::clamp(first_ - std::min(first_, longest), begin, end);
    const std::size_t hint = lastHint<true>(memory_, near, end, first_, known);
    return hint != near - 1 ? hint : lastHint<false>(memory_, begin, near, first_, known);
  }

  bool proves(std::size_t offset, ConstBytes block) {
    if (proof_.isOfClass(block) && sums_.sum(offset, block.size()) == 0) return true;
    if (idOf(block) == erasedBlockId) return false;
    if (found_.has(offset + block.size()) && isWorthASum(block) && sums_.sum(offset, block.size()) == 0) return true;
    if (load<unsigned short>(block, offsetof(HwSDatablockHeader, alignment)) != 0) return false;
    if (!describesItself(block)) return false;
    if (proof_.isEventCounter(block)) return isUndisputed(offset, block);
    proof_.grant(granted_ - offset);
    granted_ = offset;
    return proof_.isFilledByTablesWithCrc(block);
  }

  /// Nothing that follows the counters protects them, and the identifier may be left over from a block that is written
  /// over in part. Where the sum is wrong and nothing begins where the counters end, what begins among them counts
  /// more.
  bool isUndisputed(std::size_t offset, ConstBytes counter) {
    const std::size_t end = offset + counter.size();
    if (first_ >= end || found_.has(end) || end == memory_.size() || sums_.sum(offset, counter.size()) == 0)
      return true;
    return idOf(memory_.subspan(end)) == erasedBlockId;
  }

  ConstBytes memory_;
  const ProvenStarts& found_;
  WindowedSums sums_;
  BlockProof proof_;
  std::size_t first_;  ///< of those found
  std::size_t granted_;
};

}  // namespace

ProvenStarts::ProvenStarts(ConstBytes memory, std::uint64_t from) : from_(from), size_(memory.size()) {
  if (size_ < headerSize || from > size_ - headerSize) return;
  bits_.resize((size_ - from) / perWord + 1);
  Survey(memory, *this).goOver(from, size_ - headerSize + 1, [this](std::uint64_t offset) { add(offset); });
}

bool ProvenStarts::has(std::uint64_t offset) const {
  if (offset < from_ || (offset - from_) / perWord >= bits_.size()) return false;
  return (bits_[(offset - from_) / perWord] >> (offset - from_) % perWord & 1U) != 0;
}

std::uint64_t ProvenStarts::next(std::uint64_t offset) const {
  const std::uint64_t bit = offset - from_;
  std::uint64_t word = bit / perWord;
  if (word >= bits_.size()) return size_;
  std::uint64_t ahead = bits_[word] >> bit % perWord << bit % perWord;
  while (ahead == 0) {
    if (++word == bits_.size()) return size_;
    ahead = bits_[word];
  }
  return from_ + word * perWord + static_cast<unsigned>(std::countr_zero(ahead));
}

void ProvenStarts::add(std::uint64_t offset) {
  bits_[(offset - from_) / perWord] |= std::uint64_t{1} << (offset - from_) % perWord;
}

}  // namespace Velk::detail
