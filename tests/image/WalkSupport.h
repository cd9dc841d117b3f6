#pragma once

#include "ImageBuilder.h"
#include "velk/image/MemoryImage.h"
#include "velk/records/HwDatablockIdent.h"

namespace VelkTest {

/// "0 IDENT_2 44 sound, 44 END 4 sound": what the walk sees, one block after another.
inline std::string walked(const QByteArray& bytes, std::uint64_t start = 0, std::uint64_t sectorSize = 0) {
  std::string text;
  for (const Velk::BlockView& block : Velk::MemoryImage(bytes, start, sectorSize)) {
    if (!text.empty()) text += ", ";
    text += std::to_string(block.offset) + ' ' + blockName(block) + ' ' + std::to_string(block.bytes.size()) + ' ' +
            verdictName(block);
  }
  return text;
}

inline Velk::HwDatablockIdent ident(unsigned serialNumber) {
  Velk::HwDatablockIdent block;
  block.setSerialNumber(serialNumber);
  return block;
}

inline QByteArray twoIdents() {
  Velk::HwDatablockIdent first = ident(1);
  Velk::HwDatablockIdent second = ident(2);
  return Examples::ImageBuilder().add(first).add(second).finish(128);
}

}  // namespace VelkTest
