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
  static constexpr RecordTraits traits = listTraits<HwSDatablockSAtt3CalibDataFreq, "10 Hz">({
      .id = 10601,
      .refusal = "HwSDatablockSAtt3CalibDataFreq",
      .keys = {"SATT3_CALIB_DATA_FREQ"},
      .text = {.comments = {"#Das sind die Frequenzst�tzstellen"}},
  });

  HwDatablockSAtt3CalibDataFreq() : HwFrequencyList(traits, true) {}
};

class VELK_EXPORT HwDatablockSAtt6CalibDataFreq : public HwFrequencyList<HwSDatablockSAtt6CalibDataFreq> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockSAtt6CalibDataFreq, "10 Hz">({
      .id = 11200,
      .refusal = "HwSDatablockSAtt6CalibDataFreq",
      .keys = {"SATT6_CALIB_DATA_FREQ"},
      .text = {.comments = {"#Das sind die Frequenzst�tzstellen"}},
  });

  HwDatablockSAtt6CalibDataFreq() : HwFrequencyList(traits, true) {}
};

class VELK_EXPORT HwDatablockAttCalDataFreq2Edition
    : public HwInstance<HwFrequencyList<HwSDatablockAttCalDataFreq2Edition>> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockAttCalDataFreq2Edition, "10 Hz">({
      .id = 12170,
      .refusal = "HwSDatablockAttCalDataFreq2Edition",
      .keys = {"ATT_CAL_DAT_A_FREQ_2_EDITION", "ATT_CAL_DAT_B_FREQ_2_EDITION", "ATT_CAL_DAT_C_FREQ_2_EDITION",
               "ATT_CAL_DAT_D_FREQ_2_EDITION"},
      .text = {.comments = {"#Das sind die Frequenzst�tzstellen"}},
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
  using HwTypedRecordBlock::HwTypedRecordBlock;
};

class VELK_EXPORT HwDatablockSAtt3CalibDataAtt : public HwAttenuationBlock {
 public:
  static constexpr RecordTraits traits{
      .id = 10602,
      .size = sizeof(HwSDatablockSAtt3CalibDataAtt),
      .refusal = "HwSDatablockSAtt3CalibDataAtt",
      .keys = {"SATT3_CALIB_DATA_ATT"},
      .fields = attenuationFields,
      .text = {.comments = {"#Das sind die Userdaten"},
               .separator = ": ",
               .countText = "26 * SATT3_CALIB_FREQ",
               .columnComments = {"# f[10Hz]", "#  ATTENUATOR_CORRECTION [1/100dB]"}},
  };

  HwDatablockSAtt3CalibDataAtt() : HwAttenuationBlock(traits, true) {}
};

class VELK_EXPORT HwDatablockSAtt6CalibDataAtt : public HwAttenuationBlock {
 public:
  static constexpr RecordTraits traits{
      .id = 11001,
      .size = sizeof(HwSDatablockSAtt6CalibDataAtt),
      .refusal = "HwSDatablockSAtt6CalibDataAtt",
      .keys = {"SATT6_CALIB_DATA_ATT"},
      .fields = attenuationFields,
      .text = {.comments = {"#Das sind die Userdaten"},
               .separator = ": ",
               .countText = "26 * COUNT_OF_SATT6_CALIB_FREQ",
               .columnComments = {"# f[10Hz]", "#  ATTENUATOR_CORRECTION [1/100dB]"}},
  };

  HwDatablockSAtt6CalibDataAtt() : HwAttenuationBlock(traits, true) {}
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
    VELK_FIELD(HwSDatablockSAtt3CalibDataTemp, calibTemp),
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
  using HwTypedRecordBlock::HwTypedRecordBlock;
};

class VELK_EXPORT HwDatablockSAtt3CalibDataTemp : public HwTemperatureGradientBlock {
 public:
  static constexpr RecordTraits traits{
      .id = 10603,
      .size = sizeof(HwSDatablockSAtt3CalibDataTemp),
      .refusal = "HwSDatablockSAtt3CalibDataTemp",
      .keys = {"SATT3_CALIB_DATA_TEMP"},
      .fields = temperatureGradientFields,
      .text = {.comments = {"#Das sind die Temperaturgradienten"},
               .separator = ": ",
               .countText = "26 *SAT3_CALIB_FREQ",
               .columnComments = {"# f[10Hz]", "# TEMPERATURE_GRADIENT [((TK+1)*50)]"}},
  };

  HwDatablockSAtt3CalibDataTemp() : HwTemperatureGradientBlock(traits, true) {}
};

class VELK_EXPORT HwDatablockSAtt6CalibDataTemp : public HwTemperatureGradientBlock {
 public:
  static constexpr RecordTraits traits{
      .id = 11202,
      .size = sizeof(HwSDatablockSAtt6CalibDataTemp),
      .refusal = "HwSDatablockSAtt6CalibDataTemp",
      .keys = {"SATT6_CALIB_DATA_TEMP"},
      .fields = temperatureGradientFields,
      .text = {.comments = {"#Das sind die Temperaturgradienten"},
               .separator = ": ",
               .countText = "26 *COUNT_OF_SATT6_CALIB_FREQ",
               .columnComments = {"# f[10Hz]", "# TEMPERATURE_GRADIENT [((TK+1)*50)]"}},
  };

  HwDatablockSAtt6CalibDataTemp() : HwTemperatureGradientBlock(traits, true) {}
};

using HwSDatablockAttCalData2Edition = GridRecord<short, 27, 150>;
static_assert(sizeof(HwSDatablockAttCalData2Edition) == 8112);

/// A path's attenuator corrections in 1/100 dB.
class VELK_EXPORT HwDatablockAttCalData2Edition : public HwInstance<HwGridBlock<HwSDatablockAttCalData2Edition>> {
 public:
  static constexpr RecordTraits traits = gridTraits<HwSDatablockAttCalData2Edition, "1/100 dB">({
      .id = 12180,
      .refusal = "HwSDatablockAttCalData2Edition",
      .keys = {"ATT_CAL_DAT_A_LEVEL_2_EDITION", "ATT_CAL_DAT_B_LEVEL_2_EDITION", "ATT_CAL_DAT_C_LEVEL_2_EDITION",
               "ATT_CAL_DAT_D_LEVEL_2_EDITION"},
      .text = {.comments = {"#Das sind die Userdaten"},
               .separator = ": ",
               .countWord = "LEVEL",
               .columnComments = {"# f[10Hz]", "#  ATTENUATOR_CORRECTION [1/100dB]"}},
  });

  HwDatablockAttCalData2Edition(int index, bool stopConversionOnError)
      : HwInstance(traits, index, stopConversionOnError) {}

  unsigned int getNumberOfAttSteps() const { return count(); }
  void setNumberOfAttSteps(unsigned short n) { setGridCount(n); }
  short getAttenuationValue(int row, int column) const { return cell(row, column); }
  void setAttenuationValue(short value, int row, int column) { setCell(value, row, column); }
};

/// How often a step attenuator was overloaded.
struct VELK_RECORD HwSDatablockSAtt3OWLDCounter {
  HwSDatablockHeader header;
  unsigned int counterValue;

  bool operator==(const HwSDatablockSAtt3OWLDCounter&) const = default;
};
static_assert(sizeof(HwSDatablockSAtt3OWLDCounter) == 12);
using HwSDatablockSAtt6OWLDCounter = HwSDatablockSAtt3OWLDCounter;

inline constexpr FieldInfo overloadCounterFields[] = {VELK_FIELD(HwSDatablockSAtt3OWLDCounter, counterValue)};

/// Two counters under two ids; the second id's text serves every other id as well.
class VELK_EXPORT HwOverloadCounterBlock : public HwTypedRecordBlock<HwSDatablockSAtt3OWLDCounter> {
 public:
  unsigned int getCounterValue() const { return get(&HwSDatablockSAtt3OWLDCounter::counterValue); }
  void setCounterValue(unsigned int value) { set(&HwSDatablockSAtt3OWLDCounter::counterValue, value); }

  /// Copies counter and checksum of a record if its checksum is right; id and size stay. 0, or 1 for a refusal.
  int setBlock(const HwSDatablockSAtt3OWLDCounter* record);

  std::ostream& printToStream(std::ostream& os) override;

 protected:
  using Comments = std::array<const char*, 2>;

  HwOverloadCounterBlock(const RecordTraits& traits, const Comments& comments, int which)
      : HwTypedRecordBlock(traits, true, static_cast<unsigned short>(traits.id + (which != 0 ? 1 : 0))),
        comments_(&comments) {}

 private:
  const Comments* comments_;
};

class VELK_EXPORT HwDatablockSAtt3OWLDCounter : public HwOverloadCounterBlock {
 public:
  static constexpr Comments comments{"#Das ist der OWLD-Z�hler", "#Das ist der zweite OWLD-Z�hler"};
  static constexpr RecordTraits traits{
      .id = 10604,
      .size = sizeof(HwSDatablockSAtt3OWLDCounter),
      .refusal = "HwSDatablockSAtt3OWLDCounter",
      .keys = {"SATT3_OWLD_COUNTER_1", "SATT3_OWLD_COUNTER_2"},
      .fields = overloadCounterFields,
  };

  /// The first counter for 0, else the second.
  explicit HwDatablockSAtt3OWLDCounter(int which) : HwOverloadCounterBlock(traits, comments, which) {}
};

class VELK_EXPORT HwDatablockSAtt6OWLDCounter : public HwOverloadCounterBlock {
 public:
  static constexpr Comments comments{"# Das ist der OWLD-Z�hler_1", "# Das ist der OWLD-Z�hler_2"};
  static constexpr RecordTraits traits{
      .id = 11203,
      .size = sizeof(HwSDatablockSAtt6OWLDCounter),
      .refusal = "HwSDatablockSAtt6OWLDCounter",
      .keys = {"SATT6_OWLD_COUNTER_1", "SATT6_OWLD_COUNTER_2"},
      .fields = overloadCounterFields,
  };

  /// The first counter for 0, else the second.
  explicit HwDatablockSAtt6OWLDCounter(int which) : HwOverloadCounterBlock(traits, comments, which) {}
};

/// Two counter values.
struct VELK_RECORD HwSDatablockSAttCCounter {
  HwSDatablockHeader header;
  unsigned int counterValue[2];

  bool operator==(const HwSDatablockSAttCCounter&) const = default;
};
static_assert(sizeof(HwSDatablockSAttCCounter) == 16);

inline constexpr FieldInfo satCounterFields[] = {VELK_FIELD(HwSDatablockSAttCCounter, counterValue)};

/// Overload and high-power counters of a step attenuator and their backups, under four ids.
class VELK_EXPORT HwDatablockSAttCCounter : public HwTypedRecordBlock<HwSDatablockSAttCCounter> {
 public:
  static constexpr RecordTraits traits{
      .id = 11300,
      .size = sizeof(HwSDatablockSAttCCounter),
      .refusal = "HwSDatablockSAttCCounter",
      .keys = {"SATTC_OVLDCOUNTER", "SATTC_OVLDCOUNTER_BACKUP", "SATTC_HPCOUNTER", "SATTC_HPCOUNTER_BACKUP"},
      .fields = satCounterFields,
      .text = {.idWidth = 18},
  };

  explicit HwDatablockSAttCCounter(int id)
      : HwTypedRecordBlock(traits, true, static_cast<unsigned short>(id)), instance_(id) {}

  /// The id that the block was made with.
  int getInstance() const { return instance_; }
  unsigned int getCounterValue(unsigned short index) const {
    return get(&HwSDatablockSAttCCounter::counterValue, index);
  }
  void setCounterValue(unsigned int value, unsigned short index) {
    set(&HwSDatablockSAttCCounter::counterValue, value, index);
  }

  /// Copies the two values of any record and stores a fresh checksum; 0, or 1 for null.
  int setBlock(const HwSDatablockSAttCCounter* record);

  std::ostream& printToStream(std::ostream& os) override;

 private:
  int instance_;
};

}  // namespace Velk
