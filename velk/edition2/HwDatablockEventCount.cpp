#include "velk/edition2/HwDatablockEventCount.h"

namespace Velk {

HwDatablockEventCount::HwDatablockEventCount() { makeDatablock2HwEventCount(); }

bool HwDatablockEventCount::setData(const unsigned char* data, unsigned int length) {
  HwDatablock::setDataWithoutChecksumCheck(data, length);
  return makeDatablock2HwEventCount();
}

bool HwDatablockEventCount::makeDatablock2HwEventCount() {
  setDatablockClassTyp(HwDatablockClassEventCounter);
  unsigned int identifier = getMagicIdentifierEventCount();
  if (getDataFormatTyp() == INTEL_Conform) SwapIntel2Ppc(identifier);
  return setChecksum32(identifier);
}

bool HwDatablockEventCount::updateEventCountBlock(unsigned int position, char value) {
  store(position, value);
  return true;
}

}  // namespace Velk
