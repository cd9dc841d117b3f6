#pragma once

#include "velk/edition2/HwDatablock2Edition.h"

namespace Velk {

/// The event counters of a module: a second-edition header and, from offset 12 on, counters whose layout is their
/// owner's. A counter changes byte by byte in the memory, so that no CRC-32 could stay right; the block carries an
/// identifier in its place that depends on its size alone.
class VELK_EXPORT HwDatablockEventCount : public HwDatablock2Edition {
 public:
  /// An empty block of 12 bytes that carries the identifier.
  HwDatablockEventCount();

  using HwDatablock2Edition::setData;
  /// Takes any bytes and stores the identifier of their block size; always true.
  bool setData(const unsigned char* data, unsigned int length) override;

  /// Makes the bytes an event counter block by storing the identifier; always true.
  bool makeDatablock2HwEventCount();
  /// Changes one byte; does nothing beyond the block's end. Always true.
  bool updateEventCountBlock(unsigned int position, char value);
};

}  // namespace Velk
