#pragma once

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// Counts of a module: the number of valid bytes, and the bytes, whose meaning the caller defines.
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

/// The power-on count or the operating-time count of a module, or a backup of either. Storing data does not update the
/// checksum: the caller must do so before writing the block to a memory.
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

  /// Returns the 512 bytes inside the block; `length`, unless null, gets how many of them are valid.
  unsigned char* getCommonStatisticData(unsigned int* length);
  unsigned int getCommonStatisticDataLength() const { return get(&HwSDatablockCommonStatisticData::length); }
  /// Copies at most 512 bytes; the bytes after them keep their values. Does nothing if `data` is null.
  void setCommonStatisticData(const unsigned char* data, unsigned int length);

  /// Copies id, alignment and the valid bytes of any record. Returns 0, or 1 if the record is null.
  int setBlock(const HwSDatablockCommonStatisticData* record);
  using HwDatablock::swapBlock;
  /// Copies a record's header, but sets the alignment to 0.
  void swapBlock(HwSDatablockCommonStatisticData* record);

  std::ostream& printToStream(std::ostream& os) override;

 private:
  int instance_;
};

}  // namespace Velk
