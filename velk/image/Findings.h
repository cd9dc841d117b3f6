#pragma once

#include <bitset>
#include <span>
#include <string>

#include "velk/Export.h"

namespace Velk {

struct BlockView;

enum class Severity : unsigned char {
  Error,    ///< damage: a block is not sound, or bytes of a file are lost
  Warning,  ///< odd, but the blocks may be sound
};

/// One thing that can be wrong with an image.
struct FindingKind {
  const char* code;  ///< for command lines and programs, such as "wrong-checksum"; unique
  const char* name;  ///< two or three words, such as "wrong checksum"; kinds may share one
  Severity severity;
  const char* summary;      ///< what is wrong, in one line
  const char* explanation;  ///< a paragraph: why it is wrong, an example, and what to do
};

/// What the walk over an image finds, the most important first.
enum class Finding : unsigned char {
  UnbelievableSize,   ///< below the header's or beyond the image's end, or a wrong size with a wrong checksum
  WrongChecksum,      ///< the 16-bit words do not add up to 0
  WrongCrc,           ///< the bytes read as tables that fill the block, but the CRC-32 does not match
  TooShort,           ///< stray: fewer bytes than a header has
  NotErased,          ///< stray: bytes after the end block that are not erased
  NoBlock,            ///< stray: bytes before the first block
  SizeNotOfClass,     ///< the block is sound, but its size is not that of its class
  WrongSumBesideCrc,  ///< the block is checked by its CRC-32, and its 16-bit checksum is wrong
};
inline constexpr std::size_t findingCount = static_cast<std::size_t>(Finding::WrongSumBesideCrc) + 1;

/// Findings of the walk, indexed by Finding.
using FindingSet = std::bitset<findingCount>;

/// Returns the kinds that the walk finds, indexed by Finding.
VELK_EXPORT std::span<const FindingKind> walkFindingKinds();

/// Returns those of them that are errors.
VELK_EXPORT FindingSet errorFindings();

/// Describes one finding of the walk, as "checksum is 0x1234, the bytes give 0x4321"; empty if there is none.
VELK_EXPORT std::string describe(const BlockView& block, Finding finding);

/// Returns the name of the most important error, or "sound".
VELK_EXPORT const char* verdictName(const BlockView& block);

}  // namespace Velk
