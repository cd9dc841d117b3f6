#include "velk/image/BlockView.h"

namespace Velk {

bool BlockView::isSound() const { return (findings & errorFindings()).none(); }

const char* kindName(BlockKind kind) {
  constexpr const char* names[] = {"old-style", "second-edition", "event-counter", "end", "unknown", "stray"};
  return names[static_cast<std::size_t>(kind)];
}

const char* foundName(Found found) { return found == Found::InSequence ? "in-sequence" : "out-of-sequence"; }

std::string blockName(const BlockView& block) {
  if (block.row != nullptr) return block.row->key(block.id);
  return block.kind == BlockKind::Stray ? "(bytes)" : "ID_" + std::to_string(block.id);
}

}  // namespace Velk
