#pragma once

#include "velk/layer/HwCountedBlock.h"
#include "velk/layer/HwInstance.h"

namespace Velk {

using HwSDatablockMbrdIqImbalanceRfFreq = CountedRecord<unsigned int, unsigned int, 600>;
static_assert(sizeof(HwSDatablockMbrdIqImbalanceRfFreq) == 2412);

/// Frequency grid of a path's I/Q imbalance correction, in MHz.
class VELK_EXPORT HwDatablockMbrdIqImbalanceRfFreq
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdIqImbalanceRfFreq>> {
 public:
  static constexpr ListTraits traits =
      listTraits<"MHz">({.id = 12100,
                         .refusal = "HwSDatablockMbrdIqImbalanceRfFreq",
                         .keys = {"PATH_A_IQ_IMBALANCE_RF_FREQ", "PATH_B_IQ_IMBALANCE_RF_FREQ",
                                  "PATH_C_IQ_IMBALANCE_RF_FREQ", "PATH_D_IQ_IMBALANCE_RF_FREQ"},
                         .comments = {"#Das sind die Frequenzst�tzstellen [f/1MHz] "}},
                        {.separator = ": "});

  HwDatablockMbrdIqImbalanceRfFreq(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfIqImbalanceRfFreq() const { return count(); }
  void setNumberOfIqImbalanceRfFreq(unsigned int n) { setListCount(n); }
  unsigned int getIqImbalanceRfFreq(unsigned int index) const { return value(index); }
  void setIqImbalanceRfFreq(unsigned int frequency, unsigned int index) { setValue(frequency, index); }
};

using HwSDatablockMbrdIqImbalanceRfEvenAmp = CountedRecord<unsigned int, short, 600>;
static_assert(sizeof(HwSDatablockMbrdIqImbalanceRfEvenAmp) == 1212);

/// Even amplitude corrections, in 1/10000.
class VELK_EXPORT HwDatablockMbrdIqImbalanceRfEvenAmp
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdIqImbalanceRfEvenAmp>> {
 public:
  static constexpr ListTraits traits =
      listTraits<"1/10000">({.id = 12110,
                             .refusal = "HwDatablockMbrdIqImbalanceRfEvenAmp",
                             .keys = {"PATH_A_IQ_IMBALANCE_RF_EVEN_AMP", "PATH_B_IQ_IMBALANCE_RF_EVEN_AMP",
                                      "PATH_C_IQ_IMBALANCE_RF_EVEN_AMP", "PATH_D_IQ_IMBALANCE_RF_EVEN_AMP"},
                             .comments = {"#Das sind die geraden Amplitudewerte [1/10000] "}},
                            {.countWidth = 0, .separator = ": "});

  HwDatablockMbrdIqImbalanceRfEvenAmp(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfIqImbalanceRfEvenAmp() const { return count(); }
  void setNumberOfIqImbalanceRfEvenAmp(unsigned int n) { setListCount(n); }
  short getIqImbalanceRfEvenAmp(unsigned int index) const { return value(index); }
  void setIqImbalanceRfEvenAmp(short value, unsigned int index) { setValue(value, index); }
};

using HwSDatablockMbrdIqImbalanceRfEvenPh = CountedRecord<unsigned int, short, 600>;
static_assert(sizeof(HwSDatablockMbrdIqImbalanceRfEvenPh) == 1212);

/// Even phase corrections, in 1/100.
class VELK_EXPORT HwDatablockMbrdIqImbalanceRfEvenPh
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdIqImbalanceRfEvenPh>> {
 public:
  static constexpr ListTraits traits =
      listTraits<"1/100">({.id = 12120,
                           .refusal = "HwDatablockMbrdIqImbalanceRfEvenPh",
                           .keys = {"PATH_A_IQ_IMBALANCE_RF_EVEN_PH", "PATH_B_IQ_IMBALANCE_RF_EVEN_PH",
                                    "PATH_C_IQ_IMBALANCE_RF_EVEN_PH", "PATH_D_IQ_IMBALANCE_RF_EVEN_PH"},
                           .comments = {"#Das sind die geraden Phasenwerte [1/100] "}},
                          {.countWidth = 0, .separator = ": "});

  HwDatablockMbrdIqImbalanceRfEvenPh(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfIqImbalanceRfEvenPh() const { return count(); }
  void setNumberOfIqImbalanceRfEvenPh(unsigned int n) { setListCount(n); }
  short getIqImbalanceRfEvenPh(unsigned int index) const { return value(index); }
  void setIqImbalanceRfEvenPh(short value, unsigned int index) { setValue(value, index); }
};

using HwSDatablockMbrdIqImbalanceRfOddAmp = CountedRecord<unsigned int, short, 600>;
static_assert(sizeof(HwSDatablockMbrdIqImbalanceRfOddAmp) == 1212);

/// Odd amplitude corrections, in 1/10000.
class VELK_EXPORT HwDatablockMbrdIqImbalanceRfOddAmp
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdIqImbalanceRfOddAmp>> {
 public:
  static constexpr ListTraits traits =
      listTraits<"1/10000">({.id = 12130,
                             .refusal = "HwDatablockMbrdIqImbalanceRfOddAmp",
                             .keys = {"PATH_A_IQ_IMBALANCE_RF_ODD_AMP", "PATH_B_IQ_IMBALANCE_RF_ODD_AMP",
                                      "PATH_C_IQ_IMBALANCE_RF_ODD_AMP", "PATH_D_IQ_IMBALANCE_RF_ODD_AMP"},
                             .comments = {"#Das sind die ungeraden Amplitudewerte [1/10000] "}},
                            {.countWidth = 0, .separator = ": "});

  HwDatablockMbrdIqImbalanceRfOddAmp(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfIqImbalanceRfOddAmp() const { return count(); }
  void setNumberOfIqImbalanceRfOddAmp(unsigned int n) { setListCount(n); }
  short getIqImbalanceRfOddAmp(unsigned int index) const { return value(index); }
  void setIqImbalanceRfOddAmp(short value, unsigned int index) { setValue(value, index); }
};

using HwSDatablockMbrdIqImbalanceRfOddPh = CountedRecord<unsigned int, short, 600>;
static_assert(sizeof(HwSDatablockMbrdIqImbalanceRfOddPh) == 1212);

/// Odd phase corrections, in 1/100.
class VELK_EXPORT HwDatablockMbrdIqImbalanceRfOddPh
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdIqImbalanceRfOddPh>> {
 public:
  static constexpr ListTraits traits =
      listTraits<"1/100">({.id = 12140,
                           .refusal = "HwDatablockMbrdIqImbalanceRfOddPh",
                           .keys = {"PATH_A_IQ_IMBALANCE_RF_ODD_PH", "PATH_B_IQ_IMBALANCE_RF_ODD_PH",
                                    "PATH_C_IQ_IMBALANCE_RF_ODD_PH", "PATH_D_IQ_IMBALANCE_RF_ODD_PH"},
                           .comments = {"#Das sind die ungeraden Phasenwerte [1/100]"}},
                          {.countWidth = 0, .separator = ": "});

  HwDatablockMbrdIqImbalanceRfOddPh(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfIqImbalanceRfOddPh() const { return count(); }
  void setNumberOfIqImbalanceRfOddPh(unsigned int n) { setListCount(n); }
  short getIqImbalanceRfOddPh(unsigned int index) const { return value(index); }
  void setIqImbalanceRfOddPh(short value, unsigned int index) { setValue(value, index); }
};

using HwSDatablockMbrdRfResponseAttFreq = CountedRecord<unsigned int, unsigned int, 200>;
static_assert(sizeof(HwSDatablockMbrdRfResponseAttFreq) == 812);

/// RF frequency grid of a path's attenuator response, in MHz.
class VELK_EXPORT HwDatablockMbrdRfResponseAttFreq
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdRfResponseAttFreq>> {
 public:
  static constexpr ListTraits traits = listTraits<"MHz">({
      .id = 12260,
      .refusal = "HwDatablockMbrdRfResponseAttFreq",
      .keys = {"PATH_A_RF_RESPONSE_ATT_FREQ", "PATH_B_RF_RESPONSE_ATT_FREQ", "PATH_C_RF_RESPONSE_ATT_FREQ",
               "PATH_D_RF_RESPONSE_ATT_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen der RF [MHz]"},
  });

  HwDatablockMbrdRfResponseAttFreq(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfFrequency() const { return count(); }
  void setNumberOfFrequency(unsigned int n) { setListCount(n); }
  unsigned int getFrequencyValue(unsigned int index) const { return value(index); }
  void setFrequencyValue(unsigned int value, unsigned int index) { setValue(value, index); }
};

using HwSDatablockMbrdRfResponseBbFreq = CountedRecord<unsigned int, int, 100>;
static_assert(sizeof(HwSDatablockMbrdRfResponseBbFreq) == 412);

/// Baseband frequency grid of a path, in kHz.
class VELK_EXPORT HwDatablockMbrdRfResponseBbFreq
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdRfResponseBbFreq>> {
 public:
  static constexpr ListTraits traits = listTraits<"kHz">({
      .id = 12250,
      .refusal = "HwDatablockMbrdRfResponseBbFreq",
      .keys = {"PATH_A_RF_RESPONSE_BB_FREQ", "PATH_B_RF_RESPONSE_BB_FREQ", "PATH_C_RF_RESPONSE_BB_FREQ",
               "PATH_D_RF_RESPONSE_BB_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen des Basisbandes [kHz]"},
  });

  HwDatablockMbrdRfResponseBbFreq(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfFrequency() const { return count(); }
  void setNumberOfFrequency(unsigned int n) { setListCount(n); }
  int getFrequencyValue(unsigned int index) const { return value(index); }
  void setFrequencyValue(int value, unsigned int index) { setValue(value, index); }
};

using HwSDatablockMbrdRfResponseIoPepInfo = CountedRecord<unsigned int, unsigned int, 20>;
static_assert(sizeof(HwSDatablockMbrdRfResponseIoPepInfo) == 92);

/// Calibration levels of a path in 1/100 dB: the number of IOPEP values and the values, the number of maximum IQPEP
/// values and the values, and the baseband gain.
class VELK_EXPORT HwDatablockMbrdRfResponseIoPepInfo
    : public HwInstance<HwCountedBlock<HwSDatablockMbrdRfResponseIoPepInfo>> {
 public:
  static constexpr ListTraits traits = listTraits<"1/100 dB">({
      .id = 12220,
      .refusal = "HwDatablockMbrdRfResponseIoPepInfo",
      .keys = {"PATH_A_RF_RESPONSE_IOPEP_INFO", "PATH_B_RF_RESPONSE_IOPEP_INFO", "PATH_C_RF_RESPONSE_IOPEP_INFO",
               "PATH_D_RF_RESPONSE_IOPEP_INFO"},
      .comments = {"#Info f�r Kalibrierpegel (IOPEP Anzahl und Werte, max. IQPEP der Betriebszust�nde Anzahl "
                   "und Werte, dazugeh�riges BBGAIN), dB*100"},
  });

  HwDatablockMbrdRfResponseIoPepInfo(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getCountOfIoPepInfoValues() const { return count(); }
  void setCountOfIoPepInfoValues(unsigned int n) { setListCount(n); }
  unsigned int getIoPepInfoValue(unsigned int index) const { return value(index); }
  void setIoPepInfoValue(unsigned int value, unsigned int index) { setValue(value, index); }
};

}  // namespace Velk
