#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

using HwSDatablockIqOp6PmaxBz = CountedRecord<unsigned int, signed char, 32>;
static_assert(sizeof(HwSDatablockIqOp6PmaxBz) == 44);

/// Maximum power of the I/Q output stage for each operating state.
class VELK_EXPORT HwDatablockIqOp6PmaxBz : public HwCountedBlock<HwSDatablockIqOp6PmaxBz> {
 public:
  static constexpr ListTraits traits = listTraits<"", 1, "COUNT_BZ">(
      {.id = 10900, .refusal = "HwSDatablockIqOp6PmaxBz", .keys = {"IQOP6_PMAX_BZ"}, .idWidth = 20},
      {.countWidth = 20});

  HwDatablockIqOp6PmaxBz() : HwCountedBlock(traits, true) {}

  unsigned int getNumberOfPmax() const { return count(); }
  void setCount(unsigned short n) { setListCount(n); }
  short getPmaxBz(unsigned char state) const { return value(state); }
  /// Stores the low byte.
  void setPmaxBz(short power, unsigned char state) { setValue(static_cast<signed char>(power), state); }
};

using HwSDatablockIqOp6CalibDataFreq = CountedRecord<unsigned int, unsigned short, 70>;
static_assert(sizeof(HwSDatablockIqOp6CalibDataFreq) == 152);

/// Frequencies of the I/Q output stage's calibration.
class VELK_EXPORT HwDatablockIqOp6CalibDataFreq : public HwCountedBlock<HwSDatablockIqOp6CalibDataFreq> {
 public:
  static constexpr ListTraits traits = listTraits({.id = 10901,
                                                   .refusal = "HwSDatablockIqOp6CalibDataFreq",
                                                   .keys = {"IQOP6_CALIB_DATA_FREQ"},
                                                   .comments = {"#Das sind die Frequenzst�tzstellen"}},
                                                  {.decimals = 1});

  HwDatablockIqOp6CalibDataFreq() : HwCountedBlock(traits, true) {}

  unsigned int getNumberOfFrequency() const { return count(); }
  void setCount(unsigned short n) { setListCount(n); }
  unsigned short getFrequencyValue(unsigned char index) const { return value(index); }
  void setFrequencyValue(unsigned short frequency, unsigned char index) { setValue(frequency, index); }
};

struct VELK_RECORD HwSDatablockIqOp6CalibData {
  HwSDatablockHeader header;
  unsigned char levAtt20[70];        ///< level attenuator at 20 dB, by frequency
  unsigned char levAtt40[70];        ///< at 40 dB
  unsigned short daValueBz[32][70];  ///< DAC values by operating state and frequency

  bool operator==(const HwSDatablockIqOp6CalibData&) const = default;
};
static_assert(sizeof(HwSDatablockIqOp6CalibData) == 4628);

inline constexpr FieldInfo iqOp6CalibFields[] = {
    VELK_FIELD(HwSDatablockIqOp6CalibData, levAtt20),
    VELK_FIELD(HwSDatablockIqOp6CalibData, levAtt40),
    VELK_FIELD(HwSDatablockIqOp6CalibData, daValueBz),
};

/// Level attenuator and DAC values of the I/Q output stage.
class VELK_EXPORT HwDatablockIqOp6CalibData : public HwTypedRecordBlock<HwSDatablockIqOp6CalibData> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10902,
      .refusal = "HwSDatablockIqOp6CalibData",
      .keys = {"IQOP6_CALIB_DATA"},
      .fields = iqOp6CalibFields,
      .comments = {"# DAWERT-Kalibriertabelle: in einer Zeile: lfd. Nr., Frequenz , LEVATT_20, LEVATT_40, "
                   "DAWERT[BZ1], DAWERT[BZ2],  ..."},
      .idWidth = 20,
  });

  HwDatablockIqOp6CalibData() : HwTypedRecordBlock(traits, true) {}

  unsigned char getLevAtt_20(unsigned char index) const { return get(&HwSDatablockIqOp6CalibData::levAtt20, index); }
  unsigned char getLevAtt_40(unsigned char index) const { return get(&HwSDatablockIqOp6CalibData::levAtt40, index); }
  /// These two store the low byte.
  void setLevAtt_20(unsigned short value, unsigned char index) {
    set(&HwSDatablockIqOp6CalibData::levAtt20, static_cast<unsigned char>(value), index);
  }
  void setLevAtt_40(unsigned short value, unsigned char index) {
    set(&HwSDatablockIqOp6CalibData::levAtt40, static_cast<unsigned char>(value), index);
  }
  unsigned short getDaValueBz(unsigned char state, unsigned char frequency) const {
    return get(&HwSDatablockIqOp6CalibData::daValueBz, state, frequency);
  }
  void setDaValueBz(unsigned short value, unsigned char state, unsigned char frequency) {
    set(&HwSDatablockIqOp6CalibData::daValueBz, value, state, frequency);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
