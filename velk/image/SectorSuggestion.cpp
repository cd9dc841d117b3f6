#include "velk/image/SectorSuggestion.h"

namespace Velk {
namespace {

bool counts(const BlockView& block) { return block.isSound() && block.kind != BlockKind::End; }

}  // namespace

void SectorSuggestion::add(const BlockView& block) {
  sound_ += counts(block) ? 1 : 0;
  if (block.kind == BlockKind::Stray || block.has(Finding::UnbelievableSize)) return;
  const bool begins = block.found == Found::OutOfSequence || block.offset == image_.start();
  if (!begins || block.kind == BlockKind::End) return;
  distances_ |= block.offset - image_.start();
  ++sequences_;
}

/// Returns the greatest power of two that divides the distances of all sequences from the start; 0 if it is too small.
std::uint64_t SectorSuggestion::grid() const {
  constexpr std::uint64_t smallest = 256;
  const std::uint64_t size = distances_ & (~distances_ + 1);
  return sequences_ > 1 && size >= smallest ? size : 0;
}

std::uint64_t SectorSuggestion::size() const {
  const std::uint64_t size = grid();
  if (size == 0) return 0;
  std::uint64_t sound = 0;
  for (const BlockView& block : image_.inSectors(size)) sound += counts(block) ? 1 : 0;
  return sound >= sound_ ? size : 0;
}

}  // namespace Velk
