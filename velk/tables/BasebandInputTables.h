#pragma once

#include "velk/layer/HwCountedBlock.h"

namespace Velk {

using HwSDatablockBbinsCompFilterTabsI = CountedRecord<int, int, 20>;
static_assert(sizeof(HwSDatablockBbinsCompFilterTabsI) == 92);

/// Equalizer coefficients of the I path.
class VELK_EXPORT HwDatablockBbinsCompFilterTabsI : public HwCountedBlock<HwSDatablockBbinsCompFilterTabsI> {
 public:
  static constexpr ListTraits traits = listTraits(
      {.id = 13000,
       .refusal = "HwSDatablockBbinsCompFilterTabsI",
       .keys = {"BBINS_COMP_FIL_TAPS_I"},
       .comments = {"# Das sind die Entzerr-Koeffizienten f�r Resample I-Pfad", "# signed fixed point LSB value 21-24",
                    "# Maximal m�gliche Koefizienten sind mit dieser ID 20"}},
      {.countWidth = 20});

  explicit HwDatablockBbinsCompFilterTabsI(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfFilterTabsI() const { return count(); }
  void setNumberOfFilterTabsI(int n) { setListCount(n); }
  int getFilterTabsIValue(int index) const { return value(index); }
  void setFilterTabsIValue(int value, int index) { setValue(value, index); }
};

using HwSDatablockBbinsCompFilterTabsQ = CountedRecord<int, int, 20>;
static_assert(sizeof(HwSDatablockBbinsCompFilterTabsQ) == 92);

/// Equalizer coefficients of the Q path.
class VELK_EXPORT HwDatablockBbinsCompFilterTabsQ : public HwCountedBlock<HwSDatablockBbinsCompFilterTabsQ> {
 public:
  static constexpr ListTraits traits = listTraits(
      {.id = 13050,
       .refusal = "HwDatablockBbinsCompFilterTabsQ",
       .keys = {"BBINS_COMP_FIL_TAPS_Q"},
       .comments = {"# Das sind die Entzerr-Koeffizienten f�r Resample Q-Pfad", "# signed fixed point LSB value 21-24",
                    "# Maximal m�gliche Koefizienten sind mit dieser ID 20"}},
      {.countWidth = 20});

