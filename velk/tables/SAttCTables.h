#pragma once

#include "velk/tables/TableTemplates.h"

// The step attenuator's level over temperature. Both tables share one list of frequency points.

namespace Velk {

class VELK_EXPORT HwDatablockSAttCTempFreq : public HwDatablockBaseTemplate<unsigned int, double, 50, 1> {
 public:
  static constexpr TableTraits traits{.id = 11305, .key = "SATT_TEMP_FREQ", .scale = 100.0};
  explicit HwDatablockSAttCTempFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockSAttCTempGradient : public HwDatablockBaseTemplate<int, double, 4, 50> {
 public:
  static constexpr TableTraits traits{.id = 11306, .key = "SATT_TEMP_GRADIENT"};
  explicit HwDatablockSAttCTempGradient(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockSAttCTempOffset : public HwDatablockBaseTemplate<int, double, 4, 50> {
 public:
  static constexpr TableTraits traits{.id = 11307, .key = "SATT_TEMP_OFFSET"};
  explicit HwDatablockSAttCTempOffset(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

}  // namespace Velk
