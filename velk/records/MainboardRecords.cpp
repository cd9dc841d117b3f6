#include "velk/records/MainboardRecords.h"

#include <algorithm>
#include <cstring>

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& HwDatablockMbrdSerialNumber::printToStream(std::ostream& os) {
  return detail::printKeyedFields(os, bytes(), traits);
}

QString HwDatablockMbrdModel::getModel() const {
  const std::string_view name = getText(&HwSDatablockMbrdModel::model);
  return QString::fromLocal8Bit(name.data(), static_cast<qsizetype>(name.size()));
}

void HwDatablockMbrdModel::setModel(const QString& model) {
  setText(&HwSDatablockMbrdModel::model, model.toLocal8Bit(), longestName);
}

int HwDatablockMbrdModel::setBlock(const HwSDatablockMbrdModel* record) {
  if (!acceptRecord(record)) return 1;
  swapBlock(record);
  return 0;
}

void HwDatablockMbrdModel::swapBlock(const HwSDatablockMbrdModel* record) {
  if (record == nullptr) return;
  const char last = getBlock()->model[longestName];
  HwTypedRecordBlock::swapBlock(record);
  getBlock()->model[longestName] = last;
}

std::ostream& HwDatablockMbrdModel::printToStream(std::ostream& os) {
  return detail::printKeyedFields(os, bytes(), traits);
}

HwDatablockMbrdMac::HwDatablockMbrdMac() : HwTypedRecordBlock(traits, true) {
  std::ranges::fill(getBlock()->mac, static_cast<unsigned char>(0xFF));
  std::ranges::fill(getBlock()->reserved, static_cast<unsigned char>(0xFF));
}

unsigned char* HwDatablockMbrdMac::getMac(unsigned int* length) {
  if (length != nullptr) *length = getMacLength();
  return getBlock()->mac;
}

void HwDatablockMbrdMac::setMac(const unsigned char* bytes, unsigned int length) {
  if (bytes == nullptr) return;
  constexpr unsigned int room = sizeof HwSDatablockMbrdMac::mac;
  unsigned char address[room];
  std::ranges::fill(address, static_cast<unsigned char>(0xFF));
  std::memcpy(address, bytes, std::min(length, room));
  HwSDatablockMbrdMac* const record = getBlock();
  std::ranges::copy(address, record->mac);
  store(offsetof(HwSDatablockMbrdMac, macLength), length);
}

int HwDatablockMbrdMac::setBlock(const HwSDatablockMbrdMac* record) {
  if (!acceptRecord(record)) return 1;
  const HwSDatablockHeader header = record->header;
  setMac(record->mac, sizeof record->mac);
  setBlockId(header.id);
  setBlockSize(header.blockSize);
  setAlignment(header.alignment);
  setChecksum(header.checksum);
  return 0;
}

std::ostream& HwObelDatablockAnalogOutputCalibration::printToStream(std::ostream& os) { return os; }

}  // namespace Velk
