// The accessors of the lists of the DAC and baseband boards: each names its own count and values.
#include "TestSupport.h"
#include "velk/velk.h"

namespace Velk {
namespace {

/// The accessors of a list class: its count and its values.
template <class Block, class Value>
struct Accessors {
  int (Block::*count)() const;
  void (Block::*setCount)(int);
  Value (Block::*value)(int) const;
  void (Block::*setValue)(Value, int);
};

/// Whether the accessors reach the block's count and its values, as many as it has room for, and nothing else.
template <class Block, class Value>
void check(const Accessors<Block, Value>& list, int capacity, bool isCountLimited = false) {
  constexpr qsizetype countOffset = 8;
  constexpr qsizetype valuesOffset = 12;
  Block block(true);
  SCOPED_TRACE(block.traits.keys[0]);
  QByteArray expected = block.getByteArrayData();
  const auto expect = [&](qsizetype offset, auto value) {
    std::memcpy(expected.data() + offset, &value, sizeof value);
    const QByteArray bytes = block.getByteArrayData();
    EXPECT_EQ(bytes.mid(countOffset).toHex(), expected.mid(countOffset).toHex());
    EXPECT_TRUE(block.verifyChecksum());
  };
  (block.*list.setCount)(26);
  expect(countOffset, 26);
  (block.*list.setCount)(27);
  expect(countOffset, isCountLimited ? 26 : 27);
  EXPECT_EQ((block.*list.count)(), isCountLimited ? 26 : 27);
  for (const int index : {0, capacity - 1}) {
    const auto value = static_cast<Value>(-300 - index);
    (block.*list.setValue)(value, index);
    expect(valuesOffset + index * qsizetype{sizeof(Value)}, value);
    EXPECT_EQ((block.*list.value)(index), value);
  }
  for (const int index : {-1, capacity}) {
    (block.*list.setValue)(Value{7}, index);
    EXPECT_EQ(block.getByteArrayData().mid(countOffset), expected.mid(countOffset)) << index;
    EXPECT_EQ((block.*list.value)(index), 0) << index;
  }
}

TEST(FrequencyLists, AccessorsReachTheirOwnCountAndValues) {
  check<HwDatablockDacbFrequencyCompFreq, int>(
      {&HwDatablockDacbFrequencyCompFreq::getNumberOfCompFreq, &HwDatablockDacbFrequencyCompFreq::setNumberOfCompFreq,
       &HwDatablockDacbFrequencyCompFreq::getCompFreq, &HwDatablockDacbFrequencyCompFreq::setCompFreq},
      26);
  check<HwDatablockDacbFrequencyCompAmp, short>(
      {&HwDatablockDacbFrequencyCompAmp::getNumberOfCompAmp, &HwDatablockDacbFrequencyCompAmp::setNumberOfcompAmp,
       &HwDatablockDacbFrequencyCompAmp::getCompAmp, &HwDatablockDacbFrequencyCompAmp::setCompAmp},
      26);
  check<HwDatablockDacbFrequencyCompPh, short>(
      {&HwDatablockDacbFrequencyCompPh::getNumberOfCompPh, &HwDatablockDacbFrequencyCompPh::setNumberOfCompPh,
       &HwDatablockDacbFrequencyCompPh::getCompPh, &HwDatablockDacbFrequencyCompPh::setCompPh},
      26);
  check<HwDatablockDacbFrequencyCompDt, short>(
      {&HwDatablockDacbFrequencyCompDt::getNumberOfCompDt, &HwDatablockDacbFrequencyCompDt::setNumberOfCompDt,
       &HwDatablockDacbFrequencyCompDt::getCompDt, &HwDatablockDacbFrequencyCompDt::setCompDt},
      2);
  check<HwDatablockDacbIqImbalanceFreq, int>(
      {&HwDatablockDacbIqImbalanceFreq::getNumberOfIqImbalanceFreq,
       &HwDatablockDacbIqImbalanceFreq::setNumberOfIqImbalanceFreq, &HwDatablockDacbIqImbalanceFreq::getIqImbalanceFreq,
       &HwDatablockDacbIqImbalanceFreq::setIqImbalanceFreq},
      26, true);
  check<HwDatablockDacbIqImbalanceAmp, short>(
      {&HwDatablockDacbIqImbalanceAmp::getNumberOfIqImbalanceAmp,
       &HwDatablockDacbIqImbalanceAmp::setNumberOfIqImbalanceAmp, &HwDatablockDacbIqImbalanceAmp::getIqImbalanceAmp,
       &HwDatablockDacbIqImbalanceAmp::setIqImbalanceAmp},
      26);
  check<HwDatablockDacbIqImbalancePh, short>(
      {&HwDatablockDacbIqImbalancePh::getNumberOfIqImbalancePh, &HwDatablockDacbIqImbalancePh::setNumberOfIqImbalancePh,
       &HwDatablockDacbIqImbalancePh::getIqImbalancePh, &HwDatablockDacbIqImbalancePh::setIqImbalancePh},
      26);
  check<HwDatablockDacbIqImbalanceSwapAmp, short>({&HwDatablockDacbIqImbalanceSwapAmp::getNumberOfIqImbalanceSwapAmp,
                                                   &HwDatablockDacbIqImbalanceSwapAmp::setNumberOfIqImbalanceSwapAmp,
                                                   &HwDatablockDacbIqImbalanceSwapAmp::getIqImbalanceSwapAmp,
                                                   &HwDatablockDacbIqImbalanceSwapAmp::setIqImbalanceSwapAmp},
                                                  26);
  check<HwDatablockDacbIqImbalanceSwapPh, short>({&HwDatablockDacbIqImbalanceSwapPh::getNumberOfIqImbalanceSwapPh,
                                                  &HwDatablockDacbIqImbalanceSwapPh::setNumberOfIqImbalanceSwapPh,
                                                  &HwDatablockDacbIqImbalanceSwapPh::getIqImbalanceSwapPh,
                                                  &HwDatablockDacbIqImbalanceSwapPh::setIqImbalanceSwapPh},
                                                 26);
  check<HwDatablockDacbFrequencyCompAmpRear, short>(
      {&HwDatablockDacbFrequencyCompAmpRear::getNumberOfCompAmpRear,
       &HwDatablockDacbFrequencyCompAmpRear::setNumberOfcompAmpRear,
       &HwDatablockDacbFrequencyCompAmpRear::getCompAmpRear, &HwDatablockDacbFrequencyCompAmpRear::setCompAmpRear},
      26, true);
  check<HwDatablockDacbFrequencyCompPhRear, short>(
      {&HwDatablockDacbFrequencyCompPhRear::getNumberOfCompPhRear,
       &HwDatablockDacbFrequencyCompPhRear::setNumberOfCompPhRear, &HwDatablockDacbFrequencyCompPhRear::getCompPhRear,
       &HwDatablockDacbFrequencyCompPhRear::setCompPhRear},
      26, true);
  check<HwDatablockDacbFrequencyCompDtRear, short>(
      {&HwDatablockDacbFrequencyCompDtRear::getNumberOfCompDtRear,
       &HwDatablockDacbFrequencyCompDtRear::setNumberOfCompDtRear, &HwDatablockDacbFrequencyCompDtRear::getCompDtRear,
       &HwDatablockDacbFrequencyCompDtRear::setCompDtRear},
      2);
  check<HwDatablockDacbIqImbalanceRearAmp, short>({&HwDatablockDacbIqImbalanceRearAmp::getNumberOfIqImbalanceRearAmp,
                                                   &HwDatablockDacbIqImbalanceRearAmp::setNumberOfIqImbalanceRearAmp,
                                                   &HwDatablockDacbIqImbalanceRearAmp::getIqImbalanceRearAmp,
                                                   &HwDatablockDacbIqImbalanceRearAmp::setIqImbalanceRearAmp},
                                                  26, true);
  check<HwDatablockDacbIqImbalanceRearPh, short>({&HwDatablockDacbIqImbalanceRearPh::getNumberOfIqImbalanceRearPh,
                                                  &HwDatablockDacbIqImbalanceRearPh::setNumberOfIqImbalanceRearPh,
                                                  &HwDatablockDacbIqImbalanceRearPh::getIqImbalanceRearPh,
                                                  &HwDatablockDacbIqImbalanceRearPh::setIqImbalanceRearPh},
                                                 26);
  check<HwDatablockBbinsCompFilterTabsI, int>(
      {&HwDatablockBbinsCompFilterTabsI::getNumberOfFilterTabsI,
       &HwDatablockBbinsCompFilterTabsI::setNumberOfFilterTabsI, &HwDatablockBbinsCompFilterTabsI::getFilterTabsIValue,
       &HwDatablockBbinsCompFilterTabsI::setFilterTabsIValue},
      20);
  check<HwDatablockBbinsCompFilterTabsQ, int>(
      {&HwDatablockBbinsCompFilterTabsQ::getNumberOfFilterTabsQ,
       &HwDatablockBbinsCompFilterTabsQ::setNumberOfFilterTabsQ, &HwDatablockBbinsCompFilterTabsQ::getFilterTabsQValue,
       &HwDatablockBbinsCompFilterTabsQ::setFilterTabsQValue},
      20);
  check<HwDatablockBbinsUncalibratedFirAmplitudeI, int>(
      {&HwDatablockBbinsUncalibratedFirAmplitudeI::getNumberOfUncalibratedFirAmplitudeI,
       &HwDatablockBbinsUncalibratedFirAmplitudeI::setNumberOfUncalibratedFirAmplitudeI,
       &HwDatablockBbinsUncalibratedFirAmplitudeI::getUncalibratedFirAmplitudeIValue,
       &HwDatablockBbinsUncalibratedFirAmplitudeI::setUncalibratedFirAmplitudeIValue},
      50);
  check<HwDatablockBbinsUncalibratedFirPhiI, int>({&HwDatablockBbinsUncalibratedFirPhiI::getNumberOfUncalibratedFirPhiI,
                                                   &HwDatablockBbinsUncalibratedFirPhiI::setNumberOfUncalibratedFirPhiI,
                                                   &HwDatablockBbinsUncalibratedFirPhiI::getUncalibratedFirPhiIValue,
                                                   &HwDatablockBbinsUncalibratedFirPhiI::setUncalibratedFirPhiIValue},
                                                  50);
  check<HwDatablockBbinsUncalibratedFirAmplitudeQ, int>(
      {&HwDatablockBbinsUncalibratedFirAmplitudeQ::getNumberOfUncalibratedFirAmplitudeQ,
       &HwDatablockBbinsUncalibratedFirAmplitudeQ::setNumberOfUncalibratedFirAmplitudeQ,
       &HwDatablockBbinsUncalibratedFirAmplitudeQ::getUncalibratedFirAmplitudeQValue,
       &HwDatablockBbinsUncalibratedFirAmplitudeQ::setUncalibratedFirAmplitudeQValue},
      50);
  check<HwDatablockBbinsUncalibratedFirPhiQ, int>({&HwDatablockBbinsUncalibratedFirPhiQ::getNumberOfUncalibratedFirPhiQ,
                                                   &HwDatablockBbinsUncalibratedFirPhiQ::setNumberOfUncalibratedFirPhiQ,
                                                   &HwDatablockBbinsUncalibratedFirPhiQ::getUncalibratedFirPhiQValue,
                                                   &HwDatablockBbinsUncalibratedFirPhiQ::setUncalibratedFirPhiQValue},
                                                  50);
}

}  // namespace
}  // namespace Velk
