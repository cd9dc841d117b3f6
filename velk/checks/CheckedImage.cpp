#include "velk/checks/CheckedImage.h"

#include <algorithm>
#include <tuple>

#include "velk/records/HwDatablockIdent.h"

namespace Velk::detail {
namespace {

/// Orders by id, then by class: two classes share some ids.
bool isBefore(const KnownBlock& known, const BlockView& block) {
  return std::tuple(known.first.id, known.first.row) < std::tuple(block.id, block.row);
}

bool isSameModule(const BlockView& one, const BlockView& other) {
  const auto identity = [](const BlockView& block) {
    return std::pair(load<unsigned>(block.bytes, offsetof(HwSDatablockIdent, partNumber)),
                     load<unsigned>(block.bytes, offsetof(HwSDatablockIdent, serialNumber)));
  };
  return identity(one) == identity(other);
}

}  // namespace

void CheckedImage::add(const BlockView& block) {
  if (block.kind == BlockKind::Stray) return;
  if (block.kind == BlockKind::End) {
    ended_ = true;
    return;
  }
  beginSequence(block);
  if (!firstBlock_) firstBlock_ = block;
  if (isFirstOfSequence_) sequenceBeginsWithIdent_ = isIdent(block.id);
  isFirstOfSequence_ = false;
  if (isIdent(block.id) && !sequenceBeginsWithIdent_ && !lateIdent_) lateIdent_ = block;
  if (block.kind == BlockKind::OldStyle) keep(block);
}

/// Begins another sequence in another sector, and in a block that is found after an end block.
void CheckedImage::beginSequence(const BlockView& block) {
  const std::uint64_t sector = sectorSize_ == 0 ? 0 : (block.offset - start_) / sectorSize_;
  if (sector == sector_ && !(ended_ && block.found == Found::OutOfSequence)) return;
  sector_ = sector;
  ended_ = false;
  isFirstOfSequence_ = true;
  ++sequence_;
}

void CheckedImage::keep(const BlockView& block) {
  const auto place = std::lower_bound(blocks_.begin(), blocks_.end(), block, isBefore);
  if (place == blocks_.end() || isBefore({.first = block, .latest = {}}, place->first)) {
    blocks_.insert(place, {.first = block, .latest = block, .sequence = sequence_});
    return;
  }
  if (!block.isSound()) return;
  if (!place->first.isSound()) place->first = block;
  if (!place->latest.isSound() || place->sequence != sequence_) {
    place->latest = block;
    place->sequence = sequence_;
    return;
  }
  if (place->repeated++ == 0) place->repeat = block;
  if (isIdent(block.id) && !place->conflict && !isSameModule(place->latest, block)) place->conflict = block;
}

const BlockView* CheckedImage::find(unsigned id) const {
  const auto found = std::ranges::lower_bound(blocks_, id, {}, [](const KnownBlock& known) { return known.first.id; });
  return found != blocks_.end() && found->first.id == id ? &found->first : nullptr;
}

const BlockView* CheckedImage::findSound(unsigned id) const {
  const BlockView* const found = find(id);
  return found != nullptr && found->isSound() ? found : nullptr;
}

}  // namespace Velk::detail
