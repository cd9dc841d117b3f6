#include "AccessorSupport.h"
#include "velk/modulecal/AduCalibration.h"
#include "velk/modulecal/CwOp3Calibration.h"
#include "velk/modulecal/DetLimiterCalibration.h"
#include "velk/modulecal/IqOp3RfmCalibDataMisc.h"
#include "velk/modulecal/IqOp3RfmCalibration.h"
#include "velk/modulecal/IqOp6Calibration.h"
#include "velk/modulecal/StepAttenuatorCalibration.h"
#include "velk/modulecal/StepAttenuatorCounters.h"
#include "velk/modulecal/SynthesizerCalibration.h"

namespace Velk {
namespace {

using VelkTest::Accessors;

TEST(ModuleCalibrationAccessors, ReachCountsAndValuesOfLists) {
  VELK_LIST(HwDatablockAduLevCoarseCalibData, (), Count, LevCoarseCalValue, 12);
  VELK_LIST(HwDatablockCwOp3AmGainFreq, (), Count, FrequencyValue, 200);
  VELK_LIST(HwDatablockCwop3DetTuneFreq, (1, true), NumberOfFreqValues, FrequencyValue, 100);
  VELK_LIST(HwDatablockCwopDetLinCorrFreq, (1, true), NumberOfFreqValues, FrequencyValue, 50);
  VELK_LIST(HwDatablockDetLimiterMaxVoltFreq, (), Count, FrequencyValue, 100);
  VELK_LIST(HwDatablockDetLimiterMaxVoltData, (), Count, MaxVoltageValue, 100);
  VELK_LIST(HwDatablockIqOp3RfmCalibDataFreq, (), Count, FrequencyValue, 300);
  VELK_LIST(HwDatablockSAtt3CalibDataFreq, (), NumberOfFreqValues, FrequencyValue, 150);
  VELK_LIST(HwDatablockSAtt6CalibDataFreq, (), NumberOfFreqValues, FrequencyValue, 150);
  VELK_LIST(HwDatablockAttCalDataFreq2Edition, (1, true), NumberOfFreqValues, FrequencyValue, 150);
  VELK_LIST(HwDatablockSsynOpuDblCoefficient, (), Count, OpuDblCoefficient, 3);
  VELK_LIST(HwDatablockSsynOpuLevelFreq, (), Count, OpuLevelFreq, 50);
  VELK_LIST(HwDatablockSsynOpuLevel, (), Count, OpuLevel, 50);
  Accessors<HwDatablockIqOp6PmaxBz>()
      .row("count", &HwDatablockIqOp6PmaxBz::getNumberOfPmax, &HwDatablockIqOp6PmaxBz::setCount)
      .row("values[i]", VELK_PAIR(HwDatablockIqOp6PmaxBz, PmaxBz), {32});
  Accessors<HwDatablockIqOp6CalibDataFreq>()
      .row("count", &HwDatablockIqOp6CalibDataFreq::getNumberOfFrequency, &HwDatablockIqOp6CalibDataFreq::setCount)
      .row("values[i]", VELK_PAIR(HwDatablockIqOp6CalibDataFreq, FrequencyValue), {70});
}

TEST(ModuleCalibrationAccessors, ReachTablesCountersAndSingleValues) {
  Accessors<HwDatablockCwop3DetTuneDac>(1, true)
      .row("count", VELK_PAIR(HwDatablockCwop3DetTuneDac, NumberOfDacSteps))
      .row("cells[k][i]", VELK_PAIR(HwDatablockCwop3DetTuneDac, DetTuneDacValue), {100, 1});
  Accessors<HwDatablockIqOp3RfmHarmonic>().row("cutOffFrequency[i]",
                                               VELK_PAIR(HwDatablockIqOp3RfmHarmonic, CutOffFrequency), {6});
  Accessors<HwDatablockIqOp6CalibData>()
      .row("levAtt20[i]", VELK_PAIR(HwDatablockIqOp6CalibData, LevAtt_20), {70})
      .row("levAtt40[i]", VELK_PAIR(HwDatablockIqOp6CalibData, LevAtt_40), {70})
      .row("daValueBz[i][k]", VELK_PAIR(HwDatablockIqOp6CalibData, DaValueBz), {32, 70});
  Accessors<HwDatablockSAtt3CalibDataAtt>().row("attenuation[i][k]",
                                                VELK_PAIR(HwDatablockSAtt3CalibDataAtt, AttenuationValue), {27, 150});
  Accessors<HwDatablockSAtt3CalibDataTemp>()
      .row("calibTemp", VELK_PAIR(HwDatablockSAtt3CalibDataTemp, CalibTemp))
      .row("tempGradient[i][k]", VELK_PAIR(HwDatablockSAtt3CalibDataTemp, TempGradient), {27, 150});
  Accessors<HwDatablockAttCalData2Edition>(1, true)
      .row("count", VELK_PAIR(HwDatablockAttCalData2Edition, NumberOfAttSteps))
      .row("cells[i][k]", VELK_PAIR(HwDatablockAttCalData2Edition, AttenuationValue), {27, 150});
  Accessors<HwDatablockSAtt3OWLDCounter>(1).row("counterValue", VELK_PAIR(HwDatablockSAtt3OWLDCounter, CounterValue));
  Accessors<HwDatablockSAttCCounter>(11300).row("counterValue[i]", VELK_PAIR(HwDatablockSAttCCounter, CounterValue),
                                                {2});
  Accessors<HwDatablockSsynOcxoRefCalValue>()
      .row("count", VELK_PAIR(HwDatablockSsynOcxoRefCalValue, Count))
      .row("value", VELK_PAIR(HwDatablockSsynOcxoRefCalValue, OcxoRefCalValue), {1});
  Accessors<HwDatablockSittMbrdPllDacCalibValue>()
      .row("count", VELK_PAIR(HwDatablockSittMbrdPllDacCalibValue, Count))
      .row("value", VELK_PAIR(HwDatablockSittMbrdPllDacCalibValue, SittMbrdPllDacCalibValue), {1});
}

TEST(ModuleCalibrationAccessors, ReachEntriesOfSeveralValues) {
  Accessors<HwDatablockAduGainOffsetCalData>()
      .row("count", VELK_PAIR(HwDatablockAduGainOffsetCalData, Count))
      .row("entries[i]", &HwDatablockAduGainOffsetCalData::getAduCalibDataBlock,
           &HwDatablockAduGainOffsetCalData::setCalibDatablock, {8});
  Accessors<HwDatablockCwOp3AmGainData>().row("blocks[i]", VELK_PAIR(HwDatablockCwOp3AmGainData, AmGainDataBlock),
                                              {200});
  Accessors<HwDatablockCwopDetLinCorrData>(1, true)
      .row("steps", VELK_PAIR(HwDatablockCwopDetLinCorrData, NumberOfDetLinCorrSteps))
      .row("validFreqs", VELK_PAIR(HwDatablockCwopDetLinCorrData, NumberOfValidFreqs))
      .row("values[k][i]", VELK_PAIR(HwDatablockCwopDetLinCorrData, DetLinCorrData), {10, 50});
  Accessors<HwDatablockIqOp3RfmCalibData>()
      .row("operatingState", VELK_PAIR(HwDatablockIqOp3RfmCalibData, OperatingState))
      .row("blocks[i]", &HwDatablockIqOp3RfmCalibData::getCalibDataBlock,
           &HwDatablockIqOp3RfmCalibData::setCalibDatablock, {300});
  Accessors<HwDatablockIqOp3RfmCalibDataV20>().row("blocks[i]", &HwDatablockIqOp3RfmCalibDataV20::getCalibDataBlock,
                                                   &HwDatablockIqOp3RfmCalibDataV20::setCalibDatablock, {300});
}

TEST(ModuleCalibrationAccessors, ReachEveryFieldOfWideRecords) {
  Accessors<HwDatablockCwop6VcoIdent>()
      .row("jobNumber", VELK_PAIR(HwDatablockCwop6VcoIdent, JobNumber))
      .row("serialNumber", VELK_PAIR(HwDatablockCwop6VcoIdent, SerialNumber))
      .row("lotNumber", VELK_PAIR(HwDatablockCwop6VcoIdent, LotNumber))
      .row("taz", VELK_PAIR(HwDatablockCwop6VcoIdent, Taz))
      .row("osc3Subh", VELK_PAIR(HwDatablockCwop6VcoIdent, Osc3Subh))
      .row("osc3Subl", VELK_PAIR(HwDatablockCwop6VcoIdent, Osc3Subl))
      .row("osc2Subh", VELK_PAIR(HwDatablockCwop6VcoIdent, Osc2Subh))
      .row("osc2Subl", VELK_PAIR(HwDatablockCwop6VcoIdent, Osc2Subl))
      .row("osc1Subh", VELK_PAIR(HwDatablockCwop6VcoIdent, Osc1Subh));
  Accessors<HwDatablockIqOp3RfmCalibDataMisc>()
      .row("toleranceLevPre", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, ToleranceLevPre))
      .row("toleranceLevAtt_15", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, ToleranceLevAtt_15))
      .row("toleranceLevAtt_30_45", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, ToleranceLevAtt_30_45))
      .row("toleranceDetAtt", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, ToleranceDetAtt))
      .row("detFullScale", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, DetFullScale))
      .row("numberOfOperatingStates", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, NumberOfOperatingStates))
      .row("pmaxBz[i]", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, PmaxBz), {12})
      .row("uiqBz[i]", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, UiqBz), {12})
      .row("lconReserveBz[i]", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, LconReserveBz), {12})
      .row("detReserveBz[i]", VELK_PAIR(HwDatablockIqOp3RfmCalibDataMisc, DetReserveBz), {12});
}

