#include <string>

#include "velk/datablock/Checksums.h"
#include "velk/datablock/HwDatablock.h"
#include "velk/platform/Console.h"
#include "velk/platform/Debug.h"
#include "velk/platform/ErrorLog.h"

namespace Velk {
namespace {

void printToErrorLog(const QString& text) {
  const std::string line = text.toStdString();
  Console::write(Console::Stream::Error, line);
  if (std::FILE* const log = ErrorLog::getLogAccess()) {
    std::fwrite(line.data(), 1, line.size(), log);
    std::fflush(log);
  }
}

void warnOfOddSize(unsigned short size) {
  if (size % 2 != 0) {
    Debug::debugMessageBox("Compute datablock checksum", "Block size not an even number !", true, 2, 17, 0, 0);
  }
}

detail::ConstBytes record(const unsigned short* words, unsigned short byteCount) {
  return {reinterpret_cast<const unsigned char*>(words), byteCount};
}

}  // namespace

detail::ConstBytes HwDatablock::checkedBytes(unsigned short id, unsigned short blockSize, const char* operation) const {
  const detail::ConstBytes all = bytes();
  if (blockSize <= all.size()) return all.first(blockSize);
  printToErrorLog(
      QString::asprintf("HwDatablock::%s: size mismatch (blockId %d swapBlockId %d blockSize %d / arraySize %d)\n",
                        operation, id, id, blockSize, static_cast<int>(all.size())));
  return all;
}

void HwDatablock::reportWrongChecksum() {
  if (chkdbg(HwProtocolTypeEeprom, HwProtocolLevelWarning)) {
    dbgout(QString::asprintf("verifyChecksum(): Wrong checksum! at EepromBlockId %u", getId()));
  }
}

unsigned short HwDatablock::computeChecksum(unsigned short* words, unsigned short byteCount) {
  warnOfOddSize(byteCount);
  return detail::checksumOf(record(words, byteCount));
}

bool HwDatablock::verifyChecksum(unsigned short* words, unsigned short byteCount, bool /*flag*/) {
  if (detail::sumOfWords(record(words, byteCount)) == 0) return true;
  reportWrongChecksum();
  return false;
}

unsigned short HwDatablock::computeChecksum() {
  const HwEDataFormatTyp format = getDataFormatTyp();
  const unsigned short id = getId();
  const unsigned short blockSize = getBlockSize();
  swapDataTo(INTEL_Conform, id, this);
  warnOfOddSize(blockSize);
  setChecksum(0);
  const unsigned short checksum = detail::checksumOf(checkedBytes(id, blockSize, "computeChecksum"));
  swapDataTo(format, id, this);
  return checksum;
}

bool HwDatablock::verifyChecksum() {
  const HwEDataFormatTyp format = getDataFormatTyp();
  const unsigned short id = getId();
  const unsigned short blockSize = getBlockSize();
  swapDataTo(INTEL_Conform, id, this);
  const detail::ConstBytes block = checkedBytes(id, blockSize, "verifyChecksum");
  const std::size_t size = block.size();
  const bool right = size != 0 && detail::sumOfWords(block) == 0;
  if (!right) reportWrongChecksum();
  swapDataTo(format, id, this);
  if (!right && size % 4 != 0) printToErrorLog(QString::asprintf("Alignment of Block %d is wrong!\n", id));
  return right;
}

unsigned int HwDatablock::computeChecksum32(unsigned char* bytes, unsigned int count) {
  if (getDataFormatTyp() == INTEL_Conform) return detail::crcOf({bytes, count});
  QByteArray copy(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(count));
  swapBlock(INTEL_Conform, copy.data(), static_cast<unsigned short>(count));
  return detail::crcOf({reinterpret_cast<const unsigned char*>(copy.constData()), count});
}

unsigned int HwDatablock::computeChecksum32() {
  const std::size_t size = std::min<std::size_t>(getBlockSize(), bytes().size());
  // The image is only read; the signature lacks the const.
  return computeChecksum32(const_cast<unsigned char*>(bytes().data()), static_cast<unsigned int>(size));
}

bool HwDatablock::verifyChecksum32() {
  unsigned int stored = getChecksum32();
  unsigned short blockSize = getBlockSize();
  if (getDataFormatTyp() == INTEL_Conform) {
    SwapIntel2Ppc(blockSize);
    SwapIntel2Ppc(stored);
  }
  if (blockSize >= detail::shortestCrcBlock) {
    if (computeChecksum32() == stored) return true;
    if (getMagicIdentifierEventCount() == stored) {
      setDatablockClassTyp(HwDatablockClassEventCounter);
      return true;
    }
  }
  reportWrongChecksum();
  return false;
}

bool HwDatablock::verifyChecksum32(unsigned char* bytes, unsigned int count) {
  Console::write(Console::Stream::Error, "OUCH!!! Wieos bin ich jetzert hier?\n");
  if (count < detail::shortestCrcBlock) return false;
  if (computeChecksum32(bytes, count) == getChecksum32()) return true;
  reportWrongChecksum();
  return false;
}

}  // namespace Velk
