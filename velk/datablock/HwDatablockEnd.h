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

/// The marker after the last block of a memory: the id of erased memory and a data word. It has no checksum and
/// nothing to protect, so it always verifies.
class VELK_EXPORT HwDatablockEnd : public HwDatablock {
 public:
  HwDatablockEnd();

  /// The detached record; a shorter buffer is extended with zeros first.
  HwSDatablockEnd* getBlock();
  void setEndBlock();
  void setEndBlockID(unsigned short id);
  void setEndBlockData(unsigned short data);
  /// Takes any record over and returns 0; 1 for null.
  int setBlock(const HwSDatablockEnd* record);

  using HwDatablock::computeChecksum;
  using HwDatablock::verifyChecksum;
  unsigned short computeChecksum() override;
  unsigned short getBlockSize() override;
  unsigned short getChecksum() override;
  bool verifyChecksum() override;
  void setChecksum(unsigned short checksum) override;
  std::ostream& printToStream(std::ostream& os) override;

  /// Of a signed count: 0, whatever the record. An unsigned one gives the record's checksum.
  virtual unsigned short computeChecksum(unsigned short* words, short byteCount);
  virtual bool verifyChecksum(unsigned short* words, short byteCount);

  /// A count of any other type goes by its sign as well: without this a plain 8 would fit both of them equally badly.
  template <std::integral Count>
  unsigned short computeChecksum(unsigned short* words, Count byteCount) {
    using Nearest = std::conditional_t<std::is_signed_v<Count>, short, unsigned short>;
    return computeChecksum(words, static_cast<Nearest>(byteCount));
  }
};

}  // namespace Velk
