#pragma once

#include <optional>

#include "velk/image/BlockView.h"
#include "velk/image/ProvenStarts.h"

namespace Velk {

/// Where blocks are looked for.
enum class Search : unsigned char {
  Everywhere,    ///< in sequence and, if that is broken, at every offset
  SequenceOnly,  ///< where the block before ends, and nowhere else
};

/// The walk over one memory, from one block to the next.
///
/// docs/memory_image.md has the rules by which it believes blocks.
class VELK_EXPORT BlockWalk {
 public:
  /// Walks `image`; the offsets of its blocks count from `start` bytes before it.
  explicit BlockWalk(ConstBytes image, std::uint64_t start = 0, Search search = Search::Everywhere)
      : image_(image), start_(start), search_(search) {}

  /// Moves to the next block; returns false after the last.
  bool next();
  /// Returns the current block.
  const BlockView& block() const { return block_; }

 private:
  /// Skips erased memory; returns whether anything else follows.
  bool skipErased();
  /// Each of these completes block_, which begins with all the bytes ahead.
  void takeStray(Finding finding, std::uint64_t end);
  void takeBehindEnd();
  void takeEnd();
  void takeBlock();
  void takeBroken(std::uint64_t end);

  bool isBelieved(std::uint64_t end, std::uint64_t cut);
  std::uint64_t cutOf(std::uint64_t end);
  bool isPlausibleAt(std::uint64_t offset) const;
  bool leadsOn(std::uint64_t offset);
  std::uint64_t endBehind(std::uint64_t offset) const;

  bool mayDoubt(std::uint64_t bytes);

  const detail::ProvenStarts& proven();
  bool isProven(std::uint64_t offset) { return search_ == Search::Everywhere && proven().has(offset); }
  std::uint64_t nextProven(std::uint64_t offset) { return nextProven(offset, image_.size()); }
  std::uint64_t nextProven(std::uint64_t offset, std::uint64_t limit) {
    return search_ == Search::Everywhere ? proven().next(offset, limit) : limit;
  }
  ConstBytes from(std::uint64_t offset) const { return image_.subspan(offset); }

  ConstBytes image_;
  std::uint64_t start_;
  Search search_;
  std::uint64_t position_ = 0;
  bool ended_ = false;  ///< the block before the position is an end block
  Found found_ = Found::InSequence;
  BlockView block_;
  /// Bytes that were examined of blocks that are not as long as they claim.
  std::uint64_t doubted_ = 0;
  /// Computed when needed: most memories are sound.
  std::optional<detail::ProvenStarts> proven_;
};

}  // namespace Velk
