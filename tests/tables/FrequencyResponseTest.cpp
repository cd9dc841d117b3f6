#include <limits>

#include "RecordSupport.h"
#include "velk/tables/BasebandInputTables.h"
#include "velk/tables/DacBoardCompensation.h"
#include "velk/tables/DacBoardImbalance.h"
#include "velk/tables/DacIfFullScale.h"
#include "velk/tables/ObelTables.h"
#include "velk/tables/PimTables.h"

namespace Velk {
namespace {

using VelkTest::checkRecordClass;
using VelkTest::ConsoleCapture;
using VelkTest::ErrorCapture;
using VelkTest::printed;
using VelkTest::textsOfFilled;

TEST(FrequencyResponse, ClassesOfTheDacBoardHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  checkRecordClass<HwDatablockDacbFrequencyCompFreq>(
      {13500, 116, id + "DACB_FREQUENCY_COMP_FREQ", "HwDatablockDacbFrequencyCompFreq"}, true);
  checkRecordClass<HwDatablockDacbFrequencyCompAmp>(
      {13600, 64, id + "DACB_FREQUENCY_COMP_AMP", "HwDatablockDacbFrequencyCompAmp"}, true);
  checkRecordClass<HwDatablockDacbFrequencyCompPh>(
      {13700, 64, id + "DACB_FREQUENCY_COMP_PH", "HwDatablockDacbFrequencyCompPh"}, true);
  checkRecordClass<HwDatablockDacbFrequencyCompDt>(
      {13800, 16, id + "DACB_FREQUENCY_COMP_DT", "HwSDatablockDacbFrequencyCompDt"}, true);
  checkRecordClass<HwDatablockDacbIqImbalanceFreq>(
      {13900, 116, id + "DACB_IQ_IMBALANCE_FREQ", "HwSDatablockDacbIqImbalanceFreq"}, true);
  checkRecordClass<HwDatablockDacbIqImbalanceAmp>(
      {14000, 64, id + "DACB_IQ_IMBALANCE_AMP", "HwDatablockDacbIqImbalanceAmp"}, true);
  checkRecordClass<HwDatablockDacbIqImbalancePh>(
      {14100, 64, id + "DACB_IQ_IMBALANCE_PH", "HwDatablockDacbIqImbalancePh"}, true);
  checkRecordClass<HwDatablockDacbIqImbalanceSwapAmp>(
      {14200, 64, id + "DACB_IQ_IMBALANCE_SWAP_AMP", "HwDatablockDacbIqImbalanceSwapAmp"}, true);
  checkRecordClass<HwDatablockDacbIqImbalanceSwapPh>(
      {14300, 64, id + "DACB_IQ_IMBALANCE_SWAP_PH", "HwDatablockDacbIqImbalanceSwapPh"}, true);
  checkRecordClass<HwDatablockDacbFrequencyCompAmpRear>(
      {14400, 64, id + "DACB_FREQUENCY_COMP_AMP_REAR", "HwSDatablockDacbFrequencyCompAmpRear"}, true);
  checkRecordClass<HwDatablockDacbFrequencyCompPhRear>(
      {14500, 64, id + "DACB_FREQUENCY_COMP_PH_REAR", "HwDatablockDacbFrequencyCompPhRear"}, true);
  checkRecordClass<HwDatablockDacbFrequencyCompDtRear>(
      {14600, 16, id + "DACB_FREQUENCY_COMP_DT_REAR", "HwSDatablockDacbFrequencyCompDtRear"}, true);
  checkRecordClass<HwDatablockDacbIqImbalanceRearAmp>(
      {14700, 64, id + "DACB_IQ_IMBALANCE_REAR_AMP", "HwSDatablockDacbIqImbalanceRearAmp"}, true);
  checkRecordClass<HwDatablockDacbIqImbalanceRearPh>(
      {14800, 64, id + "DACB_IQ_IMBALANCE_REAR_PH", "HwDatablockDacbIqImbalanceRearPh"}, true);
  checkRecordClass<HwDatablockDacIfFullScale>({12500, 12, id + "DACIF_FULLSCALEVALUE", "HwDatablockDacIfFullScale"});
}

TEST(FrequencyResponse, ClassesOfBasebandBoardsHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  const std::string id15 = "ID:            ";
  checkRecordClass<HwDatablockBbinsCompFilterTabsI>(
      {13000, 92, id + "BBINS_COMP_FIL_TAPS_I", "HwSDatablockBbinsCompFilterTabsI"}, true);
  checkRecordClass<HwDatablockBbinsCompFilterTabsQ>(
      {13050, 92, id + "BBINS_COMP_FIL_TAPS_Q", "HwDatablockBbinsCompFilterTabsQ"}, true);
  checkRecordClass<HwDatablockBbinsUncalibratedFirAmplitudeI>(
      {13100, 212, id + "BBINS_UNCALIBRATED_FIR_AMPLITUDE_I", "HwDatablockBbinsUncalibratedFirAmplitudeI"}, true);
  checkRecordClass<HwDatablockBbinsUncalibratedFirPhiI>(
      {13101, 212, id + "BBINS_UNCALIBRATED_FIR_PHI_I", "HwDatablockBbinsUncalibratedFirPhiI"}, true);
  checkRecordClass<HwDatablockBbinsUncalibratedFirAmplitudeQ>(
      {13102, 212, id + "BBINS_UNCALIBRATED_FIR_AMPLITUDE_Q", "HwDatablockBbinsUncalibratedFirAmplitudeQ"}, true);
  checkRecordClass<HwDatablockBbinsUncalibratedFirPhiQ>(
      {13103, 212, id + "BBINS_UNCALIBRATED_FIR_PHI_Q", "HwDatablockBbinsUncalibratedFirPhiQ"}, true);
  checkRecordClass<HwDatablockObelAnalogImbalanceFreq>(
      {15600, 252, id + "OBEL_ANALOG_IMBALANCE_FREQ", "HwSDatablockObelAnalogImbalanceFreq"}, true);
  checkRecordClass<HwDatablockObelAnalogImbalanceGainI>(
      {15601, 132, id + "OBEL_ANALOG_IMBALANCE_DATA", "HwSDatablockObelAnalogImbalanceGainI"}, true);
  checkRecordClass<HwDatablockObelAnalogImbalanceGainQ>(
      {15602, 132, id + "OBEL_ANALOG_IMBALANCE_DATA", "HwSDatablockObelAnalogImbalanceGainQ"}, true);
  checkRecordClass<HwDatablockObelAnalogImbalancePhI>(
      {15603, 132, id + "OBEL_ANALOG_IMBALANCE_DATA", "HwDatablockObelAnalogImbalancePhI"}, true);
  checkRecordClass<HwDatablockObelAnalogImbalancePhQ>(
      {15604, 132, id + "OBEL_ANALOG_IMBALANCE_DATA", "HwDatablockObelAnalogImbalancePhQ"}, true);
  checkRecordClass<HwDatablockOBELDelay>({15504, 16, id + "OBEL_DELAY", "HwDatablockOBELDelay"});
  checkRecordClass<HwDatablockObelWIQQuadDac>({15649, 116, id + "OBEL_WIQ_QUAD_DAC", "HwDatablockObelWiqQuadDacData"});
  checkRecordClass<HwDatablockObelWiqSensorData>(
      {15648, 460, id + "OBEL_WIQ_SENSOR_DATA", "HwDatablockObelWiqSensorData"});
  checkRecordClass<HwDatablockObelBaseboardCalibValue>(
      {15605, 16, id15 + "OBEL_BASEBOARD_CALIB_VALUE", "HwDatablockObelBaseboardCalibValue"});
}

TEST(FrequencyResponse, ClassesOfTheMicrowaveModuleHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  const std::string id15 = "ID:            ";
  checkRecordClass<HwDatablockPimMwIfExtLevCalDataFreq>(
      {12040, 6012, id + "LEV_CAL_DAT_FREQ", "HwDatablockPimMwIfExtLevCalDataFreq"}, true);
  checkRecordClass<HwDatablockPimMwIfExtLevCalData>(
      {12041, 60016, id + "LEV_CAL_DAT_LEVEL", "HwSDatablockPimMwIfExtLevCalData   "}, true);
  checkRecordClass<HwDatablockPimMwIfExtLevCalDataAbsCorr>(
      {12042, 3012, id + "LEV_CAL_DAT_ABS_CORR", "HwDatablockPimMwIfExtLevCalDataAbsCorr"}, true);
  checkRecordClass<HwDatablockPimMwIfExtLevCalDataRelCorr>(
      {12043, 60016, id + "LEV_CAL_DAT_REL_CORR", "HwSDatablockPimMwIfExtLevCalDataRelCorr   "}, true);
  checkRecordClass<HwDatablockPimAttCalDatFreq>({12044, 812, id + "ATT_CAL_DAT_FREQ", "HwDatablockPimAttCalDatFreq"},
                                                true);
  checkRecordClass<HwDatablockPimAttCalDat>({12045, 8016, id + "ATT_CAL_DAT_CORR", "HwSDatablockPimAttCalDat   "},
                                            true);
  checkRecordClass<HwDatablockPimAttCalDatFreqSe>(
      {12046, 2012, id + "ATT_CAL_DAT_FREQ_SE", "HwDatablockPimAttCalDatFreqSe"}, true);
  checkRecordClass<HwDatablockPimAttCalDatSe>(
      {12047, 20016, id + "ATT_CAL_DAT_CORR_SE", "HwSDatablockPimAttCalDatSe   "}, true);
  checkRecordClass<HwDatablockPimOcxoRefCalValue>(
      {15002, 16, id15 + "PIM_OCXO_REF_CAL_VALUE", "HwDatablockPimOcxoRefCalValue"});
}

TEST(FrequencyResponse, GoldenTexts) {
  ConsoleCapture console;
  std::string text;
  text += textsOfFilled<
      HwDatablockDacbFrequencyCompFreq, HwDatablockDacbFrequencyCompAmp, HwDatablockDacbFrequencyCompPh,
      HwDatablockDacbFrequencyCompDt, HwDatablockDacbIqImbalanceFreq, HwDatablockDacbIqImbalanceAmp,
      HwDatablockDacbIqImbalancePh, HwDatablockDacbIqImbalanceSwapAmp, HwDatablockDacbIqImbalanceSwapPh,
      HwDatablockDacbFrequencyCompAmpRear, HwDatablockDacbFrequencyCompPhRear, HwDatablockDacbFrequencyCompDtRear,
      HwDatablockDacbIqImbalanceRearAmp, HwDatablockDacbIqImbalanceRearPh, HwDatablockBbinsCompFilterTabsI,
      HwDatablockBbinsCompFilterTabsQ, HwDatablockBbinsUncalibratedFirAmplitudeI, HwDatablockBbinsUncalibratedFirPhiI,
      HwDatablockBbinsUncalibratedFirAmplitudeQ, HwDatablockBbinsUncalibratedFirPhiQ,
      HwDatablockObelAnalogImbalanceFreq, HwDatablockObelAnalogImbalanceGainI, HwDatablockObelAnalogImbalanceGainQ,
      HwDatablockObelAnalogImbalancePhI, HwDatablockObelAnalogImbalancePhQ, HwDatablockPimMwIfExtLevCalDataFreq,
      HwDatablockPimMwIfExtLevCalData, HwDatablockPimMwIfExtLevCalDataAbsCorr, HwDatablockPimMwIfExtLevCalDataRelCorr,
      HwDatablockPimAttCalDatFreq, HwDatablockPimAttCalDat, HwDatablockPimAttCalDatFreqSe, HwDatablockPimAttCalDatSe>(
      2, true);
  text += textsOfFilled<HwDatablockDacIfFullScale, HwDatablockOBELDelay>(-1);
  text += textsOfFilled<HwDatablockObelWIQQuadDac, HwDatablockObelWiqSensorData>(3);
  text += textsOfFilled<HwDatablockObelBaseboardCalibValue, HwDatablockPimOcxoRefCalValue>(-1);
  EXPECT_EQ(text, VelkTest::golden("frequency_response.txt", text));
}

TEST(FrequencyResponse, CountsMayBeNegativeOrBeyondTheCapacity) {
  HwDatablockDacbFrequencyCompAmp amp(true);
  amp.setCompAmp(-5, 25);
  amp.setNumberOfcompAmp(27);
  const std::string text = printed(amp);
  EXPECT_TRUE(text.ends_with("\n26:             -5\n27:             0\n\n")) << text;
  EXPECT_EQ(amp.getCompAmp(std::numeric_limits<int>::min()), 0);
  HwDatablockDacbFrequencyCompDt negative(true);
  negative.setNumberOfCompDt(-3);
  EXPECT_TRUE(printed(negative).ends_with("COUNT:           -3\n\n"));
}

TEST(FrequencyResponse, PimFrequenciesOfEqualNeighboursDiffer) {
  HwDatablockPimAttCalDatFreq list(true);
  list.setNumberOfFrequency(6);
  unsigned index = 0;
  for (const unsigned stored : {10U, 10U, 12U, 12U, 12U, 4294967295U}) list.setFrequencyValue(stored, index++, true);
  EXPECT_EQ(list.getFrequencyValue(0), 1000.0);
  EXPECT_EQ(list.getFrequencyValue(1), 1000.0 + 0.001);
  EXPECT_EQ(list.getFrequencyValue(4), 1200.0 + 0.001);
  EXPECT_TRUE(
      printed(list).ends_with("COUNT:           6\n1:             1000.000\n2:             1000.001\n"
                              "3:             1200.000\n4:             1200.001\n5:             1200.001\n"
                              "6:             429496729500.000\n\n"));
  HwDatablockPimAttCalDatFreqSe zeros(true);
  EXPECT_EQ(zeros.getFrequencyValue(0), 0.0);
  EXPECT_EQ(zeros.getFrequencyValue(1), 0.001) << "zeros are equal neighbours, too";
}

TEST(FrequencyResponse, PimTablesLabelTheirRowsByTens) {
  ConsoleCapture console;
  HwDatablockPimAttCalDat table(true);
  table.setNumberOfLevelSteps(21);
  table.setNumberOfFreqs(2);
  table.setCorLevelValue(-7, 19, 1, true);
  EXPECT_TRUE(table.verifyChecksum());
  table.setCorLevelValue(9, 19, 199, false);
  EXPECT_FALSE(table.verifyChecksum()) << "the caller's";
  EXPECT_EQ(table.getCorLevelValue(19, 199), 9);
  const std::string text = printed(table);
  EXPECT_NE(text.find("COUNT:           21*2\n0: \t\t 0\t\t 0\n10: "), std::string::npos);
  EXPECT_TRUE(text.ends_with("190: \t\t 0\t\t -7\n200: \t\t 0\t\t 0\n\n"));
}

TEST(FrequencyResponse, HugeCountsReachTheStreamBeforeTheirLineIsWhole) {
  class Limited : public std::stringbuf {
    std::streamsize xsputn(const char* text, std::streamsize count) override {
      return str().size() > 200000 ? 0 : std::stringbuf::xsputn(text, count);
    }
  } buffer;
  std::ostream os(&buffer);
  HwDatablockPimMwIfExtLevCalData table(true);
  std::memset(table.getData() + 8, 0xFF, 8);
  table.printToStream(os);
  EXPECT_FALSE(os.good());
  EXPECT_TRUE(
      buffer.str().starts_with("# Pegelst�tzstellen [dBm] \nID:              LEV_CAL_DAT_LEVEL\n"
                               "COUNT:           4294967295*4294967295\n0: \t\t 0\t\t 0"));
}

TEST(FrequencyResponse, ObelValuesTravelAsArrays) {
  ConsoleCapture console;
  double values[28];
  double others[28];
  for (int i = 0; i < 28; ++i) {
    values[i] = i + 0.5;
    others[i] = -i;
  }
  bool valid = true;
  double a[28];
  double b[28];
  double settings[13];
  HwDatablockObelWIQQuadDac dac;
  dac.getObelWiqQuadDacData(settings, valid);
  EXPECT_FALSE(valid) << "a new block has no checksum yet";
  dac.setObelWiqQuadDacData(values);
  dac.setObelWiqQuadDacData(nullptr);
  dac.getObelWiqQuadDacData(nullptr, valid);
  EXPECT_TRUE(valid);
  dac.getObelWiqQuadDacData(settings, valid);
  EXPECT_EQ(std::memcmp(settings, values, sizeof settings), 0);
  EXPECT_EQ(dac.getByteArrayData().mid(8, 4).toHex(), "0d000000");
  HwDatablockObelWiqSensorData sensors;
  sensors.setObelWiqSensorData(values, others);
  sensors.setObelWiqSensorData(others, nullptr);
  sensors.setObelWiqSensorData(nullptr, values);
  sensors.getObelWiqSensorData(a, b, valid);
  sensors.getObelWiqSensorData(b, nullptr, valid);
  sensors.getObelWiqSensorData(nullptr, a, valid);
  EXPECT_TRUE(valid);
  EXPECT_EQ(std::memcmp(a, values, sizeof a), 0);
  EXPECT_EQ(std::memcmp(b, others, sizeof b), 0);
  double last = 0;
  std::memcpy(&last, sensors.getData() + 236 + 27 * 8, sizeof last);
  EXPECT_EQ(last, -27.0);
}

TEST(FrequencyResponse, ObelDelaysAreOfTheIAndTheQPath) {
  ConsoleCapture console;
  HwDatablockOBELDelay delay;
  delay.setDelayI(1.5F);
  delay.setDelayQ(2.5F);
  EXPECT_EQ(delay.getDelay(true), 2.5F);
  EXPECT_EQ(delay.getDelay(false), 1.5F);
}

TEST(FrequencyResponse, SingleValuesReportTheirOwnFailure) {
  ErrorCapture errors;
  ConsoleCapture console;
  HwDatablockObelBaseboardCalibValue baseboard;
  HwDatablockPimOcxoRefCalValue oscillator;
  EXPECT_EQ(baseboard.setBaseboardCalibValue(7, 0), 0);
  baseboard.resizeData(12);
  oscillator.resizeData(12);
  EXPECT_EQ(baseboard.setBaseboardCalibValue(7, 0), -1);
  EXPECT_EQ(oscillator.setOcxoRefCalValue(7, 0), -1);
  EXPECT_EQ(errors.errors, (std::vector<std::string>{"1040002:OBEL baseboard calibration value failed",
                                                     "1040002:store new ocxo- value failed"}));
}

}  // namespace
}  // namespace Velk
