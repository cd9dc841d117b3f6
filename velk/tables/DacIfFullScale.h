#pragma once

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// The full-scale value of the DAC IF stage.
struct VELK_RECORD HwSDatablockDacIfFullScale {
  HwSDatablockHeader header;
  int fullScaleValue;

  bool operator==(const HwSDatablockDacIfFullScale&) const = default;
};
static_assert(sizeof(HwSDatablockDacIfFullScale) == 12);

inline constexpr FieldInfo dacIfFullScaleFields[] = {
    VELK_FIELD(HwSDatablockDacIfFullScale, fullScaleValue).keyed("FullscaleValue")};

class VELK_EXPORT HwDatablockDacIfFullScale : public HwTypedRecordBlock<HwSDatablockDacIfFullScale> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12500,
      .refusal = "HwDatablockDacIfFullScale",
      .keys = {"DACIF_FULLSCALEVALUE"},
      .fields = dacIfFullScaleFields,
      .comments = {"# Das ist der FullScaleValue"},
  });

  HwDatablockDacIfFullScale() : HwTypedRecordBlock(traits, true) {}

  int getFullScaleValue() const { return get(&HwSDatablockDacIfFullScale::fullScaleValue); }
  void setFullScaleValue(int value) { set(&HwSDatablockDacIfFullScale::fullScaleValue, value); }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
