#pragma once

#include "velk/tables/TableBlockIds.h"
#include "velk/tables/TableExchange.h"
#include "velk/tables/TableTemplates.h"

// The tables of the Lorn RF board. All but the attenuator calibration itself can be exchanged as text: conv2ascii
// writes what searchascii reads.

namespace Velk {

// The attenuator over frequency, one row per setting.

class VELK_EXPORT HwDatablockLornRfboAttCalFreq
    : public HwExchangeTable<HwDatablockLornRfboAttCalFreq, HwDatablockBaseTemplate<double, double, 200, 1>> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_CAL_FREQ_ID,
                                      .key = "BLOCK_LORN_RFBO_ATT_CAL_FREQ",
                                      .scale = 100.0,
                                      .exchange = &detail::lornAttCalFreqForm};
  explicit HwDatablockLornRfboAttCalFreq(bool stop) : HwExchangeTable(traits, stop) {}
};

class VELK_EXPORT HwDatablockLornRfboAttCalData : public HwDatablockBaseTemplateIndex<int, int, 40, 200> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_CAL_DATA_ID,
                                      .key = "BLOCK_LORN_RFBO_ATT_CAL_DATA"};
  explicit HwDatablockLornRfboAttCalData(bool stop) : HwDatablockBaseTemplateIndex(traits, stop) {}
};

// The attenuator's settings, one row each: attenuations, and the register words that set them.

class VELK_EXPORT HwDatablockLornRfboAttRegAttenuation
    : public HwExchangeTable<HwDatablockLornRfboAttRegAttenuation, HwDatablockBaseTemplate<float, float, 50, 4>> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_REG_ATTENUATION_ID,
                                      .key = "LORN_RFBO_ATTREG_ATTENUATION",
                                      .exchange = &detail::lornAttRegAttenuationForm};
  explicit HwDatablockLornRfboAttRegAttenuation(bool stop) : HwExchangeTable(traits, stop) {}
};

class VELK_EXPORT HwDatablockLornRfboAttRegData
    : public HwExchangeTable<HwDatablockLornRfboAttRegData,
                             HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 4>> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_REG_DATA_ID,
                                      .key = "LORN_RFBO_ATTREG_DATA",
                                      .exchange = &detail::lornAttRegDataForm};
  explicit HwDatablockLornRfboAttRegData(bool stop) : HwExchangeTable(traits, stop) {}
};

// Temperature compensation. The text form has the numbers of the rows, not the index column.

class VELK_EXPORT HwDatablockLornRfboTempCompFreq
    : public HwExchangeTable<HwDatablockLornRfboTempCompFreq, HwDatablockBaseTemplate<double, double, 50, 1>> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_TEMP_COMP_FREQ_ID,
                                      .key = "BLOCK_LORN_RFBO_TEMP_COMP_FREQ",
                                      .exchange = &detail::lornTempCompFreqForm};
  explicit HwDatablockLornRfboTempCompFreq(bool stop) : HwExchangeTable(traits, stop) {}
};

class VELK_EXPORT HwDatablockLornRfboTempCompData
    : public HwExchangeTable<HwDatablockLornRfboTempCompData, HwDatablockBaseTemplateIndex<int, int, 80, 50>> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_TEMP_COMP_DATA_ID,
                                      .key = "BLOCK_LORN_RFBO_TEMP_COMP_DATA",
                                      .exchange = &detail::lornTempCompDataForm};
  explicit HwDatablockLornRfboTempCompData(bool stop) : HwExchangeTable(traits, stop) {}
};

}  // namespace Velk
