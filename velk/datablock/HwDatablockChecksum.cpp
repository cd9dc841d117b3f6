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

ConstBytes record(const unsigned short* words, unsigned short byteCount) {
  return {reinterpret_cast<const unsigned char*>(words), byteCount};
}

/// Holds a block in the layout that its checksum covers. Reads the block's id and size first, since a conversion may
/// change them.
class StoredLayout {
 public:
  explicit StoredLayout(HwDatablock& block)
      : block_(block), format_(block.getDataFormatTyp()), id_(block.getId()), blockSize_(block.getBlockSize()) {
    if (format_ != INTEL_Conform) block.swapDataTo(INTEL_Conform, id_, &block);
  }
  StoredLayout(const StoredLayout&) = delete;
  StoredLayout& operator=(const StoredLayout&) = delete;
  ~StoredLayout() {
    if (format_ != INTEL_Conform) block_.swapDataTo(format_, id_, &block_);
  }

  unsigned short id() const { return id_; }
  unsigned short blockSize() const { return blockSize_; }

 private:
  HwDatablock& block_;
  HwEDataFormatTyp format_;
  unsigned short id_;
  unsigned short blockSize_;
};

[[gnu::cold]] void reportAlignment(unsigned short id) {
  printToErrorLog(QString::asprintf("Alignment of Block %d is wrong!\n", id));
}

[[gnu::cold]] void reportSize(const char* operation, unsigned short id, unsigned short blockSize, std::size_t size) {
  printToErrorLog(
      QString::asprintf("HwDatablock::%s: size mismatch (blockId %d swapBlockId %d blockSize %d / arraySize %d)\n",
                        operation, id, id, blockSize, static_cast<int>(size)));
}

}  // namespace

ConstBytes HwDatablock::checkedBytes(unsigned short id, unsigned short blockSize, const char* operation) const {
  const ConstBytes all = bytes();
  if (blockSize <= all.size()) return all.first(blockSize);
  reportSize(operation, id, blockSize, all.size());
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
  const StoredLayout stored(*this);
  warnOfOddSize(stored.blockSize());
  setChecksum(0);
  return detail::checksumOf(checkedBytes(stored.id(), stored.blockSize(), "computeChecksum"));
}

bool HwDatablock::verifyChecksum() {
  std::size_t size = 0;
  unsigned short id = 0;
  {
    const StoredLayout stored(*this);
    const ConstBytes block = checkedBytes(stored.id(), stored.blockSize(), "verifyChecksum");
    if (!block.empty() && detail::sumOfWords(block) == 0) return true;
    reportWrongChecksum();
    size = block.size();
    id = stored.id();
  }
  if (size % 4 != 0) reportAlignment(id);
  return false;
}

unsigned int HwDatablock::computeChecksum32(unsigned char* bytes, unsigned int count) {
  if (getDataFormatTyp() == INTEL_Conform) return detail::crcOf({bytes, count});
  QByteArray copy(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(count));
  swapBlock(INTEL_Conform, copy.data(), static_cast<unsigned short>(count));
  return detail::crcOf(bytesOf(copy));
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
