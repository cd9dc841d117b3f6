#include "velk/data/BlockSeal.h"

#include "velk/datablock/Checksums.h"

namespace Velk {

void sealBlock(MutableBytes block, BlockKind kind) {
  if (kind == BlockKind::End || kind == BlockKind::Stray) return;
  if (kind == BlockKind::SecondEdition) detail::store(block, detail::crcOffset, detail::crcOf(block));
  detail::store(block, offsetof(HwSDatablockHeader, checksum), detail::checksumOf(block));
}

}  // namespace Velk
