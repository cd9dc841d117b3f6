#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

using HwSDatablockDacbIqImbalanceFreq = CountedRecord<int, int, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceFreq) == 116);

/// Frequencies of the I/Q imbalance corrections, in Hz.
class VELK_EXPORT HwDatablockDacbIqImbalanceFreq : public HwCountedBlock<HwSDatablockDacbIqImbalanceFreq> {
 public:
  static constexpr ListTraits traits = listTraits<"Hz">({
      .id = 13900,
      .refusal = "HwSDatablockDacbIqImbalanceFreq",
      .keys = {"DACB_IQ_IMBALANCE_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen [f/1Hz]"},
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
  static constexpr ListTraits traits =
      listTraits<"1/10000">({.id = 14000,
                             .refusal = "HwDatablockDacbIqImbalanceAmp",
                             .keys = {"DACB_IQ_IMBALANCE_AMP"},
                             .comments = {"#Das sind die Amplitudenwerte der RF Imbalance [1/10000]"}},
                            {.countWidth = 0});

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
  static constexpr ListTraits traits =
      listTraits<"1/100">({.id = 14100,
                           .refusal = "HwDatablockDacbIqImbalancePh",
                           .keys = {"DACB_IQ_IMBALANCE_PH"},
                           .comments = {"#Das sind die Phasenwerte der RF Imbalance [1/100]"}},
                          {.countWidth = 0});

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
  static constexpr ListTraits traits =
      listTraits<"1/10000">({.id = 14200,
                             .refusal = "HwDatablockDacbIqImbalanceSwapAmp",
                             .keys = {"DACB_IQ_IMBALANCE_SWAP_AMP"},
                             .comments = {"#Das sind die Amplitudewerte der RF Imbalance mit IQ Swap [1/10000]"}},
                            {.countWidth = 0});

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
  static constexpr ListTraits traits =
      listTraits<"1/100">({.id = 14300,
                           .refusal = "HwDatablockDacbIqImbalanceSwapPh",
                           .keys = {"DACB_IQ_IMBALANCE_SWAP_PH"},
                           .comments = {"#Das sind die Phasenwerte der RF Imbalance mit IQ Swap [1/100]"}},
                          {.countWidth = 0});

  explicit HwDatablockDacbIqImbalanceSwapPh(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceSwapPh() const { return count(); }
  void setNumberOfIqImbalanceSwapPh(int n) { setListCount(n); }
  short getIqImbalanceSwapPh(int index) const { return value(index); }
  void setIqImbalanceSwapPh(short value, int index) { setValue(value, index); }
};

using HwSDatablockDacbIqImbalanceRearAmp = CountedRecord<int, short, 26>;
static_assert(sizeof(HwSDatablockDacbIqImbalanceRearAmp) == 64);

/// Amplitude corrections of the rear outputs.
class VELK_EXPORT HwDatablockDacbIqImbalanceRearAmp : public HwCountedBlock<HwSDatablockDacbIqImbalanceRearAmp> {
 public:
  static constexpr ListTraits traits =
      listTraits<"1/10000">({.id = 14700,
                             .refusal = "HwSDatablockDacbIqImbalanceRearAmp",
                             .keys = {"DACB_IQ_IMBALANCE_REAR_AMP"},
                             .comments = {"#Das sind die Amplitudewerte der IQ Output Imbalance [1/10000]"}},
                            {.countWidth = 0});

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
  static constexpr ListTraits traits =
      listTraits<"1/100">({.id = 14800,
                           .refusal = "HwDatablockDacbIqImbalanceRearPh",
                           .keys = {"DACB_IQ_IMBALANCE_REAR_PH"},
                           .comments = {"#Das sind die Phasenwerte der RF Imbalance [1/100]"}},
                          {.countWidth = 0});

  explicit HwDatablockDacbIqImbalanceRearPh(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfIqImbalanceRearPh() const { return count(); }
  void setNumberOfIqImbalanceRearPh(int n) { setListCount(n); }
  short getIqImbalanceRearPh(int index) const { return value(index); }
  void setIqImbalanceRearPh(short value, int index) { setValue(value, index); }
};

}  // namespace Velk
