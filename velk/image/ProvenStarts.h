#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "velk/bytes/Bytes.h"

namespace Velk::detail {

/// The offsets of a memory at which blocks prove themselves (BlockProof), or lead, over blocks with right 16-bit sums
/// each of which ends where the next begins, to one that does.
///
/// Found in one pass from the memory's end to `from`; kept in a bit for each byte.
class ProvenStarts {
 public:
  /// What is known of each offset, without what loops would have to load each time.
  class Bits {
   public:
    /// 1 or 0, for any offset from the first on.
    unsigned operator[](std::uint64_t offset) const {
      const std::uint64_t bit = std::min(offset - from_, end_);
      return words_[bit / perWord] >> bit % perWord & 1U;
    }

   private:
    friend class ProvenStarts;
    Bits(const std::uint64_t* words, std::uint64_t from, std::uint64_t end) : words_(words), from_(from), end_(end) {}

    const std::uint64_t* words_;
    std::uint64_t from_;
    std::uint64_t end_;  ///< of the memory, from there: nothing begins there
  };

  ProvenStarts(ConstBytes memory, std::uint64_t from);

  bool has(std::uint64_t offset) const { return offset >= from_ && !words_.empty() && bits()[offset] != 0; }
  Bits bits() const { return {words_.data(), from_, size_ - from_}; }
  /// The first one at `offset` or after it, or the memory's size.
  std::uint64_t next(std::uint64_t offset) const { return next(offset, size_); }
  /// The first one from `offset` to before `limit`, or else `limit`; looks no further.
  std::uint64_t next(std::uint64_t offset, std::uint64_t limit) const;

 private:
  static constexpr unsigned perWord = 64;

  void add(std::uint64_t offset);

  std::uint64_t from_;
  std::uint64_t size_;
  std::vector<std::uint64_t> words_;
};

}  // namespace Velk::detail
