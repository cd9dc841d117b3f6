#pragma once

#include <algorithm>
#include <bit>
#include <vector>

#include "velk/bytes/Bytes.h"
#include "velk/datablock/Checksums.h"

namespace Velk::detail {

/// The sums of the 16-bit words of blocks, requested from the end of a memory to its beginning.
///
/// Each is the difference of two sums from an offset to a common end. Those of 128 KiB are kept, twice the length of
/// the longest block. Sums of even and of odd offsets alternate and do not mix. As long as few are requested, each is
/// computed by itself.
class WindowedSums {
 public:
  explicit WindowedSums(ConstBytes memory) : memory_(memory), reached_(memory.size() + 2 * longest) {}

  /// Returns the sum of `size` bytes of the memory from an offset on, which must not be far above the lowest one
  /// requested before; an odd last byte is ignored.
  unsigned short sum(std::size_t offset, std::size_t size) {
    return offset >= reached_ ? keptSum(offset, size) : sumFurtherAhead(offset, size);
  }

 private:
  static constexpr std::size_t longest = 0x10000;
  static constexpr std::size_t atOnce = 0x1000;

  unsigned short keptSum(std::size_t offset, std::size_t size) {
    return static_cast<unsigned short>(toEnd(offset) - toEnd(offset + size / 2 * 2));
  }
  /// Not inlined: it is rare where sums are requested at every few bytes.
  [[gnu::noinline]] unsigned short sumFurtherAhead(std::size_t offset, std::size_t size) {
    if (spend(offset, size)) return sumOfWords(memory_.subspan(offset, size));
    reach(offset);
    return keptSum(offset, size);
  }
  /// Whether so little was summed by itself that these bytes may be as well.
  bool spend(std::size_t offset, std::size_t size) {
    constexpr std::size_t perByte = 2;
    if (summed_ + size > longest + perByte * (memory_.size() - offset)) return false;
    summed_ += size;
    return true;
  }
  void reach(std::size_t offset) {
    if (reached_ > offset + longest)
      begin(std::min(memory_.size() - 1, offset + longest));  // no word begins at the last byte
    const std::size_t goal = offset - std::min(offset, atOnce);
    while (reached_ > goal) extend(goal);
  }
  /// Goes on to `goal`, or to where the kept sums go round.
  void extend(std::size_t goal) {
    unsigned short next = toEnd(reached_);
    unsigned short afterNext = toEnd(reached_ + 1);
    unsigned short* kept = &toEnd(reached_ - 1) + 1;
    const std::size_t count = std::min(reached_ - goal, static_cast<std::size_t>(kept - toEnd_.data()));
    const unsigned char* bytes = memory_.data() + reached_;
    for (std::size_t i = 0; i < count; ++i) {
      const auto word = load<unsigned short>({--bytes, sizeof(unsigned short)}, 0);
      *--kept = static_cast<unsigned short>(afterNext + word);
      afterNext = next;
      next = *kept;
    }
    reached_ -= count;
  }
  /// Starts anew: sums this far ahead are not requested again.
  void begin(std::size_t end) {
    toEnd_.resize(std::bit_ceil(std::min(memory_.size() + 2, 2 * longest)));
    lastKept_ = toEnd_.size() - 1;
    reached_ = end;
    toEnd(end) = 0;
    toEnd(end + 1) = 0;
  }
  unsigned short& toEnd(std::size_t offset) { return toEnd_[offset & lastKept_]; }

  ConstBytes memory_;
  std::size_t summed_ = 0;
  std::size_t reached_;  ///< the least offset whose sum is kept
  std::vector<unsigned short> toEnd_;
  std::size_t lastKept_ = 0;  ///< the last index of these, one less than a power of two
};

}  // namespace Velk::detail
