#pragma once

#include "velk/datablock/HwDatablockTypes.h"

namespace Velk {

class HwDatablock;

namespace detail {

/// Converts an old-style block by the layout of block id `id`; false for an id without a known layout.
///
/// The one call that goes up: a block converts itself, and which fields it has only the catalogue of all classes knows.
/// So it is declared here and defined by the old-style interpreter. To verify a checksum a block may have to be brought
/// into the layout that the checksum is of, and the conversion asks for the CRC-32 to distinguish the editions. That
/// goes round only once: the CRC-32 is computed of the bytes as they are, and never converts a block.
bool convertOldStyleBlock(HwEDataFormatTyp target, int id, HwDatablock* block);

}  // namespace detail
}  // namespace Velk
