#include <cmath>

#include "ImageBuilder.h"
#include "Images.h"
#include "velk/bytes/PackedDate.h"
#include "velk/datablock/HwDatablockIds.h"
#include "velk/mainboard/ExternalLevelCalibration.h"
#include "velk/mainboard/PathLists.h"
#include "velk/mainboard/RfResponse.h"
#include "velk/modulecal/IqOp3RfmCalibDataMisc.h"
#include "velk/modulecal/IqOp3RfmCalibration.h"
#include "velk/modulecal/StepAttenuatorCalibration.h"
#include "velk/modulecal/StepAttenuatorCounters.h"
#include "velk/modulecal/SynthesizerCalibration.h"
#include "velk/records/HwDatablockCommonStatisticData.h"
#include "velk/records/HwDatablockIdent.h"
#include "velk/records/MainboardRecords.h"
#include "velk/records/ServiceRecords.h"
#include "velk/tables/BasebandInputTables.h"
#include "velk/tables/DacBoardCompensation.h"
#include "velk/tables/DacBoardImbalance.h"
#include "velk/tables/DacIfFullScale.h"

namespace Examples {
namespace {

Velk::HwDatablockServiceData service(Velk::HwEVariantEepromDatablock id, Velk::PackedDate date, unsigned hours) {
  Velk::HwDatablockServiceData record(id);
  record.setDepartment("1GS3/2");
  record.setServiceDate(date.packed());
  record.setOpTimeHours(hours);
  record.setOpTimeTurnOn(hours / 9);
  record.setRepairNumber(4711);
  record.setServiceCode(12);
  return record;
}

/// Returns a value that looks like a measured correction: smooth over the points, different for each row.
int ripple(int row, int point, int amplitude) {
  return static_cast<int>(std::lround(amplitude * std::sin(0.37 * point + 0.9 * row) + row));
}

Velk::HwDatablockModification120 modifications() {
  Velk::HwDatablockModification120 record;
  record.resizeData(16);
  const unsigned codes[] = {100123, 100207};
  std::memcpy(record.getData() + sizeof(Velk::HwSDatablockHeader), codes, sizeof codes);
  record.setBlockSize(16);
  return record;
}

Velk::HwDatablockSsynOpuDblCoefficient doublerCoefficients() {
  Velk::HwDatablockSsynOpuDblCoefficient doubler;
  doubler.setCount(3);
  doubler.setOpuDblCoefficient(1250, 0);
  doubler.setOpuDblCoefficient(-3.125, 1);
  doubler.setOpuDblCoefficient(0.000244, 2);
  return doubler;
}

Velk::HwDatablockIqOp3RfmCalibDataMisc iqScalars() {
  Velk::HwDatablockIqOp3RfmCalibDataMisc misc;
  misc.setNumberOfOperatingStates(8);
  misc.setDetFullScale(2.5F);
  misc.setToleranceLevPre(128);
  misc.setToleranceLevAtt_15(64);
  misc.setToleranceLevAtt_30_45(96);
  misc.setToleranceDetAtt(128);
  for (unsigned char state = 0; state < 8; ++state) {
    misc.setPmaxBz(static_cast<unsigned short>(2561 + 64 * state), state);
    misc.setUiqBz(0.5F + 0.0625F * static_cast<float>(state), state);
    misc.setLconReserveBz(static_cast<unsigned short>(384 + 16 * state), state);
    misc.setDetReserveBz(256, state);
  }
  return misc;
}

Velk::HwDatablockIqOp3RfmCalibData iqCalibration() {
  Velk::HwDatablockIqOp3RfmCalibData calibration;
  calibration.setOperatingState(1);
  for (int i = 0; i < 12; ++i) {
    const auto attenuation = [&](int row, unsigned bits) {
      return static_cast<unsigned>(ripple(row, i, 60)) & ((1U << bits) - 1);
    };
    calibration.setCalibDatablock({static_cast<unsigned>(i % 16) | 7U << 4U | 40000U << 9U,
                                   attenuation(0, 10) | attenuation(1, 11) << 10U | attenuation(2, 11) << 21U},
                                  i);
  }
  return calibration;
}

Velk::HwDatablockSAtt3CalibDataTemp temperatureGradients() {
  Velk::HwDatablockSAtt3CalibDataTemp gradients;
  gradients.setCalibTemp(31);
  for (int row = 0; row < 27; ++row) {
    for (int i = 0; i < 150; ++i) gradients.setTempGradient(static_cast<unsigned char>(50 + ripple(row, i, 3)), row, i);
  }
  return gradients;
}

void addLevelCalibration(ImageBuilder& image, int path) {
  Velk::HwDatablockMbrdExtLevCalDataFreq levelFrequencies(path, true);
  Velk::HwDatablockMbrdExtLevCalData levels(path, true);
  Velk::HwDatablockMbrdIqImbalanceRfFreq imbalanceFrequencies(path, true);
  Velk::HwDatablockMbrdIqImbalanceRfEvenAmp imbalance(path, true);
  levelFrequencies.setNumberOfFrequency(10);
  levels.setNumberOfLevelSteps(2);
  imbalanceFrequencies.setNumberOfIqImbalanceRfFreq(10);
  imbalance.setNumberOfIqImbalanceRfEvenAmp(10);
  for (unsigned i = 0; i < 10; ++i) {
    // The last two grid points are equal.
    const unsigned step = std::min(i, 8U);
    levelFrequencies.setFrequencyValue(10000000 * (step + 1), i);
    imbalanceFrequencies.setIqImbalanceRfFreq(200 * (i + 1), i);
    imbalance.setIqImbalanceRfEvenAmp(static_cast<short>(ripple(path, static_cast<int>(i), 120)), i);
    for (unsigned char level = 0; level < 2; ++level) {
      levels.setCorLevelValue(static_cast<short>(ripple(level, static_cast<int>(i), 35)), level, i);
    }
  }
  image.add(levelFrequencies).add(levels).add(imbalanceFrequencies).add(imbalance);
}

void addResponses(ImageBuilder& image, int path) {
  Velk::HwDatablockMbrdRfResponseAttFreq frequencies(path, true);
  Velk::HwDatablockMbrdRfResponseAttAmpl attenuators(path, true);
  attenuators.setNumberOfRfRespAttFreqs(3);
  frequencies.setNumberOfFrequency(3);
  for (unsigned i = 0; i < 3; ++i) frequencies.setFrequencyValue(400 * (i + 1), i);
  for (unsigned char setting = 0; setting < 6; ++setting) {
    for (unsigned i = 0; i < 3; ++i) {
      const auto amplitude = static_cast<short>(10000 + ripple(setting, static_cast<int>(i), 90));
      attenuators.setCorLevelValue({{amplitude, -12, 3, 0}}, setting, i);
    }
  }
  image.add(frequencies).add(attenuators);
}

}  // namespace

/// A synthesizer with its service history, its oscillator and its output levels.
QByteArray synthesizer() {
  Velk::HwDatablockIdent ident = identOf("SYNTHESIZER", 11412003, 200017, 2048);
  Velk::HwDatablockModification modification;
  modification.setCircularNr(1044, 0);
  modification.setAction(1, 0);
  Velk::HwDatablockModification120 further = modifications();
  Velk::HwDatablockServiceData first = service(Velk::_DatablockId_Service_200_, {2019, 2, 11}, 1234);
  Velk::HwDatablockServiceData second = service(Velk::_DatablockId_Service_201_, {2021, 9, 30}, 8120);
  Velk::HwDatablockStatistic statistic;
  statistic.setOpHours(9001);
  Velk::HwDatablockSsynOcxoRefCalValue oscillator;
  oscillator.setCount(1);
  oscillator.setOcxoRefCalValue(32871, 0);
  Velk::HwDatablockSsynOpuDblCoefficient doubler = doublerCoefficients();
  Velk::HwDatablockSsynOpuLevelFreq frequencies;
  Velk::HwDatablockSsynOpuLevel levels;
  frequencies.setCount(5);
  levels.setCount(5);
  for (unsigned char i = 0; i < 5; ++i) {
    frequencies.setOpuLevelFreq(1e9 + i * 2.5e8, i);
    levels.setOpuLevel(static_cast<unsigned>(700 + ripple(0, i, 40)), i);
  }
  Velk::HwDatablockCommonStatisticData powerOn(Velk::_DatablockId_Common_PowerOn_Count_);
  powerOn.setCommonStatisticData(reinterpret_cast<const unsigned char*>("\x11\x03\x00\x00"), 4);
  powerOn.setChecksum(powerOn.computeChecksum());
  return ImageBuilder()
      .add(ident)
      .add(modification)
      .add(further)
      .add(first)
      .add(second)
      .add(statistic)
      .add(oscillator)
      .add(doubler)
      .add(frequencies)
      .add(levels)
      .add(powerOn)
      .finish(2048);
}

/// An I/Q module: scalar values of both versions, frequencies, one operating state, an attenuator with its counters.
QByteArray iqModule() {
  Velk::HwDatablockIdent ident = identOf("IQOP3_RFM", 11413006, 300101, 16384);
  Velk::HwDatablockMiscIdent stream(Velk::_DatablockId_Stream_Opt_Ident_);
  stream.setPartNumber(11413012);
  stream.setSerialNumber(300102);
  stream.setName("STREAM-OPT");
  Velk::HwDatablockIqOp3RfmHarmonic harmonic;
  for (unsigned char i = 0; i < 6; ++i) harmonic.setCutOffFrequency(250000000 * (i + 1), i);
  Velk::HwDatablockIqOp3RfmCalibDataMisc misc = iqScalars();
  Velk::HwDatablockIqOp3RfmCalibDataFreq frequencies;
  frequencies.setCount(12);
  for (unsigned short i = 0; i < 12; ++i) frequencies.setFrequencyValue(100000000U * (i + 1U), i);
  Velk::HwDatablockIqOp3RfmCalibData calibration = iqCalibration();
  Velk::HwDatablockIqOp3RfmCalibDataMiscV20 miscV20;
  miscV20.setLmaxLow(12.5F);
  miscV20.setUiq(0.5F);
  miscV20.setDetattOvr(-6);
  Velk::HwDatablockSAtt3CalibDataTemp gradients = temperatureGradients();
  Velk::HwDatablockSAtt3CalibDataFreq attenuatorFrequencies;
  attenuatorFrequencies.setNumberOfFreqValues(150);
  for (int i = 0; i < 150; ++i) attenuatorFrequencies.setFrequencyValue(static_cast<unsigned>(4000000 * (i + 1)), i);
  Velk::HwDatablockSAtt3OWLDCounter overload(0);
  overload.setCounterValue(17);
  Velk::HwDatablockSAttCCounter highPower(11302);
  highPower.setCounterValue(3, 0);
  highPower.setCounterValue(5, 1);
  return ImageBuilder()
      .add(ident)
      .add(harmonic)
      .add(misc)
      .add(frequencies)
      .add(calibration)
      .add(miscV20)
      .add(stream)
      .add(gradients)
      .add(overload)
      .add(highPower)
      .add(attenuatorFrequencies)
      .finish(16384);
}

/// A mainboard: the identification of the instrument, and the calibration of its paths A and B.
QByteArray mainboard() {
  Velk::HwDatablockIdent ident = identOf("MAINBOARD", 11414009, 400005, 65536);
  Velk::HwDatablockMbrdSerialNumber serialNumber;
  serialNumber.setSerialNumber(123456);
  Velk::HwDatablockMbrdModel model;
  model.setModel("TARN 20 GHz");
  Velk::HwDatablockMbrdMac mac;
  const unsigned char address[] = {0x02, 0x00, 0x5E, 0x10, 0x20, 0x30};
  mac.setMac(address, sizeof address);
  mac.setChecksum(mac.computeChecksum());
  Velk::HwDatablockSittMbrdPllDacCalibValue pll;
  pll.setCount(1);
  pll.setSittMbrdPllDacCalibValue(511, 0);
  ImageBuilder image;
  image.add(ident).add(serialNumber).add(model).add(mac).add(pll);
  for (int path = 0; path < 2; ++path) {
    addLevelCalibration(image, path);
    addResponses(image, path);
  }
  return image.finish(65536);
}

/// A DAC board: frequency-response compensation, I/Q imbalance and the full scale, for front and rear outputs.
QByteArray dacBoard() {
  Velk::HwDatablockIdent ident = identOf("DACB", 11415001, 500042, 1024);
  Velk::HwDatablockDacIfFullScale fullScale;
  fullScale.setFullScaleValue(30210);
  Velk::HwDatablockDacbFrequencyCompFreq frequencies(true);
  Velk::HwDatablockDacbFrequencyCompAmp amplitudes(true);
  Velk::HwDatablockDacbFrequencyCompPh phases(true);
  Velk::HwDatablockDacbFrequencyCompDt delay(true);
  Velk::HwDatablockDacbIqImbalanceFreq imbalanceFrequencies(true);
  Velk::HwDatablockDacbIqImbalanceRearAmp rear(true);
  frequencies.setNumberOfCompFreq(26);
  amplitudes.setNumberOfcompAmp(26);
  phases.setNumberOfCompPh(26);
  imbalanceFrequencies.setNumberOfIqImbalanceFreq(26);
  rear.setNumberOfIqImbalanceRearAmp(26);
  for (int i = 0; i < 26; ++i) {
    frequencies.setCompFreq(4000000 * (i - 13), i);
    amplitudes.setCompAmp(static_cast<short>(ripple(0, i, 45)), i);
    phases.setCompPh(static_cast<short>(ripple(1, i, 80)), i);
    imbalanceFrequencies.setIqImbalanceFreq(4000000 * (i - 13), i);
    rear.setIqImbalanceRearAmp(static_cast<short>(ripple(2, i, 25)), i);
  }
  delay.setNumberOfCompDt(1);
  delay.setCompDt(-310, 0);
  Velk::HwDatablockBbinsCompFilterTabsI taps(true);
  taps.setNumberOfFilterTabsI(5);
  for (int i = 0; i < 5; ++i) taps.setFilterTabsIValue(ripple(3, i, 900000), i);
  return ImageBuilder()
      .add(ident)
      .add(fullScale)
      .add(taps)
      .add(frequencies)
      .add(amplitudes)
      .add(phases)
      .add(delay)
      .add(rear)
      .add(imbalanceFrequencies)
      .finish(1024);
}

}  // namespace Examples
