#pragma once

#include "velk/datablock/HwDatablockTypes.h"

namespace Velk {

class HwDatablock;

namespace detail {

/// Converts an old-style block by the layout of block id `id`; returns false for an id without a known layout.
///
/// This is the one call into a higher layer: a block converts itself, but only the catalogue of all classes knows its
/// fields. So it is declared here and defined by the old-style interpreter. Verifying a checksum may convert the block
/// to the layout that the checksum covers, and the conversion needs the CRC-32 to tell the editions apart. The
/// recursion ends there: the CRC-32 is computed over the bytes as they are, and never converts a block.
bool convertOldStyleBlock(HwEDataFormatTyp target, int id, HwDatablock* block);

}  // namespace detail
}  // namespace Velk
