#pragma once

#include "velk/tables/TableTemplates.h"

// The tables of the mainboard, for its outputs A and B.

namespace Velk {

// The I/Q inputs.

class VELK_EXPORT HwDatablockMbrdIqInputA : public HwDatablockBaseTemplate<int, int, 10, 1> {
 public:
  static constexpr TableTraits traits{.id = 14801, .key = "IQ_INPUT_A"};
  explicit HwDatablockMbrdIqInputA(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockMbrdIqInputB : public HwDatablockBaseTemplate<int, int, 10, 1> {
 public:
  static constexpr TableTraits traits{.id = 14802, .key = "IQ_INPUT_B"};
  explicit HwDatablockMbrdIqInputB(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// User calibration of the output level: lists of frequency points and their tables.

class VELK_EXPORT HwDatablockMbrdExtCalUserFreqA : public HwDatablockBaseTemplate<unsigned int, double, 600, 1> {
 public:
  static constexpr TableTraits traits{.id = 14803, .key = "EXT_CAL_USER_FREQ_A", .scale = 100.0};
  explicit HwDatablockMbrdExtCalUserFreqA(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockMbrdExtCalUserFreqB : public HwDatablockBaseTemplate<unsigned int, double, 600, 1> {
 public:
  static constexpr TableTraits traits{.id = 14804, .key = "EXT_CAL_USER_FREQ_B", .scale = 100.0};
  explicit HwDatablockMbrdExtCalUserFreqB(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockMbrdExtCalUserDataA : public HwDatablockBaseTemplateExtended<short, int, 10, 13, 600> {
 public:
  static constexpr TableTraits traits{.id = 14805, .key = "EXT_CAL_USER_DATA_A"};
  explicit HwDatablockMbrdExtCalUserDataA(bool stop) : HwDatablockBaseTemplateExtended(traits, stop) {}
};

class VELK_EXPORT HwDatablockMbrdExtCalUserDataB : public HwDatablockBaseTemplateExtended<short, int, 10, 13, 600> {
 public:
  static constexpr TableTraits traits{.id = 14806, .key = "EXT_CAL_USER_DATA_B"};
  explicit HwDatablockMbrdExtCalUserDataB(bool stop) : HwDatablockBaseTemplateExtended(traits, stop) {}
};

}  // namespace Velk
