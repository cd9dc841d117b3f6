#include "velk/records/HwDatablockCommonStatisticData.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

constexpr unsigned int room = sizeof HwSDatablockCommonStatisticData::data;

}  // namespace

HwDatablockCommonStatisticData::HwDatablockCommonStatisticData(int instance)
    : HwTypedRecordBlock(traits, true, static_cast<unsigned short>(instance)), instance_(instance) {
  store(offsetof(HwSDatablockCommonStatisticData, length), room);
}

unsigned char* HwDatablockCommonStatisticData::getCommonStatisticData(unsigned int* length) {
  if (length != nullptr) *length = getCommonStatisticDataLength();
  return getBlock()->data;
}

void HwDatablockCommonStatisticData::setCommonStatisticData(const unsigned char* data, unsigned int length) {
  if (data == nullptr) return;
  const unsigned int taken = std::min(length, room);
  std::memmove(getBlock()->data, data, taken);
  store(offsetof(HwSDatablockCommonStatisticData, length), taken);
}

int HwDatablockCommonStatisticData::setBlock(const HwSDatablockCommonStatisticData* record) {
  if (record == nullptr) return 1;
  const HwSDatablockCommonStatisticData taken = *record;
  setBlockId(taken.header.id);
  setAlignment(taken.header.alignment);
  setCommonStatisticData(taken.data, taken.length);
  return 0;
}

void HwDatablockCommonStatisticData::swapBlock(HwSDatablockCommonStatisticData* record) {
  if (record == nullptr) return;
  const HwSDatablockHeader header = record->header;
  setBlockSize(header.blockSize);
  setBlockId(header.id);
  setAlignment(0);
  setChecksum(header.checksum);
}

std::ostream& HwDatablockCommonStatisticData::printToStream(std::ostream& os) {
  detail::TextWriter text(os);
  text.line(traits.comments[0]);
  text.text("ID: \t ").text(key()).endLine();
  const unsigned int valid = std::min(getCommonStatisticDataLength(), room);
  for (unsigned int i = 0; i < room && text.ok(); ++i) {
    const unsigned char byte = i < valid ? get(&HwSDatablockCommonStatisticData::data, i) : 0;
    text.number(i + 1).text(": \t").number(byte).endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
