#pragma once

#include "velk/layer/HwRecordBlock.h"
#include "velk/modulecal/DbSteps.h"

namespace Velk {

namespace detail {
class TextWriter;
}

/// Scalar calibration values of the I/Q RF module, first version, some of them for each operating state. 16-bit values
/// are in 1/128 dB, except detReserveBz, which is in dB.
struct VELK_RECORD HwSDatablockIqOp3RfmCalibDataMisc {
  HwSDatablockHeader header;
  unsigned short toleranceLevPre;  ///< of the level-preset step attenuator
  unsigned short toleranceLevAtt_15;
  unsigned short toleranceLevAtt_30_45;
  unsigned short toleranceDetAtt;        ///< of the detector step attenuator
  float detFullScale;                    ///< of the detector converter, in V
  unsigned int numberOfOperatingStates;  ///< usually 8
  float pmaxBz[12];                      ///< maximum output power: a 16-bit fixed-point value, stored as float
  float uiqBz[12];                       ///< I/Q baseband voltage, in V
  unsigned short lconReserveBz[12];      ///< reserve of the level-control attenuator
  unsigned short detReserveBz[12];       ///< minimum detector reserve

  bool operator==(const HwSDatablockIqOp3RfmCalibDataMisc&) const = default;
};
static_assert(sizeof(HwSDatablockIqOp3RfmCalibDataMisc) == 168);

inline constexpr FieldInfo iqOp3MiscFields[] = {
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, toleranceLevPre).in("dB", detail::dbPerStep),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, toleranceLevAtt_15).in("dB", detail::dbPerStep),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, toleranceLevAtt_30_45).in("dB", detail::dbPerStep),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, toleranceDetAtt).in("dB", detail::dbPerStep),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, detFullScale).in("V"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, numberOfOperatingStates).keyed("COUNT_BZ"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, pmaxBz)
        .in("dBm", detail::dbPerStep, -0.5 * detail::dbPerStep)  // it is stored half a step too high
        .counted("numberOfOperatingStates"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, uiqBz).in("V").counted("numberOfOperatingStates"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, lconReserveBz)
        .in("dB", detail::dbPerStep)
        .counted("numberOfOperatingStates"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMisc, detReserveBz).in("dB").counted("numberOfOperatingStates"),
};

/// A state above 11 reads as 0 and is not written.
class VELK_EXPORT HwDatablockIqOp3RfmCalibDataMisc : public HwTypedRecordBlock<HwSDatablockIqOp3RfmCalibDataMisc> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10301,
      .refusal = "HwDatablockIqOp3RfmCalibDataMisc",
      .keys = {"IQOP3_RFM_CALIB_DATA_MISC"},
      .fields = iqOp3MiscFields,
      .comments = {"# Anzahl der Betriebszust�nde, ganzzahlig, Standard 8"},
  });

  HwDatablockIqOp3RfmCalibDataMisc() : HwTypedRecordBlock(traits, true) {}

  unsigned short getToleranceLevPre() const { return get(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceLevPre); }
  unsigned short getToleranceLevAtt_15() const { return get(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceLevAtt_15); }
  unsigned short getToleranceLevAtt_30_45() const {
    return get(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceLevAtt_30_45);
  }
  unsigned short getToleranceDetAtt() const { return get(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceDetAtt); }
  float getDetFullScale() const { return get(&HwSDatablockIqOp3RfmCalibDataMisc::detFullScale); }
  unsigned int getNumberOfOperatingStates() const {
    return get(&HwSDatablockIqOp3RfmCalibDataMisc::numberOfOperatingStates);
  }
  /// Returns the stored value truncated toward zero.
  unsigned short getPmaxBz(unsigned char state) const;
  float getUiqBz(unsigned char state) const { return get(&HwSDatablockIqOp3RfmCalibDataMisc::uiqBz, state); }
  unsigned short getLconReserveBz(unsigned char state) const {
    return get(&HwSDatablockIqOp3RfmCalibDataMisc::lconReserveBz, state);
  }
  unsigned short getDetReserveBz(unsigned char state) const {
    return get(&HwSDatablockIqOp3RfmCalibDataMisc::detReserveBz, state);
  }

  void setToleranceLevPre(unsigned short value) { set(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceLevPre, value); }
  void setToleranceLevAtt_15(unsigned short value) {
    set(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceLevAtt_15, value);
  }
  void setToleranceLevAtt_30_45(unsigned short value) {
    set(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceLevAtt_30_45, value);
  }
  void setToleranceDetAtt(unsigned short value) { set(&HwSDatablockIqOp3RfmCalibDataMisc::toleranceDetAtt, value); }
  void setDetFullScale(float value) { set(&HwSDatablockIqOp3RfmCalibDataMisc::detFullScale, value); }
  void setNumberOfOperatingStates(unsigned int n) {
    set(&HwSDatablockIqOp3RfmCalibDataMisc::numberOfOperatingStates, n);
  }
  void setPmaxBz(unsigned short value, unsigned char state) {
    set(&HwSDatablockIqOp3RfmCalibDataMisc::pmaxBz, value, state);
  }
  void setUiqBz(float value, unsigned char state) { set(&HwSDatablockIqOp3RfmCalibDataMisc::uiqBz, value, state); }
  void setLconReserveBz(unsigned short value, unsigned char state) {
    set(&HwSDatablockIqOp3RfmCalibDataMisc::lconReserveBz, value, state);
  }
  void setDetReserveBz(unsigned short value, unsigned char state) {
    set(&HwSDatablockIqOp3RfmCalibDataMisc::detReserveBz, value, state);
  }

  std::ostream& printToStream(std::ostream& os) override;

 private:
  void printTolerances(detail::TextWriter& text) const;
  static void printErrorCodes(detail::TextWriter& text);
};

