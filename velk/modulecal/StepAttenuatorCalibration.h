#pragma once

#include "velk/layer/HwGridBlock.h"
#include "velk/layer/HwInstance.h"
#include "velk/modulecal/FrequencyList.h"

namespace Velk {

using HwSDatablockSAtt3CalibDataFreq = CountedRecord<int, int, 150>;
using HwSDatablockSAtt6CalibDataFreq = CountedRecord<int, int, 150>;
using HwSDatablockAttCalDataFreq2Edition = CountedRecord<int, int, 150>;
static_assert(sizeof(HwSDatablockSAtt3CalibDataFreq) == 612);

/// Frequencies of a step attenuator's calibration, in 10 Hz.
class VELK_EXPORT HwDatablockSAtt3CalibDataFreq : public HwFrequencyList<HwSDatablockSAtt3CalibDataFreq> {
 public:
  static constexpr ListTraits traits = listTraits<"10 Hz">({
      .id = 10601,
      .refusal = "HwSDatablockSAtt3CalibDataFreq",
      .keys = {"SATT3_CALIB_DATA_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen"},
  });

  HwDatablockSAtt3CalibDataFreq() : HwFrequencyList(traits, true) {}
};

class VELK_EXPORT HwDatablockSAtt6CalibDataFreq : public HwFrequencyList<HwSDatablockSAtt6CalibDataFreq> {
 public:
  static constexpr ListTraits traits = listTraits<"10 Hz">({
      .id = 11200,
      .refusal = "HwSDatablockSAtt6CalibDataFreq",
      .keys = {"SATT6_CALIB_DATA_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen"},
  });

  HwDatablockSAtt6CalibDataFreq() : HwFrequencyList(traits, true) {}
};

class VELK_EXPORT HwDatablockAttCalDataFreq2Edition
    : public HwInstance<HwFrequencyList<HwSDatablockAttCalDataFreq2Edition>> {
 public:
  static constexpr ListTraits traits = listTraits<"10 Hz">({
      .id = 12170,
      .refusal = "HwSDatablockAttCalDataFreq2Edition",
      .keys = {"ATT_CAL_DAT_A_FREQ_2_EDITION", "ATT_CAL_DAT_B_FREQ_2_EDITION", "ATT_CAL_DAT_C_FREQ_2_EDITION",
               "ATT_CAL_DAT_D_FREQ_2_EDITION"},
      .comments = {"#Das sind die Frequenzst�tzstellen"},
  });

  HwDatablockAttCalDataFreq2Edition(int index, bool stopConversionOnError)
      : HwInstance(traits, index, stopConversionOnError) {}
};

/// Corrections in 1/100 dB: a row for each attenuator step, a column for each frequency.
struct VELK_RECORD HwSDatablockSAtt3CalibDataAtt {
  HwSDatablockHeader header;
  short attenuation[27][150];

  bool operator==(const HwSDatablockSAtt3CalibDataAtt&) const = default;
};
static_assert(sizeof(HwSDatablockSAtt3CalibDataAtt) == 8108);
using HwSDatablockSAtt6CalibDataAtt = HwSDatablockSAtt3CalibDataAtt;

inline constexpr FieldInfo attenuationFields[] = {
    VELK_FIELD(HwSDatablockSAtt3CalibDataAtt, attenuation).in("1/100 dB"),
};

/// The comment lines in front of the rows of corrections.
inline constexpr std::array<const char*, 2> attenuationColumns{"# f[10Hz]", "#  ATTENUATOR_CORRECTION [1/100dB]"};

/// What the attenuation tables share.
class VELK_EXPORT HwAttenuationBlock : public HwTypedRecordBlock<HwSDatablockSAtt3CalibDataAtt> {
 public:
  short getAttenuationValue(int row, int column) const {
    return get(&HwSDatablockSAtt3CalibDataAtt::attenuation, row, column);
  }
  void setAttenuationValue(short value, int row, int column) {
    set(&HwSDatablockSAtt3CalibDataAtt::attenuation, value, row, column);
  }

  std::ostream& printToStream(std::ostream& os) override;

 protected:
  /// `count` is the text of the COUNT line: the record stores no number of steps.
  HwAttenuationBlock(const RecordTraits& traits, const char* count) : HwTypedRecordBlock(traits, true), count_(count) {}

 private:
  const char* count_;
};

class VELK_EXPORT HwDatablockSAtt3CalibDataAtt : public HwAttenuationBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10602,
      .refusal = "HwSDatablockSAtt3CalibDataAtt",
      .keys = {"SATT3_CALIB_DATA_ATT"},
      .fields = attenuationFields,
      .comments = {"#Das sind die Userdaten"},
  });

  HwDatablockSAtt3CalibDataAtt() : HwAttenuationBlock(traits, "26 * SATT3_CALIB_FREQ") {}
};

