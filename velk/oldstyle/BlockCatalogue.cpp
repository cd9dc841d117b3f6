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
#include "velk/tables/LornRfboTables.h"
#include "velk/tables/MbrdTables.h"
#include "velk/tables/MiscData.h"
#include "velk/tables/ObelTables.h"
#include "velk/tables/ObelWiqTables.h"
#include "velk/tables/PimTables.h"
#include "velk/tables/QelRfboTables.h"
#include "velk/tables/SAttCTables.h"
#include "velk/tables/VaskTables.h"

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

template <class Kind>
std::unique_ptr<HwDatablock> makeMiscData(unsigned short /*id*/) {
  return std::make_unique<typename Kind::Block>(Kind::traits.id, Kind::traits.key, Kind::traits.scale);
}

/// A table that its maker names, by the number of its id in the row.
template <class Table>
std::unique_ptr<HwDatablock> makeNumbered(unsigned short id) {
  return std::make_unique<Table>(findCatalogueRow(id)->key(id), id - Table::traits.id, false);
}

template <class Table>
constexpr auto tableFields = Table::TableImage::fields(Table::traits.scale);

/// The rows of table classes: with one id, and with one for each of several names.
template <class Table>
constexpr CatalogueRow tables(const char* className, std::span<const char* const> keys, Maker* maker,
                              Conversion conversion) {
  constexpr unsigned short firstId = Table::traits.id;
  const auto lastId = static_cast<unsigned short>(firstId + keys.size() - 1);
  return {firstId, lastId,     className, keys, sizeof(typename Table::TableImage), {}, tableFields<Table>,
          maker,   conversion, nullptr};
}
template <class Table>
constexpr CatalogueRow table(const char* className, Maker* maker, Conversion conversion) {
  return tables<Table>(className, {&Table::traits.key, 1}, maker, conversion);
}

constexpr const char* endKeys[] = {"END"};
constexpr const char* wiqImbalanceKeys[] = {
    "WIQ_RF_IMBALANCE_DATA_0", "WIQ_RF_IMBALANCE_DATA_1", "WIQ_RF_IMBALANCE_DATA_2", "WIQ_RF_IMBALANCE_DATA_3",
    "WIQ_RF_IMBALANCE_DATA_4", "WIQ_RF_IMBALANCE_DATA_5", "WIQ_RF_IMBALANCE_DATA_6", "WIQ_RF_IMBALANCE_DATA_7",
    "WIQ_RF_IMBALANCE_DATA_8", "WIQ_RF_IMBALANCE_DATA_9"};
