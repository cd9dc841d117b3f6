#pragma once

#include "velk/layer/HwCountedBlock.h"
#include "velk/layer/HwSingleValueBlock.h"

namespace Velk {

using HwSDatablockObelAnalogImbalanceFreq = CountedRecord<int, double, 30>;
static_assert(sizeof(HwSDatablockObelAnalogImbalanceFreq) == 252);

/// Frequencies of the analog imbalance, in Hz.
class VELK_EXPORT HwDatablockObelAnalogImbalanceFreq : public HwCountedBlock<HwSDatablockObelAnalogImbalanceFreq> {
 public:
  static constexpr ListTraits traits = listTraits<"Hz">({
      .id = 15600,
      .refusal = "HwSDatablockObelAnalogImbalanceFreq",
      .keys = {"OBEL_ANALOG_IMBALANCE_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen [f/1Hz]"},
  });

  explicit HwDatablockObelAnalogImbalanceFreq(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfObelAnalogImbalanceFreq() const { return count(); }
  void setNumberOfObelAnalogImbalanceFreq(int n) { setListCount(n); }
  double getObelAnalogImbalanceFreq(int index) const { return value(index); }
  void setObelAnalogImbalanceFreq(double value, int index) { setValue(value, index); }
};

using HwSDatablockObelAnalogImbalanceGainI = CountedRecord<int, float, 30>;
static_assert(sizeof(HwSDatablockObelAnalogImbalanceGainI) == 132);

/// Gains of the I path.
class VELK_EXPORT HwDatablockObelAnalogImbalanceGainI : public HwCountedBlock<HwSDatablockObelAnalogImbalanceGainI> {
 public:
  static constexpr ListTraits traits = listTraits({.id = 15601,
                                                   .refusal = "HwSDatablockObelAnalogImbalanceGainI",
                                                   .keys = {"OBEL_ANALOG_IMBALANCE_DATA"},
                                                   .comments = {"#Das sind die GainWerte I der OBEL ANALOG Imbalance"}},
                                                  {.countWidth = 0});

  explicit HwDatablockObelAnalogImbalanceGainI(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfObelAnalogImbalanceGainValues() const { return count(); }
  void setNumberOfObelAnalogImbalanceGainValues(int n) { setListCount(n); }
  float getObelAnalogImbalanceGain(int index) const { return value(index); }
  void setObelAnalogImbalanceGain(float value, int index) { setValue(value, index); }
};

using HwSDatablockObelAnalogImbalanceGainQ = CountedRecord<int, float, 30>;
static_assert(sizeof(HwSDatablockObelAnalogImbalanceGainQ) == 132);

/// Gains of the Q path.
class VELK_EXPORT HwDatablockObelAnalogImbalanceGainQ : public HwCountedBlock<HwSDatablockObelAnalogImbalanceGainQ> {
 public:
  static constexpr ListTraits traits = listTraits({.id = 15602,
                                                   .refusal = "HwSDatablockObelAnalogImbalanceGainQ",
                                                   .keys = {"OBEL_ANALOG_IMBALANCE_DATA"},
                                                   .comments = {"#Das sind die GainWerte Q der OBEL ANALOG Imbalance"}},
                                                  {.countWidth = 0});

  explicit HwDatablockObelAnalogImbalanceGainQ(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfObelAnalogImbalanceGainValues() const { return count(); }
  void setNumberOfObelAnalogImbalanceGainValues(int n) { setListCount(n); }
  float getObelAnalogImbalanceGain(int index) const { return value(index); }
  void setObelAnalogImbalanceGain(float value, int index) { setValue(value, index); }
};

using HwSDatablockObelAnalogImbalancePhI = CountedRecord<int, float, 30>;
static_assert(sizeof(HwSDatablockObelAnalogImbalancePhI) == 132);

/// Phases of the I path.
class VELK_EXPORT HwDatablockObelAnalogImbalancePhI : public HwCountedBlock<HwSDatablockObelAnalogImbalancePhI> {
 public:
  static constexpr ListTraits traits =
      listTraits({.id = 15603,
                  .refusal = "HwDatablockObelAnalogImbalancePhI",
                  .keys = {"OBEL_ANALOG_IMBALANCE_DATA"},
                  .comments = {"#Das sind die Phasenwerte I der OBEL ANALOG Imbalance "}},
                 {.countWidth = 0});

  explicit HwDatablockObelAnalogImbalancePhI(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfObelAnalogImbalancePh() const { return count(); }
  void setNumberOfObelAnalogImbalancePh(int n) { setListCount(n); }
  float getObelAnalogImbalancePh(int index) const { return value(index); }
  void setObelAnalogImbalancePh(float value, int index) { setValue(value, index); }
};

using HwSDatablockObelAnalogImbalancePhQ = CountedRecord<int, float, 30>;
static_assert(sizeof(HwSDatablockObelAnalogImbalancePhQ) == 132);

/// Phases of the Q path.
class VELK_EXPORT HwDatablockObelAnalogImbalancePhQ : public HwCountedBlock<HwSDatablockObelAnalogImbalancePhQ> {
 public:
  static constexpr ListTraits traits =
      listTraits({.id = 15604,
                  .refusal = "HwDatablockObelAnalogImbalancePhQ",
                  .keys = {"OBEL_ANALOG_IMBALANCE_DATA"},
                  .comments = {"#Das sind die Phasenwerte Q der OBEL ANALOG Imbalance "}},
                 {.countWidth = 0});

