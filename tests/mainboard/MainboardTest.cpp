#include "RecordSupport.h"
#include "velk/mainboard/ExternalLevelCalibration.h"
#include "velk/mainboard/PathLists.h"
#include "velk/mainboard/RfResponse.h"

namespace Velk {
namespace {

using VelkTest::checkRecordClass;
using VelkTest::ConsoleCapture;
using VelkTest::ErrorCapture;
using VelkTest::printed;

TEST(Mainboard, ClassesOfPathResponsesHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  checkRecordClass<HwDatablockMbrdIqImbalanceRfFreq>(
      {12100, 2412, id + "PATH_A_IQ_IMBALANCE_RF_FREQ", "HwSDatablockMbrdIqImbalanceRfFreq"}, 0, true);
  checkRecordClass<HwDatablockMbrdIqImbalanceRfEvenAmp>(
      {12111, 1212, id + "PATH_B_IQ_IMBALANCE_RF_EVEN_AMP", "HwDatablockMbrdIqImbalanceRfEvenAmp"}, 1, true);
  checkRecordClass<HwDatablockMbrdIqImbalanceRfEvenPh>(
      {12122, 1212, id + "PATH_C_IQ_IMBALANCE_RF_EVEN_PH", "HwDatablockMbrdIqImbalanceRfEvenPh"}, 2, true);
  checkRecordClass<HwDatablockMbrdIqImbalanceRfOddAmp>(
      {12133, 1212, id + "PATH_D_IQ_IMBALANCE_RF_ODD_AMP", "HwDatablockMbrdIqImbalanceRfOddAmp"}, 3, true);
  checkRecordClass<HwDatablockMbrdIqImbalanceRfOddPh>(
      {12142, 1212, id + "PATH_C_IQ_IMBALANCE_RF_ODD_PH", "HwDatablockMbrdIqImbalanceRfOddPh"}, 2, true);
  checkRecordClass<HwDatablockMbrdRfResponseAttFreq>(
      {12263, 812, id + "PATH_D_RF_RESPONSE_ATT_FREQ", "HwDatablockMbrdRfResponseAttFreq"}, 3, true);
  checkRecordClass<HwDatablockMbrdRfResponseBbFreq>(
      {12251, 412, id + "PATH_B_RF_RESPONSE_BB_FREQ", "HwDatablockMbrdRfResponseBbFreq"}, 1, true);
  checkRecordClass<HwDatablockMbrdRfResponseIoPepInfo>(
      {12222, 92, id + "PATH_C_RF_RESPONSE_IOPEP_INFO", "HwDatablockMbrdRfResponseIoPepInfo"}, 2, true);
  checkRecordClass<HwDatablockMbrdRfResponseAttAmpl>(
      {12272, 9612, id + "PATH_C_RF_RESPONSE_ATT_AMP", "HwSDatablockMbrdRfResponseAttAmpl   "}, 2, true);
  checkRecordClass<HwDatablockMbrdRfResponseLpFreq>(
      {12212, 5444, id + "PATH_C_RF_RESPONSE_LP_FREQ", "HwSDatablockMbrdRfResponseLpFreq   "}, 2, true);
  checkRecordClass<HwDatablockMbrdRfResponseLpAmp>(
      {12233, 21644, id + "PATH_D_RF_RESPONSE_LP_AMP", "HwSDatablockMbrdRfResponseLpAmp   "}, 3, true);
  checkRecordClass<HwDatablockMbrdRfResponseLpPh>(
      {12240, 21644, id + "PATH_A_RF_RESPONSE_LP_PH", "HwSDatablockMbrdRfResponseLpPh   "}, 0, true);
}

TEST(Mainboard, ClassesOfLevelCalibrationHaveTheirIdSizeKeyAndRefusal) {
  const std::string id = "ID:              ";
  checkRecordClass<HwDatablockMbrdExtLevCalDataFreq>(
      {12052, 1052, id + "EXT_CAL_DAT_C_FREQ", "HwDatablockMbrdExtLevCalDataFreq"}, 2, true);
  checkRecordClass<HwDatablockMbrdExtLevCalDataFreq_Enh>(
      {12071, 2012, id + "EXT_CAL_DAT_B_FREQ_ENH", "HwDatablockMbrdExtLevCalDataFreq_Enh"}, 1, true);
  checkRecordClass<HwDatablockMbrdExtLevCalDataFreq2Edition>(
      {12153, 1052, id + "EXT_CAL_DAT_D_FREQ_2_EDITION", "HwDatablockMbrdExtLevCalDataFreq2Edition"}, 3, true);
  checkRecordClass<HwDatablockMbrdExtLevCalDataFreq2Edition_Enh>(
      {12090, 2012, id + "EXT_CAL_DAT_A_FREQ_2_EDITION_ENH", "HwDatablockMbrdExtLevCalDataFreq2Edition_Enh"}, 0, true);
  checkRecordClass<HwDatablockMbrdExtLevCalData>(
      {12063, 3652, id + "EXT_CAL_DAT_D_LEVEL", "HwSDatablockMbrdExtLevCalData"}, 3, true);
  checkRecordClass<HwDatablockMbrdExtLevCalData_Enh>(
      {12080, 7012, id + "EXT_CAL_DAT_A_LEVEL_ENH", "HwSDatablockMbrdExtLevCalData_Enh"}, 0, true);
  checkRecordClass<HwDatablockMbrdExtLevCalData2Edition>(
      {12161, 3652, id + "EXT_CAL_DAT_B_LEVEL_2_EDITION", "HwSDatablockMbrdExtLevCalData2Edition"}, 1, true);
  checkRecordClass<HwDatablockMbrdExtLevCalData2Edition_Enh>(
      {12095, 13012, id + "EXT_CAL_DAT_A_LEVEL_2_EDITION_ENH", "HwSDatablockMbrdExtLevCalData2Edition_Enh"}, 0, true,
      13012);
}

TEST(Mainboard, GoldenTexts) {
  ConsoleCapture console;
  std::string text;
  const auto add = [&](auto&& block, int count) {
    VelkTest::fillFields(block, block.traits.fields);
    constexpr int lowPassIds[] = {12212, 12233, 12240};
    const bool hasNineCounts = std::ranges::find(lowPassIds, block.getId()) != std::end(lowPassIds);
    for (int i = 0; i < (hasNineCounts ? 9 : 1); ++i) std::memcpy(block.getData() + 8 + 4 * i, &count, sizeof count);
    text += VelkTest::abridged(printed(block));
  };
  add(HwDatablockMbrdIqImbalanceRfFreq(0, true), 2);
  add(HwDatablockMbrdIqImbalanceRfEvenAmp(1, true), 2);
  add(HwDatablockMbrdIqImbalanceRfEvenPh(2, true), 2);
  add(HwDatablockMbrdIqImbalanceRfOddAmp(3, true), 2);
  add(HwDatablockMbrdIqImbalanceRfOddPh(2, true), 2);
  add(HwDatablockMbrdRfResponseAttFreq(3, true), 2);
  add(HwDatablockMbrdRfResponseBbFreq(1, true), 2);
  add(HwDatablockMbrdRfResponseIoPepInfo(2, true), 2);
  add(HwDatablockMbrdExtLevCalDataFreq(2, true), 2);
  add(HwDatablockMbrdExtLevCalDataFreq_Enh(1, true), 2);
  add(HwDatablockMbrdExtLevCalDataFreq2Edition(3, true), 2);
  add(HwDatablockMbrdExtLevCalDataFreq2Edition_Enh(0, true), 2);
  add(HwDatablockMbrdExtLevCalData(3, true), 2);
  add(HwDatablockMbrdExtLevCalData_Enh(0, true), 2);
  add(HwDatablockMbrdExtLevCalData2Edition(1, true), 2);
  add(HwDatablockMbrdExtLevCalData2Edition_Enh(0, true, 13012), 2);
  add(HwDatablockMbrdRfResponseAttAmpl(2, true), 2);
  add(HwDatablockMbrdRfResponseLpFreq(2, true), 2);
  add(HwDatablockMbrdRfResponseLpAmp(3, true), 2);
  add(HwDatablockMbrdRfResponseLpPh(0, true), 2);
  EXPECT_TRUE(VelkTest::isGolden("mainboard.txt", text));
}

TEST(Mainboard, NamesFollowTheCurrentId) {
  const auto idLine = [](HwDatablock& block, unsigned short id) {
    block.setBlockId(id);
    const std::string text = printed(block);
    const std::size_t begin = text.find("ID:");
    return text.substr(begin, text.find('\n', begin) - begin);
  };
  HwDatablockMbrdExtLevCalDataFreq_Enh list(1, true);
  EXPECT_EQ(idLine(list, 12050), "ID:              EXT_CAL_DAT_A_FREQ");
  EXPECT_EQ(idLine(list, 12052), "ID:              ");
  EXPECT_EQ(idLine(list, 12070), "ID:              EXT_CAL_DAT_A_FREQ_ENH");
  EXPECT_EQ(idLine(list, 12072), "ID:              ");
  EXPECT_EQ(list.getInstance(), 1);
  HwDatablockMbrdExtLevCalDataFreq2Edition_Enh second(0, true);
  EXPECT_EQ(idLine(second, 12150), "ID:              EXT_CAL_DAT_A_FREQ_2_EDITION");
  EXPECT_EQ(idLine(second, 12151), "ID:              EXT_CAL_DAT_B_FREQ_2_EDITION");
  HwDatablockMbrdExtLevCalData_Enh levels(0, true);
  EXPECT_EQ(idLine(levels, 12060), "ID:              EXT_CAL_DAT_A_LEVEL");
  EXPECT_EQ(idLine(levels, 12061), "ID:              EXT_CAL_DAT_B_LEVEL");
  HwDatablockMbrdExtLevCalData2Edition_Enh table(0, true, 7012);
  EXPECT_EQ(idLine(table, 12161), "ID:              EXT_CAL_DAT_B_LEVEL_2_EDITION");
  EXPECT_NE(printed(table).find("COUNT:           0 *COUNT_OF_EXT_CAL_DAT_B_FREQ_2_EDITION\n"), std::string::npos);
  HwDatablockMbrdIqImbalanceRfOddPh odd(2, true);
  EXPECT_EQ(idLine(odd, 12144), "ID:              ");
}

TEST(Mainboard, EqualNeighboursArePresentedApart) {
  HwDatablockMbrdExtLevCalDataFreq list(0, true);
  list.setNumberOfFrequency(3);
  unsigned index = 0;
  for (const unsigned stored : {100U, 100U, 250U}) list.setFrequencyValue(stored, index++);
  EXPECT_TRUE(printed(list).ends_with("1:             1000.00\n2:             1000.01\n3:             2500.00\n\n"));
}

TEST(Mainboard, LevelTableComesInTwoSizes) {
  ConsoleCapture console;
  ErrorCapture errors;
  HwDatablockMbrdExtLevCalData2Edition_Enh large(1, true, 13012);
  HwDatablockMbrdExtLevCalData2Edition_Enh small(1, true, 5);
  EXPECT_EQ(small.getBlockSize(), 7012);
  EXPECT_EQ(small.getByteArrayData().size(), 7012);
  large.setCorLevelValue(-9, 12, 499);
  EXPECT_EQ(large.getCorLevelValue(12, 499), -9);
  small.setCorLevelValue(-9, 6, 499);
  EXPECT_EQ(small.getCorLevelValue(6, 499), -9);
  for (int times = 0; times < 2; ++times) {
    const QByteArray before = small.getByteArrayData();
    small.setCorLevelValue(1, 7, 0);
    EXPECT_EQ(small.getByteArrayData(), before);
    small.resizeData(13012);
  }
  small.resizeData(7012);
  small.setNumberOfLevelSteps(8);
  const std::string text = printed(small);
  EXPECT_NE(text.find("\n6: "), std::string::npos);
  EXPECT_TRUE(text.ends_with("\t\t 0\n\n"));

  EXPECT_EQ(small.getBlock()->cells[12][499], 0) << "the record that is handed out is whole";
  small.resizeData(7012);
  auto record = std::make_unique<HwSDatablockMbrdExtLevCalData2Edition_Enh>();
  std::memcpy(record.get(), small.getData(), 7012);
  HwDatablockMbrdExtLevCalData2Edition_Enh other(0, true, 7012);
  EXPECT_EQ(other.setBlock(record.get()), 0) << "only the small record is looked at";
  EXPECT_EQ(other.getByteArrayData(), small.getByteArrayData());
}

TEST(Mainboard, PolynomialsAreSigned) {
  HwDatablockMbrdRfResponseAttAmpl attenuators(0, true);
  attenuators.setNumberOfRfRespAttFreqs(1);
  attenuators.setCorLevelValue({{1, -2, 3, -4}}, 0, 0);
  EXPECT_NE(printed(attenuators).find("#att1\nATT1 1: \t\t 1\t\t -2\t\t 3\t\t -4\n\n#att2\n"), std::string::npos);

  HwDatablockMbrdRfResponseLpAmp lowPass(0, true);
  lowPass.setNumberOfFreqCount(1, 8);
  lowPass.setCorAmplValue({{-128, 127, -1, 0}}, 8, 3, 0);
  EXPECT_NE(printed(lowPass).find("#iqpep4\nIQPEP4 1: \t\t -128\t\t 127\t\t -1\t\t 0\n\n\n"), std::string::npos);
}

}  // namespace
}  // namespace Velk
