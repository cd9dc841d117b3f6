#pragma once

#include "velk/Export.h"

namespace Velk {

class HwDatablock;

/// The store that keeps the blocks of a module memory; the caller implements it.
class VELK_EXPORT IHwVariantEeprom {
 public:
  virtual ~IHwVariantEeprom() = default;

  /// Stores `block`, which belongs to the store from now on, under its id.
  virtual void writeDatablock(unsigned int blockId, HwDatablock* block) = 0;
};

}  // namespace Velk
