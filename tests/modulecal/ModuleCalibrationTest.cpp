#include <limits>

#include "RecordSupport.h"
#include "velk/modulecal/AduCalibration.h"
#include "velk/modulecal/CwOp3Calibration.h"
#include "velk/modulecal/DetLimiterCalibration.h"
#include "velk/modulecal/IpcUser.h"
#include "velk/modulecal/IqOp3RfmCalibration.h"
#include "velk/modulecal/IqOp6Calibration.h"
#include "velk/modulecal/StepAttenuatorCalibration.h"
#include "velk/modulecal/StepAttenuatorCounters.h"
#include "velk/modulecal/SynthesizerCalibration.h"

namespace Velk {
namespace {

using VelkTest::ConsoleCapture;
using VelkTest::ErrorCapture;
using VelkTest::printed;

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

template <class Block, class Record>
bool accepts(Block&& block, Record record) {
  ErrorCapture errors;
  ConsoleCapture console;
  block.setBlock(&record);
  return errors.errors.empty();
}

TEST(ModuleCalibration, RecordsThatWereNeverWrittenAreAccepted) {
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
}

TEST(ModuleCalibration, AHeaderIsEnoughForSomeRecords) {
  SingleValueRecord single{{10000, 16, 0, 0}, 1, 77};
  EXPECT_TRUE(accepts(HwDatablockSsynOcxoRefCalValue(), single));
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
