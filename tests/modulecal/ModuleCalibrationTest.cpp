#include <limits>

#include "RecordSupport.h"
#include "velk/velk.h"

namespace Velk {
namespace {

using VelkTest::acceptedByHeader;
using VelkTest::checkRecordClass;
using VelkTest::ConsoleCapture;
using VelkTest::ErrorCapture;
using VelkTest::printed;

TEST(ModuleCalibration, EveryClassHasItsIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  const std::string id12 = "ID:         ";
  const std::string id15 = "ID:            ";
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

template <class Block, class... Arguments>
std::string textOfFilled(int count, Arguments... arguments) {
  ConsoleCapture console;
  Block block(arguments...);
  VelkTest::fillFields(block, Block::traits.fields);
  if (count >= 0) std::memcpy(block.getData() + sizeof(HwSDatablockHeader), &count, sizeof count);
  return VelkTest::abridged(printed(block));
}

TEST(ModuleCalibration, GoldenTexts) {
  std::string text;
  text += textOfFilled<HwDatablockAduLevCoarseCalibData>(2);
  text += textOfFilled<HwDatablockAduGainOffsetCalData>(2);
  text += textOfFilled<HwDatablockCwOp3AmGainFreq>(2);
  text += textOfFilled<HwDatablockCwOp3AmGainData>(-1);
  text += textOfFilled<HwDatablockCwop6VcoIdent>(-1);
  text += textOfFilled<HwDatablockCwop3DetTuneFreq>(2, 0, true);
  text += textOfFilled<HwDatablockCwop3DetTuneDac>(2, 0, true);
  text += textOfFilled<HwDatablockCwopDetLinCorrFreq>(2, 0, true);
  text += textOfFilled<HwDatablockCwopDetLinCorrData>(3 << 16 | 2, 0, true);
  text += textOfFilled<HwDatablockDetLimiterMaxVoltFreq>(2);
  text += textOfFilled<HwDatablockDetLimiterMaxVoltData>(2);
  text += textOfFilled<HwDatablockIqOp3RfmHarmonic>(-1);
  text += textOfFilled<HwDatablockIqOp3RfmCalibDataFreq>(2);
  text += textOfFilled<HwDatablockIqOp3RfmCalibData>(4);
  text += textOfFilled<HwDatablockIqOp3RfmCalibDataV20>(-1);
  text += textOfFilled<HwDatablockIqOp6PmaxBz>(3);
  text += textOfFilled<HwDatablockIqOp6CalibDataFreq>(2);
  text += textOfFilled<HwDatablockIqOp6CalibData>(-1);
  text += textOfFilled<HwDatablockSsynOpuDblCoefficient>(4);
  text += textOfFilled<HwDatablockSsynOpuLevelFreq>(2);
  text += textOfFilled<HwDatablockSsynOpuLevel>(2);
  text += textOfFilled<HwDatablockSsynOcxoRefCalValue>(1);
  text += textOfFilled<HwDatablockSynexOcxoRefCalValue>(1);
  text += textOfFilled<HwDatablockFsynTcxoRefCalValue>(1);
  text += textOfFilled<HwDatablockSittMbrdPllDacCalibValue>(1);
  text += textOfFilled<HwDatablockSAtt3CalibDataFreq>(2);
  text += textOfFilled<HwDatablockSAtt3CalibDataAtt>(-1);
  text += textOfFilled<HwDatablockSAtt6CalibDataAtt>(-1);
  text += textOfFilled<HwDatablockSAtt3CalibDataTemp>(-1);
  text += textOfFilled<HwDatablockSAtt6CalibDataTemp>(-1);
  text += textOfFilled<HwDatablockAttCalDataFreq2Edition>(2, 3, true);
  text += textOfFilled<HwDatablockAttCalData2Edition>(2, 3, true);
  text += textOfFilled<HwDatablockSAtt3OWLDCounter>(-1, 0);
  text += textOfFilled<HwDatablockSAtt3OWLDCounter>(-1, 1);
  text += textOfFilled<HwDatablockSAtt6OWLDCounter>(-1, 0);
  text += textOfFilled<HwDatablockSAtt6OWLDCounter>(-1, 1);
  for (const int id : {11300, 11301, 11302, 11303, 7}) text += textOfFilled<HwDatablockSAttCCounter>(-1, id);
  text += textOfFilled<HwDatablockIpcUser10000>(-1);
  text += textOfFilled<HwDatablockIpcUser10040>(-1);
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

TEST(ModuleCalibration, RowsFollowOneAnotherAndBytesTakeTheLowByte) {
  HwDatablockAttCalData2Edition steps(0, true);
  steps.setAttenuationValue(0x1234, 2, 3);
  EXPECT_EQ(steps.getByteArrayData().mid(12 + 2 * (2 * 150 + 3), 2).toHex(), "3412");
  HwDatablockSAtt3CalibDataTemp gradients;
  gradients.setTempGradient(0x56, 2, 3);
  EXPECT_EQ(gradients.getByteArrayData().mid(10 + 2 * 150 + 3, 1).toHex(), "56");
  HwDatablockIqOp6CalibData levels;
  levels.setLevAtt_20(0x1FE, 69);
  levels.setLevAtt_40(0x1FF, 69);
  EXPECT_EQ(levels.getLevAtt_20(69), 0xFE);
  EXPECT_EQ(levels.getByteArrayData().at(147), '\xFF');
  HwDatablockIqOp6PmaxBz powers;
  powers.setPmaxBz(0x1FF, 31);
  EXPECT_EQ(powers.getPmaxBz(31), -1);
  EXPECT_EQ(HwDatablockSAtt3CalibDataAtt().getAttenuationValue(std::numeric_limits<int>::max(), 0), 0);
}

TEST(ModuleCalibration, ListSettersMayLeaveTheChecksumToTheirCaller) {
  ConsoleCapture console;
  HwDatablockDetLimiterMaxVoltFreq list;
  list.setFrequencyValue(1.5, 0, true);
  EXPECT_TRUE(list.verifyChecksum());
  list.setFrequencyValue(2.5, 1, false);
  EXPECT_EQ(list.getFrequencyValue(1), 2.5);
  EXPECT_FALSE(list.verifyChecksum());
}

TEST(ModuleCalibration, BitFieldsOfACalibrationRow) {
  HwDatablockIqOp3RfmCalibData data;
  data.setOperatingState(3);
  // LEVPRE 9, DETATT 21, DETCONV_DEFLECTION 43690; LEVATT15 -512, LEVATT30 1023, LEVATT45 -1.
  data.setCalibDatablock({9U | 21U << 4U | 43690U << 9U, 0x200U | 1023U << 10U | 0x7FFU << 21U}, 0);
  const std::string text = printed(data);
  EXPECT_NE(text.find("\nZeile0: \t\t[9\t11.000\t37.992\t44.992\t21\t\t43690\t]\nZeile1: "), std::string::npos);
  EXPECT_NE(text.find("#\t BZ 3\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("Zeile299: \t\t[0\t15.000\t30.000\t45.000\t0\t\t0\t]\n\n"));
}

TEST(ModuleCalibration, RecordsThatWereNeverWrittenAreAccepted) {
  const auto accepts = [](auto&& block, auto record) {
    ErrorCapture errors;
    ConsoleCapture console;
    block.setBlock(&record);
    return errors.errors.empty();
  };
  HwSDatablockAduGainOffsetCalData adu{};
  adu.header.id = 15652;
  EXPECT_TRUE(accepts(HwDatablockAduGainOffsetCalData(), adu));
  adu.entries[7].gain = -0.0;
  EXPECT_TRUE(accepts(HwDatablockAduGainOffsetCalData(), adu)) << "minus zero equals zero";
  adu.count = 1;
  EXPECT_FALSE(accepts(HwDatablockAduGainOffsetCalData(), adu));
  HwSDatablockAduGainOffsetCalData otherId{};
  otherId.header.id = 15653;
  EXPECT_FALSE(accepts(HwDatablockAduGainOffsetCalData(), otherId));
  HwSDatablockCwOp3AmGainData gain{};
  gain.header.id = 10501;
  EXPECT_TRUE(accepts(HwDatablockCwOp3AmGainData(), gain));
  HwSDatablockIqOp3RfmCalibData iq{};
  iq.header.id = 10303;
  EXPECT_TRUE(accepts(HwDatablockIqOp3RfmCalibData(), iq));
  iq.header.blockSize = sizeof iq;
  EXPECT_FALSE(accepts(HwDatablockIqOp3RfmCalibData(), iq));

  HwSDatablockIqOp3RfmCalibDataV20 v20{};
  v20.header.id = 10316;
  EXPECT_TRUE(accepts(HwDatablockIqOp3RfmCalibDataV20(), v20));
  v20.header.id = 10303;
  EXPECT_FALSE(accepts(HwDatablockIqOp3RfmCalibDataV20(), v20));

  SingleValueRecord single{{10000, 16, 0, 0}, 1, 77};
  EXPECT_TRUE(accepts(HwDatablockSsynOcxoRefCalValue(), single)) << "its header is enough";
  EXPECT_FALSE(accepts(HwDatablockSynexOcxoRefCalValue(), SingleValueRecord{{15000, 16, 0, 0}, 1, 77}));
  EXPECT_TRUE(accepts(HwDatablockSittMbrdPllDacCalibValue(), SingleValueRecord{{12280, 16, 0, 0}, 1, 77}));
  single.header.alignment = 1;
  EXPECT_FALSE(accepts(HwDatablockSsynOcxoRefCalValue(), single));
  HwSDatablockIpcUser10040 user{};
  user.header = {10040, 94, 0, 9};
  user.data[3] = 8;
  EXPECT_TRUE(accepts(HwDatablockIpcUser10040(), user));
  user.header.blockSize = 95;
  EXPECT_FALSE(accepts(HwDatablockIpcUser10040(), user));
}

TEST(ModuleCalibration, RefusalOfGainOffsetsIsReportedByTheErrorOnly) {
  ErrorCapture errors;
  HwSDatablockAduGainOffsetCalData record{};
  record.header = {15652, 204, 1, 0};
  HwDatablockAduGainOffsetCalData block;
  EXPECT_EQ(block.setBlock(&record), 0);
  EXPECT_EQ(errors.errors, std::vector<std::string>{"1040001:   HwSDatablockAduGainOffsetCalData"});
}

TEST(ModuleCalibration, StoreAndVerify) {
  ErrorCapture errors;
  HwDatablockSsynOcxoRefCalValue block;
  EXPECT_EQ(block.setOcxoRefCalValue(-5, 0), 0);
  EXPECT_EQ(block.getOcxoRefCalValue(0), -5);
  EXPECT_TRUE(block.verifyChecksum());
  const QByteArray before = block.getByteArrayData();
  EXPECT_EQ(block.setOcxoRefCalValue(6, 1), 0);
  EXPECT_EQ(block.getOcxoRefCalValue(1), 0);
  EXPECT_EQ(block.getByteArrayData(), before);
  EXPECT_TRUE(errors.errors.empty());

  VelkTest::ConsoleCapture console;
  HwDatablockSittMbrdPllDacCalibValue dac;
  block.resizeData(14);
  dac.resizeData(14);
  EXPECT_EQ(block.setOcxoRefCalValue(6, 0), -1) << "there is no room for the value";
  EXPECT_EQ(dac.setSittMbrdPllDacCalibValue(6, 0), -1);
  EXPECT_EQ(errors.errors, (std::vector<std::string>{"1040002:store new ocxo- value failed",
                                                     "1040002:Sitt Mbrd Pll Dac Reference value failed"}));
}

TEST(ModuleCalibration, CountersTakeOverValuesOnly) {
  ErrorCapture errors;
  ConsoleCapture console;
  HwDatablockSAtt3OWLDCounter second(1);
  HwDatablockSAtt3OWLDCounter first(0);
  first.setCounterValue(4711);
  EXPECT_EQ(second.setBlock(first.getBlock()), 0);
  EXPECT_EQ(second.getId(), 10605);
  EXPECT_EQ(second.getCounterValue(), 4711U);
  EXPECT_EQ(second.getChecksum(), first.getChecksum());
  first.getBlock()->counterValue = 1;
  EXPECT_EQ(second.setBlock(first.getBlock()), 1);
  EXPECT_EQ(second.getCounterValue(), 4711U);
  HwDatablockSAtt6OWLDCounter other(1);
  EXPECT_EQ(other.setBlock(first.getBlock()), 1);
  EXPECT_EQ(other.setBlock(nullptr), 1);
  EXPECT_EQ(other.getCounterValue(), 0U);
  const std::string refusal = "1040001:   HwSDatablockSAtt6OWLDCounter";
  EXPECT_EQ(errors.errors, (std::vector<std::string>{"1040001:   HwSDatablockSAtt3OWLDCounter", refusal, refusal}));

  HwSDatablockSAttCCounter record{{9, 9, 9, 9}, {11, 22}};
  HwDatablockSAttCCounter counter(11302);
  EXPECT_EQ(counter.getInstance(), 11302);
  EXPECT_EQ(counter.setBlock(&record), 0) << "whatever its checksum";
  EXPECT_EQ(counter.setBlock(nullptr), 1);
  EXPECT_EQ(counter.getId(), 11302);
  EXPECT_TRUE(counter.verifyChecksum());
  EXPECT_EQ(counter.getCounterValue(1), 22U);
  EXPECT_EQ(counter.getCounterValue(2), 0U);
}

TEST(ModuleCalibration, CountsBeyondTheCapacityPrintZerosUntilTheStreamFails) {
  class Limited : public std::stringbuf {
    std::streamsize xsputn(const char* text, std::streamsize count) override {
      return str().size() > 20000 ? 0 : std::stringbuf::xsputn(text, count);
    }
  } buffer;
  std::ostream os(&buffer);
  HwDatablockSsynOpuLevel levels;
  levels.setOpuLevel(7, 49);
  std::memset(levels.getData() + 8, 0xFF, 4);
  levels.printToStream(os);
  EXPECT_NE(buffer.str().find("\n50:             7\n51:             0\n"), std::string::npos);
  EXPECT_FALSE(os.good());
}

TEST(ModuleCalibration, InstancesKnowTheirPath) {
  EXPECT_EQ(HwDatablockAttCalData2Edition(2, true).getInstance(), 2);
  EXPECT_FALSE(HwDatablockAttCalData2Edition(2, false).getStopConversionOnError());
  HwDatablockIqOp3RfmCalibData data;
  data.setBlockId(10312);
  EXPECT_EQ(data.getInstanceCounter(), 9);
  HwDatablockAttCalData2Edition unnamed(0, true);
  unnamed.setBlockId(5);
  EXPECT_NE(printed(unnamed).find("ID:              \nCOUNT:           0 * \n"), std::string::npos);
}

}  // namespace
}  // namespace Velk