/// Scalar calibration values of the I/Q RF module, second version, named by level range.
struct VELK_RECORD HwSDatablockIqOp3RfmCalibDataMiscV20 {
  HwSDatablockHeader header;
  float lmaxLow;
  float lmaxMed;
  float lmaxHigh;
  float lmaxOvr;
  float lcalSensLow;
  float lcalSensMed;
  float lcalSensHigh;
  float lcalSensOvr;
  float vcalSensLow;
  float vcalSensMed;
  float vcalSensHigh;
  float vcalSensOvr;
  float lrangeCwNorm;
  float lrangeCwOvr;
  float lrangeIqNorm;
  float lrangeIqOvr;
  float uiq;
  float lconReserveCwNorm;
  float lconReserveCwOvr;
  float lconReserveIqNorm;
  float lconReserveIqOvr;
  float lpreCalLevCwNorm;
  float lpreCalLevCwOvr;
  float lpreCalLevIqNorm;
  float lpreCalLevIqOvr;
  short detattLow;
  short detattMed;
  short detattHigh;
  short detattOvr;

  bool operator==(const HwSDatablockIqOp3RfmCalibDataMiscV20&) const = default;
};
static_assert(sizeof(HwSDatablockIqOp3RfmCalibDataMiscV20) == 116);

inline constexpr FieldInfo iqOp3MiscV20Fields[] = {
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lmaxLow).keyed("LMAX_LOW"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lmaxMed).keyed("LMAX_MED"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lmaxHigh).keyed("LMAX_HIGH"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lmaxOvr).keyed("LMAX_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lcalSensLow).keyed("LCAL_SENS_LOW"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lcalSensMed).keyed("LCAL_SENS_MED"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lcalSensHigh).keyed("LCAL_SENS_HIGH"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lcalSensOvr).keyed("LCAL_SENS_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, vcalSensLow).keyed("VCAL_SENS_LOW"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, vcalSensMed).keyed("VCAL_SENS_MED"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, vcalSensHigh).keyed("VCAL_SENS_HIGH"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, vcalSensOvr).keyed("VCAL_SENS_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lrangeCwNorm).keyed("LRANGE_CW_NORM"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lrangeCwOvr).keyed("LRANGE_CW_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lrangeIqNorm).keyed("LRANGE_IQ_NORM"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lrangeIqOvr).keyed("LRANGE_IQ_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, uiq).keyed("UIQ"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lconReserveCwNorm).keyed("LCON_RESERVE_CW_NORM"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lconReserveCwOvr).keyed("LCON_RESERVE_CW_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lconReserveIqNorm).keyed("LCON_RESERVE_IQ_NORM"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lconReserveIqOvr).keyed("LCON_RESERVE_IQ_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lpreCalLevCwNorm).keyed("LPRE_CAL_LEV_CW_NORM"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lpreCalLevCwOvr).keyed("LPRE_CAL_LEV_CW_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lpreCalLevIqNorm).keyed("LPRE_CAL_LEV_IQ_NORM"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, lpreCalLevIqOvr).keyed("LPRE_CAL_LEV_IQ_OVR"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, detattLow).keyed("DETATT_LOW"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, detattMed).keyed("DETATT_MED"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, detattHigh).keyed("DETATT_HIGH"),
    VELK_FIELD(HwSDatablockIqOp3RfmCalibDataMiscV20, detattOvr).keyed("DETATT_OVR"),
};

