#include "AccessorSupport.h"
#include "velk/mainboard/ExternalLevelCalibration.h"
#include "velk/mainboard/PathLists.h"
#include "velk/mainboard/RfResponse.h"

namespace Velk {
namespace {

using VelkTest::Accessors;

TEST(MainboardAccessors, ReachCountsAndValuesOfLists) {
  VELK_LIST(HwDatablockMbrdIqImbalanceRfFreq, (1, true), NumberOfIqImbalanceRfFreq, IqImbalanceRfFreq, 600);
  VELK_LIST(HwDatablockMbrdIqImbalanceRfEvenAmp, (1, true), NumberOfIqImbalanceRfEvenAmp, IqImbalanceRfEvenAmp, 600);
  VELK_LIST(HwDatablockMbrdIqImbalanceRfEvenPh, (1, true), NumberOfIqImbalanceRfEvenPh, IqImbalanceRfEvenPh, 600);
  VELK_LIST(HwDatablockMbrdIqImbalanceRfOddAmp, (1, true), NumberOfIqImbalanceRfOddAmp, IqImbalanceRfOddAmp, 600);
  VELK_LIST(HwDatablockMbrdIqImbalanceRfOddPh, (1, true), NumberOfIqImbalanceRfOddPh, IqImbalanceRfOddPh, 600);
  VELK_LIST(HwDatablockMbrdRfResponseAttFreq, (1, true), NumberOfFrequency, FrequencyValue, 200);
  VELK_LIST(HwDatablockMbrdRfResponseBbFreq, (1, true), NumberOfFrequency, FrequencyValue, 100);
  VELK_LIST(HwDatablockMbrdRfResponseIoPepInfo, (1, true), CountOfIoPepInfoValues, IoPepInfoValue, 20);
  Accessors<HwDatablockMbrdExtLevCalDataFreq>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq, NumberOfFrequency))
      .scaledBy(10)
      .row("values[i]", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq, FrequencyValue), {260});
  Accessors<HwDatablockMbrdExtLevCalDataFreq_Enh>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq_Enh, NumberOfFrequency))
      .scaledBy(10)
      .row("values[i]", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq_Enh, FrequencyValue), {500});
  Accessors<HwDatablockMbrdExtLevCalDataFreq2Edition>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq2Edition, NumberOfFrequency))
      .scaledBy(10)
      .row("values[i]", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq2Edition, FrequencyValue), {260});
  Accessors<HwDatablockMbrdExtLevCalDataFreq2Edition_Enh>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq2Edition_Enh, NumberOfFrequency))
      .scaledBy(10)
      .row("values[i]", VELK_PAIR(HwDatablockMbrdExtLevCalDataFreq2Edition_Enh, FrequencyValue), {500});
}

TEST(MainboardAccessors, ReachTables) {
  Accessors<HwDatablockMbrdExtLevCalData>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalData, NumberOfLevelSteps))
      .row("cells[i][k]", VELK_PAIR(HwDatablockMbrdExtLevCalData, CorLevelValue), {7, 260});
  Accessors<HwDatablockMbrdExtLevCalData_Enh>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalData_Enh, NumberOfLevelSteps))
      .row("cells[i][k]", VELK_PAIR(HwDatablockMbrdExtLevCalData_Enh, CorLevelValue), {7, 500});
  Accessors<HwDatablockMbrdExtLevCalData2Edition>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalData2Edition, NumberOfLevelSteps))
      .row("cells[i][k]", VELK_PAIR(HwDatablockMbrdExtLevCalData2Edition, CorLevelValue), {7, 260});
  Accessors<HwDatablockMbrdExtLevCalData2Edition_Enh>(1, true, 13012)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalData2Edition_Enh, NumberOfLevelSteps))
      .row("cells[i][k]", VELK_PAIR(HwDatablockMbrdExtLevCalData2Edition_Enh, CorLevelValue), {13, 500});
  Accessors<HwDatablockMbrdExtLevCalData2Edition_Enh>(1, true, 7012)
      .row("count", VELK_PAIR(HwDatablockMbrdExtLevCalData2Edition_Enh, NumberOfLevelSteps))
      .row("cells[i][k]", VELK_PAIR(HwDatablockMbrdExtLevCalData2Edition_Enh, CorLevelValue), {7, 500});
  Accessors<HwDatablockMbrdRfResponseAttAmpl>(1, true)
      .row("count", VELK_PAIR(HwDatablockMbrdRfResponseAttAmpl, NumberOfRfRespAttFreqs))
      .row("cells[i][k]", VELK_PAIR(HwDatablockMbrdRfResponseAttAmpl, CorLevelValue), {6, 200});
  Accessors<HwDatablockMbrdRfResponseLpFreq>(1, true)
      .row("counts[i]", VELK_PAIR(HwDatablockMbrdRfResponseLpFreq, NumberOfFreqCount), {9})
      .row("cells[i][k]", VELK_PAIR(HwDatablockMbrdRfResponseLpFreq, FrequencyValue), {9, 150});
  Accessors<HwDatablockMbrdRfResponseLpAmp>(1, true).row(
      "counts[i]", VELK_PAIR(HwDatablockMbrdRfResponseLpAmp, NumberOfFreqCount), {9});
  Accessors<HwDatablockMbrdRfResponseLpPh>(1, true).row(
      "counts[i]", VELK_PAIR(HwDatablockMbrdRfResponseLpPh, NumberOfFreqCount), {9});
}

/// Checks the accessors of corrections by filter, level and point.
template <class Block>
void checkCorrections(HwSPolynomValues (Block::*get)(unsigned char, unsigned char, unsigned int) const,
                      void (Block::*set)(const HwSPolynomValues&, unsigned char, unsigned char, unsigned int)) {
  Block block(0, true);
  QByteArray expected = block.getByteArrayData();
  for (const auto& [filter, level, point, offset] : {std::array{0, 0, 0, 44}, {8, 3, 149, 21640}, {2, 1, 5, 5464}}) {
    const auto f = static_cast<unsigned char>(filter);
    const auto l = static_cast<unsigned char>(level);
    const HwSPolynomValues value{{-128, 127, -1, static_cast<signed char>(point % 100 + 1)}};
    (block.*set)(value, f, l, static_cast<unsigned>(point));
    EXPECT_EQ((block.*get)(f, l, static_cast<unsigned>(point)), value);
    std::memcpy(expected.data() + offset, &value, sizeof value);
    EXPECT_EQ(block.getByteArrayData().mid(8), expected.mid(8)) << offset;
    EXPECT_TRUE(block.verifyChecksum());
  }
  const QByteArray unchanged = block.getByteArrayData();
  for (const auto& [filter, level, point] : {std::array{9, 0, 0}, {0, 4, 0}, {0, 0, 150}}) {
    const auto f = static_cast<unsigned char>(filter);
    const auto l = static_cast<unsigned char>(level);
    (block.*set)({{1, 1, 1, 1}}, f, l, static_cast<unsigned>(point));
    EXPECT_EQ((block.*get)(f, l, static_cast<unsigned>(point)), HwSPolynomValues{});
  }
  EXPECT_EQ(block.getByteArrayData(), unchanged);
}

TEST(MainboardAccessors, ReachCorrectionsOfLowPassFilters) {
  checkCorrections(VELK_PAIR(HwDatablockMbrdRfResponseLpAmp, CorAmplValue));
  checkCorrections(VELK_PAIR(HwDatablockMbrdRfResponseLpPh, CorPhaseValue));
}

}  // namespace
}  // namespace Velk