  explicit HwDatablockBbinsCompFilterTabsQ(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfFilterTabsQ() const { return count(); }
  void setNumberOfFilterTabsQ(int n) { setListCount(n); }
  int getFilterTabsQValue(int index) const { return value(index); }
  void setFilterTabsQValue(int value, int index) { setValue(value, index); }
};

using HwSDatablockBbinsUncalibratedFirAmplitudeI = CountedRecord<int, int, 50>;
static_assert(sizeof(HwSDatablockBbinsUncalibratedFirAmplitudeI) == 212);

/// Uncalibrated amplitude response of the I path.
class VELK_EXPORT HwDatablockBbinsUncalibratedFirAmplitudeI
    : public HwCountedBlock<HwSDatablockBbinsUncalibratedFirAmplitudeI> {
 public:
  static constexpr ListTraits traits = listTraits(
      {.id = 13100,
       .refusal = "HwDatablockBbinsUncalibratedFirAmplitudeI",
       .keys = {"BBINS_UNCALIBRATED_FIR_AMPLITUDE_I"},
       .comments = {"# unkalibrierter BBIN-Amplitudengang fuer I-Pfad", "# Format: signed integer (32 Bit-Darstellung)",
                    "# Maximal m�gliche Koefizienten mit dieser ID 50"}},
      {.countWidth = 20});

  explicit HwDatablockBbinsUncalibratedFirAmplitudeI(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfUncalibratedFirAmplitudeI() const { return count(); }
  void setNumberOfUncalibratedFirAmplitudeI(int n) { setListCount(n); }
  int getUncalibratedFirAmplitudeIValue(int index) const { return value(index); }
  void setUncalibratedFirAmplitudeIValue(int value, int index) { setValue(value, index); }
};

using HwSDatablockBbinsUncalibratedFirPhiI = CountedRecord<int, int, 50>;
static_assert(sizeof(HwSDatablockBbinsUncalibratedFirPhiI) == 212);

/// Uncalibrated phase response of the I path.
class VELK_EXPORT HwDatablockBbinsUncalibratedFirPhiI : public HwCountedBlock<HwSDatablockBbinsUncalibratedFirPhiI> {
 public:
  static constexpr ListTraits traits = listTraits(
      {.id = 13101,
       .refusal = "HwDatablockBbinsUncalibratedFirPhiI",
       .keys = {"BBINS_UNCALIBRATED_FIR_PHI_I"},
       .comments = {"# unkalibrierter BBIN-Phasengang fuer I-Pfad", "# Format: signed integer (32 Bit-Darstellung)",
                    "# Maximal m�gliche Koefizienten mit dieser ID 50"}},
      {.countWidth = 20});

  explicit HwDatablockBbinsUncalibratedFirPhiI(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfUncalibratedFirPhiI() const { return count(); }
  void setNumberOfUncalibratedFirPhiI(int n) { setListCount(n); }
  int getUncalibratedFirPhiIValue(int index) const { return value(index); }
  void setUncalibratedFirPhiIValue(int value, int index) { setValue(value, index); }
};

using HwSDatablockBbinsUncalibratedFirAmplitudeQ = CountedRecord<int, int, 50>;
static_assert(sizeof(HwSDatablockBbinsUncalibratedFirAmplitudeQ) == 212);

/// Uncalibrated amplitude response of the Q path.
class VELK_EXPORT HwDatablockBbinsUncalibratedFirAmplitudeQ
    : public HwCountedBlock<HwSDatablockBbinsUncalibratedFirAmplitudeQ> {
 public:
  static constexpr ListTraits traits = listTraits(
      {.id = 13102,
       .refusal = "HwDatablockBbinsUncalibratedFirAmplitudeQ",
       .keys = {"BBINS_UNCALIBRATED_FIR_AMPLITUDE_Q"},
       .comments = {"# unkalibrierter BBIN-Amplitudengang fuer Q-Pfad", "# Format: signed integer (32 Bit-Darstellung)",
                    "# Maximal m�gliche Koefizienten mit dieser ID 50"}},
      {.countWidth = 20});

  explicit HwDatablockBbinsUncalibratedFirAmplitudeQ(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfUncalibratedFirAmplitudeQ() const { return count(); }
  void setNumberOfUncalibratedFirAmplitudeQ(int n) { setListCount(n); }
  int getUncalibratedFirAmplitudeQValue(int index) const { return value(index); }
  void setUncalibratedFirAmplitudeQValue(int value, int index) { setValue(value, index); }
};

using HwSDatablockBbinsUncalibratedFirPhiQ = CountedRecord<int, int, 50>;
static_assert(sizeof(HwSDatablockBbinsUncalibratedFirPhiQ) == 212);

/// Uncalibrated phase response of the Q path.
class VELK_EXPORT HwDatablockBbinsUncalibratedFirPhiQ : public HwCountedBlock<HwSDatablockBbinsUncalibratedFirPhiQ> {
 public:
  static constexpr ListTraits traits = listTraits(
      {.id = 13103,
       .refusal = "HwDatablockBbinsUncalibratedFirPhiQ",
       .keys = {"BBINS_UNCALIBRATED_FIR_PHI_Q"},
       .comments = {"# unkalibrierter BBIN-Phasengang fuer Q-Pfad", "# Format: signed integer (32 Bit-Darstellung)",
                    "# Maximal m�gliche Koefizienten mit dieser ID 50"}},
      {.countWidth = 20});

  explicit HwDatablockBbinsUncalibratedFirPhiQ(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  int getNumberOfUncalibratedFirPhiQ() const { return count(); }
  void setNumberOfUncalibratedFirPhiQ(int n) { setListCount(n); }
  int getUncalibratedFirPhiQValue(int index) const { return value(index); }
  void setUncalibratedFirPhiQValue(int value, int index) { setValue(value, index); }
};

}  // namespace Velk
