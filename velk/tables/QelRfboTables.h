#pragma once

#include "velk/tables/TableExchange.h"
#include "velk/tables/TableTemplates.h"

// The tables of the Qel RF board. Most come in pairs: a list of frequency points, in units of its scale, and a table
// with a column for each of them.

namespace Velk {

// The stereo coder.

class VELK_EXPORT HwDatablockStereocoderCo : public HwDatablockBaseTemplate<short, short, 6, 1> {
 public:
  static constexpr TableTraits traits{.id = 15690, .key = "STEREOCODER_CO"};
  explicit HwDatablockStereocoderCo(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The external input.

class VELK_EXPORT HwDatablockQelRfboExtInGain : public HwDatablockBaseTemplate<int, int, 10, 1> {
 public:
  static constexpr TableTraits traits{.id = 15700, .key = "RFBO_EXTIN_GAIN"};
  explicit HwDatablockQelRfboExtInGain(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboExtInOffset : public HwDatablockBaseTemplate<int, int, 10, 1> {
 public:
  static constexpr TableTraits traits{.id = 15701, .key = "RFBO_EXTIN_OFFSET"};
  explicit HwDatablockQelRfboExtInOffset(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The detector.

class VELK_EXPORT HwDatablockQelRfboDetTuneFreq : public HwDatablockBaseTemplate<unsigned int, double, 128, 1> {
 public:
  static constexpr TableTraits traits{.id = 15705, .key = "RFBO_DET_TUNE_FREQ", .scale = 100.0};
  explicit HwDatablockQelRfboDetTuneFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboDetTuneData : public HwDatablockBaseTemplate<int, int, 2, 128> {
 public:
  static constexpr TableTraits traits{.id = 15706, .key = "RFBO_DET_TUNE_DATA"};
  explicit HwDatablockQelRfboDetTuneData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The reference oscillator.

class VELK_EXPORT HwDatablockQelRfboTcxoCal : public HwDatablockBaseTemplate<int, int, 8, 1> {
 public:
  static constexpr TableTraits traits{.id = 15710, .key = "RFBO_TCXO_CAL"};
  explicit HwDatablockQelRfboTcxoCal(bool stop) : HwDatablockBaseTemplate(traits, stop) {}

  /// Stores the value of one of the eight adjustments and returns 0. Returns -1 if the index is out of range or, after
  /// reporting an error, if the value cannot be read back.
  int setTcxoValue(int value, int index);
  /// These limit the count to 8.
  void setRowCount(unsigned count);
  void setColCount(unsigned count);
};

// The maximum level.

class VELK_EXPORT HwDatablockQelRfboRfLevelMaxFreq : public HwDatablockBaseTemplate<unsigned int, double, 128, 1> {
 public:
  static constexpr TableTraits traits{.id = 15715, .key = "RFBO_RFLEVEL_MAX_FREQ", .scale = 100.0};
  explicit HwDatablockQelRfboRfLevelMaxFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboRfLevelMaxData : public HwDatablockBaseTemplate<int, double, 2, 128> {
 public:
  static constexpr TableTraits traits{.id = 15716, .key = "RFBO_RFLEVEL_MAX_DATA", .scale = 0.01};
  explicit HwDatablockQelRfboRfLevelMaxData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The attenuator: its settings over frequency, one row each, and its register words.

class VELK_EXPORT HwDatablockQelRfboAttCalFreq : public HwDatablockBaseTemplate<unsigned int, double, 200, 1> {
 public:
  static constexpr TableTraits traits{.id = 15720, .key = "RFBO_ATT_CAL_FREQ", .scale = 100.0};
  explicit HwDatablockQelRfboAttCalFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboAttCalData : public HwDatablockBaseTemplateIndex<int, int, 27, 200> {
 public:
  static constexpr TableTraits traits{.id = 15721, .key = "RFBO_ATT_CAL_DATA"};
  explicit HwDatablockQelRfboAttCalData(bool stop) : HwDatablockBaseTemplateIndex(traits, stop) {}
};

/// Its text has a line for each word. conv2ascii leaves hex and showbase set on the stream.
class VELK_EXPORT HwDatablockQelRfboAttRegData
    : public HwExchangeTable<HwDatablockQelRfboAttRegData, HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 1>> {
 public:
  static constexpr TableTraits traits{.id = 15750, .key = "RFBO_ATTREG_DATA", .exchange = &detail::qelAttRegDataForm};
  explicit HwDatablockQelRfboAttRegData(bool stop) : HwExchangeTable(traits, stop) {}
};

// The output level, calibrated in production and by the user.

class VELK_EXPORT HwDatablockQelRfboExtCalFreq : public HwDatablockBaseTemplate<unsigned int, double, 350, 1> {
 public:
  static constexpr TableTraits traits{.id = 15725, .key = "RFBO_EXT_CAL_FREQ", .scale = 100.0};
  explicit HwDatablockQelRfboExtCalFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboExtCalData : public HwDatablockBaseTemplate<int, int, 5, 350> {
 public:
  static constexpr TableTraits traits{.id = 15726, .key = "RFBO_EXT_CAL_DATA"};
  explicit HwDatablockQelRfboExtCalData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboExtCalUserFreq : public HwDatablockBaseTemplate<unsigned int, double, 750, 1> {
 public:
  static constexpr TableTraits traits{.id = 16000, .key = "RFBO_EXT_CAL_USER_FREQ", .scale = 100.0};
  explicit HwDatablockQelRfboExtCalUserFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboExtCalUserData : public HwDatablockBaseTemplateExtended<int, int, 10, 5, 750> {
 public:
  static constexpr TableTraits traits{.id = 16001, .key = "RFBO_EXT_CAL_USER_DATA"};
  explicit HwDatablockQelRfboExtCalUserData(bool stop) : HwDatablockBaseTemplateExtended(traits, stop) {}
};

// The automatic level control.

class VELK_EXPORT HwDatablockQelRfboAlcFreq : public HwDatablockBaseTemplate<unsigned int, double, 10, 1> {
 public:
  static constexpr TableTraits traits{.id = 15730, .key = "RFBO_ALC_FREQ", .scale = 100.0};
  explicit HwDatablockQelRfboAlcFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboAlcData : public HwDatablockBaseTemplate<int, int, 4, 10> {
 public:
  static constexpr TableTraits traits{.id = 15731, .key = "RFBO_ALC_DATA"};
  explicit HwDatablockQelRfboAlcData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The level over temperature. Both tables share one list of frequency points.

class VELK_EXPORT HwDatablockQelRfboTempFreq : public HwDatablockBaseTemplate<unsigned int, double, 50, 1> {
 public:
  static constexpr TableTraits traits{.id = 15735, .key = "RFBO_TEMP_FREQ", .scale = 100.0};
  explicit HwDatablockQelRfboTempFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboTempGradient : public HwDatablockBaseTemplate<int, int, 6, 50> {
 public:
  static constexpr TableTraits traits{.id = 15740, .key = "RFBO_TEMP_GRADIENT"};
  explicit HwDatablockQelRfboTempGradient(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboTempOffset : public HwDatablockBaseTemplate<int, int, 6, 50> {
 public:
  static constexpr TableTraits traits{.id = 15745, .key = "RFBO_TEMP_OFFSET"};
  explicit HwDatablockQelRfboTempOffset(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The sample-and-hold stage, one row per setting.

class VELK_EXPORT HwDatablockQelRfboSHFreq : public HwDatablockBaseTemplate<unsigned int, double, 150, 1> {
 public:
  static constexpr TableTraits traits{.id = 15755, .key = "RFBO_S_H_FREQ", .scale = 10.0};
  explicit HwDatablockQelRfboSHFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockQelRfboSHData : public HwDatablockBaseTemplateIndex<int, int, 35, 150> {
 public:
  static constexpr TableTraits traits{.id = 15756, .key = "RFBO_S_H_DATA"};
  explicit HwDatablockQelRfboSHData(bool stop) : HwDatablockBaseTemplateIndex(traits, stop) {}
};

}  // namespace Velk
