#include "velk/datablock/HwDatablock.h"

#include <ostream>
#include <string>

#include "velk/bytes/HexText.h"
#include "velk/datablock/Checksums.h"
#include "velk/diag/HwErrors.h"
#include "velk/platform/Console.h"

namespace Velk {
namespace {

constexpr std::size_t idOffset = offsetof(HwSDatablockHeader, id);
constexpr std::size_t sizeOffset = offsetof(HwSDatablockHeader, blockSize);
constexpr std::size_t checksumOffset = offsetof(HwSDatablockHeader, checksum);
constexpr std::size_t alignmentOffset = offsetof(HwSDatablockHeader, alignment);

constexpr unsigned short erasedBlockSize = 4;

}  // namespace

HwDatablock::HwDatablock(bool stopConversionOnError)
    : stopConversionOnError_(stopConversionOnError), data_(sizeof(HwSDatablockHeader), '\0') {
  store<unsigned short>(sizeOffset, sizeof(HwSDatablockHeader));
}

MutableBytes HwDatablock::mutableBytes() { return mutableBytesOf(data_); }

unsigned short HwDatablock::getId() { return load<unsigned short>(idOffset); }

unsigned short HwDatablock::getBlockSize() {
  const bool erased = load<unsigned short>(idOffset) == erasedBlockId && bytes().size() >= erasedBlockSize;
  return erased ? erasedBlockSize : load<unsigned short>(sizeOffset);
}

unsigned short HwDatablock::getChecksum() { return load<unsigned short>(checksumOffset); }

unsigned short HwDatablock::getAlignment() { return load<unsigned short>(alignmentOffset); }

unsigned char* HwDatablock::getData() { return mutableBytes().data(); }

QByteArray HwDatablock::getByteArrayData() { return data_; }

unsigned int HwDatablock::getEepromAddress() { return eepromAddress_; }

unsigned int HwDatablock::getEepromSector() { return eepromSector_; }

HwEDataFormatTyp HwDatablock::getDataFormatTyp() { return dataFormat_; }

HwEDatablockClassTyp HwDatablock::getDatablockClassTyp() { return classType_; }

unsigned int HwDatablock::getMagicIdentifierEventCount() {
  unsigned short blockSize = getBlockSize();
  if (getDataFormatTyp() == INTEL_Conform) SwapIntel2Ppc(blockSize);
  return detail::eventCounterMagic(blockSize);
}

bool HwDatablock::getStopConversionOnError() { return stopConversionOnError_; }

void HwDatablock::replaceDataInList(HwDatablock* other) {
  if (other != nullptr) data_ = other->getByteArrayData();
}

void HwDatablock::setBlockId(unsigned short id) {
  if (store(idOffset, id)) setChecksum(computeChecksum());
}

void HwDatablock::setBlockSize(unsigned short size) {
  if (store(sizeOffset, size)) setChecksum(computeChecksum());
}

void HwDatablock::setBlockSizeWithoutCalcChecksumm(unsigned short size) { store(sizeOffset, size); }

void HwDatablock::setChecksum(unsigned short checksum) { store(checksumOffset, checksum); }

void HwDatablock::setAlignment(unsigned short alignment) {
  if (store(alignmentOffset, alignment)) setChecksum(computeChecksum());
}

bool HwDatablock::setData(QByteArray bytes) {
  data_ = std::move(bytes);
  return verifyChecksum();
}

bool HwDatablock::setData(HwDatablock* source) {
  return setDataWithoutChecksumCheck(source) && source->verifyChecksum();
}

bool HwDatablock::setDataWithoutChecksumCheck(HwDatablock* source) {
  if (source == nullptr) return false;
  data_ = source->getByteArrayData();
  dataFormat_ = source->getDataFormatTyp();
  return true;
}

bool HwDatablock::setData(const unsigned char* bytes, unsigned int count) {
  return bytes != nullptr && setDataWithoutChecksumCheck(bytes, count) && verifyChecksum();
}

bool HwDatablock::setDataWithoutChecksumCheck(const unsigned char* bytes, unsigned int count) {
  if (bytes != nullptr) data_ = QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(count));
  return true;
}

void HwDatablock::setHwDatablockFirmwareConform(HwDatablock* source) {
  if (source == nullptr) return;
  if (source->getDataFormatTyp() != INTEL_Conform) {
    const unsigned short id = source->getId();
    setDataWithoutChecksumCheck(source);
    swapDataTo(INTEL_Conform, id, source);
    source->setDataFormatTyp(INTEL_Conform);
  }
  setData(source);
}

bool HwDatablock::setEepromAddress(unsigned int address) {
  eepromAddress_ = address;
  return true;
}

bool HwDatablock::setEepromSector(unsigned int sector) {
  eepromSector_ = sector;
  return true;
}

bool HwDatablock::setDataFormatTyp(HwEDataFormatTyp format) {
  dataFormat_ = format;
  return true;
}

bool HwDatablock::setDatablockClassTyp(HwEDatablockClassTyp type) {
  classType_ = type;
  return true;
}

void HwDatablock::resizeData(unsigned int size) {
  const auto wanted = static_cast<qsizetype>(size);
  const qsizetype had = data_.size();
  if (wanted > had) {
    data_.append(wanted - had, '\0');
  } else if (wanted < had) {
    data_ = QByteArray(data_.constData(), wanted);
  }
}

std::ostream& HwDatablock::printToStream(std::ostream& os) {
  constexpr std::size_t lineLength = 60;
  const auto* const text = reinterpret_cast<const char*>(bytes().data());
  const std::size_t count = bytes().size();
  os << std::endl;
  // The first line is one byte longer than the others.
  for (std::size_t from = 0, to = 0; from < count && os; from = to) {
    to = std::min(count, from + lineLength + (from == 0 ? 1 : 0));
    os.write(text + from, static_cast<std::streamsize>(to - from));
    if (to < count) os << std::endl;
  }
  return os << std::endl;
}

unsigned int HwDatablock::getChecksum32() { return load<unsigned int>(detail::crcOffset); }

void HwDatablock::setDatablockToCorrupt(bool corrupt) { corrupt_ = corrupt; }

void HwDatablock::printHexDump(char* bytes, unsigned int count) {
  constexpr unsigned int bytesPerLine = 16;
  std::string line;
  for (unsigned int i = 0; i < count; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    line += {detail::lowerHexDigits[byte >> 4U], detail::lowerHexDigits[byte & 0xFU], ' '};
    if ((i + 1) % bytesPerLine == 0) {
      line += '\n';
      Console::write(Console::Stream::Output, line);
      line.clear();
    }
  }
  Console::write(Console::Stream::Output, line + '\n');
}

void HwDatablock::registerErrors() { registerEprDataErrors(); }

}  // namespace Velk
