#pragma once

#include <QByteArray>

#include "velk/Export.h"

namespace Velk {

/// A second-edition block as generic code sees it. The `part` of the four getters selects a part of the block in
/// implementations that have several; readers of this library pass 0.
class VELK_EXPORT IHwDatablockAccess {
 public:
  virtual ~IHwDatablockAccess() = default;

  virtual unsigned short getNumberOfRows(unsigned int part) = 0;
  virtual unsigned short getNumberOfColumns(unsigned int part) = 0;
  /// Returns the first byte. At least getBlockSize bytes follow, except in an HwDatablock, which may be shorter.
  virtual unsigned char* getData(unsigned int part) = 0;
  virtual unsigned short getBlockSize(unsigned int part) = 0;
  virtual bool setData(QByteArray bytes) = 0;
  virtual unsigned short computeChecksum() = 0;
  virtual unsigned int computeChecksum32() = 0;
  virtual unsigned short getId() = 0;
  virtual bool setEepromAddress(unsigned int address) = 0;
  virtual bool setEepromSector(unsigned int sector) = 0;
  virtual unsigned int getEepromSector() = 0;
  virtual double getUpdateIndex() = 0;
  /// Returns whether the block is a header and 4-byte entries, without tables.
  virtual bool isListFormat() = 0;
  virtual void setListFormat(bool list) = 0;
};

}  // namespace Velk
