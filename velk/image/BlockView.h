#pragma once

#include <cstdint>
#include <string>

#include "velk/bytes/Bytes.h"
#include "velk/image/Findings.h"
#include "velk/oldstyle/BlockCatalogue.h"

namespace Velk {

enum class BlockKind : unsigned char {
  OldStyle,       ///< a class knows its id
  SecondEdition,  ///< describes itself: has a valid CRC-32, or an unknown id and tables that fill it
  EventCounter,   ///< has the event counter identifier
  End,            ///< erased memory: no block follows
  Unknown,        ///< no class knows its id
  Stray,          ///< bytes that belong to no block
};

/// Why bytes are taken to be a block.
enum class Found : unsigned char {
  InSequence,     ///< it begins where the one before it ends, or where the walk begins
  OutOfSequence,  ///< it is verified, whatever is around it
};

/// One block of an image, or bytes that belong to none. `bytes` points into the image.
struct VELK_EXPORT BlockView {
  std::uint64_t offset = 0;
  ConstBytes bytes{};               ///< as many as the image holds of the block
  unsigned short id = 0;            ///< as the header claims
  unsigned short declaredSize = 0;  ///< as the header claims
  BlockKind kind = BlockKind::Unknown;
  Found found = Found::InSequence;
  FindingSet findings{};              ///< of the walk
  const CatalogueRow* row = nullptr;  ///< of an old-style or end block

  bool has(Finding finding) const { return findings[static_cast<std::size_t>(finding)]; }
  void add(Finding finding) { findings.set(static_cast<std::size_t>(finding)); }
  /// Returns whether the block has no error; remarks do not count.
  bool isSound() const;
};

/// Returns the name of a kind, such as "old-style".
VELK_EXPORT const char* kindName(BlockKind kind);
/// Returns "in-sequence" or "out-of-sequence".
VELK_EXPORT const char* foundName(Found found);
/// Returns a block's name: the key of its id, or a name for its kind.
VELK_EXPORT std::string blockName(const BlockView& block);

}  // namespace Velk
