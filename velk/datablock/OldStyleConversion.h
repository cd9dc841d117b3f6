#pragma once

#include "velk/datablock/HwDatablockTypes.h"

namespace Velk {

class HwDatablock;

namespace detail {

/// Converts an old-style block by the layout of block id `id`; false for an id without a known layout. Declared here
/// for the block's own conversion and defined by the old-style interpreter, which knows all classes.
bool convertOldStyleBlock(HwEDataFormatTyp target, int id, HwDatablock* block);

}  // namespace detail
}  // namespace Velk
