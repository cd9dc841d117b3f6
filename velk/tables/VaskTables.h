#pragma once

#include "velk/tables/TableBlockIds.h"
#include "velk/tables/TableTemplates.h"

// The tables of the Vask vector RF board. Most come in pairs: a list of frequency points, in units of its scale, and a
// table with a column for each of them.

namespace Velk {

// The maximum level of the vector path.

class VELK_EXPORT HwDatablockVaskVectorRfLevelMaxFreq : public HwDatablockBaseTemplate<unsigned int, double, 128, 1> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_VECTOR_RFLEVEL_MAX_FREQ_ID,
                                      .key = "VECTOR_RFLEVEL_MAX_FREQ",
                                      .scale = usualScale<unsigned int, double, 128, 1>};
  explicit HwDatablockVaskVectorRfLevelMaxFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorRfLevelMaxData : public HwDatablockBaseTemplate<int, double, 1, 128> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_VECTOR_RFLEVEL_MAX_DATA_ID,
                                      .key = "VECTOR_RFLEVEL_MAX_DATA",
                                      .scale = usualScale<int, double, 1, 128>};
  explicit HwDatablockVaskVectorRfLevelMaxData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The automatic level control: of the path itself, and with the I/Q modulator in normal and in wide mode.

class VELK_EXPORT HwDatablockVaskVectorAlcFreq : public HwDatablockBaseTemplate<unsigned int, double, 32, 1> {
 public:
  static constexpr TableTraits traits{
      .id = DATA_BLOCK_VASK_VECTOR_ALC_FREQ_ID, .key = "VECTOR_ALC_FREQ", .scale = 100.0};
  explicit HwDatablockVaskVectorAlcFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorAlcData : public HwDatablockBaseTemplate<unsigned int, double, 4, 32> {
 public:
  static constexpr TableTraits traits{
      .id = DATA_BLOCK_VASK_VECTOR_ALC_DATA_ID, .key = "VECTOR_ALC_DATA", .scale = 100.0};
  explicit HwDatablockVaskVectorAlcData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorAlcIqNormFreq : public HwDatablockBaseTemplate<unsigned int, double, 32, 1> {
 public:
  static constexpr TableTraits traits{
      .id = DATA_BLOCK_VASK_VECTOR_ALC_IQNORM_FREQ_ID, .key = "VECTOR_ALC_IQNORM_FREQ", .scale = 100.0};
  explicit HwDatablockVaskVectorAlcIqNormFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorAlcIqNormData : public HwDatablockBaseTemplate<unsigned int, double, 4, 32> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_VECTOR_ALC_IQNORM_DATA_ID, .key = "VECTOR_ALC_IQNORM_DATA"};
  explicit HwDatablockVaskVectorAlcIqNormData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorAlcIqWideFreq : public HwDatablockBaseTemplate<unsigned int, double, 32, 1> {
 public:
  static constexpr TableTraits traits{
      .id = DATA_BLOCK_VASK_VECTOR_ALC_IQWIDE_FREQ_ID, .key = "VECTOR_ALC_IQWIDE_FREQ", .scale = 100.0};
  explicit HwDatablockVaskVectorAlcIqWideFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorAlcIqWideData : public HwDatablockBaseTemplate<unsigned int, double, 4, 32> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_VECTOR_ALC_IQWIDE_DATA_ID, .key = "VECTOR_ALC_IQWIDE_DATA"};
  explicit HwDatablockVaskVectorAlcIqWideData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The output level, calibrated in production and by the user.

class VELK_EXPORT HwDatablockVaskRfBoExtCalVecFreq : public HwDatablockBaseTemplate<unsigned int, double, 292, 1> {
 public:
  static constexpr TableTraits traits{
      .id = DATA_BLOCK_VASK_RFBO_EXT_CAL_VEC_FREQ_ID, .key = "RFBO_EXT_CAL_VEC_FREQ", .scale = 100.0};
  explicit HwDatablockVaskRfBoExtCalVecFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskRfBoExtCalVecData : public HwDatablockBaseTemplate<int, int, 4, 292> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_RFBO_EXT_CAL_VEC_DATA_ID, .key = "RFBO_EXT_CAL_VEC_DATA"};
  explicit HwDatablockVaskRfBoExtCalVecData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskRfboExtCalVecUserFreq : public HwDatablockBaseTemplate<unsigned int, double, 350, 1> {
 public:
  static constexpr TableTraits traits{.id = 16002, .key = "RFBO_EXT_CAL_VEC_USER_FREQ", .scale = 100.0};
  explicit HwDatablockVaskRfboExtCalVecUserFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskRfboExtCalVecUserData : public HwDatablockBaseTemplateExtended<int, int, 10, 4, 350> {
 public:
  static constexpr TableTraits traits{.id = 16003, .key = "RFBO_EXT_CAL_VEC_USER_DATA"};
  explicit HwDatablockVaskRfboExtCalVecUserData(bool stop) : HwDatablockBaseTemplateExtended(traits, stop) {}
};

// The attenuator, one row per setting.

class VELK_EXPORT HwDatablockVaskRfboAttCalVecFreq : public HwDatablockBaseTemplate<unsigned int, double, 20, 1> {
 public:
  static constexpr TableTraits traits{.id = 15842, .key = "RFBO_ATT_CAL_VEC_FREQ", .scale = 100.0};
  explicit HwDatablockVaskRfboAttCalVecFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskRfboAttCalVecData : public HwDatablockBaseTemplateIndex<int, int, 27, 20> {
 public:
  static constexpr TableTraits traits{.id = 15843, .key = "RFBO_ATT_CAL_VEC_DATA"};
  explicit HwDatablockVaskRfboAttCalVecData(bool stop) : HwDatablockBaseTemplateIndex(traits, stop) {}
};

// The maximum level of the board.

class VELK_EXPORT HwDatablockVaskRfboRfLevelMaxVecFreq : public HwDatablockBaseTemplate<unsigned int, double, 128, 1> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_RFBO_RFLEVEL_MAX_VEC_FREQ_ID,
                                      .key = "RFBO_RFLEVEL_MAX_VEC_FREQ",
                                      .scale = usualScale<unsigned int, double, 128, 1>};
  explicit HwDatablockVaskRfboRfLevelMaxVecFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskRfboRfLevelMaxVecData : public HwDatablockBaseTemplate<int, double, 1, 128> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_RFBO_RFLEVEL_MAX_VEC_DATA_ID,
                                      .key = "RFBO_RFLEVEL_MAX_VEC_DATA",
                                      .scale = usualScale<int, double, 1, 128>};
  explicit HwDatablockVaskRfboRfLevelMaxVecData(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

// The level control over temperature: the temperatures, then a table for each of them, with a row for each point of one
// list and a column for each point of the other.

class VELK_EXPORT HwDatablockVaskVectorLevconTemp : public HwDatablockBaseTemplate<char, double, 12, 1> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_VECTOR_LEVCON_TEMP_ID, .key = "VECTOR_LEVCON_TEMP"};
  explicit HwDatablockVaskVectorLevconTemp(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorLevconTempFreq : public HwDatablockBaseTemplate<unsigned short, double, 64, 1> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_VECTOR_LEVCON_TEMP_FREQ_ID,
                                      .key = "VECTOR_LEVCON_TEMP_FREQ"};
  explicit HwDatablockVaskVectorLevconTempFreq(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorLevconTempLevcon
    : public HwDatablockBaseTemplate<unsigned short, double, 50, 1> {
 public:
  static constexpr TableTraits traits{.id = DATA_BLOCK_VASK_VECTOR_LEVCON_TEMP_LEVCON_ID,
                                      .key = "VECTOR_LEVCON_TEMP_LEVCON"};
  explicit HwDatablockVaskVectorLevconTempLevcon(bool stop) : HwDatablockBaseTemplate(traits, stop) {}
};

class VELK_EXPORT HwDatablockVaskVectorLevconTempData : public HwDatablockBaseTemplate<unsigned short, double, 64, 50> {
 public:
  static constexpr TableTraits traits{.id = 15853};
  HwDatablockVaskVectorLevconTempData(const char* blockString, int idOffset, bool stop)
      : HwDatablockBaseTemplate({.id = traits.id, .key = blockString, .scale = traits.scale}, stop, idOffset) {}
};

}  // namespace Velk
