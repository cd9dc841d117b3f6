#pragma once

#include <QByteArray>

#include "velk/datablock/HwDatablock.h"
#include "velk/datablock/HwDatablockEnd.h"

namespace Examples {

/// Builds a module memory: blocks one after another, then the end block and erased memory.
class ImageBuilder {
 public:
  ImageBuilder& add(Velk::HwDatablock& block) {
    bytes_ += block.getByteArrayData();
    return *this;
  }
  /// Adds a block of an id without a class.
  ImageBuilder& add(unsigned short id, const QByteArray& payload) {
    Velk::HwDatablock block(true);
    QByteArray bytes = block.getByteArrayData() + payload;
    block.setData(bytes);
    block.setBlockSize(static_cast<unsigned short>(bytes.size()));
    block.setBlockId(id);
    return add(block);
  }
  QByteArray finish(qsizetype memorySize) {
    Velk::HwDatablockEnd end;
    add(end);
    bytes_.append(std::max<qsizetype>(0, memorySize - bytes_.size()), '\xFF');
    return bytes_;
  }

 private:
  QByteArray bytes_;
};

}  // namespace Examples