class VELK_EXPORT HwDatablockIqOp3RfmCalibDataMiscV20
    : public HwTypedRecordBlock<HwSDatablockIqOp3RfmCalibDataMiscV20> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10315,
      .refusal = "HwSDatablockIqOp3RfmCalibDataMiscV20",
      .keys = {"IQOP3_RFM_CALIB_DATA_MISC_V20"},
      .fields = iqOp3MiscV20Fields,
      .comments = {"# Das sind die Kalibrierdaten IQOP3 RFM MISC Version 2.0"},
  });

  HwDatablockIqOp3RfmCalibDataMiscV20() : HwTypedRecordBlock(traits, true) {}

  float getLmaxLow() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxLow); }
  float getLmaxMed() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxMed); }
  float getLmaxHigh() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxHigh); }
  float getLmaxOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxOvr); }
  float getLcalSensLow() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensLow); }
  float getLcalSensMed() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensMed); }
  float getLcalSensHigh() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensHigh); }
  float getLcalSensOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensOvr); }
  float getVcalSensLow() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensLow); }
  float getVcalSensMed() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensMed); }
  float getVcalSensHigh() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensHigh); }
  float getVcalSensOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensOvr); }
  float getLrangeCwNorm() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeCwNorm); }
  float getLrangeCwOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeCwOvr); }
  float getLrangeIqNorm() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeIqNorm); }
  float getLrangeIqOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeIqOvr); }
  float getUiq() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::uiq); }
  float getLconReserveCwNorm() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveCwNorm); }
  float getLconReserveCwOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveCwOvr); }
  float getLconReserveIqNorm() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveIqNorm); }
  float getLconReserveIqOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveIqOvr); }
  float getLpreCalLevCwNorm() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevCwNorm); }
  float getLpreCalLevCwOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevCwOvr); }
  float getLpreCalLevIqNorm() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevIqNorm); }
  float getLpreCalLevIqOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevIqOvr); }
  short getDetattLow() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattLow); }
  short getDetattMed() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattMed); }
  short getDetattHigh() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattHigh); }
  short getDetattOvr() const { return get(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattOvr); }

  void setLmaxLow(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxLow, value); }
  void setLmaxMed(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxMed, value); }
  void setLmaxHigh(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxHigh, value); }
  void setLmaxOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lmaxOvr, value); }
  void setLcalSensLow(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensLow, value); }
  void setLcalSensMed(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensMed, value); }
  void setLcalSensHigh(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensHigh, value); }
  void setLcalSensOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lcalSensOvr, value); }
  void setVcalSensLow(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensLow, value); }
  void setVcalSensMed(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensMed, value); }
  void setVcalSensHigh(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensHigh, value); }
  void setVcalSensOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::vcalSensOvr, value); }
  void setLrangeCwNorm(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeCwNorm, value); }
  void setLrangeCwOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeCwOvr, value); }
  void setLrangeIqNorm(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeIqNorm, value); }
  void setLrangeIqOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lrangeIqOvr, value); }
  void setUiq(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::uiq, value); }
  void setLconReserveCwNorm(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveCwNorm, value); }
  void setLconReserveCwOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveCwOvr, value); }
  void setLconReserveIqNorm(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveIqNorm, value); }
  void setLconReserveIqOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lconReserveIqOvr, value); }
  void setLpreCalLevCwNorm(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevCwNorm, value); }
  void setLpreCalLevCwOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevCwOvr, value); }
  void setLpreCalLevIqNorm(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevIqNorm, value); }
  void setLpreCalLevIqOvr(float value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::lpreCalLevIqOvr, value); }
  void setDetattLow(short value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattLow, value); }
  void setDetattMed(short value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattMed, value); }
  void setDetattHigh(short value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattHigh, value); }
  void setDetattOvr(short value) { set(&HwSDatablockIqOp3RfmCalibDataMiscV20::detattOvr, value); }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
