#include "RecordSupport.h"
#include "velk/modulecal/AduCalibration.h"
#include "velk/modulecal/CwOp3Calibration.h"
#include "velk/modulecal/DetLimiterCalibration.h"
#include "velk/modulecal/IpcUser.h"
#include "velk/modulecal/IqOp3RfmCalibDataMisc.h"
#include "velk/modulecal/IqOp3RfmCalibration.h"
#include "velk/modulecal/IqOp6Calibration.h"
#include "velk/modulecal/StepAttenuatorCalibration.h"
#include "velk/modulecal/StepAttenuatorCounters.h"
#include "velk/modulecal/SynthesizerCalibration.h"

namespace Velk {
namespace {

using VelkTest::acceptedByHeader;
using VelkTest::checkRecordClass;
using VelkTest::ConsoleCapture;
using VelkTest::printed;
using VelkTest::textsOfFilled;

TEST(ModuleCalibration, ClassesOfDetectorsHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  const std::string id12 = "ID:         ";
  const std::string id18 = "ID:               ";
  const std::string id20 = "ID:                 ";
  checkRecordClass<HwDatablockAduLevCoarseCalibData>(
      {15650, 108, id + "ADU_LEV_COARSE_CAL_VALUE", "HwSDatablockAduLevCoarseCalibData"});
  checkRecordClass<HwDatablockAduGainOffsetCalData>(
      {15652, 204, "ID: ADU_OFFSET_CAL_DATA", "HwSDatablockAduGainOffsetCalData"});
  checkRecordClass<HwDatablockCwOp3AmGainFreq>(
      {10500, 1612, id + "CWOP3_6_AM_GAIN_FREQ", "HwSDatablockCwOp3AmGainFreq"});
  checkRecordClass<HwDatablockCwOp3AmGainData>(
      {10501, 1608, id20 + "CWOP3_6_AM_GAIN_DATA", "HwSDatablockCwOp3AmGainData"});
  checkRecordClass<HwDatablockCwop6VcoIdent>({10502, 28, id18 + "VCO_IDENT", "HwSDatablockCwop6VcoIdent"});
  checkRecordClass<HwDatablockCwop3DetTuneFreq>(
      {12192, 812, id + "CWOP3_DET_TUNE_C_FREQ", "HwSDatablockCwop3DetTuneFreq"}, 2, false);
  checkRecordClass<HwDatablockCwop3DetTuneDac>({12203, 412, id + "CWOP3_DET_TUNE_D_DAC", "HwSDatablockCwop3DetTuneDac"},
                                               3, true);
  checkRecordClass<HwDatablockCwopDetLinCorrFreq>(
      {12291, 412, id + "CWOP_DETLINCORR_B_FREQ", "HwSDatablockCwopDetLinCorrFreq"}, 1, true);
  checkRecordClass<HwDatablockCwopDetLinCorrData>(
      {12293, 4012, id + "CWOP_DETLINCORR_B_DATA", "HwSDatablockCwopDetLinCorrData"}, 1, true);
  checkRecordClass<HwDatablockDetLimiterMaxVoltFreq>(
      {15020, 812, id12 + "LIMITER_FREQUENCY_NODE_GHZ", "HwSDatablockDetLimiterMaxVoltFreq"});
  checkRecordClass<HwDatablockDetLimiterMaxVoltData>(
      {15021, 812, id + "LIMITER_MAX_VOLTAGE", "HwSDatablockDetLimiterMaxVoltData"});
}

TEST(ModuleCalibration, ClassesOfIqStagesAndSynthesizersHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  const std::string id15 = "ID:            ";
  const std::string id20 = "ID:                 ";
  checkRecordClass<HwDatablockIqOp3RfmHarmonic>({10300, 32, id + "IQOP3_RFM_HARMONIC", "HwSDatablockIqOp3RfmHarmonic"});
  checkRecordClass<HwDatablockIqOp3RfmCalibDataMisc>(
      {10301, 168, id + "IQOP3_RFM_CALIB_DATA_MISC", "HwDatablockIqOp3RfmCalibDataMisc"});
  checkRecordClass<HwDatablockIqOp3RfmCalibDataFreq>(
      {10302, 1212, id + "IQOP3_RFM_CALIB_DATA_FREQ", "HwSDatablockIqOp3RfmCalibDataFreq"});
  checkRecordClass<HwDatablockIqOp3RfmCalibData>(
      {10303, 2412, id20 + "IQOP3_RFM_CALIB_DATA", "HwSDatablockIqOp3RfmCalibData"});
  checkRecordClass<HwDatablockIqOp3RfmCalibDataMiscV20>(
      {10315, 116, id + "IQOP3_RFM_CALIB_DATA_MISC_V20", "HwSDatablockIqOp3RfmCalibDataMiscV20"});
  checkRecordClass<HwDatablockIqOp3RfmCalibDataV20>(
      {10316, 14408, id20 + "IQOP3_RFM_CALIB_DATA_V20", "HwSDatablockIqOp3RfmCalibDataV20"});
  checkRecordClass<HwDatablockIqOp6PmaxBz>({10900, 44, id20 + "IQOP6_PMAX_BZ", "HwSDatablockIqOp6PmaxBz"});
  checkRecordClass<HwDatablockIqOp6CalibDataFreq>(
      {10901, 152, id + "IQOP6_CALIB_DATA_FREQ", "HwSDatablockIqOp6CalibDataFreq"});
  checkRecordClass<HwDatablockIqOp6CalibData>({10902, 4628, id20 + "IQOP6_CALIB_DATA", "HwSDatablockIqOp6CalibData"});
  checkRecordClass<HwDatablockSsynOpuDblCoefficient>(
      {10001, 36, id + "SSYN_OPU_DBL_COEFFICIENT", "HwSDatablockSsynOpuDblCoefficient"});
  checkRecordClass<HwDatablockSsynOpuLevelFreq>(
      {10002, 412, id + "SSYN_OPU_LEVEL_FREQ", "HwSDatablockSsynOpuLevelFreq"});
  checkRecordClass<HwDatablockSsynOpuLevel>({10003, 212, id + "SSYN_OPU_LEVEL", "HwSDatablockSsynOpuLevel"});
  checkRecordClass<HwDatablockSsynOcxoRefCalValue>(
      acceptedByHeader({10000, 16, id15 + "SSYN_OCXO_REF_CAL_VALUE", "HwSDatablockSsynOcxoRefCalValue"}));
  checkRecordClass<HwDatablockSynexOcxoRefCalValue>(
      {15000, 16, id15 + "SYNEX_OCXO_REF_CAL_VALUE", "HwSDatablockSynexOcxoRefCalValue"});
  checkRecordClass<HwDatablockFsynTcxoRefCalValue>(
      {15001, 16, id15 + "FSYN_TCXO_REF_CAL_VALUE", "HwSDatablockFsynTcxoRefCalValue"});
  checkRecordClass<HwDatablockSittMbrdPllDacCalibValue>(
      acceptedByHeader({12280, 16, id15 + "SITT_MBRD_PLL_DAC_VALUE", "HwSDatablockSittMbrdPllDacCalibValue"}));
}

TEST(ModuleCalibration, ClassesOfAttenuatorsAndUserDataHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  const std::string id15 = "ID:            ";
  checkRecordClass<HwDatablockSAtt3CalibDataFreq>(
      {10601, 612, id + "SATT3_CALIB_DATA_FREQ", "HwSDatablockSAtt3CalibDataFreq"});
  checkRecordClass<HwDatablockSAtt6CalibDataFreq>(
      {11200, 612, id + "SATT6_CALIB_DATA_FREQ", "HwSDatablockSAtt6CalibDataFreq"});
  checkRecordClass<HwDatablockSAtt3CalibDataAtt>(
      {10602, 8108, id + "SATT3_CALIB_DATA_ATT", "HwSDatablockSAtt3CalibDataAtt"});
  checkRecordClass<HwDatablockSAtt6CalibDataAtt>(
      {11001, 8108, id + "SATT6_CALIB_DATA_ATT", "HwSDatablockSAtt6CalibDataAtt"});
  checkRecordClass<HwDatablockSAtt3CalibDataTemp>(
      {10603, 4060, id + "SATT3_CALIB_DATA_TEMP", "HwSDatablockSAtt3CalibDataTemp"});
  checkRecordClass<HwDatablockSAtt6CalibDataTemp>(
      {11202, 4060, id + "SATT6_CALIB_DATA_TEMP", "HwSDatablockSAtt6CalibDataTemp"});
  checkRecordClass<HwDatablockAttCalDataFreq2Edition>(
      {12171, 612, id + "ATT_CAL_DAT_B_FREQ_2_EDITION", "HwSDatablockAttCalDataFreq2Edition"}, 1, true);
  checkRecordClass<HwDatablockAttCalData2Edition>(
      {12182, 8112, id + "ATT_CAL_DAT_C_LEVEL_2_EDITION", "HwSDatablockAttCalData2Edition"}, 2, true);
  checkRecordClass<HwDatablockIpcUser10000>(
      acceptedByHeader({10000, 56, id15 + "IPC_USER_10000", "HwSDatablockIpcUser10000"}));
  checkRecordClass<HwDatablockIpcUser10040>(
      acceptedByHeader({10040, 94, id15 + "IPC_USER_10040", "HwSDatablockIpcUser10040"}));
}

TEST(ModuleCalibration, GoldenTexts) {
  ConsoleCapture console;
  std::string text;
  text +=
      textsOfFilled<HwDatablockAduLevCoarseCalibData, HwDatablockAduGainOffsetCalData, HwDatablockCwOp3AmGainFreq>(2);
  text += textsOfFilled<HwDatablockCwOp3AmGainData, HwDatablockCwop6VcoIdent>(-1);
  text +=
      textsOfFilled<HwDatablockCwop3DetTuneFreq, HwDatablockCwop3DetTuneDac, HwDatablockCwopDetLinCorrFreq>(2, 0, true);
  text += textsOfFilled<HwDatablockCwopDetLinCorrData>(3 << 16 | 2, 0, true);
  text += textsOfFilled<HwDatablockDetLimiterMaxVoltFreq, HwDatablockDetLimiterMaxVoltData>(2);
  text += textsOfFilled<HwDatablockIqOp3RfmHarmonic>(-1);
  text += textsOfFilled<HwDatablockIqOp3RfmCalibDataFreq>(2);
  text += textsOfFilled<HwDatablockIqOp3RfmCalibData>(4);
  text += textsOfFilled<HwDatablockIqOp3RfmCalibDataV20>(-1);
  text += textsOfFilled<HwDatablockIqOp6PmaxBz>(3);
  text += textsOfFilled<HwDatablockIqOp6CalibDataFreq>(2);
  text += textsOfFilled<HwDatablockIqOp6CalibData>(-1);
  text += textsOfFilled<HwDatablockSsynOpuDblCoefficient>(4);
  text += textsOfFilled<HwDatablockSsynOpuLevelFreq, HwDatablockSsynOpuLevel>(2);
  text += textsOfFilled<HwDatablockSsynOcxoRefCalValue, HwDatablockSynexOcxoRefCalValue, HwDatablockFsynTcxoRefCalValue,
                        HwDatablockSittMbrdPllDacCalibValue>(1);
  text += textsOfFilled<HwDatablockSAtt3CalibDataFreq>(2);
  text += textsOfFilled<HwDatablockSAtt3CalibDataAtt, HwDatablockSAtt6CalibDataAtt, HwDatablockSAtt3CalibDataTemp,
                        HwDatablockSAtt6CalibDataTemp>(-1);
  text += textsOfFilled<HwDatablockAttCalDataFreq2Edition, HwDatablockAttCalData2Edition>(2, 3, true);
  text += textsOfFilled<HwDatablockSAtt3OWLDCounter>(-1, 0);
  text += textsOfFilled<HwDatablockSAtt3OWLDCounter>(-1, 1);
  text += textsOfFilled<HwDatablockSAtt6OWLDCounter>(-1, 0);
  text += textsOfFilled<HwDatablockSAtt6OWLDCounter>(-1, 1);
  for (const int id : {11300, 11301, 11302, 11303, 7}) text += textsOfFilled<HwDatablockSAttCCounter>(-1, id);
  text += textsOfFilled<HwDatablockIpcUser10000, HwDatablockIpcUser10040>(-1);
  EXPECT_TRUE(VelkTest::isGolden("modulecal.txt", text));
}

TEST(ModuleCalibration, TablesNameTheListsOfTheirFrequencies) {
  const auto hasLine = [](HwDatablock&& block, const std::string& line) {
    const std::string text = printed(block);
    EXPECT_NE(text.find('\n' + line + '\n'), std::string::npos) << line << " is not in " << text.substr(0, 400);
  };
  hasLine(HwDatablockSAtt3CalibDataAtt(), "COUNT:           26 * SATT3_CALIB_FREQ");
  hasLine(HwDatablockSAtt6CalibDataAtt(), "COUNT:           26 * COUNT_OF_SATT6_CALIB_FREQ");
  hasLine(HwDatablockSAtt3CalibDataTemp(), "COUNT:           26 *SAT3_CALIB_FREQ");
  hasLine(HwDatablockSAtt6CalibDataTemp(), "COUNT:           26 *COUNT_OF_SATT6_CALIB_FREQ");
  hasLine(HwDatablockAttCalData2Edition(1, true), "COUNT:           0 * COUNT_OF_ATT_CAL_DAT_B_FREQ_2_EDITION");
  hasLine(HwDatablockCwop3DetTuneDac(3, true), "COUNT:           0 * COUNT_OF_CWOP3_DET_TUNE_D_FREQ");
  hasLine(HwDatablockCwopDetLinCorrData(0, true), "COUNT:           0 * COUNT_OF_CWOP_DETLINCORR_A_FREQ");
  hasLine(HwDatablockCwopDetLinCorrData(1, true), "COUNT:           0 * COUNT_OF_CWOP_DETLINCORR_B_FREQ");
}

TEST(ModuleCalibration, MiscRecordsPrintEveryFieldWithItsUnits) {
  HwDatablockIqOp3RfmCalibDataMisc misc;
  VelkTest::fillFields(misc, iqOp3MiscFields);
  misc.setNumberOfOperatingStates(2);
  misc.setPmaxBz(2561, 0);
  misc.setPmaxBz(0, 1);
  misc.setToleranceLevAtt_15(64);
  misc.setToleranceLevAtt_30_45(32);
  misc.setToleranceLevPre(300);
  misc.setLconReserveBz(383, 1);
  HwDatablockIqOp3RfmCalibDataMiscV20 v20;
  VelkTest::fillFields(v20, iqOp3MiscV20Fields);
  v20.setDetattOvr(-3);
  const std::string text = printed(misc) + printed(v20);
  EXPECT_TRUE(VelkTest::isGolden("modulecal_misc.txt", text));
}

}  // namespace
}  // namespace Velk
