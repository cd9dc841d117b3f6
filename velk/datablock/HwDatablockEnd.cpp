#include "velk/datablock/HwDatablockEnd.h"

#include "velk/text/TextWriter.h"

namespace Velk {

HwDatablockEnd::HwDatablockEnd() : HwDatablock(true) {
  HwDatablock::resizeData(sizeof(HwSDatablockEnd));
  setEndBlock();
}

HwSDatablockEnd* HwDatablockEnd::getBlock() {
  if (bytes().size() < sizeof(HwSDatablockEnd)) resizeData(sizeof(HwSDatablockEnd));
  return reinterpret_cast<HwSDatablockEnd*>(mutableBytes().data());
}

void HwDatablockEnd::setEndBlock() {
  setEndBlockID(erasedBlockId);
  setEndBlockData(0);
}

void HwDatablockEnd::setEndBlockID(unsigned short id) { store(offsetof(HwSDatablockEnd, id), id); }

void HwDatablockEnd::setEndBlockData(unsigned short data) { store(offsetof(HwSDatablockEnd, data), data); }

int HwDatablockEnd::setBlock(const HwSDatablockEnd* record) {
  if (record == nullptr) return 1;
  const HwSDatablockEnd taken = *record;
  setEndBlockID(taken.id);
  setEndBlockData(taken.data);
  return 0;
}

unsigned short HwDatablockEnd::computeChecksum() { return 0; }

unsigned short HwDatablockEnd::getBlockSize() {
  return bytes().size() >= sizeof(HwSDatablockEnd) ? static_cast<unsigned short>(bytes().size()) : 0;
}

unsigned short HwDatablockEnd::getChecksum() { return 0; }

bool HwDatablockEnd::verifyChecksum() { return true; }

void HwDatablockEnd::setChecksum(unsigned short /*checksum*/) {}

std::ostream& HwDatablockEnd::printToStream(std::ostream& os) {
  detail::TextWriter text(os);
  text.line("# Das ist der END Block");
  text.key("ID:").text("END").endLine();
  text.endLine();
  return os;
}

unsigned short HwDatablockEnd::computeChecksum(unsigned short* /*words*/, short /*byteCount*/) { return 0; }

bool HwDatablockEnd::verifyChecksum(unsigned short* /*words*/, short /*byteCount*/) { return true; }

}  // namespace Velk
