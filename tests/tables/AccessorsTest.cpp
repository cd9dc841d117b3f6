#include "AccessorSupport.h"
#include "velk/tables/BasebandInputTables.h"
#include "velk/tables/DacBoardCompensation.h"
#include "velk/tables/DacBoardImbalance.h"
#include "velk/tables/DacIfFullScale.h"
#include "velk/tables/ObelTables.h"
#include "velk/tables/PimTables.h"

namespace Velk {
namespace {

using VelkTest::Accessors;

TEST(TableAccessors, ReachCountsAndValuesOfLists) {
  VELK_LIST(HwDatablockDacbFrequencyCompFreq, (true), NumberOfCompFreq, CompFreq, 26);
  VELK_LIST(HwDatablockDacbFrequencyCompPh, (true), NumberOfCompPh, CompPh, 26);
  VELK_LIST(HwDatablockDacbFrequencyCompDt, (true), NumberOfCompDt, CompDt, 2);
  VELK_LIST(HwDatablockDacbFrequencyCompDtRear, (true), NumberOfCompDtRear, CompDtRear, 2);
  VELK_LIST(HwDatablockDacbIqImbalanceAmp, (true), NumberOfIqImbalanceAmp, IqImbalanceAmp, 26);
  VELK_LIST(HwDatablockDacbIqImbalancePh, (true), NumberOfIqImbalancePh, IqImbalancePh, 26);
  VELK_LIST(HwDatablockDacbIqImbalanceSwapAmp, (true), NumberOfIqImbalanceSwapAmp, IqImbalanceSwapAmp, 26);
  VELK_LIST(HwDatablockDacbIqImbalanceSwapPh, (true), NumberOfIqImbalanceSwapPh, IqImbalanceSwapPh, 26);
  VELK_LIST(HwDatablockDacbIqImbalanceRearPh, (true), NumberOfIqImbalanceRearPh, IqImbalanceRearPh, 26);
  VELK_LIST(HwDatablockBbinsCompFilterTabsI, (true), NumberOfFilterTabsI, FilterTabsIValue, 20);
  VELK_LIST(HwDatablockBbinsCompFilterTabsQ, (true), NumberOfFilterTabsQ, FilterTabsQValue, 20);
  VELK_LIST(HwDatablockBbinsUncalibratedFirAmplitudeI, (true), NumberOfUncalibratedFirAmplitudeI,
            UncalibratedFirAmplitudeIValue, 50);
  VELK_LIST(HwDatablockBbinsUncalibratedFirPhiI, (true), NumberOfUncalibratedFirPhiI, UncalibratedFirPhiIValue, 50);
  VELK_LIST(HwDatablockBbinsUncalibratedFirAmplitudeQ, (true), NumberOfUncalibratedFirAmplitudeQ,
            UncalibratedFirAmplitudeQValue, 50);
  VELK_LIST(HwDatablockBbinsUncalibratedFirPhiQ, (true), NumberOfUncalibratedFirPhiQ, UncalibratedFirPhiQValue, 50);
  VELK_LIST(HwDatablockObelAnalogImbalanceFreq, (true), NumberOfObelAnalogImbalanceFreq, ObelAnalogImbalanceFreq, 30);
  VELK_LIST(HwDatablockObelAnalogImbalanceGainI, (true), NumberOfObelAnalogImbalanceGainValues, ObelAnalogImbalanceGain,
            30);
  VELK_LIST(HwDatablockObelAnalogImbalanceGainQ, (true), NumberOfObelAnalogImbalanceGainValues, ObelAnalogImbalanceGain,
            30);
  VELK_LIST(HwDatablockObelAnalogImbalancePhI, (true), NumberOfObelAnalogImbalancePh, ObelAnalogImbalancePh, 30);
  VELK_LIST(HwDatablockObelAnalogImbalancePhQ, (true), NumberOfObelAnalogImbalancePh, ObelAnalogImbalancePh, 30);
  VELK_LIST(HwDatablockPimMwIfExtLevCalDataAbsCorr, (true), NumberOfAbsCorr, AbsCorrValue, 1500);
  Accessors<HwDatablockDacbFrequencyCompAmp>(true)
      .row("count", &HwDatablockDacbFrequencyCompAmp::getNumberOfCompAmp,
           &HwDatablockDacbFrequencyCompAmp::setNumberOfcompAmp)
      .row("values[i]", VELK_PAIR(HwDatablockDacbFrequencyCompAmp, CompAmp), {26});
}

TEST(TableAccessors, HoldSomeCountsToTheCapacity) {
  Accessors<HwDatablockDacbIqImbalanceFreq>(true)
      .upTo(26, "count", VELK_PAIR(HwDatablockDacbIqImbalanceFreq, NumberOfIqImbalanceFreq))
      .row("values[i]", VELK_PAIR(HwDatablockDacbIqImbalanceFreq, IqImbalanceFreq), {26});
  Accessors<HwDatablockDacbFrequencyCompPhRear>(true)
      .upTo(26, "count", VELK_PAIR(HwDatablockDacbFrequencyCompPhRear, NumberOfCompPhRear))
      .row("values[i]", VELK_PAIR(HwDatablockDacbFrequencyCompPhRear, CompPhRear), {26});
  Accessors<HwDatablockDacbIqImbalanceRearAmp>(true)
      .upTo(26, "count", VELK_PAIR(HwDatablockDacbIqImbalanceRearAmp, NumberOfIqImbalanceRearAmp))
      .row("values[i]", VELK_PAIR(HwDatablockDacbIqImbalanceRearAmp, IqImbalanceRearAmp), {26});
  Accessors<HwDatablockDacbFrequencyCompAmpRear>(true)
      .upTo(26, "count", &HwDatablockDacbFrequencyCompAmpRear::getNumberOfCompAmpRear,
            &HwDatablockDacbFrequencyCompAmpRear::setNumberOfcompAmpRear)
      .row("values[i]", VELK_PAIR(HwDatablockDacbFrequencyCompAmpRear, CompAmpRear), {26});
}

TEST(TableAccessors, ReachFrequenciesLevelsAndSingleValues) {
  Accessors<HwDatablockPimMwIfExtLevCalDataFreq>(true)
      .row("count", VELK_PAIR(HwDatablockPimMwIfExtLevCalDataFreq, NumberOfFrequency))
      .scaledBy(100)
      .row("values[i]", VELK_PAIR(HwDatablockPimMwIfExtLevCalDataFreq, FrequencyValue), {1500});
  Accessors<HwDatablockPimAttCalDatFreq>(true)
      .row("count", VELK_PAIR(HwDatablockPimAttCalDatFreq, NumberOfFrequency))
      .scaledBy(100)
      .row("values[i]", VELK_PAIR(HwDatablockPimAttCalDatFreq, FrequencyValue), {200});
  Accessors<HwDatablockPimAttCalDatFreqSe>(true)
      .row("count", VELK_PAIR(HwDatablockPimAttCalDatFreqSe, NumberOfFrequency))
      .scaledBy(100)
      .row("values[i]", VELK_PAIR(HwDatablockPimAttCalDatFreqSe, FrequencyValue), {500});
  Accessors<HwDatablockPimMwIfExtLevCalData>(true)
      .row("levelSteps", VELK_PAIR(HwDatablockPimMwIfExtLevCalData, NumberOfLevelSteps))
      .row("freqs", VELK_PAIR(HwDatablockPimMwIfExtLevCalData, NumberOfFreqs))
      .row("cells[i][k]", VELK_PAIR(HwDatablockPimMwIfExtLevCalData, CorLevelValue), {20, 1500});
  Accessors<HwDatablockPimMwIfExtLevCalDataRelCorr>(true)
      .row("levelSteps", VELK_PAIR(HwDatablockPimMwIfExtLevCalDataRelCorr, NumberOfLevelSteps))
      .row("freqs", &HwDatablockPimMwIfExtLevCalDataRelCorr::getNumberOfRelCorrValues,
           &HwDatablockPimMwIfExtLevCalDataRelCorr::setNumberOfFreqs)
      .row("cells[i][k]", VELK_PAIR(HwDatablockPimMwIfExtLevCalDataRelCorr, CorLevelValue), {20, 1500});
  Accessors<HwDatablockPimAttCalDat>(true)
      .row("levelSteps", VELK_PAIR(HwDatablockPimAttCalDat, NumberOfLevelSteps))
      .row("freqs", VELK_PAIR(HwDatablockPimAttCalDat, NumberOfFreqs))
      .row("cells[i][k]", VELK_PAIR(HwDatablockPimAttCalDat, CorLevelValue), {20, 200});
  Accessors<HwDatablockPimAttCalDatSe>(true)
      .row("levelSteps", VELK_PAIR(HwDatablockPimAttCalDatSe, NumberOfLevelSteps))
      .row("freqs", VELK_PAIR(HwDatablockPimAttCalDatSe, NumberOfFreqs))
      .row("cells[i][k]", VELK_PAIR(HwDatablockPimAttCalDatSe, CorLevelValue), {20, 500});
  Accessors<HwDatablockDacIfFullScale>().row("fullScaleValue", VELK_PAIR(HwDatablockDacIfFullScale, FullScaleValue));
  Accessors<HwDatablockObelBaseboardCalibValue>()
      .row("count", VELK_PAIR(HwDatablockObelBaseboardCalibValue, Count))
      .row("value", VELK_PAIR(HwDatablockObelBaseboardCalibValue, BaseboardCalibValue), {1});
  Accessors<HwDatablockPimOcxoRefCalValue>()
      .row("count", VELK_PAIR(HwDatablockPimOcxoRefCalValue, Count))
      .row("value", VELK_PAIR(HwDatablockPimOcxoRefCalValue, OcxoRefCalValue), {1});
}

}  // namespace
}  // namespace Velk