TEST(ModuleCalibrationAccessors, ReachEveryScalarOfTheSecondVersion) {
  using V20 = HwDatablockIqOp3RfmCalibDataMiscV20;
  Accessors<V20>()
      .row("lmaxLow", VELK_PAIR(V20, LmaxLow))
      .row("lmaxMed", VELK_PAIR(V20, LmaxMed))
      .row("lmaxHigh", VELK_PAIR(V20, LmaxHigh))
      .row("lmaxOvr", VELK_PAIR(V20, LmaxOvr))
      .row("lcalSensLow", VELK_PAIR(V20, LcalSensLow))
      .row("lcalSensMed", VELK_PAIR(V20, LcalSensMed))
      .row("lcalSensHigh", VELK_PAIR(V20, LcalSensHigh))
      .row("lcalSensOvr", VELK_PAIR(V20, LcalSensOvr))
      .row("vcalSensLow", VELK_PAIR(V20, VcalSensLow))
      .row("vcalSensMed", VELK_PAIR(V20, VcalSensMed))
      .row("vcalSensHigh", VELK_PAIR(V20, VcalSensHigh))
      .row("vcalSensOvr", VELK_PAIR(V20, VcalSensOvr))
      .row("lrangeCwNorm", VELK_PAIR(V20, LrangeCwNorm))
      .row("lrangeCwOvr", VELK_PAIR(V20, LrangeCwOvr))
      .row("lrangeIqNorm", VELK_PAIR(V20, LrangeIqNorm))
      .row("lrangeIqOvr", VELK_PAIR(V20, LrangeIqOvr))
      .row("uiq", VELK_PAIR(V20, Uiq))
      .row("lconReserveCwNorm", VELK_PAIR(V20, LconReserveCwNorm))
      .row("lconReserveCwOvr", VELK_PAIR(V20, LconReserveCwOvr))
      .row("lconReserveIqNorm", VELK_PAIR(V20, LconReserveIqNorm))
      .row("lconReserveIqOvr", VELK_PAIR(V20, LconReserveIqOvr))
      .row("lpreCalLevCwNorm", VELK_PAIR(V20, LpreCalLevCwNorm))
      .row("lpreCalLevCwOvr", VELK_PAIR(V20, LpreCalLevCwOvr))
      .row("lpreCalLevIqNorm", VELK_PAIR(V20, LpreCalLevIqNorm))
      .row("lpreCalLevIqOvr", VELK_PAIR(V20, LpreCalLevIqOvr))
      .row("detattLow", VELK_PAIR(V20, DetattLow))
      .row("detattMed", VELK_PAIR(V20, DetattMed))
      .row("detattHigh", VELK_PAIR(V20, DetattHigh))
      .row("detattOvr", VELK_PAIR(V20, DetattOvr));
}

}  // namespace
}  // namespace Velk
