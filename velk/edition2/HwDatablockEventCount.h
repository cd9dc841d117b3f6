#pragma once

#include "velk/edition2/HwDatablock2Edition.h"

namespace Velk {

/// The event counters of a module: a second-edition header and, from offset 12 on, counters whose layout their owner
/// defines. A counter changes byte by byte in the memory, so no CRC-32 could stay valid. In its place the block has an
/// identifier that depends only on its size.
class VELK_EXPORT HwDatablockEventCount : public HwDatablock2Edition {
 public:
  /// Makes an empty block of 12 bytes that has the identifier.
  HwDatablockEventCount();

  using HwDatablock2Edition::setData;
  /// Copies any bytes and stores the identifier for their block size; always returns true.
  bool setData(const unsigned char* data, unsigned int length) override;

  /// Makes the bytes an event counter block by storing the identifier; always returns true.
  bool makeDatablock2HwEventCount();
  /// Changes one byte; does nothing beyond the block's end. Always returns true.
  bool updateEventCountBlock(unsigned int position, char value);
};

}  // namespace Velk
