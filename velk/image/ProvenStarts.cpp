// This file is built at -O3: its loops go over every byte of what is damaged.
#include "velk/image/ProvenStarts.h"

#include <array>
#include <bit>

#include "velk/image/BlockHeader.h"
#include "velk/image/BlockProof.h"
#include "velk/image/WindowedSums.h"

namespace Velk::detail {
namespace {

/// Offsets are asked about in groups of this many.
constexpr std::size_t together = 64;

/// A byte for each offset of a group, not 0 where a block may begin.
using Flags = std::array<unsigned char, together>;

/// A bit for each of them, that of the first offset the lowest.
std::uint64_t bitsOf(const Flags& flags) {
  constexpr std::uint64_t gather = 0x0102'0408'1020'4080;  // takes the lowest bit of each byte to the highest byte
  std::uint64_t bits = 0;
  for (std::size_t at = 0; at < together; at += sizeof bits) {
    bits |= load<std::uint64_t>(flags, at) * gather >> 56U << at;
  }
  return bits;
}

/// As && and || of conditions that are all computed.
template <class... Conditions>
bool all(Conditions... conditions) {
  return (unsigned{conditions} & ...) != 0;
}
template <class... Conditions>
bool any(Conditions... conditions) {
  return (unsigned{conditions} | ...) != 0;
}

/// The few bytes of blocks that are asked for at all offsets of a group, in plain loops without branches: compilers
/// make vector code of all but the first. What they let pass is looked at properly.
class Heads {
 public:
  /// `bytes` are those from the group's first offset on.
  explicit Heads(const unsigned char* bytes) : bytes_(bytes) {}

  /// How many bytes are asked for.
  static constexpr std::size_t span = together + sizeof(HwSDatablockHeader2Edition) + sizeof(HwSTableHeader2Edition);

  /// Marks the offsets at which id and size are those of a class, or a block describes itself.
  void mark(Flags& flags, const KnownBlocks& known) const {
    for (std::size_t i = 0; i < together; ++i) flags[i] = known.sizeMark(word(i));
    for (std::size_t i = 0; i < together; ++i) {
      const bool mayBeKnown = KnownBlocks::mayHave(flags[i], byte(i, sizeLow), byte(i, sizeHigh));
      flags[i] = any(mayBeKnown, all(isAligned(i), any(isCounter(i), isTable(i))));
    }
  }

  /// Marks the offsets of which blocks lead to one that was found.
  void markLeading(Flags& flags, const ProvenStarts& found, std::size_t offset) const {
    const ProvenStarts::Bits bits = found.bits();
    for (std::size_t i = 0; i < together; ++i) {
      flags[i] = static_cast<unsigned char>(flags[i] | bits[offset + i + word(i + sizeLow)]);
    }
  }

  /// The offsets of which blocks lead to one of the same group, which was found after they were asked about.
  std::uint64_t leadingTo(std::size_t target) const {
    Flags flags{};
    for (std::size_t i = 0; i < target; ++i) {
      flags[i] = all(byte(i, sizeLow) == static_cast<unsigned char>(target - i), byte(i, sizeHigh) == 0);
    }
    return bitsOf(flags);
  }

 private:
  static constexpr std::size_t sizeLow = offsetof(HwSDatablockHeader, blockSize);
  static constexpr std::size_t sizeHigh = sizeLow + 1;
  static constexpr std::size_t alignment = offsetof(HwSDatablockHeader, alignment);
  static constexpr std::size_t identifier = crcOffset + sizeof(unsigned short);
  static constexpr std::size_t table = sizeof(HwSDatablockHeader2Edition);
  static constexpr std::size_t rowsHigh = table + offsetof(HwSTableHeader2Edition, rows) + 1;
  static constexpr std::size_t columnsLow = table + offsetof(HwSTableHeader2Edition, columns);
  static constexpr std::size_t columnsHigh = columnsLow + 1;
  static constexpr std::size_t rowIdType = table + offsetof(HwSTableHeader2Edition, rowIdType);
  static constexpr std::size_t columnIdType = table + offsetof(HwSTableHeader2Edition, columnIdType);
  static constexpr std::size_t firstType = table + sizeof(HwSTableHeader2Edition);

  unsigned char byte(std::size_t i, std::size_t at) const { return bytes_[i + at]; }
  unsigned word(std::size_t i) const { return load<unsigned short>({bytes_ + i, sizeof(unsigned short)}, 0); }

  bool isAligned(std::size_t i) const { return (byte(i, alignment) | byte(i, alignment + 1)) == 0; }
  bool isCounter(std::size_t i) const {
    return all(byte(i, identifier) == static_cast<unsigned char>(HwDatablock::eventCountIdentifier[0]),
               byte(i, identifier + 1) == static_cast<unsigned char>(HwDatablock::eventCountIdentifier[1]));
  }
  /// Whether there are columns and types, and the block's size leaves room for the rows and columns as far as the high
  /// bytes of the three tell.
  bool isTable(std::size_t i) const {
    return all((byte(i, columnsLow) | byte(i, columnsHigh)) != 0, byte(i, rowIdType) <= TYPE_ID_MAX,
               byte(i, columnIdType) <= TYPE_ID_MAX, byte(i, firstType) <= TYPE_ID_MAX, byte(i, firstType) != 0,
               byte(i, rowsHigh) <= byte(i, sizeHigh), byte(i, columnsHigh) <= byte(i, sizeHigh),
               any(byte(i, rowsHigh) == 0, byte(i, columnsHigh) == 0));
  }

