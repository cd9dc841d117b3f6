#pragma once

#include <concepts>

#include "velk/datablock/HwDatablock.h"
#include "velk/fields/Fields.h"

namespace Velk {

struct VELK_RECORD HwSDatablockEnd {
  unsigned short id;
  unsigned short data;

  bool operator==(const HwSDatablockEnd&) const = default;
};
static_assert(sizeof(HwSDatablockEnd) == 4);

inline constexpr FieldInfo endFields[] = {VELK_FIELD(HwSDatablockEnd, id).fixed(), VELK_FIELD(HwSDatablockEnd, data)};

/// The marker after the last block of a memory: the id of erased memory and a data word. It has no checksum, so
/// verifying it always succeeds.
class VELK_EXPORT HwDatablockEnd : public HwDatablock {
 public:
  HwDatablockEnd();

  /// Returns the detached record; a shorter buffer is extended with zeros first.
  HwSDatablockEnd* getBlock();
  void setEndBlock();
  void setEndBlockID(unsigned short id);
  void setEndBlockData(unsigned short data);
  /// Copies any record and returns 0; returns 1 for null.
  int setBlock(const HwSDatablockEnd* record);

  using HwDatablock::computeChecksum;
  using HwDatablock::verifyChecksum;
  unsigned short computeChecksum() override;
  unsigned short getBlockSize() override;
  unsigned short getChecksum() override;
  bool verifyChecksum() override;
  void setChecksum(unsigned short checksum) override;
  std::ostream& printToStream(std::ostream& os) override;

  /// Returns 0 for a signed count, whatever the record. For an unsigned one, the record's checksum is returned.
  virtual unsigned short computeChecksum(unsigned short* words, short byteCount);
  virtual bool verifyChecksum(unsigned short* words, short byteCount);

  /// Selects one of the two by the sign of any other type of count: otherwise a call with a plain 8 would be ambiguous.
  template <std::integral Count>
  unsigned short computeChecksum(unsigned short* words, Count byteCount) {
    using Nearest = std::conditional_t<std::is_signed_v<Count>, short, unsigned short>;
    return computeChecksum(words, static_cast<Nearest>(byteCount));
  }
};

}  // namespace Velk
