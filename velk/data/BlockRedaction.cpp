#include "velk/data/BlockRedaction.h"

#include <algorithm>

#include "velk/data/BlockData.h"
#include "velk/datablock/Checksums.h"

namespace Velk {
namespace {

constexpr std::size_t checksumOffset = offsetof(HwSDatablockHeader, checksum);

/// Returns the sum of everything that the checksum of a block covers.
unsigned short restOfSum(ConstBytes block) { return static_cast<unsigned short>(-detail::checksumOf(block)); }

}  // namespace

RedactionReach redactionReach(const BlockView& block) {
  constexpr unsigned char erased = 0xFF;
  const auto isSilent = [](unsigned char byte) { return byte == 0 || byte == erased; };
  if (block.row == nullptr) {
    const std::size_t known = block.kind == BlockKind::Stray ? 0 : sizeof(HwSDatablockHeader);
    const auto rest = block.bytes.subspan(std::min(known, block.bytes.size()));
    return std::ranges::all_of(rest, isSilent) ? RedactionReach::All : RedactionReach::Nothing;
  }
  std::vector<bool> isKnown(block.bytes.size());
  const auto know = [&](std::size_t offset, std::size_t size) {
    for (std::size_t i = offset; i < std::min(offset + size, isKnown.size()); ++i) isKnown[i] = true;
  };
  know(0, sizeof(HwSDatablockHeader));
  const BlockData data(block, Extent::Capacity);
  const auto knowValue = [&](const DataPath&, const FieldElement& element) { know(element.offset, element.size); };
  forEachValue(data.root(), {}, knowValue);
  for (std::size_t i = 0; i < isKnown.size(); ++i) {
    if (!isKnown[i] && !isSilent(block.bytes[i])) return RedactionReach::Fields;
  }
  return RedactionReach::All;
}

std::vector<std::string> redactBlock(MutableBytes block, const BlockView& view) {
  std::vector<std::string> taken;
  if (view.row == nullptr) return taken;
  const unsigned short before = restOfSum(block);
  const BlockData data(view, Extent::Capacity);
  const auto erase = [&](const DataPath& path, const FieldElement& element) {
    if (!element.field->isPersonal || element.offset >= block.size()) return;
    // A block that is cut off may end within the field.
    const MutableBytes bytes = block.subspan(element.offset, std::min(element.size, block.size() - element.offset));
    if (std::ranges::all_of(bytes, [](unsigned char byte) { return byte == 0; })) return;
    std::ranges::fill(bytes, static_cast<unsigned char>(0));
    std::string name = path.text(false);
    if (taken.empty() || taken.back() != name) taken.push_back(std::move(name));
  };
  forEachValue(data.root(), {}, erase);
  if (taken.empty() || block.size() < sizeof(HwSDatablockHeader)) return taken;
  const auto stored = detail::load<unsigned short>(block, checksumOffset);
  detail::store(block, checksumOffset, static_cast<unsigned short>(stored + before - restOfSum(block)));
  return taken;
}

}  // namespace Velk
