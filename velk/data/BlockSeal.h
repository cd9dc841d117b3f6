#pragma once

#include "velk/image/BlockView.h"

namespace Velk {

/// Updates the checks of a changed block: the CRC-32 of a second-edition block, then the 16-bit checksum, which covers
/// it. Event counters keep their identifier; an end block has no check.
VELK_EXPORT void sealBlock(MutableBytes block, BlockKind kind);

}  // namespace Velk
