#pragma once

#include "velk/layer/HwCountedBlock.h"
#include "velk/modulecal/DbSteps.h"

namespace Velk {

/// Six cut-off frequencies of the module's harmonic filters.
struct VELK_RECORD HwSDatablockIqOp3RfmHarmonic {
  HwSDatablockHeader header;
  unsigned int cutOffFrequency[6];

  bool operator==(const HwSDatablockIqOp3RfmHarmonic&) const = default;
};
static_assert(sizeof(HwSDatablockIqOp3RfmHarmonic) == 32);

inline constexpr FieldInfo iqOp3HarmonicFields[] = {VELK_FIELD(HwSDatablockIqOp3RfmHarmonic, cutOffFrequency)};

class VELK_EXPORT HwDatablockIqOp3RfmHarmonic : public HwTypedRecordBlock<HwSDatablockIqOp3RfmHarmonic> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10300,
      .refusal = "HwSDatablockIqOp3RfmHarmonic",
      .keys = {"IQOP3_RFM_HARMONIC"},
      .fields = iqOp3HarmonicFields,
      .comments = {"# ausgewertete Syntaxelemente :", "# ID:     Name des Blocks",
                   "# 1: bis 6:  Grenzfrequenzen der Oberwellenfilter"},
  });

  HwDatablockIqOp3RfmHarmonic() : HwTypedRecordBlock(traits, true) {}

  unsigned int getCutOffFrequency(unsigned char index) const {
    return get(&HwSDatablockIqOp3RfmHarmonic::cutOffFrequency, index);
  }
  void setCutOffFrequency(int frequency, unsigned char index) {
    set(&HwSDatablockIqOp3RfmHarmonic::cutOffFrequency, static_cast<unsigned int>(frequency), index);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

using HwSDatablockIqOp3RfmCalibDataFreq = CountedRecord<unsigned int, unsigned int, 300>;
static_assert(sizeof(HwSDatablockIqOp3RfmCalibDataFreq) == 1212);

/// Frequencies of the module's calibration, one for each row of the calibration blocks.
class VELK_EXPORT HwDatablockIqOp3RfmCalibDataFreq : public HwCountedBlock<HwSDatablockIqOp3RfmCalibDataFreq> {
 public:
  static constexpr ListTraits traits =
      listTraits({.id = 10302,
                  .refusal = "HwSDatablockIqOp3RfmCalibDataFreq",
                  .keys = {"IQOP3_RFM_CALIB_DATA_FREQ"},
                  .comments = {"# Kalibrierfrequenzen Maximale Anzahl mit dieser Id ist 300"}},
                 {.rowKey = "Zeile"});

  HwDatablockIqOp3RfmCalibDataFreq() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned int n) { setListCount(n); }
  unsigned int getFrequencyValue(unsigned short index) const { return value(index); }
  void setFrequencyValue(unsigned int frequency, unsigned short index) { setValue(frequency, index); }
};

/// Settings at one calibration frequency, packed into two words. Attenuations are stored as their distance from the
/// nominal value, in 1/128 dB.
struct VELK_RECORD HwSIqOp3RfmCalibDataBlock {
  unsigned int steps;         ///< bits 0 to 3 LEVPRE, 4 to 8 DETATT, 9 to 24 DETCONV_DEFLECTION
  unsigned int attenuations;  ///< signed: bits 0 to 9 LEVATT15, 10 to 20 LEVATT30, 21 to 31 LEVATT45

  bool operator==(const HwSIqOp3RfmCalibDataBlock&) const = default;
};
static_assert(sizeof(HwSIqOp3RfmCalibDataBlock) == 8);

struct VELK_RECORD HwSDatablockIqOp3RfmCalibData {
  HwSDatablockHeader header;
  unsigned int operatingState;
  HwSIqOp3RfmCalibDataBlock blocks[300];

  bool operator==(const HwSDatablockIqOp3RfmCalibData&) const = default;
};
static_assert(sizeof(HwSDatablockIqOp3RfmCalibData) == 2412);

inline constexpr FieldInfo iqOp3CalibBlockFields[] = {
    VELK_FIELD(HwSIqOp3RfmCalibDataBlock, steps).part("levPre", {.shift = 0, .width = 4}),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlock, steps).part("detAtt", {.shift = 4, .width = 5}),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlock, steps).part("detConvDeflection", {.shift = 9, .width = 16}),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlock, attenuations)
        .part("levAtt15", {.shift = 0, .width = 10, .isSigned = true})
        .in("dB", detail::dbPerStep, 15),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlock, attenuations)
        .part("levAtt30", {.shift = 10, .width = 11, .isSigned = true})
        .in("dB", detail::dbPerStep, 30),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlock, attenuations)
        .part("levAtt45", {.shift = 21, .width = 11, .isSigned = true})
        .in("dB", detail::dbPerStep, 45),
};
inline constexpr FieldInfo iqOp3CalibFields[] = {
    VELK_FIELD(HwSDatablockIqOp3RfmCalibData, operatingState),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibData, blocks).of(iqOp3CalibBlockFields),
};

