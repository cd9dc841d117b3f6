#pragma once

#include <bitset>
#include <cstdint>
#include <string>

#include "velk/bytes/Bytes.h"
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
  NoBlock,            ///< stray: bytes before the first block
  SizeNotOfClass,     ///< remark: the block is sound, but not as long as blocks of its id are
  WrongSumBesideCrc,  ///< remark: the block's check is the CRC-32, and its 16-bit checksum is wrong
};
inline constexpr std::size_t findingCount = 8;

/// Why a block is believed to be one.
enum class Found : unsigned char {
  InSequence,     ///< it stands where the one before it ends, or where the walk begins
  OutOfSequence,  ///< it proves itself, in whatever bytes it stands
};

/// One block of an image, or bytes that belong to none. `bytes` points into the image.
struct VELK_EXPORT BlockView {
  std::uint64_t offset = 0;
  ConstBytes bytes{};               ///< as many as the image holds of the block
  unsigned short id = 0;            ///< as the header claims
  unsigned short declaredSize = 0;  ///< as the header claims
  BlockKind kind = BlockKind::Unknown;
  Found found = Found::InSequence;
  std::bitset<findingCount> findings{};
  const CatalogueRow* row = nullptr;  ///< of an old-style or end block

  bool has(Finding finding) const { return findings[static_cast<std::size_t>(finding)]; }
  void add(Finding finding) { findings.set(static_cast<std::size_t>(finding)); }
  /// Whether the block passes its own check; remarks do not count.
  bool isSound() const;
};

/// The name of a kind, as "old-style".
VELK_EXPORT const char* kindName(BlockKind kind);
/// "in-sequence" or "out-of-sequence".
VELK_EXPORT const char* foundName(Found found);
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

}  // namespace Velk
