#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

using HwSDatablockAduLevCoarseCalibData = CountedRecord<unsigned int, double, 12>;
static_assert(sizeof(HwSDatablockAduLevCoarseCalibData) == 108);

/// Coarse attenuator steps of the analog-to-digital unit.
class VELK_EXPORT HwDatablockAduLevCoarseCalibData : public HwCountedBlock<HwSDatablockAduLevCoarseCalibData> {
 public:
  static constexpr ListTraits traits = listTraits({
      .id = 15650,
      .refusal = "HwSDatablockAduLevCoarseCalibData",
      .keys = {"ADU_LEV_COARSE_CAL_VALUE"},
      .comments = {"# Alle Kalibrierwerte der Grobabschwaecherstufen",
                   "# Es werden alle gemessenen oder berechneten Werte gespeichert , k0 = k_16dB_Att",
                   "# Festlegung, ob Werte kx gemessen oder berechnet werden , erfolgt �ber Pr�fanweisung"},
  });

  HwDatablockAduLevCoarseCalibData() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned int n) { setListCount(n); }
  double getLevCoarseCalValue(unsigned short index) const { return value(index); }
  void setLevCoarseCalValue(double value, unsigned short index) { setValue(value, index); }
};

/// Offsets at one gain step.
struct VELK_RECORD HwSAduGainOffsetCalData {
  double gain;
  double referenceOffset;  ///< of the reference-detector path
  double detectorOffset;   ///< of the RF-detector path

  bool operator==(const HwSAduGainOffsetCalData&) const = default;
};
static_assert(sizeof(HwSAduGainOffsetCalData) == 24);

struct VELK_RECORD HwSDatablockAduGainOffsetCalData {
  HwSDatablockHeader header;
  int count;  ///< gain steps in use
  HwSAduGainOffsetCalData entries[8];

  bool operator==(const HwSDatablockAduGainOffsetCalData&) const = default;
};
static_assert(sizeof(HwSDatablockAduGainOffsetCalData) == 204);

inline constexpr FieldInfo aduGainOffsetEntryFields[] = {
    VELK_FIELD(HwSAduGainOffsetCalData, gain),
    VELK_FIELD(HwSAduGainOffsetCalData, referenceOffset),
    VELK_FIELD(HwSAduGainOffsetCalData, detectorOffset),
};
inline constexpr FieldInfo aduGainOffsetFields[] = {
    VELK_FIELD(HwSDatablockAduGainOffsetCalData, count),
    VELK_FIELD(HwSDatablockAduGainOffsetCalData, entries).of(aduGainOffsetEntryFields).counted("count"),
};

/// Offsets of the analog-to-digital unit by gain step.
class VELK_EXPORT HwDatablockAduGainOffsetCalData : public HwTypedRecordBlock<HwSDatablockAduGainOffsetCalData> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 15652,
      .refusal = "HwSDatablockAduGainOffsetCalData",
      .keys = {"ADU_OFFSET_CAL_DATA"},
      .fields = aduGainOffsetFields,
      .acceptance = Acceptance::ChecksumOrEmpty,
      .idWidth = 4,
  });

  HwDatablockAduGainOffsetCalData() : HwTypedRecordBlock(traits, true) {}

  int getCount() const { return get(&HwSDatablockAduGainOffsetCalData::count); }
  void setCount(int count) { set(&HwSDatablockAduGainOffsetCalData::count, count); }
  HwSAduGainOffsetCalData getAduCalibDataBlock(int index) const {
    return get(&HwSDatablockAduGainOffsetCalData::entries, index);
  }
  void setCalibDatablock(const HwSAduGainOffsetCalData& entry, int index) {
    set(&HwSDatablockAduGainOffsetCalData::entries, entry, index);
  }

  /// Always returns 0: a refused record only signals an error.
  int setBlock(const HwSDatablockAduGainOffsetCalData* record) {
    HwTypedRecordBlock::setBlock(record);
    return 0;
  }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
