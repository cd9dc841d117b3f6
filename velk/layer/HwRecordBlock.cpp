#include "velk/layer/HwRecordBlock.h"

#include <algorithm>
#include <cstring>

#include "velk/diag/HwErrors.h"
#include "velk/layer/RecordText.h"
#include "velk/platform/ErrorManager.h"

namespace Velk {
namespace detail {

void applyRecordRules(MutableBytes record, const RecordTraits& traits, AlignmentRule alignment) {
  store(record, offsetof(HwSDatablockHeader, blockSize), traits.size);
  if (alignment == AlignmentRule::Clear) store<unsigned short>(record, offsetof(HwSDatablockHeader, alignment), 0);
  const MutableBytes name = record.subspan(traits.name.offset, traits.name.length);
  std::fill(std::find(name.begin(), name.end(), 0), name.end(), static_cast<unsigned char>(0));
}

}  // namespace detail

namespace {

HwSDatablockHeader headerOf(const void* record) {
  HwSDatablockHeader header{};
  if (record != nullptr) std::memcpy(&header, record, sizeof header);
  return header;
}

}  // namespace

HwRecordBlock::HwRecordBlock(const RecordTraits& traits, bool stopConversionOnError)
    : HwRecordBlock(traits, stopConversionOnError, traits.id) {}

HwRecordBlock::HwRecordBlock(const RecordTraits& traits, bool stopConversionOnError, unsigned short id)
    : HwDatablock(stopConversionOnError), traits_(&traits) {
  HwDatablock::resizeData(traits.size);
  store(offsetof(HwSDatablockHeader, id), id);
  store(offsetof(HwSDatablockHeader, blockSize), traits.size);
}

std::ostream& HwRecordBlock::printToStream(std::ostream& os) { return detail::printFields(os, bytes(), *traits_); }

unsigned char* HwRecordBlock::recordBytes(std::size_t size) {
  if (bytes().size() < size) resizeData(static_cast<unsigned>(size));
  return mutableBytes().data();
}

bool HwRecordBlock::acceptRecord(const void* record, bool isEmpty) {
  if (record != nullptr && isAcceptable(record, isEmpty)) return true;
  const bool named = *traits_->refusal != '\0';
  const QByteArray refused = named ? "   " + QByteArray(traits_->refusal) : QByteArray::number(headerOf(record).id);
  ErrorManager()->signal(IdErrEprDataEepromVerifyChksumFailed, refused.constData());
  return false;
}

bool HwRecordBlock::isAcceptable(const void* record, bool isEmpty) {
  // The record is only read; the signature lacks the const.
  auto* const words = static_cast<unsigned short*>(const_cast<void*>(record));
  const bool isRight = verifyChecksum(words, traits_->size, true);
  const HwSDatablockHeader header = headerOf(record);
  const bool isOwn = header.id == traits_->id && header.blockSize == traits_->size;
  switch (traits_->acceptance) {
    case Acceptance::Checksum:
      return isRight;
    case Acceptance::ChecksumOrEmpty:
      return isRight || isEmpty;
    case Acceptance::ChecksumOrHeader:
      return isRight || isOwn;
    case Acceptance::ChecksumOrBlankHeader:
      return isRight || (isOwn && header.alignment == 0);
    case Acceptance::ChecksumAndHeader:
      return isRight && isOwn;
  }
  return false;
}

int HwRecordBlock::setRecord(const void* record, bool isEmpty) {
  if (!acceptRecord(record, isEmpty)) return 1;
  copyRecord(record, traits_->onSet);
  return 0;
}

void HwRecordBlock::swapRecord(const void* record) {
  if (record != nullptr) copyRecord(record, traits_->onSwap);
}

void HwRecordBlock::copyRecord(const void* record, AlignmentRule alignment) {
  unsigned char* const own = recordBytes(traits_->size);
  std::memmove(own, record, traits_->size);
  detail::applyRecordRules({own, traits_->size}, *traits_, alignment);
}

std::string_view HwRecordBlock::loadText(std::size_t offset, std::size_t length) const {
  return detail::textAt(bytes(), offset, length);
}

void HwRecordBlock::storeText(std::size_t offset, std::size_t length, const QByteArray& text) {
  for (std::size_t i = 0; i < length; ++i) {
    const auto at = static_cast<qsizetype>(i);
    store(offset + i, at < text.size() ? text.at(at) : '\0');
  }
  storeFreshChecksum();
}

}  // namespace Velk
