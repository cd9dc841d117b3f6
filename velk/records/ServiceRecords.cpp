#include "velk/records/ServiceRecords.h"

#include <algorithm>
#include <ostream>

#include "velk/layer/RecordText.h"

namespace Velk {

HwDatablockServiceData::HwDatablockServiceData() : HwDatablockServiceData(0, nullptr) {}

HwDatablockServiceData::HwDatablockServiceData(HwEVariantEepromDatablock id)
    : HwDatablockServiceData(static_cast<unsigned short>(id), nullptr) {}

HwDatablockServiceData::HwDatablockServiceData(unsigned short id, std::nullptr_t)
    : HwTypedRecordBlock(traits, true, id) {
  std::ranges::fill(getBlock()->department, '0');
}

void HwDatablockServiceData::setDepartment(const char* department) {
  constexpr qsizetype length = sizeof HwSDatablockServiceData::department;
  if (department != nullptr) setText(&HwSDatablockServiceData::department, QByteArray(department, length));
}

void HwDatablockServiceData::setServiceDateDay(unsigned short day) {
  PackedDate changed = date();
  changed.day = day;
  setServiceDate(changed.packed());
}

void HwDatablockServiceData::setServiceDateMonth(unsigned short month) {
  PackedDate changed = date();
  changed.month = month;
  setServiceDate(changed.packed());
}

void HwDatablockServiceData::setServiceDateYear(unsigned short year) {
  PackedDate changed = date();
  changed.year = year;
  setServiceDate(changed.packed());
}

std::ostream& HwDatablockServiceData::printToStream(std::ostream& os) {
  return detail::printKeyedFields(os, bytes(), traits);
}

std::ostream& HwModificationBlock::printToStream(std::ostream& os) {
  return detail::printKeyedFields(os, bytes(), ownTraits());
}

HwDatablockModification120::HwDatablockModification120() : HwDatablock(true) {
  store(offsetof(HwSDatablockHeader, id), traits.id);
  reInterpretData();
}

void HwDatablockModification120::reInterpretData() {
  header_ = {load<unsigned short>(offsetof(HwSDatablockHeader, id)),
             load<unsigned short>(offsetof(HwSDatablockHeader, blockSize)),
             load<unsigned short>(offsetof(HwSDatablockHeader, checksum)),
             load<unsigned short>(offsetof(HwSDatablockHeader, alignment))};
  const std::size_t words = bytes().size() / sizeof(unsigned int);
  constexpr std::size_t headerWords = sizeof(HwSDatablockHeader) / sizeof(unsigned int);
  serviceCodes_.resize(words < headerWords ? 0 : words - headerWords);
  for (std::size_t i = 0; i < serviceCodes_.size(); ++i) {
    serviceCodes_[i] = load<unsigned int>((headerWords + i) * sizeof(unsigned int));
  }
}

unsigned int HwDatablockModification120::getNumberOfServiceCode() {
  reInterpretData();
  return static_cast<unsigned int>(serviceCodes_.size());
}

unsigned int HwDatablockModification120::getServiceCode(unsigned int index) {
  return index < getNumberOfServiceCode() ? serviceCodes_[index] : 0;
}

void HwDatablockModification120::swapBlock() {
  // Converting the words would leave the buffer unchanged on this host.
  reInterpretData();
}

std::ostream& HwDatablockModification120::printToStream(std::ostream& os) {
  reInterpretData();
  detail::TextWriter text(os);
  text.line(traits.comments[0]);
  text.key("ID:").text(traits.keys[0]).endLine();
  for (std::size_t i = 0; i < serviceCodes_.size() && text.ok(); ++i) {
    detail::printKey(text, modification120Fields[0]).number(serviceCodes_[i]).endLine();
  }
  text.endLine();
  return os;
}

std::ostream& HwDatablockStatistic::printToStream(std::ostream& os) {
  return detail::printKeyedFields(os, bytes(), traits);
}

}  // namespace Velk
