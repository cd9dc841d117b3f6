#include "velk/oldstyle/BlockCatalogue.h"

#include <algorithm>
#include <iterator>

#include "velk/datablock/HwDatablockEnd.h"
#include "velk/mainboard/ExternalLevelCalibration.h"
#include "velk/mainboard/PathLists.h"
#include "velk/mainboard/RfResponse.h"
#include "velk/modulecal/AduCalibration.h"
#include "velk/modulecal/CwOp3Calibration.h"
#include "velk/modulecal/DetLimiterCalibration.h"
#include "velk/modulecal/IpcUser.h"
#include "velk/modulecal/IqOp3RfmCalibDataMisc.h"
#include "velk/modulecal/IqOp3RfmCalibration.h"
#include "velk/modulecal/IqOp6Calibration.h"
#include "velk/modulecal/StepAttenuatorCalibration.h"
#include "velk/modulecal/SynthesizerCalibration.h"
#include "velk/records/HwDatablockCommonStatisticData.h"
#include "velk/records/HwDatablockIdent.h"
#include "velk/records/MainboardRecords.h"
#include "velk/records/ServiceRecords.h"
#include "velk/tables/BasebandInputTables.h"
#include "velk/tables/DacBoardTables.h"
#include "velk/tables/ObelTables.h"
#include "velk/tables/PimTables.h"

