#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

using HwSDatablockDacbFrequencyCompFreq = CountedRecord<int, int, 26>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompFreq) == 116);

/// Frequencies of the frequency-response compensation, in Hz.
class VELK_EXPORT HwDatablockDacbFrequencyCompFreq : public HwCountedBlock<HwSDatablockDacbFrequencyCompFreq> {
 public:
  static constexpr ListTraits traits = listTraits<"Hz">({
      .id = 13500,
      .refusal = "HwDatablockDacbFrequencyCompFreq",
      .keys = {"DACB_FREQUENCY_COMP_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen [f/1Hz]"},
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
  static constexpr ListTraits traits = listTraits<"1/10000">({.id = 13600,
                                                              .refusal = "HwDatablockDacbFrequencyCompAmp",
                                                              .keys = {"DACB_FREQUENCY_COMP_AMP"},
                                                              .comments = {"#Das sind die Amplitudenwerte [1/10 000]"}},
                                                             {.countWidth = 0});

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
  static constexpr ListTraits traits = listTraits<"1/100">({.id = 13700,
                                                            .refusal = "HwDatablockDacbFrequencyCompPh",
                                                            .keys = {"DACB_FREQUENCY_COMP_PH"},
                                                            .comments = {"#Das sind die Phasenwerte  [1/100]"}},
                                                           {.countWidth = 0});

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
  static constexpr ListTraits traits = listTraits<"1/1e12">({
      .id = 13800,
      .refusal = "HwSDatablockDacbFrequencyCompDt",
      .keys = {"DACB_FREQUENCY_COMP_DT"},
      .comments = {"#Das ist der dt-Wert [1/1e12]"},
  });

  explicit HwDatablockDacbFrequencyCompDt(bool stopConversionOnError) : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompDt() const { return count(); }
  void setNumberOfCompDt(int n) { setListCount(n); }
  short getCompDt(int index) const { return value(index); }
  void setCompDt(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbFrequencyCompAmpRear = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbFrequencyCompAmpRear) == 64);

/// Amplitudes of the compensation of the rear outputs.
class VELK_EXPORT HwDatablockDacbFrequencyCompAmpRear : public HwCountedBlock<HwSDatablockDacbFrequencyCompAmpRear> {
 public:
  static constexpr ListTraits traits = listTraits<"1/10000">({.id = 14400,
                                                              .refusal = "HwSDatablockDacbFrequencyCompAmpRear",
                                                              .keys = {"DACB_FREQUENCY_COMP_AMP_REAR"},
                                                              .comments = {"#Das sind die Amplitudewerte [1/10000]"}},
                                                             {.countWidth = 0});

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
  static constexpr ListTraits traits = listTraits<"1/100">({.id = 14500,
                                                            .refusal = "HwDatablockDacbFrequencyCompPhRear",
                                                            .keys = {"DACB_FREQUENCY_COMP_PH_REAR"},
                                                            .comments = {"#Das sind die Phasenwerte  [1/100]"}},
                                                           {.countWidth = 0});

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
  static constexpr ListTraits traits = listTraits<"1/1e12">({
      .id = 14600,
      .refusal = "HwSDatablockDacbFrequencyCompDtRear",
      .keys = {"DACB_FREQUENCY_COMP_DT_REAR"},
      .comments = {"#Das ist der dt-Wert [1/1e12]"},
  });

  explicit HwDatablockDacbFrequencyCompDtRear(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfCompDtRear() const { return count(); }
  void setNumberOfCompDtRear(int n) { setListCount(n); }
  short getCompDtRear(int index) const { return value(index); }
  void setCompDtRear(short value, int index) { setValue(value, index); }
};

}  // namespace Velk