  const unsigned char* bytes_;
};

/// Goes over a memory from its end to its beginning and asks at each offset whether a block begins there.
class Survey {
 public:
  Survey(ConstBytes memory, const ProvenStarts& found)
      : memory_(memory), found_(found), sums_(memory), first_(memory.size()), granted_(memory.size()) {}

  /// Hands on each offset before `end`, from the last down to `begin`, at which one does. A header has to fit after
  /// each of them.
  template <class Act>
  void goOver(std::size_t begin, std::size_t end, Act act) {
    while (end > begin) {
      const std::size_t group = end - std::min(end - begin, together);
      std::uint64_t hints = hintsFrom(group) & lowest(end - group);
      for (end = group; hints != 0;) {
        const auto last = static_cast<unsigned>(std::bit_width(hints)) - 1;
        hints &= lowest(last);
        const ConstBytes block = claimedBlock(memory_.subspan(group + last));
        if (block.empty() || !proves(group + last, block)) continue;
        first_ = group + last;
        act(first_);
        hints |= Heads(memory_.data() + group).leadingTo(last);
      }
    }
  }

 private:
  /// As many of the lowest bits, of up to 64.
  static constexpr std::uint64_t lowest(std::size_t count) {
    return count == together ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
  }

  /// The offsets of a group at which a few bytes speak for a block: this is all that is asked at most of them.
  std::uint64_t hintsFrom(std::size_t offset) const {
    constexpr std::size_t longest = 0xFFFF;
    const ConstBytes ahead = memory_.subspan(offset);
    std::array<unsigned char, Heads::span> last;
    const bool isLast = ahead.size() < last.size();
    if (isLast) last = firstBytes<Heads::span>(ahead);
    const Heads heads(isLast ? last.data() : ahead.data());
    Flags flags;
    heads.mark(flags, known_);
    if (first_ - offset < longest + together && first_ < memory_.size()) heads.markLeading(flags, found_, offset);
    return bitsOf(flags);
  }

  bool proves(std::size_t offset, ConstBytes block) {
    if (known_.mayHave(idOf(block), block.size()) && sums_.sum(offset, block.size()) == 0 && proof_.isOfClass(block))
      return true;
    const bool isAligned = load<unsigned short>(block, offsetof(HwSDatablockHeader, alignment)) == 0;
    return (isAligned || offset + block.size() >= first_) && provesWithoutClass(offset, block, isAligned);
  }

  /// Not inlined: hostile memories have hints at every few bytes, and this is asked at few of them.
  [[gnu::noinline]] bool provesWithoutClass(std::size_t offset, ConstBytes block, bool isAligned) {
    if (idOf(block) == erasedBlockId) return false;
    const std::size_t end = offset + block.size();
    if (end >= first_ && found_.has(end) && sums_.sum(offset, block.size()) == 0 && isWorthASum(block)) return true;
    if (!isAligned) return false;
    if (storedCrc(block) == identifier_ + block.size() && proof_.isEventCounter(block))
      return isUndisputed(offset, block);
    proof_.grant(granted_ - offset);
    granted_ = offset;
    return proof_.canAfford(block) && proof_.isFilledByTablesWithCrc(block);
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
  const KnownBlocks& known_ = KnownBlocks::get();
  const ProvenStarts& found_;
  const std::uint32_t identifier_ = eventCounterMagic(0);  ///< less the size
  WindowedSums sums_;
  BlockProof proof_;
  std::size_t first_;  ///< of those found
  std::size_t granted_;
};

}  // namespace

ProvenStarts::ProvenStarts(ConstBytes memory, std::uint64_t from) : from_(from), size_(memory.size()) {
  if (size_ < headerSize || from > size_ - headerSize) return;
  words_.resize((size_ - from) / perWord + 1);
  Survey(memory, *this).goOver(from, size_ - headerSize + 1, [this](std::uint64_t offset) { add(offset); });
}

std::uint64_t ProvenStarts::next(std::uint64_t offset, std::uint64_t limit) const {
  if (offset >= limit || words_.empty()) return limit;
  const std::uint64_t bit = offset - from_;
  std::uint64_t word = bit / perWord;
  const std::uint64_t last = std::min<std::uint64_t>((limit - from_) / perWord, words_.size() - 1);
  if (word > last) return limit;
  std::uint64_t ahead = words_[word] >> bit % perWord << bit % perWord;
  while (ahead == 0) {
    if (++word > last) return limit;
    ahead = words_[word];
  }
  return std::min(from_ + word * perWord + static_cast<unsigned>(std::countr_zero(ahead)), limit);
}

void ProvenStarts::add(std::uint64_t offset) {
  words_[(offset - from_) / perWord] |= std::uint64_t{1} << (offset - from_) % perWord;
}

}  // namespace Velk::detail