constexpr const char* levconTempKeys[] = {
    "VECTOR_LEVCON_TEMP_DATA_0", "VECTOR_LEVCON_TEMP_DATA_1", "VECTOR_LEVCON_TEMP_DATA_2", "VECTOR_LEVCON_TEMP_DATA_3",
    "VECTOR_LEVCON_TEMP_DATA_4", "VECTOR_LEVCON_TEMP_DATA_5", "VECTOR_LEVCON_TEMP_DATA_6", "VECTOR_LEVCON_TEMP_DATA_7",
    "VECTOR_LEVCON_TEMP_DATA_8", "VECTOR_LEVCON_TEMP_DATA_9"};
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
    table<MiscDataKinds::PimMwifSattCounter>("HwDatablockTemplateWithoutChecksum", makeMiscData<MiscDataKinds::PimMwifSattCounter>, Conversion::None),
    table<HwDatablockSAttCTempFreq>("HwDatablockSAttCTempFreq", make<HwDatablockSAttCTempFreq, true>, Conversion::None),
    table<HwDatablockSAttCTempGradient>("HwDatablockSAttCTempGradient", make<HwDatablockSAttCTempGradient, true>, Conversion::None),
    table<HwDatablockSAttCTempOffset>("HwDatablockSAttCTempOffset", make<HwDatablockSAttCTempOffset, true>, Conversion::None),
    record<HwDatablockCommonStatisticData>("HwDatablockCommonStatisticData", 11310, 11313, makeWithId<HwDatablockCommonStatisticData, int>, Conversion::ClearAlignment),
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
    table<MiscDataKinds::LoopgainFreq>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainFreq>, Conversion::None),
    table<MiscDataKinds::LoopgainPk>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainPk>, Conversion::None),
    table<MiscDataKinds::LoopgainPValueBasePk>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainPValueBasePk>, Conversion::None),
    table<MiscDataKinds::LoopgainIValueBasePk>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainIValueBasePk>, Conversion::None),
    table<MiscDataKinds::LoopgainIValueOffsetPk>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainIValueOffsetPk>, Conversion::None),
    table<MiscDataKinds::LoopgainPkList>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainPkList>, Conversion::None),
    table<MiscDataKinds::LoopgainPValueBasePkList>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainPValueBasePkList>, Conversion::None),
    table<MiscDataKinds::LoopgainIValueBasePkList>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainIValueBasePkList>, Conversion::None),
    table<MiscDataKinds::LoopgainIValueOffsetPkList>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LoopgainIValueOffsetPkList>, Conversion::None),
    table<MiscDataKinds::PimDconVtrimValue>("HwDatablockTemplate", makeMiscData<MiscDataKinds::PimDconVtrimValue>, Conversion::None),
    table<MiscDataKinds::PimDconLevelpre2>("HwDatablockTemplate", makeMiscData<MiscDataKinds::PimDconLevelpre2>, Conversion::None),
    table<MiscDataKinds::KivFreqcntrTcxoRefCalValue>("HwDatablockTemplate", makeMiscData<MiscDataKinds::KivFreqcntrTcxoRefCalValue>, Conversion::None),
    table<MiscDataKinds::LimiterFrequencyNodeGhz>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LimiterFrequencyNodeGhz>, Conversion::None),
    table<MiscDataKinds::LimiterMaxVoltage>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LimiterMaxVoltage>, Conversion::None),
    table<MiscDataKinds::LimiterMaxVoltagePumOn>("HwDatablockTemplate", makeMiscData<MiscDataKinds::LimiterMaxVoltagePumOn>, Conversion::None),
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
    table<HwDatablockMbrdIqInputB>("HwDatablockMbrdIqInputB", make<HwDatablockMbrdIqInputB, false>, Conversion::None),
    table<HwDatablockMbrdExtCalUserFreqA>("HwDatablockMbrdExtCalUserFreqA", make<HwDatablockMbrdExtCalUserFreqA, false>, Conversion::None),
    table<HwDatablockMbrdExtCalUserFreqB>("HwDatablockMbrdExtCalUserFreqB", make<HwDatablockMbrdExtCalUserFreqB, false>, Conversion::None),
    table<HwDatablockMbrdExtCalUserDataA>("HwDatablockMbrdExtCalUserDataA", make<HwDatablockMbrdExtCalUserDataA, false>, Conversion::None),
    table<HwDatablockMbrdExtCalUserDataB>("HwDatablockMbrdExtCalUserDataB", make<HwDatablockMbrdExtCalUserDataB, false>, Conversion::None),
    record<HwDatablockSynexOcxoRefCalValue>("HwDatablockSynexOcxoRefCalValue"),
    record<HwDatablockFsynTcxoRefCalValue>("HwDatablockFsynTcxoRefCalValue"),
    record<HwDatablockPimOcxoRefCalValue>("HwDatablockPimOcxoRefCalValue"),
    record<HwDatablockDetLimiterMaxVoltFreq>("HwDatablockDetLimiterMaxVoltFreq"),
    record<HwDatablockDetLimiterMaxVoltData>("HwDatablockDetLimiterMaxVoltData"),
    table<MiscDataKinds::PimTemperature>("HwDatablockTemplate", makeMiscData<MiscDataKinds::PimTemperature>, Conversion::None),
    table<MiscDataKinds::PimTempcorrLevel>("HwDatablockTemplate", makeMiscData<MiscDataKinds::PimTempcorrLevel>, Conversion::None),
    table<MiscDataKinds::DetDiffTemperature>("HwDatablockTemplate", makeMiscData<MiscDataKinds::DetDiffTemperature>, Conversion::None),
    table<MiscDataKinds::DetTempcorrLowFreq>("HwDatablockTemplate", makeMiscData<MiscDataKinds::DetTempcorrLowFreq>, Conversion::None),
    table<MiscDataKinds::DetTempcorrHighFreq>("HwDatablockTemplate", makeMiscData<MiscDataKinds::DetTempcorrHighFreq>, Conversion::None),
    table<MiscDataKinds::DetTempcorrMinFreqValues>("HwDatablockTemplate", makeMiscData<MiscDataKinds::DetTempcorrMinFreqValues>, Conversion::None),
    table<MiscDataKinds::DetTempcorrMaxFreqValues>("HwDatablockTemplate", makeMiscData<MiscDataKinds::DetTempcorrMaxFreqValues>, Conversion::None),
    record<HwDatablockAduLevCoarseCalibData>("HwDatablockAduLevCoarseCalibData"),
    record<HwDatablockAduGainOffsetCalData>("HwDatablockAduGainOffsetCalData"),
    table<HwDatablockStereocoderCo>("HwDatablockStereocoderCo", make<HwDatablockStereocoderCo, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtInGain>("HwDatablockQelRfboExtInGain", make<HwDatablockQelRfboExtInGain, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtInOffset>("HwDatablockQelRfboExtInOffset", make<HwDatablockQelRfboExtInOffset, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboDetTuneFreq>("HwDatablockQelRfboDetTuneFreq", make<HwDatablockQelRfboDetTuneFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboDetTuneData>("HwDatablockQelRfboDetTuneData", make<HwDatablockQelRfboDetTuneData, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboTcxoCal>("HwDatablockQelRfboTcxoCal", make<HwDatablockQelRfboTcxoCal, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboRfLevelMaxFreq>("HwDatablockQelRfboRfLevelMaxFreq", make<HwDatablockQelRfboRfLevelMaxFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboRfLevelMaxData>("HwDatablockQelRfboRfLevelMaxData", make<HwDatablockQelRfboRfLevelMaxData, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttCalFreq>("HwDatablockQelRfboAttCalFreq", make<HwDatablockQelRfboAttCalFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttCalData>("HwDatablockQelRfboAttCalData", make<HwDatablockQelRfboAttCalData, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalFreq>("HwDatablockQelRfboExtCalFreq", make<HwDatablockQelRfboExtCalFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalData>("HwDatablockQelRfboExtCalData", make<HwDatablockQelRfboExtCalData, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboAlcFreq>("HwDatablockQelRfboAlcFreq", make<HwDatablockQelRfboAlcFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboAlcData>("HwDatablockQelRfboAlcData", make<HwDatablockQelRfboAlcData, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempFreq>("HwDatablockQelRfboTempFreq", make<HwDatablockQelRfboTempFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempGradient>("HwDatablockQelRfboTempGradient", make<HwDatablockQelRfboTempGradient, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempOffset>("HwDatablockQelRfboTempOffset", make<HwDatablockQelRfboTempOffset, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttRegData>("HwDatablockQelRfboAttRegData", make<HwDatablockQelRfboAttRegData, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboSHFreq>("HwDatablockQelRfboSHFreq", make<HwDatablockQelRfboSHFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboSHData>("HwDatablockQelRfboSHData", make<HwDatablockQelRfboSHData, false>, Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttCalFreq>("HwDatablockLornRfboAttCalFreq", make<HwDatablockLornRfboAttCalFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttCalData>("HwDatablockLornRfboAttCalData", make<HwDatablockLornRfboAttCalData, false>, Conversion::ClearAlignment),
    table<HwDatablockLornRfboTempCompFreq>("HwDatablockLornRfboTempCompFreq", make<HwDatablockLornRfboTempCompFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockLornRfboTempCompData>("HwDatablockLornRfboTempCompData", make<HwDatablockLornRfboTempCompData, false>, Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttRegAttenuation>("HwDatablockLornRfboAttRegAttenuation", make<HwDatablockLornRfboAttRegAttenuation, false>, Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttRegData>("HwDatablockLornRfboAttRegData", make<HwDatablockLornRfboAttRegData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorRfLevelMaxFreq>("HwDatablockVaskVectorRfLevelMaxFreq", make<HwDatablockVaskVectorRfLevelMaxFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorRfLevelMaxData>("HwDatablockVaskVectorRfLevelMaxData", make<HwDatablockVaskVectorRfLevelMaxData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcFreq>("HwDatablockVaskVectorAlcFreq", make<HwDatablockVaskVectorAlcFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcData>("HwDatablockVaskVectorAlcData", make<HwDatablockVaskVectorAlcData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqNormFreq>("HwDatablockVaskVectorAlcIqNormFreq", make<HwDatablockVaskVectorAlcIqNormFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqNormData>("HwDatablockVaskVectorAlcIqNormData", make<HwDatablockVaskVectorAlcIqNormData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqWideFreq>("HwDatablockVaskVectorAlcIqWideFreq", make<HwDatablockVaskVectorAlcIqWideFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqWideData>("HwDatablockVaskVectorAlcIqWideData", make<HwDatablockVaskVectorAlcIqWideData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfBoExtCalVecFreq>("HwDatablockVaskRfBoExtCalVecFreq", make<HwDatablockVaskRfBoExtCalVecFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfBoExtCalVecData>("HwDatablockVaskRfBoExtCalVecData", make<HwDatablockVaskRfBoExtCalVecData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfboAttCalVecFreq>("HwDatablockVaskRfboAttCalVecFreq", make<HwDatablockVaskRfboAttCalVecFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfboAttCalVecData>("HwDatablockVaskRfboAttCalVecData", make<HwDatablockVaskRfboAttCalVecData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfboRfLevelMaxVecFreq>("HwDatablockVaskRfboRfLevelMaxVecFreq", make<HwDatablockVaskRfboRfLevelMaxVecFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfboRfLevelMaxVecData>("HwDatablockVaskRfboRfLevelMaxVecData", make<HwDatablockVaskRfboRfLevelMaxVecData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTemp>("HwDatablockVaskVectorLevconTemp", make<HwDatablockVaskVectorLevconTemp, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTempFreq>("HwDatablockVaskVectorLevconTempFreq", make<HwDatablockVaskVectorLevconTempFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTempLevcon>("HwDatablockVaskVectorLevconTempLevcon", make<HwDatablockVaskVectorLevconTempLevcon, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalUserFreq>("HwDatablockQelRfboExtCalUserFreq", make<HwDatablockQelRfboExtCalUserFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalUserData>("HwDatablockQelRfboExtCalUserData", make<HwDatablockQelRfboExtCalUserData, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfboExtCalVecUserFreq>("HwDatablockVaskRfboExtCalVecUserFreq", make<HwDatablockVaskRfboExtCalVecUserFreq, false>, Conversion::ClearAlignment),
    table<HwDatablockVaskRfboExtCalVecUserData>("HwDatablockVaskRfboExtCalVecUserData", make<HwDatablockVaskRfboExtCalVecUserData, false>, Conversion::ClearAlignment),
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
    tables<HwDatablockObelWiqRfImbalanceData>("HwDatablockObelWiqRfImbalanceData", wiqImbalanceKeys, makeNumbered<HwDatablockObelWiqRfImbalanceData>, Conversion::None),
    record<HwDatablockObelWiqSensorData>("HwDatablockObelWiqSensorData"),
    record<HwDatablockObelWIQQuadDac>("HwDatablockObelWIQQuadDac"),
    tables<HwDatablockVaskVectorLevconTempData>("HwDatablockVaskVectorLevconTempData", levconTempKeys, makeNumbered<HwDatablockVaskVectorLevconTempData>, Conversion::ClearAlignment),
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
