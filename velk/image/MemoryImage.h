#pragma once

#include <QByteArray>
#include <bitset>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "velk/datablock/Bytes.h"
#include "velk/oldstyle/BlockCatalogue.h"

namespace Velk {

enum class BlockKind : unsigned char {
  OldStyle,       ///< a class knows its id
  SecondEdition,  ///< describes itself: has a right CRC-32, or an unknown id and tables that fill it
  EventCounter,   ///< carries the event counter identifier
  End,            ///< erased memory: no block follows
  Unknown,        ///< nobody knows its id
  Stray,          ///< bytes that belong to no block
};

/// What is wrong with a block, in the order in which it matters.
enum class Finding : unsigned char {
  UnbelievableSize,   ///< below the header's or beyond the image's end, or a wrong size with a wrong checksum
  WrongChecksum,      ///< the 16-bit words do not add up to 0
  WrongCrc,           ///< the bytes read as tables that fill the block, and the CRC-32 is not theirs
  TooShort,           ///< stray: fewer bytes than a header has
  NotErased,          ///< stray: bytes behind the end block that are not erased
  SizeNotOfClass,     ///< remark: the block is sound, but not as long as blocks of its id are
  WrongSumBesideCrc,  ///< remark: the block's check is the CRC-32, and its 16-bit checksum is wrong
};
inline constexpr std::size_t findingCount = 7;

/// One block of an image, or bytes that belong to none. `bytes` points into the image.
struct VELK_EXPORT BlockView {
  std::uint64_t offset = 0;
  detail::ConstBytes bytes{};       ///< as many as the image holds of the block
  unsigned short id = 0;            ///< as the header claims
  unsigned short declaredSize = 0;  ///< as the header claims
  BlockKind kind = BlockKind::Unknown;
  std::bitset<findingCount> findings{};
  const CatalogueRow* row = nullptr;  ///< of an old-style or end block

  bool has(Finding finding) const { return findings[static_cast<std::size_t>(finding)]; }
  void add(Finding finding) { findings.set(static_cast<std::size_t>(finding)); }
  /// Whether the block passes its own check; remarks do not count.
  bool isSound() const;
};

/// The name of a kind, as "old-style".
VELK_EXPORT const char* kindName(BlockKind kind);
/// A finding in two or three words, as "wrong checksum".
VELK_EXPORT const char* findingName(Finding finding);
/// Whether a block may be sound all the same.
VELK_EXPORT bool isRemark(Finding finding);
/// A block's name: the key of its id, or what its kind says of it.
VELK_EXPORT std::string blockName(const BlockView& block);
/// The most important finding in two or three words, or "sound".
VELK_EXPORT const char* verdictName(const BlockView& block);
/// A finding with its numbers, as "checksum is 0x1234, the bytes give 0x4321".
VELK_EXPORT std::string describe(const BlockView& block, Finding finding);

/// The bytes of a module memory as a sequence of blocks, each as long as its header says, up to the end block or the
/// last byte.
///
/// Nothing is lost: every byte is in some view, but for the erased memory behind the end block. Where a block's size
/// cannot be believed, its view reaches to the next even offset at which a sound block begins, or else the end of the
/// memory is due: one with a right checksum, and a known id and its own size or a right CRC-32; or one with an event
/// counter's identifier and, where its checksum is wrong, the beginning of a block behind it. Walking takes time in
/// proportion to the bytes, whatever they are.
///
/// The image owns its bytes; views and iterators are valid while it lives.
///
/// A flash memory has such a sequence in each of its sectors; offsets count from the image's first byte there too.
class VELK_EXPORT MemoryImage {
 public:
  class Iterator;

  /// Walks `bytes` from offset `start` on: as one sequence of blocks, or in sectors of `sectorSize` bytes, the first of
  /// which begins at `start` and the last of which may be shorter.
  explicit MemoryImage(QByteArray bytes, std::uint64_t start = 0, std::uint64_t sectorSize = 0);

  Iterator begin() const;
  static std::default_sentinel_t end() { return {}; }

  detail::ConstBytes bytes() const;

 private:
  QByteArray bytes_;
  std::uint64_t start_;
  std::uint64_t sectorSize_;
};

/// The walk over one sequence of blocks, from one to the next.
class VELK_EXPORT BlockWalk {
 public:
  /// Walks `image`; the offsets of its blocks count from `start` bytes before it.
  explicit BlockWalk(detail::ConstBytes image, std::uint64_t start = 0) : image_(image), start_(start) {}

  /// Goes on to the next block; false behind the last.
  bool next();
  /// The block that the walk is at.
  const BlockView& block() const { return block_; }

 private:
  bool isErasedBehindEnd() const;
  /// Each completes block_, which begins as all bytes ahead.
  void takeStray(Finding finding);
  void takeEnd();
  void takeBlock();
  std::uint64_t resumeBehind(std::uint64_t offset);
  bool soundBlockAt(std::uint64_t offset);
  bool blockBeginsAt(std::uint64_t offset);
  bool endBlockAt(std::uint64_t offset) const;
  detail::ConstBytes claimedBlockAt(std::uint64_t offset) const;
  bool isSoundWithSum(std::uint64_t offset, detail::ConstBytes block);
  bool hasRightSum(std::uint64_t offset, detail::ConstBytes block);
  /// Takes a block's bytes off those that may still be looked at.
  bool mayCheck(detail::ConstBytes block);
  void surveyImage();

  detail::ConstBytes rest() const { return image_.subspan(position_); }

  detail::ConstBytes image_;
  std::uint64_t start_;
  std::uint64_t position_ = 0;
  bool ended_ = false;
  BlockView block_;
  /// What is known of the whole image once a block is sought in damaged bytes: the sum of the words before each even
  /// offset, and where the erased memory at its end begins.
  std::vector<unsigned short> sums_;
  std::uint64_t erasedFrom_ = 0;
  /// How many bytes may still be summed up or made a CRC-32 of in that search, whose time would else depend on what
  /// they are.
  std::uint64_t checkable_ = 0;
};

class VELK_EXPORT MemoryImage::Iterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = BlockView;
  using difference_type = std::ptrdiff_t;
  using pointer = const BlockView*;
  using reference = const BlockView&;

  explicit Iterator(const MemoryImage& image);

  reference operator*() const { return walk_.block(); }
  pointer operator->() const { return &walk_.block(); }
  Iterator& operator++();
  void operator++(int) { ++*this; }
  bool operator==(std::default_sentinel_t) const { return !atBlock_; }

 private:
  detail::ConstBytes takeSector();

  std::uint64_t sectorSize_;
  std::uint64_t sectorStart_;
  detail::ConstBytes ahead_;  ///< what is behind the sector that is walked
  BlockWalk walk_;
  bool atBlock_ = false;
};

}  // namespace Velk
