#pragma once

#include <algorithm>
#include <optional>
#include <vector>

#include "velk/image/BlockView.h"

namespace Velk::detail {

/// The blocks of one id in an image.
struct KnownBlock {
  BlockView first;                      ///< the first sound one, if any is
  BlockView latest;                     ///< the first sound one of the latest sequence
  unsigned sequence = 0;                ///< of `latest`
  std::size_t repeated = 0;             ///< sound ones after another one in the same sequence
  std::optional<BlockView> repeat{};    ///< the first of these
  std::optional<BlockView> conflict{};  ///< the first of these that identifies another module
};

/// What is remembered of an image while its blocks pass: at most a few blocks for each id that has a class.
class CheckedImage {
 public:
  CheckedImage(std::uint64_t size, std::uint64_t start, std::uint64_t sectorSize, bool isWhole)
      : size_(size), start_(start), sectorSize_(sectorSize), isWhole_(isWhole) {
    blocks_.reserve(enoughForMost);
  }

  void add(const BlockView& block);

  /// Returns the blocks of each id, in ascending order of the ids.
  const std::vector<KnownBlock>& blocks() const { return blocks_; }
  /// Returns the first block of an id, or null.
  const BlockView* find(unsigned id) const;
  /// Returns the first block of an id if it is sound; else null.
  const BlockView* findSound(unsigned id) const;

  /// Returns the first block of all; nothing in erased memory.
  const std::optional<BlockView>& firstBlock() const { return firstBlock_; }
  /// Returns the first ident block of all that is not the first block of its sequence.
  const std::optional<BlockView>& lateIdent() const { return lateIdent_; }

  /// Returns the bytes of the memory from where the walk begins.
  std::uint64_t walkedSize() const { return size_ - std::min(start_, size_); }
  std::uint64_t size() const { return size_; }
  bool hasSectors() const { return sectorSize_ != 0; }
  bool isWhole() const { return isWhole_; }

 private:
  static constexpr std::size_t enoughForMost = 32;  ///< ids in a memory

  void beginSequence(const BlockView& block);
  void keep(const BlockView& block);

  std::uint64_t size_;
  std::uint64_t start_;
  std::uint64_t sectorSize_;
  bool isWhole_;
  std::uint64_t sector_ = 0;
  unsigned sequence_ = 0;
  bool ended_ = false;
  bool isFirstOfSequence_ = true;
  bool sequenceBeginsWithIdent_ = false;
  std::optional<BlockView> firstBlock_;
  std::optional<BlockView> lateIdent_;
  std::vector<KnownBlock> blocks_;
};

/// Returns whether blocks of an id identify the module that a memory belongs to.
constexpr bool isIdent(unsigned id) { return id >= 2 && id <= 10; }

}  // namespace Velk::detail