class VELK_EXPORT HwDatablockSAtt6CalibDataAtt : public HwAttenuationBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 11001,
      .refusal = "HwSDatablockSAtt6CalibDataAtt",
      .keys = {"SATT6_CALIB_DATA_ATT"},
      .fields = attenuationFields,
      .comments = {"#Das sind die Userdaten"},
  });

  HwDatablockSAtt6CalibDataAtt() : HwAttenuationBlock(traits, "26 * COUNT_OF_SATT6_CALIB_FREQ") {}
};

/// Temperature gradients as ((TK + 1) * 50): a row for each attenuator step, a column for each frequency.
struct VELK_RECORD HwSDatablockSAtt3CalibDataTemp {
  HwSDatablockHeader header;
  short calibTemp;  ///< temperature at the calibration
  unsigned char tempGradient[27][150];

  bool operator==(const HwSDatablockSAtt3CalibDataTemp&) const = default;
};
static_assert(sizeof(HwSDatablockSAtt3CalibDataTemp) == 4060);
using HwSDatablockSAtt6CalibDataTemp = HwSDatablockSAtt3CalibDataTemp;

inline constexpr FieldInfo temperatureGradientFields[] = {
    VELK_FIELD(HwSDatablockSAtt3CalibDataTemp, calibTemp).keyed("VTemp"),
    VELK_FIELD(HwSDatablockSAtt3CalibDataTemp, tempGradient),
};

class VELK_EXPORT HwTemperatureGradientBlock : public HwTypedRecordBlock<HwSDatablockSAtt3CalibDataTemp> {
 public:
  short getCalibTemp() const { return get(&HwSDatablockSAtt3CalibDataTemp::calibTemp); }
  void setCalibTemp(short temperature) { set(&HwSDatablockSAtt3CalibDataTemp::calibTemp, temperature); }
  unsigned char getTempGradient(int row, int column) const {
    return get(&HwSDatablockSAtt3CalibDataTemp::tempGradient, row, column);
  }
  void setTempGradient(unsigned char gradient, int row, int column) {
    set(&HwSDatablockSAtt3CalibDataTemp::tempGradient, gradient, row, column);
  }

  std::ostream& printToStream(std::ostream& os) override;

 protected:
  /// `count` is the text of the COUNT line: the record stores no number of steps.
  HwTemperatureGradientBlock(const RecordTraits& traits, const char* count)
      : HwTypedRecordBlock(traits, true), count_(count) {}

 private:
  const char* count_;
};

class VELK_EXPORT HwDatablockSAtt3CalibDataTemp : public HwTemperatureGradientBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10603,
      .refusal = "HwSDatablockSAtt3CalibDataTemp",
      .keys = {"SATT3_CALIB_DATA_TEMP"},
      .fields = temperatureGradientFields,
      .comments = {"#Das sind die Temperaturgradienten"},
  });

  HwDatablockSAtt3CalibDataTemp() : HwTemperatureGradientBlock(traits, "26 *SAT3_CALIB_FREQ") {}
};

class VELK_EXPORT HwDatablockSAtt6CalibDataTemp : public HwTemperatureGradientBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 11202,
      .refusal = "HwSDatablockSAtt6CalibDataTemp",
      .keys = {"SATT6_CALIB_DATA_TEMP"},
      .fields = temperatureGradientFields,
      .comments = {"#Das sind die Temperaturgradienten"},
  });

  HwDatablockSAtt6CalibDataTemp() : HwTemperatureGradientBlock(traits, "26 *COUNT_OF_SATT6_CALIB_FREQ") {}
};

using HwSDatablockAttCalData2Edition = GridRecord<short, 27, 150>;
static_assert(sizeof(HwSDatablockAttCalData2Edition) == 8112);

/// A path's attenuator corrections in 1/100 dB.
class VELK_EXPORT HwDatablockAttCalData2Edition : public HwInstance<HwGridBlock<HwSDatablockAttCalData2Edition>> {
 public:
  static constexpr GridTraits traits =
      gridTraits<"1/100 dB">({.id = 12180,
                              .refusal = "HwSDatablockAttCalData2Edition",
                              .keys = {"ATT_CAL_DAT_A_LEVEL_2_EDITION", "ATT_CAL_DAT_B_LEVEL_2_EDITION",
                                       "ATT_CAL_DAT_C_LEVEL_2_EDITION", "ATT_CAL_DAT_D_LEVEL_2_EDITION"},
                              .comments = {"#Das sind die Userdaten"}},
                             {.countWord = "LEVEL", .columnComments = attenuationColumns});

  HwDatablockAttCalData2Edition(int index, bool stopConversionOnError)
      : HwInstance(traits, index, stopConversionOnError) {}

  unsigned int getNumberOfAttSteps() const { return count(); }
  void setNumberOfAttSteps(unsigned short n) { setGridCount(n); }
  short getAttenuationValue(int row, int column) const { return cell(row, column); }
  void setAttenuationValue(short value, int row, int column) { setCell(value, row, column); }
};

}  // namespace Velk
