#include <cmath>
#include <sstream>

#include "ImageBuilder.h"
#include "Images.h"
#include "velk/records/HwDatablockIdent.h"
#include "velk/tables/LornRfboTables.h"
#include "velk/tables/MiscData.h"
#include "velk/tables/ObelWiqTables.h"
#include "velk/tables/QelRfboTables.h"
#include "velk/tables/VaskTables.h"

namespace Examples {
namespace {

/// Fills the rows and columns in use of a table with the results of `valueOf`.
template <class Table, class ValueOf>
Table filled(Table table, unsigned rows, unsigned cols, ValueOf valueOf) {
  table.setCounts(rows, cols);
  for (unsigned row = 0; row < rows; ++row) {
    for (unsigned col = 0; col < cols; ++col) {
      table.setStoredValue(static_cast<typename Table::StorageType>(valueOf(row, col)), row, col);
    }
  }
  return table;
}

template <class Table>
Table labelled(Table table, unsigned rows) {
  for (unsigned row = 0; row < rows; ++row) table.setIndex(5 * static_cast<int>(row) - 15, row);
  return table;
}

constexpr unsigned attenuatorSettings = 28;

/// The switches of a binary attenuator with stages of 5, 10, 20, 40 and 80 dB: the words for four of its paths.
unsigned registerWord(unsigned row, unsigned col) {
  constexpr unsigned stageMask = 0x1F;
  const unsigned stages = row & stageMask;
  return 0x80000000U | (col << 24U) | (stages << 8U) | (~stages & stageMask);
}

Velk::HwDatablockLornRfboAttRegData registers() {
  auto table = filled(Velk::HwDatablockLornRfboAttRegData(false), attenuatorSettings, 4, registerWord);
  table.setStoredValue(0xFFFFFFFFU, attenuatorSettings - 1, 3);  // never measured
  return table;
}

Velk::HwDatablockVaskRfboExtCalVecUserData userCalibration() {
  auto table = filled(Velk::HwDatablockVaskRfboExtCalVecUserData(false), 4, 6,
                      [](int row, int col) { return -25 * row + 3 * col - 7; });
  table.setDescriptor("CABLE 2m N", 0);
  table.setDescriptor("POWER SENSOR 18G", 1);
  return table;
}

/// Adds tables of measured levels and settings.
void addLevels(ImageBuilder& image) {
  auto loopGain = filled(Velk::MiscDataKinds::LoopgainPk::Block(12301, "LOOPGAIN_PK", 1000.0), 1, 5,
                         [](int, int col) { return 12 - 7 * col; });
  auto limiter = filled(Velk::MiscDataKinds::LimiterMaxVoltage::Block(12314, "LIMITER_MAX_VOLTAGE", 0.00001), 3, 1,
                        [](int row, int) { return 125000 + 4321 * row; });
  auto imbalance = filled(Velk::HwDatablockObelWiqRfImbalanceData("WIQ_RF_IMBALANCE_DATA_3", 3, true), 5, 3,
                          [](int row, int col) { return 0.001 * row - 0.25 * col + 1e-5; });
  auto stereo = filled(Velk::HwDatablockStereocoderCo(false), 6, 1, [](int row, int) { return 1200 - 480 * row; });
  auto reference = filled(Velk::HwDatablockQelRfboTcxoCal(false), 2, 1, [](int row, int) { return 2048 + 17 * row; });
  auto highest = filled(Velk::HwDatablockQelRfboRfLevelMaxData(false), 2, 4,
                        [](int row, int col) { return 1850 - 600 * row - 1211 * col; });
  image.add(loopGain).add(limiter).add(imbalance).add(stereo).add(reference).add(highest);
}

/// Adds the points of the level control and the registers of the attenuators.
void addRegisters(ImageBuilder& image) {
  auto alcPoints = filled(Velk::HwDatablockQelRfboAlcFreq(false), 10, 1,
                          [](unsigned row, unsigned) { return 100000U + 6000000U * row; });
  auto alc = filled(Velk::HwDatablockQelRfboAlcData(false), 4, 10,
                    [](int row, int col) { return 2047 - 311 * row + 13 * col; });
  auto words =
      filled(Velk::HwDatablockQelRfboAttRegData(false), 6, 1, [](unsigned row, unsigned) { return 0x1FU * row; });
  auto points = filled(Velk::HwDatablockLornRfboAttCalFreq(false), 12, 1,
                       [](int row, int) { return 10000.0 * std::pow(2.0, row); });
  auto attenuations = filled(Velk::HwDatablockLornRfboAttRegAttenuation(false), attenuatorSettings, 4,
                             [](int row, int col) { return 5.0 * row + 0.13 * col; });
  auto registerWords = registers();
  image.add(alcPoints).add(alc).add(words).add(points).add(attenuations).add(registerWords);
}

/// Adds what goes with the tables: the lists of their points, and a table over the points of an attenuator.
void addCounterparts(ImageBuilder& image) {
  const auto points = [](auto table, unsigned rows, double first, double step) {
    return filled(std::move(table), rows, 1, [=](unsigned row, unsigned) { return first + step * row; });
  };
  auto loopGain = points(Velk::MiscDataKinds::LoopgainFreq::Block(12300, "LOOPGAIN_FREQ", 0.01), 5, 100, 50);
  auto limiter = points(
      Velk::MiscDataKinds::LimiterFrequencyNodeGhz::Block(12313, "LIMITER_FREQUENCY_NODE_GHZ", 0.00001), 3, 1e5, 2e5);
  auto highest = points(Velk::HwDatablockQelRfboRfLevelMaxFreq(false), 4, 1e5, 2e6);
  auto vector = points(Velk::HwDatablockVaskRfboAttCalVecFreq(false), 5, 1e6, 5e6);
  auto user = points(Velk::HwDatablockVaskRfboExtCalVecUserFreq(false), 6, 1e6, 3e6);
  auto attenuations = labelled(filled(Velk::HwDatablockLornRfboAttCalData(false), 4, 12,
                                      [](int row, int col) { return 500 * row + 7 * col - 30; }),
                               4);
  image.add(loopGain).add(limiter).add(highest).add(vector).add(user).add(attenuations);
}

}  // namespace

QByteArray rfBoardTables() {
  Velk::HwDatablockIdent ident = identOf("RF-BOARD", 14000700, 101317, 65536);
  auto vector = labelled(filled(Velk::HwDatablockVaskRfboAttCalVecData(false), 4, 5,
                                [](int row, int col) { return 500 * row - 15 * col; }),
                         4);
  auto temperatures =
      filled(Velk::HwDatablockVaskVectorLevconTemp(false), 5, 1, [](int row, int) { return 20 * row - 20; });
  auto user = userCalibration();

  ImageBuilder image;
  image.add(ident);
  addLevels(image);
  addRegisters(image);
  image.add(vector).add(temperatures).add(user);
  addCounterparts(image);
  return image.finish(65536);
}

QByteArray attenuatorRegisters() {
  auto table = registers();
  table.setStoredValue(registerWord(attenuatorSettings - 1, 3), attenuatorSettings - 1, 3);
  std::ostringstream text;
  Velk::HwDatablockLornRfboAttRegData::conv2ascii(text, table);
  return QByteArray::fromStdString(text.str());
}

}  // namespace Examples
