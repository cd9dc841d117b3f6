#pragma once

#include "velk/Export.h"

namespace Velk {

class HwDatablock;

/// The store that keeps the blocks of a module memory; the caller implements it.
class VELK_EXPORT IHwVariantEeprom {
 public:
  virtual ~IHwVariantEeprom() = default;

  /// Stores `block` under its id, and takes ownership of it.
  virtual void writeDatablock(unsigned int blockId, HwDatablock* block) = 0;
};

}  // namespace Velk
