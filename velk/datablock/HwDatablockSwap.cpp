#include "velk/datablock/HwDatablock.h"
#include "velk/datablock/OldStyleConversion.h"

namespace Velk {

void HwDatablock::SwapIntel2Ppc(unsigned short& value) { detail::swapStoredAndHost(value); }

void HwDatablock::SwapIntel2Ppc(short& value) { detail::swapStoredAndHost(value); }

void HwDatablock::SwapIntel2Ppc(unsigned int& value) { detail::swapStoredAndHost(value); }

void HwDatablock::SwapIntel2Ppc(unsigned long& value) {
  constexpr unsigned long lower = 0xFFFFFFFFUL;
  auto half = static_cast<unsigned int>(value & lower);
  detail::swapStoredAndHost(half);
  value = (value & ~lower) | half;
}

void HwDatablock::SwapIntel2Ppc(int& value) { detail::swapStoredAndHost(value); }

void HwDatablock::SwapIntel2Ppc(float& value) { detail::swapStoredAndHost(value); }

void HwDatablock::SwapIntel2Ppc(double& value) { detail::swapStoredAndHost(value); }

void HwDatablock::SwapCharString(char* /*text*/, unsigned int /*length*/) {
  // Characters have no byte order.
}

void HwDatablock::swapBlock(HwEDataFormatTyp /*target*/, char* /*bytes*/, unsigned short /*length*/) {
  // Every item of a second-edition image passes through the primitives above, which change nothing on a host whose
  // layout is the stored one.
  static_assert(std::endian::native == std::endian::little, "a big-endian host has to walk the image");
}

void HwDatablock::swapBlock(HwEDataFormatTyp target, unsigned short /*id*/, HwDatablock* /*block*/) {
  if (getDataFormatTyp() == target) return;
  swapBlock(target, data_.data(), static_cast<unsigned short>(data_.size()));
  setDataFormatTyp(target);
}

void HwDatablock::swapDataTo(HwEDataFormatTyp target, unsigned short id, HwDatablock* block) {
  if (block->getDataFormatTyp() == target) return;
  if (block->verifyChecksum32()) {
    block->swapBlock(target, id, block);
  } else {
    detail::convertOldStyleBlock(target, id, block);
  }
}

}  // namespace Velk
