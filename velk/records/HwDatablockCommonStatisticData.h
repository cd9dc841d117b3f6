#pragma once

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// Counts of a module: how many of the bytes are valid, and the bytes, whose meaning belongs to the caller.
struct VELK_RECORD HwSDatablockCommonStatisticData {
  HwSDatablockHeader header;
  unsigned int length;
  unsigned char data[512];

  bool operator==(const HwSDatablockCommonStatisticData&) const = default;
};
static_assert(sizeof(HwSDatablockCommonStatisticData) == 524);

inline constexpr FieldInfo commonStatisticFields[] = {
    VELK_FIELD(HwSDatablockCommonStatisticData, length),
    VELK_FIELD(HwSDatablockCommonStatisticData, data).counted("length"),
};

/// The power-on count or the operating-time count of a module, or a backup of either. No operation that stores data
/// stores a checksum: do that before the block goes to a memory.
class VELK_EXPORT HwDatablockCommonStatisticData : public HwTypedRecordBlock<HwSDatablockCommonStatisticData> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 11310,
      .refusal = "HwSDatablockCommonStatisticData",
      .keys = {"POWERON COUNT", "BACKUP OF POWERON COUNT ", "OPERATING TIME COUNT", "BACKUP OF OPERATING TIME COUNT"},
      .fields = commonStatisticFields,
      .comments = {"# Sonstige statistische Daten:"},
  });

  /// The low 16 bits of `instance` are the block id.
  explicit HwDatablockCommonStatisticData(int instance);

  int getInstance() const { return instance_; }

  /// The 512 bytes inside the block; stores how many are valid unless `length` is null.
  unsigned char* getCommonStatisticData(unsigned int* length);
  unsigned int getCommonStatisticDataLength() const { return get(&HwSDatablockCommonStatisticData::length); }
  /// Takes at most 512 bytes; the bytes after them keep their values. Null is refused.
  void setCommonStatisticData(const unsigned char* data, unsigned int length);

  /// Takes id, alignment and the valid bytes of any record over; 0, or 1 for null.
  int setBlock(const HwSDatablockCommonStatisticData* record);
  using HwDatablock::swapBlock;
  /// Takes a record's header over but for its alignment.
  void swapBlock(HwSDatablockCommonStatisticData* record);

  std::ostream& printToStream(std::ostream& os) override;

 private:
  int instance_;
};

}  // namespace Velk