/// The module's calibration in one operating state: an entry for each calibration frequency.
class VELK_EXPORT HwDatablockIqOp3RfmCalibData : public HwTypedRecordBlock<HwSDatablockIqOp3RfmCalibData> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10303,
      .refusal = "HwSDatablockIqOp3RfmCalibData",
      .keys = {"IQOP3_RFM_CALIB_DATA"},
      .fields = iqOp3CalibFields,
      .acceptance = Acceptance::ChecksumOrEmpty,
      .idWidth = 20,
  });

  HwDatablockIqOp3RfmCalibData() : HwTypedRecordBlock(traits, true) {}

  /// Returns which of the module's calibration blocks this is: its id minus that of the first one.
  int getInstanceCounter() { return getId() - traits.id; }
  unsigned int getOperatingState() const { return get(&HwSDatablockIqOp3RfmCalibData::operatingState); }
  void setOperatingState(unsigned int state) { set(&HwSDatablockIqOp3RfmCalibData::operatingState, state); }
  HwSIqOp3RfmCalibDataBlock getCalibDataBlock(int index) const {
    return get(&HwSDatablockIqOp3RfmCalibData::blocks, index);
  }
  void setCalibDatablock(const HwSIqOp3RfmCalibDataBlock& block, int index) {
    set(&HwSDatablockIqOp3RfmCalibData::blocks, block, index);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

/// Settings of the second version at one calibration frequency: sensitivities in DAC/mW, the rest in dB.
struct VELK_RECORD HwSIqOp3RfmCalibDataBlockV20 {
  float sensLow;
  float sensMed;
  float sensHigh;
  float sensOvr;
  short lpreCwNorm;
  short lpreCwOvr;
  short lpreIqNorm;
  short lpreIqOvr;
  float levAtt15Norm;
  float levAtt30Norm;
  float levAtt45Norm;
  float levAtt15Ovr;
  float levAtt30Ovr;
  float levAtt45Ovr;

  bool operator==(const HwSIqOp3RfmCalibDataBlockV20&) const = default;
};
static_assert(sizeof(HwSIqOp3RfmCalibDataBlockV20) == 48);

struct VELK_RECORD HwSDatablockIqOp3RfmCalibDataV20 {
  HwSDatablockHeader header;
  HwSIqOp3RfmCalibDataBlockV20 blocks[300];

  bool operator==(const HwSDatablockIqOp3RfmCalibDataV20&) const = default;
};
static_assert(sizeof(HwSDatablockIqOp3RfmCalibDataV20) == 14408);

inline constexpr FieldInfo iqOp3CalibBlockV20Fields[] = {
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, sensLow).in("DAC/mW"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, sensMed).in("DAC/mW"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, sensHigh).in("DAC/mW"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, sensOvr).in("DAC/mW"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, lpreCwNorm).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, lpreCwOvr).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, lpreIqNorm).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, lpreIqOvr).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, levAtt15Norm).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, levAtt30Norm).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, levAtt45Norm).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, levAtt15Ovr).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, levAtt30Ovr).in("dB"),
    VELK_FIELD(HwSIqOp3RfmCalibDataBlockV20, levAtt45Ovr).in("dB"),
};
inline constexpr FieldInfo iqOp3CalibV20Fields[] = {
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataV20, blocks).of(iqOp3CalibBlockV20Fields),
};

class VELK_EXPORT HwDatablockIqOp3RfmCalibDataV20 : public HwTypedRecordBlock<HwSDatablockIqOp3RfmCalibDataV20> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10316,
      .refusal = "HwSDatablockIqOp3RfmCalibDataV20",
      .keys = {"IQOP3_RFM_CALIB_DATA_V20"},
      .fields = iqOp3CalibV20Fields,
      .acceptance = Acceptance::ChecksumOrEmpty,
      .comments = {"# Das sind die Kalibrierdaten IQOP3 RFM Version 2.0"},
      .idWidth = 20,
  });

  HwDatablockIqOp3RfmCalibDataV20() : HwTypedRecordBlock(traits, true) {}

  HwSIqOp3RfmCalibDataBlockV20 getCalibDataBlock(int index) const {
    return get(&HwSDatablockIqOp3RfmCalibDataV20::blocks, index);
  }
  void setCalibDatablock(const HwSIqOp3RfmCalibDataBlockV20& block, int index) {
    set(&HwSDatablockIqOp3RfmCalibDataV20::blocks, block, index);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
