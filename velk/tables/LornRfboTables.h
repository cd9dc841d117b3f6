#pragma once

#include "velk/tables/TableBlockIds.h"
#include "velk/tables/TableExchange.h"
#include "velk/tables/TableTemplates.h"

// The tables of the Lorn RF board. All but the attenuator calibration itself travel as text: conv2ascii writes what
// searchascii reads.

namespace Velk {

// The attenuator over frequency, a row a setting.

class VELK_EXPORT HwDatablockLornRfboAttCalFreq : public HwDatablockBaseTemplate<double, double, 200, 1> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_CAL_FREQ_ID,
                                      .key = "BLOCK_LORN_RFBO_ATT_CAL_FREQ",
                                      .scale = 100.0,
                                      .exchange = &detail::lornAttCalFreqForm};
  explicit HwDatablockLornRfboAttCalFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}

  /// Writes the text that searchascii reads.
  static std::ostream& conv2ascii(std::ostream& os, HwDatablockLornRfboAttCalFreq& block) {
    return block.writeExchangeText(os);
  }
  /// Replaces the whole table by what a text says, see readExchangeText.
  static std::istream& searchascii(std::istream& is, HwDatablockLornRfboAttCalFreq& block) {
    return block.readExchangeText(is);
  }
  std::ostream& printToStream(std::ostream& os) override { return writeExchangeText(os); }
};

class VELK_EXPORT HwDatablockLornRfboAttCalData : public HwDatablockBaseTemplateIndex<int, int, 40, 200> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_CAL_DATA_ID,
                                      .key = "BLOCK_LORN_RFBO_ATT_CAL_DATA"};
  explicit HwDatablockLornRfboAttCalData(bool stop) : HwDatablockBaseTemplateIndex(traits, stop) {}
};

// The attenuator's settings, a row each: attenuations, and the register words that set them.

class VELK_EXPORT HwDatablockLornRfboAttRegAttenuation : public HwDatablockBaseTemplate<float, float, 50, 4> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_REG_ATTENUATION_ID,
                                      .key = "LORN_RFBO_ATTREG_ATTENUATION",
                                      .exchange = &detail::lornAttRegAttenuationForm};
  explicit HwDatablockLornRfboAttRegAttenuation(bool stop) : HwDatablockBaseTemplate(traits, stop) {}

  /// Writes the text that searchascii reads.
  static std::ostream& conv2ascii(std::ostream& os, HwDatablockLornRfboAttRegAttenuation& block) {
    return block.writeExchangeText(os);
  }
  /// Replaces the whole table by what a text says, see readExchangeText.
  static std::istream& searchascii(std::istream& is, HwDatablockLornRfboAttRegAttenuation& block) {
    return block.readExchangeText(is);
  }
  std::ostream& printToStream(std::ostream& os) override { return writeExchangeText(os); }
};

class VELK_EXPORT HwDatablockLornRfboAttRegData : public HwDatablockBaseTemplate<unsigned int, unsigned int, 50, 4> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_ATT_REG_DATA_ID,
                                      .key = "LORN_RFBO_ATTREG_DATA",
                                      .exchange = &detail::lornAttRegDataForm};
  explicit HwDatablockLornRfboAttRegData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}

  /// Writes the text that searchascii reads.
  static std::ostream& conv2ascii(std::ostream& os, HwDatablockLornRfboAttRegData& block) {
    return block.writeExchangeText(os);
  }
  /// Replaces the whole table by what a text says, see readExchangeText.
  static std::istream& searchascii(std::istream& is, HwDatablockLornRfboAttRegData& block) {
    return block.readExchangeText(is);
  }
};

// The compensation of temperature. The text form carries the numbers of the rows, not the index column.

class VELK_EXPORT HwDatablockLornRfboTempCompFreq : public HwDatablockBaseTemplate<double, double, 50, 1> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_TEMP_COMP_FREQ_ID,
                                      .key = "BLOCK_LORN_RFBO_TEMP_COMP_FREQ",
                                      .exchange = &detail::lornTempCompFreqForm};
  explicit HwDatablockLornRfboTempCompFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}

  /// Writes the text that searchascii reads.
  static std::ostream& conv2ascii(std::ostream& os, HwDatablockLornRfboTempCompFreq& block) {
    return block.writeExchangeText(os);
  }
  /// Replaces the whole table by what a text says, see readExchangeText.
  static std::istream& searchascii(std::istream& is, HwDatablockLornRfboTempCompFreq& block) {
    return block.readExchangeText(is);
  }
  std::ostream& printToStream(std::ostream& os) override { return writeExchangeText(os); }
};

class VELK_EXPORT HwDatablockLornRfboTempCompData : public HwDatablockBaseTemplateIndex<int, int, 80, 50> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_LORN_RFBO_TEMP_COMP_DATA_ID,
                                      .key = "BLOCK_LORN_RFBO_TEMP_COMP_DATA",
                                      .exchange = &detail::lornTempCompDataForm};
  explicit HwDatablockLornRfboTempCompData(bool stop) : HwDatablockBaseTemplateIndex(traits, stop) {}

  /// Writes the text that searchascii reads.
  static std::ostream& conv2ascii(std::ostream& os, HwDatablockLornRfboTempCompData& block) {
    return block.writeExchangeText(os);
  }
  /// Replaces the whole table by what a text says, see readExchangeText.
  static std::istream& searchascii(std::istream& is, HwDatablockLornRfboTempCompData& block) {
    return block.readExchangeText(is);
  }
  std::ostream& printToStream(std::ostream& os) override { return writeExchangeText(os); }
};

}  // namespace Velk
