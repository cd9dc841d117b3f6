#pragma once

#include <cstddef>

#include "velk/Export.h"

/// Marks the record of a block: packed, as in the memory, and exported from the library.
#define VELK_RECORD __attribute__((packed)) VELK_EXPORT

namespace Velk {

/// Byte order in which a block's bytes are held.
enum HwEDataFormatTyp {
  INTEL_Conform = 0,  ///< little-endian: as stored in a memory, and the layout of every checksum
  PPC_Conform = 1     ///< big-endian: the layout of PowerPC firmware
};

/// Kind of a block, as far as checksums are concerned.
enum HwEDatablockClassTyp {
  HwDatablockClassOrdinary = 0,
  HwDatablockClassEventCounter = 2  ///< has the event counter identifier in place of a CRC-32
};

/// The first eight bytes of every block, little-endian.
struct VELK_RECORD HwSDatablockHeader {
  unsigned short id;         ///< 0xFFFF: erased memory
  unsigned short blockSize;  ///< bytes of the whole block, this header included
  unsigned short checksum;   ///< makes the 16-bit words of the block add up to 0
  unsigned short alignment;

  bool operator==(const HwSDatablockHeader&) const = default;
};
static_assert(sizeof(HwSDatablockHeader) == 8);

/// The id that erased memory shows. No block has it.
inline constexpr unsigned short erasedBlockId = 0xFFFF;

}  // namespace Velk
