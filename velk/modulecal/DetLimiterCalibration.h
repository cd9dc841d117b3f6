#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

using HwSDatablockDetLimiterMaxVoltFreq = CountedRecord<unsigned int, double, 100>;
using HwSDatablockDetLimiterMaxVoltData = CountedRecord<unsigned int, double, 100>;
static_assert(sizeof(HwSDatablockDetLimiterMaxVoltData) == 812);

/// Frequencies of the limiter's detector voltages, in GHz.
class VELK_EXPORT HwDatablockDetLimiterMaxVoltFreq : public HwCountedBlock<HwSDatablockDetLimiterMaxVoltFreq> {
 public:
  static constexpr ListTraits traits = listTraits<"GHz">(
      {.id = 15020,
       .refusal = "HwSDatablockDetLimiterMaxVoltFreq",
       .keys = {"LIMITER_FREQUENCY_NODE_GHZ"},
       .comments = {"# Limiter:  Hier stehen die St�tzstellen f�r die Frequenzwerte",
                    "#           Wertebereich: 1...22GHz", "#           Maximal m�gliche St�tzstellen: 100"},
       .idWidth = 12},
      {.countWidth = 12, .decimals = 6});

  HwDatablockDetLimiterMaxVoltFreq() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned int n) { setListCount(n); }
  double getFrequencyValue(unsigned int index) const { return value(index); }
  /// Updates the checksum if `withChecksum` is set.
  void setFrequencyValue(double frequency, unsigned int index, bool withChecksum) {
    setValue(frequency, index, withChecksum);
  }
};

/// Detector voltages at the limiter's maximum level, in V.
class VELK_EXPORT HwDatablockDetLimiterMaxVoltData : public HwCountedBlock<HwSDatablockDetLimiterMaxVoltData> {
 public:
  static constexpr ListTraits traits = listTraits<"V">({
      .id = 15021,
      .refusal = "HwSDatablockDetLimiterMaxVoltData",
      .keys = {"LIMITER_MAX_VOLTAGE"},
      .comments = {"# Limiter: Hier stehen die Detektorspannungen bei maximal zul�ssigem Pegel",
                   "# Wertebereich: 0...8V"},
  });

  HwDatablockDetLimiterMaxVoltData() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned int n) { setListCount(n); }
  double getMaxVoltageValue(unsigned int index) const { return value(index); }
  /// Updates the checksum if `withChecksum` is set.
  void setMaxVoltageValue(double voltage, unsigned int index, bool withChecksum) {
    setValue(voltage, index, withChecksum);
  }
};

}  // namespace Velk