  explicit HwDatablockObelAnalogImbalancePhQ(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfObelAnalogImbalancePh() const { return count(); }
  void setNumberOfObelAnalogImbalancePh(int n) { setListCount(n); }
  float getObelAnalogImbalancePh(int index) const { return value(index); }
  void setObelAnalogImbalancePh(float value, int index) { setValue(value, index); }
};

/// Delays of the I and the Q path.
struct VELK_RECORD HwSDatablockOBELDelay {
  HwSDatablockHeader header;
  float delayI;
  float delayQ;

  bool operator==(const HwSDatablockOBELDelay&) const = default;
};
static_assert(sizeof(HwSDatablockOBELDelay) == 16);

inline constexpr FieldInfo obelDelayFields[] = {
    VELK_FIELD(HwSDatablockOBELDelay, delayI).keyed("DELAY_I"),
    VELK_FIELD(HwSDatablockOBELDelay, delayQ).keyed("DELAY_Q"),
};

class VELK_EXPORT HwDatablockOBELDelay : public HwTypedRecordBlock<HwSDatablockOBELDelay> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 15504,
      .refusal = "HwDatablockOBELDelay",
      .keys = {"OBEL_DELAY"},
      .fields = obelDelayFields,
      .comments = {"# Das sind die I und Q Delays:"},
  });

  explicit HwDatablockOBELDelay(bool stopConversionOnError = true)
      : HwTypedRecordBlock(traits, stopConversionOnError) {}

  /// Returns the delay of the Q path if `q` is set, and otherwise that of the I path.
  float getDelay(bool q) const { return get(q ? &HwSDatablockOBELDelay::delayQ : &HwSDatablockOBELDelay::delayI); }
  void setDelayI(float delay) { set(&HwSDatablockOBELDelay::delayI, delay); }
  void setDelayQ(float delay) { set(&HwSDatablockOBELDelay::delayQ, delay); }

  std::ostream& printToStream(std::ostream& os) override;
};

using HwSDatablockObelBaseboardCalibValue = SingleValueRecord;

/// The calibration value of the baseboard. Index 0 is the only one.
class VELK_EXPORT HwDatablockObelBaseboardCalibValue : public HwSingleValueBlock {
 public:
  static constexpr RecordTraits traits = singleValueTraits(
      {
          .id = 15605,
          .refusal = "HwDatablockObelBaseboardCalibValue",
          .keys = {"OBEL_BASEBOARD_CALIB_VALUE"},
          .comments = {"# Das ist  der Baseboard Kalibrierwert"},
      },
      unsignedSingleValueFields);

  explicit HwDatablockObelBaseboardCalibValue(bool stopConversionOnError = true)
      : HwSingleValueBlock(traits, "OBEL baseboard calibration value failed", stopConversionOnError) {}

  void setCount(unsigned int count) { storeCount(count); }
  int getBaseboardCalibValue(unsigned char index) const { return value(index); }
  /// Returns 0; or -1, after signalling an error, if the stored value reads back differently.
  int setBaseboardCalibValue(int value, unsigned char index) { return storeValue(value, index); }
};

using HwSDatablockObelWIQQuadDac = CountedRecord<unsigned int, double, 13>;
static_assert(sizeof(HwSDatablockObelWIQQuadDac) == 116);

/// Settings of the wideband I/Q board's quad DAC: 13 values.
class VELK_EXPORT HwDatablockObelWIQQuadDac : public HwCountedBlock<HwSDatablockObelWIQQuadDac> {
 public:
  static constexpr ListTraits traits = listTraits({
      .id = 15649,
      .refusal = "HwDatablockObelWiqQuadDacData",
      .keys = {"OBEL_WIQ_QUAD_DAC"},
  });

  explicit HwDatablockObelWIQQuadDac(bool stopConversionOnError = true);

  /// Copies all 13 values to `out` unless that is null, and sets `valid` to whether the checksum is valid.
  void getObelWiqQuadDacData(double* out, bool& valid);
  /// Sets all 13 values; does nothing if `in` is null.
  void setObelWiqQuadDacData(const double* in);
};

/// Two series of sensor values of the wideband I/Q board.
struct VELK_RECORD HwSDatablockObelWiqSensorData {
  HwSDatablockHeader header;
  unsigned int count;
  double a[28];
  double b[28];

  bool operator==(const HwSDatablockObelWiqSensorData&) const = default;
};
static_assert(sizeof(HwSDatablockObelWiqSensorData) == 460);

inline constexpr FieldInfo obelWiqSensorFields[] = {
    VELK_FIELD(HwSDatablockObelWiqSensorData, count).keyed("COUNT"),
    VELK_FIELD(HwSDatablockObelWiqSensorData, a).counted("count"),
    VELK_FIELD(HwSDatablockObelWiqSensorData, b).counted("count"),
};

class VELK_EXPORT HwDatablockObelWiqSensorData : public HwTypedRecordBlock<HwSDatablockObelWiqSensorData> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 15648,
      .refusal = "HwDatablockObelWiqSensorData",
      .keys = {"OBEL_WIQ_SENSOR_DATA"},
      .fields = obelWiqSensorFields,
  });

  explicit HwDatablockObelWiqSensorData(bool stopConversionOnError = true);

  /// Copies the 28 values of each series to `a` and `b` unless one of them is null, and sets `valid` to whether the
  /// checksum is valid.
  void getObelWiqSensorData(double* a, double* b, bool& valid);
  /// Sets all 28 values of each series; does nothing if `a` or `b` is null.
  void setObelWiqSensorData(const double* a, const double* b);

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