namespace Velk {
namespace {

template <class Block, auto... arguments>
std::unique_ptr<HwDatablock> make(unsigned short /*id*/) {
  return std::make_unique<Block>(arguments...);
}

template <class Block, class Id>
std::unique_ptr<HwDatablock> makeWithId(unsigned short id) {
  return std::make_unique<Block>(static_cast<Id>(id));
}

/// Paths and copies are told apart by their distance from the first id.
template <class Block, auto... arguments>
std::unique_ptr<HwDatablock> makeInstance(unsigned short id) {
  return std::make_unique<Block>(id - Block::traits.id, arguments...);
}

using Maker = std::unique_ptr<HwDatablock>(unsigned short);

/// The names that a row's ids have: the traits' own, from the row's first id on.
constexpr std::span<const char* const> keysFrom(const RecordTraits& traits, unsigned short firstId,
                                                unsigned short lastId) {
  const std::span<const char* const> keys(traits.keys);
  const bool single = traits.keys[1] == nullptr;
  return single ? keys.first(1) : keys.subspan(firstId - traits.id, lastId - firstId + 1U);
}

/// The row of a record class.
template <class Block>
constexpr CatalogueRow record(const char* className, unsigned short firstId, unsigned short lastId, Maker* maker,
                              Conversion conversion = Conversion::None, OtherSizes others = {}) {
  const RecordTraits& traits = Block::traits;
  return {firstId, lastId,     className, keysFrom(traits, firstId, lastId), traits.size, others, traits.fields,
          maker,   conversion, &traits};
}

template <class Block>
constexpr CatalogueRow record(const char* className, Conversion conversion = Conversion::None) {
  return record<Block>(className, Block::traits.id, Block::traits.id, make<Block>, conversion);
}

/// The row of a class that is told whether its conversion stops at an error.
template <class Block>
constexpr CatalogueRow flagged(const char* className) {
  return record<Block>(className, Block::traits.id, Block::traits.id, make<Block, true>);
}

/// The row of a class with `count` paths or copies.
template <class Block>
constexpr CatalogueRow paths(const char* className, int count) {
  const unsigned short first = Block::traits.id;
  return record<Block>(className, first, static_cast<unsigned short>(first + count - 1), makeInstance<Block, true>);
}

constexpr const char* endKeys[] = {"END"};
constexpr const char* service299Keys[] = {"SERVICE_299"};

constexpr CatalogueRow service299 = [] {
  CatalogueRow row = record<HwDatablockServiceData>("HwDatablockServiceData", 200, 209,
                                                    makeWithId<HwDatablockServiceData, HwEVariantEepromDatablock>);
  row.firstId = row.lastId = 299;
  row.keys = service299Keys;
  return row;
}();

// Wide on purpose: one row a class, in the order of the ids.
// clang-format off
constexpr CatalogueRow dictionary[] = {
    record<HwDatablockIdent>("HwDatablockIdent", 2, 10, make<HwDatablockIdent>, Conversion::Record),
    record<HwDatablockModification>("HwDatablockModification", Conversion::Record),
    record<HwDatablockModification110>("HwDatablockModification110", Conversion::Record),
    record<HwDatablockModification120>("HwDatablockModification120", 120, 120, make<HwDatablockModification120>, Conversion::Values, {.longer = true}),
    record<HwDatablockServiceData>("HwDatablockServiceData", 200, 209, makeWithId<HwDatablockServiceData, HwEVariantEepromDatablock>, Conversion::Record),
    service299,
    record<HwDatablockStatistic>("HwDatablockStatistic", Conversion::Record),
    record<HwDatablockSsynOcxoRefCalValue>("HwDatablockSsynOcxoRefCalValue"),
    record<HwDatablockSsynOpuDblCoefficient>("HwDatablockSsynOpuDblCoefficient"),
    record<HwDatablockSsynOpuLevelFreq>("HwDatablockSsynOpuLevelFreq"),
    record<HwDatablockSsynOpuLevel>("HwDatablockSsynOpuLevel"),
    record<HwDatablockIqOp3RfmHarmonic>("HwDatablockIqOp3RfmHarmonic"),
    record<HwDatablockIqOp3RfmCalibDataMisc>("HwDatablockIqOp3RfmCalibDataMisc"),
    record<HwDatablockIqOp3RfmCalibDataFreq>("HwDatablockIqOp3RfmCalibDataFreq"),
    record<HwDatablockIqOp3RfmCalibData>("HwDatablockIqOp3RfmCalibData", 10303, 10314, make<HwDatablockIqOp3RfmCalibData>),
    record<HwDatablockIqOp3RfmCalibDataMiscV20>("HwDatablockIqOp3RfmCalibDataMiscV20"),
    record<HwDatablockIqOp3RfmCalibDataV20>("HwDatablockIqOp3RfmCalibDataV20"),
    record<HwDatablockCwOp3AmGainFreq>("HwDatablockCwOp3AmGainFreq"),
    record<HwDatablockCwOp3AmGainData>("HwDatablockCwOp3AmGainData"),
    record<HwDatablockCwop6VcoIdent>("HwDatablockCwop6VcoIdent"),
    record<HwDatablockMiscIdent>("HwDatablockMiscIdent", 10503, 10504, makeWithId<HwDatablockMiscIdent, HwEVariantEepromDatablock>),
    record<HwDatablockSAtt3CalibDataFreq>("HwDatablockSAtt3CalibDataFreq"),
    record<HwDatablockSAtt3CalibDataAtt>("HwDatablockSAtt3CalibDataAtt"),
    record<HwDatablockSAtt3CalibDataTemp>("HwDatablockSAtt3CalibDataTemp"),
    record<HwDatablockSAtt3OWLDCounter>("HwDatablockSAtt3OWLDCounter", 10604, 10605, makeInstance<HwDatablockSAtt3OWLDCounter>),
    record<HwDatablockIqOp6PmaxBz>("HwDatablockIqOp6PmaxBz"),
    record<HwDatablockIqOp6CalibDataFreq>("HwDatablockIqOp6CalibDataFreq"),
    record<HwDatablockIqOp6CalibData>("HwDatablockIqOp6CalibData"),
    record<HwDatablockSAtt6CalibDataAtt>("HwDatablockSAtt6CalibDataAtt"),
    record<HwDatablockSAtt6CalibDataFreq>("HwDatablockSAtt6CalibDataFreq"),
    record<HwDatablockSAtt6CalibDataTemp>("HwDatablockSAtt6CalibDataTemp"),
    record<HwDatablockSAtt6OWLDCounter>("HwDatablockSAtt6OWLDCounter", 11203, 11204, makeInstance<HwDatablockSAtt6OWLDCounter>),
    record<HwDatablockSAttCCounter>("HwDatablockSAttCCounter", 11300, 11303, makeWithId<HwDatablockSAttCCounter, int>),
    record<HwDatablockCommonStatisticData>("HwDatablockCommonStatisticData", 11310, 11313, makeWithId<HwDatablockCommonStatisticData, int>, Conversion::Table),
    record<HwDatablockMbrdSerialNumber>("HwDatablockMbrdSerialNumber", Conversion::Record),
    record<HwDatablockMbrdModel>("HwDatablockMbrdModel", Conversion::Record),
    record<HwDatablockMbrdMac>("HwDatablockMbrdMac"),
    flagged<HwDatablockPimMwIfExtLevCalDataFreq>("HwDatablockPimMwIfExtLevCalDataFreq"),
    flagged<HwDatablockPimMwIfExtLevCalData>("HwDatablockPimMwIfExtLevCalData"),
    flagged<HwDatablockPimMwIfExtLevCalDataAbsCorr>("HwDatablockPimMwIfExtLevCalDataAbsCorr"),
    flagged<HwDatablockPimMwIfExtLevCalDataRelCorr>("HwDatablockPimMwIfExtLevCalDataRelCorr"),
    flagged<HwDatablockPimAttCalDatFreq>("HwDatablockPimAttCalDatFreq"),
    flagged<HwDatablockPimAttCalDat>("HwDatablockPimAttCalDat"),
    flagged<HwDatablockPimAttCalDatFreqSe>("HwDatablockPimAttCalDatFreqSe"),
    flagged<HwDatablockPimAttCalDatSe>("HwDatablockPimAttCalDatSe"),
    paths<HwDatablockMbrdExtLevCalDataFreq>("HwDatablockMbrdExtLevCalDataFreq", 4),
    paths<HwDatablockMbrdExtLevCalData>("HwDatablockMbrdExtLevCalData", 4),
    paths<HwDatablockMbrdExtLevCalDataFreq_Enh>("HwDatablockMbrdExtLevCalDataFreq_Enh", 2),
    paths<HwDatablockMbrdExtLevCalData_Enh>("HwDatablockMbrdExtLevCalData_Enh", 2),
    paths<HwDatablockMbrdExtLevCalDataFreq2Edition_Enh>("HwDatablockMbrdExtLevCalDataFreq2Edition_Enh", 2),
    record<HwDatablockMbrdExtLevCalData2Edition_Enh>("HwDatablockMbrdExtLevCalData2Edition_Enh", 12095, 12096, makeInstance<HwDatablockMbrdExtLevCalData2Edition_Enh, true, 13012>, Conversion::None, {.also = HwDatablockMbrdExtLevCalData2Edition_Enh::smallSize}),
    paths<HwDatablockMbrdIqImbalanceRfFreq>("HwDatablockMbrdIqImbalanceRfFreq", 4),
    paths<HwDatablockMbrdIqImbalanceRfEvenAmp>("HwDatablockMbrdIqImbalanceRfEvenAmp", 4),
    paths<HwDatablockMbrdIqImbalanceRfEvenPh>("HwDatablockMbrdIqImbalanceRfEvenPh", 4),
    paths<HwDatablockMbrdIqImbalanceRfOddAmp>("HwDatablockMbrdIqImbalanceRfOddAmp", 4),
    paths<HwDatablockMbrdIqImbalanceRfOddPh>("HwDatablockMbrdIqImbalanceRfOddPh", 4),
    paths<HwDatablockMbrdExtLevCalDataFreq2Edition>("HwDatablockMbrdExtLevCalDataFreq2Edition", 4),
    paths<HwDatablockMbrdExtLevCalData2Edition>("HwDatablockMbrdExtLevCalData2Edition", 4),
    paths<HwDatablockAttCalDataFreq2Edition>("HwDatablockAttCalDataFreq2Edition", 4),
    paths<HwDatablockAttCalData2Edition>("HwDatablockAttCalData2Edition", 4),
    paths<HwDatablockCwop3DetTuneFreq>("HwDatablockCwop3DetTuneFreq", 4),
    paths<HwDatablockCwop3DetTuneDac>("HwDatablockCwop3DetTuneDac", 4),
    paths<HwDatablockMbrdRfResponseLpFreq>("HwDatablockMbrdRfResponseLpFreq", 4),
    paths<HwDatablockMbrdRfResponseIoPepInfo>("HwDatablockMbrdRfResponseIoPepInfo", 4),
    paths<HwDatablockMbrdRfResponseLpAmp>("HwDatablockMbrdRfResponseLpAmp", 4),
    paths<HwDatablockMbrdRfResponseLpPh>("HwDatablockMbrdRfResponseLpPh", 4),
    paths<HwDatablockMbrdRfResponseBbFreq>("HwDatablockMbrdRfResponseBbFreq", 4),
    paths<HwDatablockMbrdRfResponseAttFreq>("HwDatablockMbrdRfResponseAttFreq", 4),
    paths<HwDatablockMbrdRfResponseAttAmpl>("HwDatablockMbrdRfResponseAttAmpl", 4),
    record<HwDatablockSittMbrdPllDacCalibValue>("HwDatablockSittMbrdPllDacCalibValue"),
    paths<HwDatablockCwopDetLinCorrFreq>("HwDatablockCwopDetLinCorrFreq", 2),
    paths<HwDatablockCwopDetLinCorrData>("HwDatablockCwopDetLinCorrData", 2),
    record<HwDatablockDacIfFullScale>("HwDatablockDacIfFullScale"),
    flagged<HwDatablockBbinsCompFilterTabsI>("HwDatablockBbinsCompFilterTabsI"),
    flagged<HwDatablockBbinsCompFilterTabsQ>("HwDatablockBbinsCompFilterTabsQ"),
    flagged<HwDatablockBbinsUncalibratedFirAmplitudeI>("HwDatablockBbinsUncalibratedFirAmplitudeI"),
    flagged<HwDatablockBbinsUncalibratedFirPhiI>("HwDatablockBbinsUncalibratedFirPhiI"),
    flagged<HwDatablockBbinsUncalibratedFirAmplitudeQ>("HwDatablockBbinsUncalibratedFirAmplitudeQ"),
    flagged<HwDatablockBbinsUncalibratedFirPhiQ>("HwDatablockBbinsUncalibratedFirPhiQ"),
    flagged<HwDatablockDacbFrequencyCompFreq>("HwDatablockDacbFrequencyCompFreq"),
    flagged<HwDatablockDacbFrequencyCompAmp>("HwDatablockDacbFrequencyCompAmp"),
    flagged<HwDatablockDacbFrequencyCompPh>("HwDatablockDacbFrequencyCompPh"),
    flagged<HwDatablockDacbFrequencyCompDt>("HwDatablockDacbFrequencyCompDt"),
    flagged<HwDatablockDacbIqImbalanceFreq>("HwDatablockDacbIqImbalanceFreq"),
    flagged<HwDatablockDacbIqImbalanceAmp>("HwDatablockDacbIqImbalanceAmp"),
    flagged<HwDatablockDacbIqImbalancePh>("HwDatablockDacbIqImbalancePh"),
    flagged<HwDatablockDacbIqImbalanceSwapAmp>("HwDatablockDacbIqImbalanceSwapAmp"),
    flagged<HwDatablockDacbIqImbalanceSwapPh>("HwDatablockDacbIqImbalanceSwapPh"),
    flagged<HwDatablockDacbFrequencyCompAmpRear>("HwDatablockDacbFrequencyCompAmpRear"),
    flagged<HwDatablockDacbFrequencyCompPhRear>("HwDatablockDacbFrequencyCompPhRear"),
    flagged<HwDatablockDacbFrequencyCompDtRear>("HwDatablockDacbFrequencyCompDtRear"),
    flagged<HwDatablockDacbIqImbalanceRearAmp>("HwDatablockDacbIqImbalanceRearAmp"),
    flagged<HwDatablockDacbIqImbalanceRearPh>("HwDatablockDacbIqImbalanceRearPh"),
    record<HwDatablockDacbIqImbalanceRearPh>("HwDatablockDacbIqImbalanceRearPh", 14801, 14801, make<HwDatablockDacbIqImbalanceRearPh, false>),
    record<HwDatablockSynexOcxoRefCalValue>("HwDatablockSynexOcxoRefCalValue"),
    record<HwDatablockFsynTcxoRefCalValue>("HwDatablockFsynTcxoRefCalValue"),
    record<HwDatablockPimOcxoRefCalValue>("HwDatablockPimOcxoRefCalValue"),
    record<HwDatablockDetLimiterMaxVoltFreq>("HwDatablockDetLimiterMaxVoltFreq"),
    record<HwDatablockDetLimiterMaxVoltData>("HwDatablockDetLimiterMaxVoltData"),
    record<HwDatablockAduLevCoarseCalibData>("HwDatablockAduLevCoarseCalibData"),
    record<HwDatablockAduGainOffsetCalData>("HwDatablockAduGainOffsetCalData"),
    {65535, 65535, "HwDatablockEnd", endKeys, sizeof(HwSDatablockEnd), {}, endFields, make<HwDatablockEnd>, Conversion::None, nullptr},
};

constexpr CatalogueRow others[] = {
    record<HwDatablockIpcUser10000>("HwDatablockIpcUser10000"),
    record<HwDatablockIpcUser10040>("HwDatablockIpcUser10040"),
    record<HwObelDatablockAnalogOutputCalibration>("HwObelDatablockAnalogOutputCalibration", 15500, 15501, makeInstance<HwObelDatablockAnalogOutputCalibration, false>),
    record<HwDatablockOBELDelay>("HwDatablockOBELDelay"),
    flagged<HwDatablockObelAnalogImbalanceFreq>("HwDatablockObelAnalogImbalanceFreq"),
    flagged<HwDatablockObelAnalogImbalanceGainI>("HwDatablockObelAnalogImbalanceGainI"),
    flagged<HwDatablockObelAnalogImbalanceGainQ>("HwDatablockObelAnalogImbalanceGainQ"),
    flagged<HwDatablockObelAnalogImbalancePhI>("HwDatablockObelAnalogImbalancePhI"),
    flagged<HwDatablockObelAnalogImbalancePhQ>("HwDatablockObelAnalogImbalancePhQ"),
    record<HwDatablockObelBaseboardCalibValue>("HwDatablockObelBaseboardCalibValue"),
    record<HwDatablockObelWiqSensorData>("HwDatablockObelWiqSensorData"),
    record<HwDatablockObelWIQQuadDac>("HwDatablockObelWIQQuadDac"),
};
// clang-format on

constexpr bool isWellFormed(std::span<const CatalogueRow> rows) {
  int last = -1;
  for (const CatalogueRow& row : rows) {
    const int ids = row.lastId - row.firstId + 1;
    const bool named = row.keys.size() == 1 || row.keys.size() == static_cast<std::size_t>(ids);
    if (row.firstId <= last || ids < 1 || !named || row.fields.empty()) return false;
    last = row.lastId;
  }
  return true;
}
static_assert(isWellFormed(dictionary) && isWellFormed(others), "rows ascend, and each has its names and fields");

const CatalogueRow* findIn(std::span<const CatalogueRow> rows, int id) {
  const auto row = std::lower_bound(rows.begin(), rows.end(), id, [](const CatalogueRow& candidate, int wanted) {
    return candidate.lastId < wanted;
  });
  return row != rows.end() && row->firstId <= id ? &*row : nullptr;
}

}  // namespace

std::span<const CatalogueRow> dictionaryRows() { return dictionary; }

std::span<const CatalogueRow> otherRows() { return others; }

const CatalogueRow* findDictionaryRow(int id) { return findIn(dictionary, id); }

const CatalogueRow* findCatalogueRow(int id, unsigned short size) {
  const CatalogueRow* const row = findDictionaryRow(id);
  const CatalogueRow* const other = findIn(others, id);
  const bool preferOther = row == nullptr || (other != nullptr && !row->acceptsSize(size) && other->acceptsSize(size));
  return preferOther ? other : row;
}

}  // namespace Velk
