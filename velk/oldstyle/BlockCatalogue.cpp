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

/// The names that a row's ids have: those of the traits from the row's first id on.
constexpr std::span<const char* const> keysFrom(const RecordTraits& traits, unsigned short firstId,
                                                unsigned short lastId) {
  const std::size_t count = lastId - firstId + 1U;
  if (firstId == traits.alsoKeys.firstId) return std::span(traits.alsoKeys.keys).first(count);
  const std::span<const char* const> keys(traits.keys);
  const bool single = traits.keys[1] == nullptr;
  return single ? keys.first(1) : keys.subspan(firstId - traits.id, count);
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
constexpr CatalogueRow table(const char* className, Conversion conversion = Conversion::None) {
  return tables<Table>(className, {&Table::traits.key, 1}, make<Table, false>, conversion);
}
template <class Table>
constexpr CatalogueRow flaggedTable(const char* className) {
  return tables<Table>(className, {&Table::traits.key, 1}, make<Table, true>, Conversion::None);
}
template <class Kind>
constexpr CatalogueRow miscData(const char* className) {
  return tables<Kind>(className, {&Kind::traits.key, 1}, makeMiscData<Kind>, Conversion::None);
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
constexpr auto makeService = makeWithId<HwDatablockServiceData, HwEVariantEepromDatablock>;

// Wide on purpose: one row a class, in the order of the ids.
// clang-format off
constexpr CatalogueRow dictionary[] = {
    record<HwDatablockIdent>("HwDatablockIdent", 2, 10, make<HwDatablockIdent>, Conversion::Record),
    record<HwDatablockModification>("HwDatablockModification", Conversion::Record),
    record<HwDatablockModification110>("HwDatablockModification110", Conversion::Record),
    record<HwDatablockModification120>("HwDatablockModification120", 120, 120, make<HwDatablockModification120>, Conversion::Values, {.longer = true}),
    record<HwDatablockServiceData>("HwDatablockServiceData", 200, 209, makeService, Conversion::Record),
    record<HwDatablockServiceData>("HwDatablockServiceData", 299, 299, makeService),
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
    miscData<MiscDataKinds::PimMwifSattCounter>("HwDatablockTemplateWithoutChecksum"),
    flaggedTable<HwDatablockSAttCTempFreq>("HwDatablockSAttCTempFreq"),
    flaggedTable<HwDatablockSAttCTempGradient>("HwDatablockSAttCTempGradient"),
    flaggedTable<HwDatablockSAttCTempOffset>("HwDatablockSAttCTempOffset"),
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
    miscData<MiscDataKinds::LoopgainFreq>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainPk>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainPValueBasePk>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainIValueBasePk>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainIValueOffsetPk>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainPkList>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainPValueBasePkList>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainIValueBasePkList>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LoopgainIValueOffsetPkList>("HwDatablockTemplate"),
    miscData<MiscDataKinds::PimDconVtrimValue>("HwDatablockTemplate"),
    miscData<MiscDataKinds::PimDconLevelpre2>("HwDatablockTemplate"),
    miscData<MiscDataKinds::KivFreqcntrTcxoRefCalValue>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LimiterFrequencyNodeGhz>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LimiterMaxVoltage>("HwDatablockTemplate"),
    miscData<MiscDataKinds::LimiterMaxVoltagePumOn>("HwDatablockTemplate"),
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
    table<HwDatablockMbrdIqInputB>("HwDatablockMbrdIqInputB"),
    table<HwDatablockMbrdExtCalUserFreqA>("HwDatablockMbrdExtCalUserFreqA"),
    table<HwDatablockMbrdExtCalUserFreqB>("HwDatablockMbrdExtCalUserFreqB"),
    table<HwDatablockMbrdExtCalUserDataA>("HwDatablockMbrdExtCalUserDataA"),
    table<HwDatablockMbrdExtCalUserDataB>("HwDatablockMbrdExtCalUserDataB"),
    record<HwDatablockSynexOcxoRefCalValue>("HwDatablockSynexOcxoRefCalValue"),
    record<HwDatablockFsynTcxoRefCalValue>("HwDatablockFsynTcxoRefCalValue"),
    record<HwDatablockPimOcxoRefCalValue>("HwDatablockPimOcxoRefCalValue"),
    record<HwDatablockDetLimiterMaxVoltFreq>("HwDatablockDetLimiterMaxVoltFreq"),
    record<HwDatablockDetLimiterMaxVoltData>("HwDatablockDetLimiterMaxVoltData"),
    miscData<MiscDataKinds::PimTemperature>("HwDatablockTemplate"),
    miscData<MiscDataKinds::PimTempcorrLevel>("HwDatablockTemplate"),
    miscData<MiscDataKinds::DetDiffTemperature>("HwDatablockTemplate"),
    miscData<MiscDataKinds::DetTempcorrLowFreq>("HwDatablockTemplate"),
    miscData<MiscDataKinds::DetTempcorrHighFreq>("HwDatablockTemplate"),
    miscData<MiscDataKinds::DetTempcorrMinFreqValues>("HwDatablockTemplate"),
    miscData<MiscDataKinds::DetTempcorrMaxFreqValues>("HwDatablockTemplate"),
    record<HwDatablockAduLevCoarseCalibData>("HwDatablockAduLevCoarseCalibData"),
    record<HwDatablockAduGainOffsetCalData>("HwDatablockAduGainOffsetCalData"),
    table<HwDatablockStereocoderCo>("HwDatablockStereocoderCo", Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtInGain>("HwDatablockQelRfboExtInGain", Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtInOffset>("HwDatablockQelRfboExtInOffset", Conversion::ClearAlignment),
    table<HwDatablockQelRfboDetTuneFreq>("HwDatablockQelRfboDetTuneFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboDetTuneData>("HwDatablockQelRfboDetTuneData", Conversion::ClearAlignment),
    table<HwDatablockQelRfboTcxoCal>("HwDatablockQelRfboTcxoCal", Conversion::ClearAlignment),
    table<HwDatablockQelRfboRfLevelMaxFreq>("HwDatablockQelRfboRfLevelMaxFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboRfLevelMaxData>("HwDatablockQelRfboRfLevelMaxData", Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttCalFreq>("HwDatablockQelRfboAttCalFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttCalData>("HwDatablockQelRfboAttCalData", Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalFreq>("HwDatablockQelRfboExtCalFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalData>("HwDatablockQelRfboExtCalData", Conversion::ClearAlignment),
    table<HwDatablockQelRfboAlcFreq>("HwDatablockQelRfboAlcFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboAlcData>("HwDatablockQelRfboAlcData", Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempFreq>("HwDatablockQelRfboTempFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempGradient>("HwDatablockQelRfboTempGradient", Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempOffset>("HwDatablockQelRfboTempOffset", Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttRegData>("HwDatablockQelRfboAttRegData", Conversion::ClearAlignment),
    table<HwDatablockQelRfboSHFreq>("HwDatablockQelRfboSHFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboSHData>("HwDatablockQelRfboSHData", Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttCalFreq>("HwDatablockLornRfboAttCalFreq", Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttCalData>("HwDatablockLornRfboAttCalData", Conversion::ClearAlignment),
    table<HwDatablockLornRfboTempCompFreq>("HwDatablockLornRfboTempCompFreq", Conversion::ClearAlignment),
    table<HwDatablockLornRfboTempCompData>("HwDatablockLornRfboTempCompData", Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttRegAttenuation>("HwDatablockLornRfboAttRegAttenuation", Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttRegData>("HwDatablockLornRfboAttRegData", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorRfLevelMaxFreq>("HwDatablockVaskVectorRfLevelMaxFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorRfLevelMaxData>("HwDatablockVaskVectorRfLevelMaxData", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcFreq>("HwDatablockVaskVectorAlcFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcData>("HwDatablockVaskVectorAlcData", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqNormFreq>("HwDatablockVaskVectorAlcIqNormFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqNormData>("HwDatablockVaskVectorAlcIqNormData", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqWideFreq>("HwDatablockVaskVectorAlcIqWideFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqWideData>("HwDatablockVaskVectorAlcIqWideData", Conversion::ClearAlignment),
    table<HwDatablockVaskRfBoExtCalVecFreq>("HwDatablockVaskRfBoExtCalVecFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskRfBoExtCalVecData>("HwDatablockVaskRfBoExtCalVecData", Conversion::ClearAlignment),
    table<HwDatablockVaskRfboAttCalVecFreq>("HwDatablockVaskRfboAttCalVecFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskRfboAttCalVecData>("HwDatablockVaskRfboAttCalVecData", Conversion::ClearAlignment),
    table<HwDatablockVaskRfboRfLevelMaxVecFreq>("HwDatablockVaskRfboRfLevelMaxVecFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskRfboRfLevelMaxVecData>("HwDatablockVaskRfboRfLevelMaxVecData", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTemp>("HwDatablockVaskVectorLevconTemp", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTempFreq>("HwDatablockVaskVectorLevconTempFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTempLevcon>("HwDatablockVaskVectorLevconTempLevcon", Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalUserFreq>("HwDatablockQelRfboExtCalUserFreq", Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalUserData>("HwDatablockQelRfboExtCalUserData", Conversion::ClearAlignment),
    table<HwDatablockVaskRfboExtCalVecUserFreq>("HwDatablockVaskRfboExtCalVecUserFreq", Conversion::ClearAlignment),
    table<HwDatablockVaskRfboExtCalVecUserData>("HwDatablockVaskRfboExtCalVecUserData", Conversion::ClearAlignment),
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
