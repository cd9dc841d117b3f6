#pragma once

#include "velk/tables/TableTemplates.h"

namespace Velk {

/// The I/Q imbalance of the wideband stage over frequency. There are several blocks, each with its own id.
class VELK_EXPORT HwDatablockObelWiqRfImbalanceData : public HwDatablockBaseTemplateObelW<float, double, 50, 7> {
 public:
  static constexpr TableTraits traits{.id = 15606};
  HwDatablockObelWiqRfImbalanceData(const char* blockString, int idOffset, bool stop)
      : HwDatablockBaseTemplateObelW({.id = traits.id, .key = blockString, .scale = traits.scale}, stop, idOffset) {}
};

}  // namespace Velk
