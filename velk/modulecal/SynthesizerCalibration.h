#pragma once

#include "velk/layer/HwCountedBlock.h"
#include "velk/layer/HwSingleValueBlock.h"

namespace Velk {

using HwSDatablockSsynOcxoRefCalValue = SingleValueRecord;
using HwSDatablockSynexOcxoRefCalValue = SingleValueRecord;
using HwSDatablockFsynTcxoRefCalValue = SingleValueRecord;
using HwSDatablockSittMbrdPllDacCalibValue = SingleValueRecord;

class VELK_EXPORT HwDatablockSsynOcxoRefCalValue : public HwReferenceOscillatorBlock {
 public:
  static constexpr RecordTraits traits = singleValueTraits({
      .id = 10000,
      .refusal = "HwSDatablockSsynOcxoRefCalValue",
      .keys = {"SSYN_OCXO_REF_CAL_VALUE"},
      .acceptance = Acceptance::ChecksumOrBlankHeader,
      .comments = {"# Das sind die Ssyn_Ocxo Kalibrierwerte", "# Maximal m�gliche Koefizienten sind mit dieser ID 1"},
  });

  HwDatablockSsynOcxoRefCalValue() : HwReferenceOscillatorBlock(traits) {}
};

class VELK_EXPORT HwDatablockSynexOcxoRefCalValue : public HwReferenceOscillatorBlock {
 public:
  static constexpr RecordTraits traits = singleValueTraits({
      .id = 15000,
      .refusal = "HwSDatablockSynexOcxoRefCalValue",
      .keys = {"SYNEX_OCXO_REF_CAL_VALUE"},
      .comments = {"# Das sind die Synex_Ocxo Kalibrierwerte", "# Maximal m�gliche Koefizienten sind mit dieser ID 1"},
  });

  HwDatablockSynexOcxoRefCalValue() : HwReferenceOscillatorBlock(traits) {}
};

class VELK_EXPORT HwDatablockFsynTcxoRefCalValue : public HwReferenceOscillatorBlock {
 public:
  static constexpr RecordTraits traits = singleValueTraits({
      .id = 15001,
      .refusal = "HwSDatablockFsynTcxoRefCalValue",
      .keys = {"FSYN_TCXO_REF_CAL_VALUE"},
      .comments = {"# Das sind die Fsyn_Ocxo Kalibrierwerte", "# Maximal m�gliche Koefizienten sind mit dieser ID 1"},
  });

  HwDatablockFsynTcxoRefCalValue() : HwReferenceOscillatorBlock(traits) {}
};

/// The DAC value that tunes the mainboard's reference frequency.
class VELK_EXPORT HwDatablockSittMbrdPllDacCalibValue : public HwSingleValueBlock {
 public:
  static constexpr RecordTraits traits = singleValueTraits({
      .id = 12280,
      .refusal = "HwSDatablockSittMbrdPllDacCalibValue",
      .keys = {"SITT_MBRD_PLL_DAC_VALUE"},
      .acceptance = Acceptance::ChecksumOrBlankHeader,
      .comments = {"# Einstellwert fuer den PLL-DAC bewirkt genaue Einstellung der Referenzfrequenz",
                   "# Wertebereich: 0..3FFh (0..1023) entspricht Frequenz 10MHz +/-150Hz"},
  });

  HwDatablockSittMbrdPllDacCalibValue() : HwSingleValueBlock(traits, "Sitt Mbrd Pll Dac Reference value failed") {}

  void setCount(unsigned int count) { storeCount(count); }
  int getSittMbrdPllDacCalibValue(unsigned char index) const { return value(index); }
  int setSittMbrdPllDacCalibValue(int value, unsigned char index) { return storeValue(value, index); }
};

using HwSDatablockSsynOpuDblCoefficient = CountedRecord<unsigned int, double, 3>;
static_assert(sizeof(HwSDatablockSsynOpuDblCoefficient) == 36);

/// Coefficients of the output unit's frequency doubler.
class VELK_EXPORT HwDatablockSsynOpuDblCoefficient : public HwCountedBlock<HwSDatablockSsynOpuDblCoefficient> {
 public:
  static constexpr ListTraits traits = listTraits({
      .id = 10001,
      .refusal = "HwSDatablockSsynOpuDblCoefficient",
      .keys = {"SSYN_OPU_DBL_COEFFICIENT"},
      .comments = {"# Das sind die Frequenzst�tzstellen f�r Ssyn_Opu_Dbl_Coefficient",
                   "# Maximal m�gliche Koeffizienten sind mit dieser ID 3"},
  });

  HwDatablockSsynOpuDblCoefficient() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned char n) { setListCount(n); }
  double getOpuDblCoefficient(unsigned char index) const { return value(index); }
  void setOpuDblCoefficient(double coefficient, unsigned char index) { setValue(coefficient, index); }

  /// Writes each coefficient with its own number of decimals.
  std::ostream& printToStream(std::ostream& os) override;
};

using HwSDatablockSsynOpuLevelFreq = CountedRecord<unsigned int, double, 50>;
static_assert(sizeof(HwSDatablockSsynOpuLevelFreq) == 412);

/// Frequencies of the output unit's levels.
class VELK_EXPORT HwDatablockSsynOpuLevelFreq : public HwCountedBlock<HwSDatablockSsynOpuLevelFreq> {
 public:
  static constexpr ListTraits traits = listTraits({
      .id = 10002,
      .refusal = "HwSDatablockSsynOpuLevelFreq",
      .keys = {"SSYN_OPU_LEVEL_FREQ"},
      .comments = {"# Das sind die Frequenzst�tzstellen f�r Ssyn_Opu_Dbl_Coefficient",
                   "# Maximal m�gliche Frequenzst�tzstellen sind mit dieser ID 50"},
  });

  HwDatablockSsynOpuLevelFreq() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned char n) { setListCount(n); }
  double getOpuLevelFreq(unsigned char index) const { return value(index); }
  void setOpuLevelFreq(double frequency, unsigned char index) { setValue(frequency, index); }
};

using HwSDatablockSsynOpuLevel = CountedRecord<unsigned int, unsigned int, 50>;
static_assert(sizeof(HwSDatablockSsynOpuLevel) == 212);

/// Levels of the output unit, in mV.
class VELK_EXPORT HwDatablockSsynOpuLevel : public HwCountedBlock<HwSDatablockSsynOpuLevel> {
 public:
  static constexpr ListTraits traits = listTraits<"mV">({
      .id = 10003,
      .refusal = "HwSDatablockSsynOpuLevel",
      .keys = {"SSYN_OPU_LEVEL"},
      .comments = {"# Das sind die Ssyn_Opu_Dbl_Coefficient in [mV]",
                   "# Maximal m�gliche Koefizienten sind mit dieser ID 50"},
  });

  HwDatablockSsynOpuLevel() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned char n) { setListCount(n); }
  unsigned int getOpuLevel(unsigned char index) const { return value(index); }
  void setOpuLevel(unsigned int level, unsigned char index) { setValue(level, index); }
};

}  // namespace Velk
