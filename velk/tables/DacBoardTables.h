#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

using HwSDatablockDacbFrequencyCompFreq = CountedRecord<int, int, 26>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompFreq) == 116);

/// Frequencies of the frequency-response compensation, in Hz.
class VELK_EXPORT HwDatablockDacbFrequencyCompFreq : public HwCountedBlock<HwSDatablockDacbFrequencyCompFreq> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbFrequencyCompFreq, "Hz">({
      .id = 13500,
      .refusal = "HwDatablockDacbFrequencyCompFreq",
      .keys = {"DACB_FREQUENCY_COMP_FREQ"},
      .text = {.comments = {"#Das sind die Frequenzst�tzstellen [f/1Hz]"}},
  });

  explicit HwDatablockDacbFrequencyCompFreq(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompFreq() const { return count(); }
  void setNumberOfCompFreq(int n) { setListCount(n); }
  int getCompFreq(int index) const { return value(index); }
  void setCompFreq(int value, int index) { setValue(value, index); }
};

using HwSDatablockDacbFrequencyCompAmp = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompAmp) == 64);

/// Amplitudes of the compensation, in 1/10000.
class VELK_EXPORT HwDatablockDacbFrequencyCompAmp : public HwCountedBlock<HwSDatablockDacbFrequencyCompAmp> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbFrequencyCompAmp, "1/10000">({
      .id = 13600,
      .refusal = "HwDatablockDacbFrequencyCompAmp",
      .keys = {"DACB_FREQUENCY_COMP_AMP"},
      .text = {.comments = {"#Das sind die Amplitudenwerte [1/10 000]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbFrequencyCompAmp(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompAmp() const { return count(); }
  void setNumberOfcompAmp(int n) { setListCount(n); }
  short getCompAmp(int index) const { return value(index); }
  void setCompAmp(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbFrequencyCompPh = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompPh) == 64);

/// Phases of the compensation, in 1/100.
class VELK_EXPORT HwDatablockDacbFrequencyCompPh : public HwCountedBlock<HwSDatablockDacbFrequencyCompPh> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbFrequencyCompPh, "1/100">({
      .id = 13700,
      .refusal = "HwDatablockDacbFrequencyCompPh",
      .keys = {"DACB_FREQUENCY_COMP_PH"},
      .text = {.comments = {"#Das sind die Phasenwerte  [1/100]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbFrequencyCompPh(bool stopConversionOnError) : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompPh() const { return count(); }
  void setNumberOfCompPh(int n) { setListCount(n); }
  short getCompPh(int index) const { return value(index); }
  void setCompPh(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbFrequencyCompDt = CountedRecord<int, short, 2>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompDt) == 16);

/// Delays of the compensation, in 1e-12.
class VELK_EXPORT HwDatablockDacbFrequencyCompDt : public HwCountedBlock<HwSDatablockDacbFrequencyCompDt> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbFrequencyCompDt, "1/1e12">({
      .id = 13800,
      .refusal = "HwSDatablockDacbFrequencyCompDt",
      .keys = {"DACB_FREQUENCY_COMP_DT"},
      .text = {.comments = {"#Das ist der dt-Wert [1/1e12]"}},
  });

  explicit HwDatablockDacbFrequencyCompDt(bool stopConversionOnError) : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompDt() const { return count(); }
  void setNumberOfCompDt(int n) { setListCount(n); }
  short getCompDt(int index) const { return value(index); }
  void setCompDt(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalanceFreq = CountedRecord<int, int, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceFreq) == 116);

/// Frequencies of the I/Q imbalance corrections, in Hz.
class VELK_EXPORT HwDatablockDacbIqImbalanceFreq : public HwCountedBlock<HwSDatablockDacbIqImbalanceFreq> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbIqImbalanceFreq, "Hz">({
      .id = 13900,
      .refusal = "HwSDatablockDacbIqImbalanceFreq",
      .keys = {"DACB_IQ_IMBALANCE_FREQ"},
      .text = {.comments = {"#Das sind die Frequenzst�tzstellen [f/1Hz]"}},
  });

  explicit HwDatablockDacbIqImbalanceFreq(bool stopConversionOnError) : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceFreq() const { return count(); }
  /// 27 and more are ignored.
  void setNumberOfIqImbalanceFreq(int n) { setCountThatFits(n); }
  int getIqImbalanceFreq(int index) const { return value(index); }
  void setIqImbalanceFreq(int value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalanceAmp = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceAmp) == 64);

/// Amplitude corrections of the RF output.
class VELK_EXPORT HwDatablockDacbIqImbalanceAmp : public HwCountedBlock<HwSDatablockDacbIqImbalanceAmp> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbIqImbalanceAmp, "1/10000">({
      .id = 14000,
      .refusal = "HwDatablockDacbIqImbalanceAmp",
      .keys = {"DACB_IQ_IMBALANCE_AMP"},
      .text = {.comments = {"#Das sind die Amplitudenwerte der RF Imbalance [1/10000]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbIqImbalanceAmp(bool stopConversionOnError) : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceAmp() const { return count(); }
  void setNumberOfIqImbalanceAmp(int n) { setListCount(n); }
  short getIqImbalanceAmp(int index) const { return value(index); }
  void setIqImbalanceAmp(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalancePh = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalancePh) == 64);

/// Phase corrections of the RF output.
class VELK_EXPORT HwDatablockDacbIqImbalancePh : public HwCountedBlock<HwSDatablockDacbIqImbalancePh> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbIqImbalancePh, "1/100">({
      .id = 14100,
      .refusal = "HwDatablockDacbIqImbalancePh",
      .keys = {"DACB_IQ_IMBALANCE_PH"},
      .text = {.comments = {"#Das sind die Phasenwerte der RF Imbalance [1/100]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbIqImbalancePh(bool stopConversionOnError) : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalancePh() const { return count(); }
  void setNumberOfIqImbalancePh(int n) { setListCount(n); }
  short getIqImbalancePh(int index) const { return value(index); }
  void setIqImbalancePh(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalanceSwapAmp = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceSwapAmp) == 64);

/// Amplitude corrections with I and Q swapped.
class VELK_EXPORT HwDatablockDacbIqImbalanceSwapAmp : public HwCountedBlock<HwSDatablockDacbIqImbalanceSwapAmp> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbIqImbalanceSwapAmp, "1/10000">({
      .id = 14200,
      .refusal = "HwDatablockDacbIqImbalanceSwapAmp",
      .keys = {"DACB_IQ_IMBALANCE_SWAP_AMP"},
      .text = {.comments = {"#Das sind die Amplitudewerte der RF Imbalance mit IQ Swap [1/10000]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbIqImbalanceSwapAmp(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceSwapAmp() const { return count(); }
  void setNumberOfIqImbalanceSwapAmp(int n) { setListCount(n); }
  short getIqImbalanceSwapAmp(int index) const { return value(index); }
  void setIqImbalanceSwapAmp(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalanceSwapPh = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceSwapPh) == 64);

/// Phase corrections with I and Q swapped.
class VELK_EXPORT HwDatablockDacbIqImbalanceSwapPh : public HwCountedBlock<HwSDatablockDacbIqImbalanceSwapPh> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbIqImbalanceSwapPh, "1/100">({
      .id = 14300,
      .refusal = "HwDatablockDacbIqImbalanceSwapPh",
      .keys = {"DACB_IQ_IMBALANCE_SWAP_PH"},
      .text = {.comments = {"#Das sind die Phasenwerte der RF Imbalance mit IQ Swap [1/100]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbIqImbalanceSwapPh(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceSwapPh() const { return count(); }
  void setNumberOfIqImbalanceSwapPh(int n) { setListCount(n); }
  short getIqImbalanceSwapPh(int index) const { return value(index); }
  void setIqImbalanceSwapPh(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbFrequencyCompAmpRear = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompAmpRear) == 64);

/// Amplitudes of the compensation of the rear outputs.
class VELK_EXPORT HwDatablockDacbFrequencyCompAmpRear : public HwCountedBlock<HwSDatablockDacbFrequencyCompAmpRear> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbFrequencyCompAmpRear, "1/10000">({
      .id = 14400,
      .refusal = "HwSDatablockDacbFrequencyCompAmpRear",
      .keys = {"DACB_FREQUENCY_COMP_AMP_REAR"},
      .text = {.comments = {"#Das sind die Amplitudewerte [1/10000]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbFrequencyCompAmpRear(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompAmpRear() const { return count(); }
  /// 27 and more are ignored.
  void setNumberOfcompAmpRear(int n) { setCountThatFits(n); }
  short getCompAmpRear(int index) const { return value(index); }
  void setCompAmpRear(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbFrequencyCompPhRear = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompPhRear) == 64);

/// Phases of the compensation of the rear outputs.
class VELK_EXPORT HwDatablockDacbFrequencyCompPhRear : public HwCountedBlock<HwSDatablockDacbFrequencyCompPhRear> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbFrequencyCompPhRear, "1/100">({
      .id = 14500,
      .refusal = "HwDatablockDacbFrequencyCompPhRear",
      .keys = {"DACB_FREQUENCY_COMP_PH_REAR"},
      .text = {.comments = {"#Das sind die Phasenwerte  [1/100]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbFrequencyCompPhRear(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompPhRear() const { return count(); }
  /// 27 and more are ignored.
  void setNumberOfCompPhRear(int n) { setCountThatFits(n); }
  short getCompPhRear(int index) const { return value(index); }
  void setCompPhRear(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbFrequencyCompDtRear = CountedRecord<int, short, 2>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompDtRear) == 16);

/// Delays of the compensation of the rear outputs.
class VELK_EXPORT HwDatablockDacbFrequencyCompDtRear : public HwCountedBlock<HwSDatablockDacbFrequencyCompDtRear> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbFrequencyCompDtRear, "1/1e12">({
      .id = 14600,
      .refusal = "HwSDatablockDacbFrequencyCompDtRear",
      .keys = {"DACB_FREQUENCY_COMP_DT_REAR"},
      .text = {.comments = {"#Das ist der dt-Wert [1/1e12]"}},
  });

  explicit HwDatablockDacbFrequencyCompDtRear(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompDtRear() const { return count(); }
  void setNumberOfCompDtRear(int n) { setListCount(n); }
  short getCompDtRear(int index) const { return value(index); }
  void setCompDtRear(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalanceRearAmp = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceRearAmp) == 64);

/// Amplitude corrections of the rear outputs.
class VELK_EXPORT HwDatablockDacbIqImbalanceRearAmp : public HwCountedBlock<HwSDatablockDacbIqImbalanceRearAmp> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbIqImbalanceRearAmp, "1/10000">({
      .id = 14700,
      .refusal = "HwSDatablockDacbIqImbalanceRearAmp",
      .keys = {"DACB_IQ_IMBALANCE_REAR_AMP"},
      .text = {.comments = {"#Das sind die Amplitudewerte der IQ Output Imbalance [1/10000]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbIqImbalanceRearAmp(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceRearAmp() const { return count(); }
  /// 27 and more are ignored.
  void setNumberOfIqImbalanceRearAmp(int n) { setCountThatFits(n); }
  short getIqImbalanceRearAmp(int index) const { return value(index); }
  void setIqImbalanceRearAmp(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalanceRearPh = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceRearPh) == 64);

/// Phase corrections of the rear outputs.
class VELK_EXPORT HwDatablockDacbIqImbalanceRearPh : public HwCountedBlock<HwSDatablockDacbIqImbalanceRearPh> {
 public:
  static constexpr RecordTraits traits = listTraits<HwSDatablockDacbIqImbalanceRearPh, "1/100">({
      .id = 14800,
      .refusal = "HwDatablockDacbIqImbalanceRearPh",
      .keys = {"DACB_IQ_IMBALANCE_REAR_PH"},
      .text = {.comments = {"#Das sind die Phasenwerte der RF Imbalance [1/100]"}, .countWidth = 0},
  });

  explicit HwDatablockDacbIqImbalanceRearPh(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceRearPh() const { return count(); }
  void setNumberOfIqImbalanceRearPh(int n) { setListCount(n); }
  short getIqImbalanceRearPh(int index) const { return value(index); }
  void setIqImbalanceRearPh(short value, int index) { setValue(value, index); }
};

/// The full-scale value of the DAC IF stage.
struct VELK_RECORD HwSDatablockDacIfFullScale {
  HwSDatablockHeader header;
  int fullScaleValue;

  bool operator==(const HwSDatablockDacIfFullScale&) const = default;
};
static_assert(sizeof(HwSDatablockDacIfFullScale) == 12);

inline constexpr FieldInfo dacIfFullScaleFields[] = {VELK_FIELD(HwSDatablockDacIfFullScale, fullScaleValue)};

class VELK_EXPORT HwDatablockDacIfFullScale : public HwTypedRecordBlock<HwSDatablockDacIfFullScale> {
 public:
  static constexpr RecordTraits traits{
      .id = 12500,
      .size = sizeof(HwSDatablockDacIfFullScale),
      .refusal = "HwDatablockDacIfFullScale",
      .keys = {"DACIF_FULLSCALEVALUE"},
      .fields = dacIfFullScaleFields,
      .text = {.comments = {"# Das ist der FullScaleValue"}},
  };

  HwDatablockDacIfFullScale() : HwTypedRecordBlock(traits, true) {}

  int getFullScaleValue() const { return get(&HwSDatablockDacIfFullScale::fullScaleValue); }
  void setFullScaleValue(int value) { set(&HwSDatablockDacIfFullScale::fullScaleValue, value); }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
