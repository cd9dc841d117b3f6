#include "velk/oldstyle/BlockCatalogue.h"

#include <algorithm>
#include <string_view>

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

/// Returns the name of a class in the source, taken from the compiler's name for this function:
/// "... [with Block = Velk::HwDatablockEnd; ...]", "... [Block = Velk::HwDatablockEnd]".
template <class Block>
consteval std::string_view className() {
  std::string_view name = __PRETTY_FUNCTION__;
  name.remove_prefix(name.find("Block = ") + std::string_view("Block = ").size());
  name = name.substr(0, name.find_first_of("<;]"));
  return name.substr(name.rfind(':') + 1);
}
static_assert(className<HwDatablockEnd>() == "HwDatablockEnd");
static_assert(className<MiscDataKinds::LoopgainPk::Block>() == "HwDatablockTemplate");

template <class Block, auto... arguments>
std::unique_ptr<HwDatablock> make(unsigned short /*id*/) {
  return std::make_unique<Block>(arguments...);
}

template <class Block, class Id>
std::unique_ptr<HwDatablock> makeWithId(unsigned short id) {
  return std::make_unique<Block>(static_cast<Id>(id));
}

/// Makes the block of a path or copy, numbered from the first id.
template <class Block, auto... arguments>
std::unique_ptr<HwDatablock> makeInstance(unsigned short id) {
  return std::make_unique<Block>(id - Block::traits.id, arguments...);
}

using Maker = std::unique_ptr<HwDatablock>(unsigned short);

/// Returns the names for the ids of a row: those in the traits from the row's first id on.
constexpr std::span<const char* const> keysFrom(const RecordTraits& traits, unsigned short firstId,
                                                unsigned short lastId) {
  const std::size_t count = lastId - firstId + 1U;
  if (firstId == traits.alsoKeys.firstId) return std::span(traits.alsoKeys.keys).first(count);
  const std::span<const char* const> keys(traits.keys);
  const bool single = traits.keys[1] == nullptr;
  return single ? keys.first(1) : keys.subspan(firstId - traits.id, count);
}

/// Returns the row of a record class.
template <class Block>
constexpr CatalogueRow record(unsigned short firstId, unsigned short lastId, Maker* maker,
                              Conversion conversion = Conversion::None, OtherSizes others = {}) {
  const RecordTraits& traits = Block::traits;
  return {firstId,     lastId, className<Block>(), keysFrom(traits, firstId, lastId),
          traits.size, others, traits.fields,      maker,
          conversion,  &traits};
}

template <class Block>
constexpr CatalogueRow record(Conversion conversion = Conversion::None) {
  return record<Block>(Block::traits.id, Block::traits.id, make<Block>, conversion);
}

/// Returns the row of a class whose constructor takes the flag that stops conversion at an error.
template <class Block>
constexpr CatalogueRow flagged() {
  return record<Block>(Block::traits.id, Block::traits.id, make<Block, true>);
}

/// Returns the row of a class with `count` paths or copies.
template <class Block>
constexpr CatalogueRow paths(int count) {
  const unsigned short first = Block::traits.id;
  return record<Block>(first, static_cast<unsigned short>(first + count - 1), makeInstance<Block, true>);
}

template <class Kind>
std::unique_ptr<HwDatablock> makeMiscData(unsigned short /*id*/) {
  return std::make_unique<typename Kind::Block>(Kind::traits.id, Kind::traits.key, Kind::traits.scale);
}

/// Makes a table with the name that its row has for the id, and numbered from the first id.
template <class Table>
std::unique_ptr<HwDatablock> makeNumbered(unsigned short id) {
  return std::make_unique<Table>(findCatalogueRow(id)->key(id), id - Table::traits.id, false);
}

template <class Table>
constexpr auto tableFields = Table::TableImage::fields(Table::traits.scale);

/// Return the rows of table classes: with one id, or with an id for each of several names. `Block` is the class itself
/// if `Table` only describes it.
template <class Table, class Block = Table>
constexpr CatalogueRow tables(std::span<const char* const> keys, Maker* maker, Conversion conversion) {
  constexpr unsigned short firstId = Table::traits.id;
  const auto lastId = static_cast<unsigned short>(firstId + keys.size() - 1);
  return {
      firstId,    lastId, className<Block>(), keys, sizeof(typename Table::TableImage), {}, tableFields<Table>, maker,
      conversion, nullptr};
}
template <class Table>
constexpr CatalogueRow table(Conversion conversion = Conversion::None) {
  return tables<Table>({&Table::traits.key, 1}, make<Table, false>, conversion);
}
template <class Table>
constexpr CatalogueRow flaggedTable() {
  return tables<Table>({&Table::traits.key, 1}, make<Table, true>, Conversion::None);
}
template <class Kind>
constexpr CatalogueRow miscData() {
  return tables<Kind, typename Kind::Block>({&Kind::traits.key, 1}, makeMiscData<Kind>, Conversion::None);
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

// Wide on purpose: one line per class, in the order of the ids.
// clang-format off
constexpr CatalogueRow dictionary[] = {
    record<HwDatablockIdent>(2, 10, make<HwDatablockIdent>, Conversion::Record),
    record<HwDatablockModification>(Conversion::Record),
    record<HwDatablockModification110>(Conversion::Record),
    record<HwDatablockModification120>(120, 120, make<HwDatablockModification120>, Conversion::Values, {.longer = true}),
    record<HwDatablockServiceData>(200, 209, makeService, Conversion::Record),
    record<HwDatablockServiceData>(299, 299, makeService),
    record<HwDatablockStatistic>(Conversion::Record),
    record<HwDatablockSsynOcxoRefCalValue>(),
    record<HwDatablockSsynOpuDblCoefficient>(),
    record<HwDatablockSsynOpuLevelFreq>(),
    record<HwDatablockSsynOpuLevel>(),
    record<HwDatablockIqOp3RfmHarmonic>(),
    record<HwDatablockIqOp3RfmCalibDataMisc>(),
    record<HwDatablockIqOp3RfmCalibDataFreq>(),
    record<HwDatablockIqOp3RfmCalibData>(10303, 10314, make<HwDatablockIqOp3RfmCalibData>),
    record<HwDatablockIqOp3RfmCalibDataMiscV20>(),
    record<HwDatablockIqOp3RfmCalibDataV20>(),
    record<HwDatablockCwOp3AmGainFreq>(),
    record<HwDatablockCwOp3AmGainData>(),
    record<HwDatablockCwop6VcoIdent>(),
    record<HwDatablockMiscIdent>(10503, 10504, makeWithId<HwDatablockMiscIdent, HwEVariantEepromDatablock>),
    record<HwDatablockSAtt3CalibDataFreq>(),
    record<HwDatablockSAtt3CalibDataAtt>(),
    record<HwDatablockSAtt3CalibDataTemp>(),
    record<HwDatablockSAtt3OWLDCounter>(10604, 10605, makeInstance<HwDatablockSAtt3OWLDCounter>),
    record<HwDatablockIqOp6PmaxBz>(),
    record<HwDatablockIqOp6CalibDataFreq>(),
    record<HwDatablockIqOp6CalibData>(),
    record<HwDatablockSAtt6CalibDataAtt>(),
    record<HwDatablockSAtt6CalibDataFreq>(),
    record<HwDatablockSAtt6CalibDataTemp>(),
    record<HwDatablockSAtt6OWLDCounter>(11203, 11204, makeInstance<HwDatablockSAtt6OWLDCounter>),
    record<HwDatablockSAttCCounter>(11300, 11303, makeWithId<HwDatablockSAttCCounter, int>),
    miscData<MiscDataKinds::PimMwifSattCounter>(),
    flaggedTable<HwDatablockSAttCTempFreq>(),
    flaggedTable<HwDatablockSAttCTempGradient>(),
    flaggedTable<HwDatablockSAttCTempOffset>(),
    record<HwDatablockCommonStatisticData>(11310, 11313, makeWithId<HwDatablockCommonStatisticData, int>, Conversion::ClearAlignment),
    record<HwDatablockMbrdSerialNumber>(Conversion::Record),
    record<HwDatablockMbrdModel>(Conversion::Record),
    record<HwDatablockMbrdMac>(),
    flagged<HwDatablockPimMwIfExtLevCalDataFreq>(),
    flagged<HwDatablockPimMwIfExtLevCalData>(),
    flagged<HwDatablockPimMwIfExtLevCalDataAbsCorr>(),
    flagged<HwDatablockPimMwIfExtLevCalDataRelCorr>(),
    flagged<HwDatablockPimAttCalDatFreq>(),
    flagged<HwDatablockPimAttCalDat>(),
    flagged<HwDatablockPimAttCalDatFreqSe>(),
    flagged<HwDatablockPimAttCalDatSe>(),
    paths<HwDatablockMbrdExtLevCalDataFreq>(4),
    paths<HwDatablockMbrdExtLevCalData>(4),
    paths<HwDatablockMbrdExtLevCalDataFreq_Enh>(2),
    paths<HwDatablockMbrdExtLevCalData_Enh>(2),
    paths<HwDatablockMbrdExtLevCalDataFreq2Edition_Enh>(2),
    record<HwDatablockMbrdExtLevCalData2Edition_Enh>(12095, 12096, makeInstance<HwDatablockMbrdExtLevCalData2Edition_Enh, true, 13012>, Conversion::None, {.also = HwDatablockMbrdExtLevCalData2Edition_Enh::smallSize}),
    paths<HwDatablockMbrdIqImbalanceRfFreq>(4),
    paths<HwDatablockMbrdIqImbalanceRfEvenAmp>(4),
    paths<HwDatablockMbrdIqImbalanceRfEvenPh>(4),
    paths<HwDatablockMbrdIqImbalanceRfOddAmp>(4),
    paths<HwDatablockMbrdIqImbalanceRfOddPh>(4),
    paths<HwDatablockMbrdExtLevCalDataFreq2Edition>(4),
    paths<HwDatablockMbrdExtLevCalData2Edition>(4),
    paths<HwDatablockAttCalDataFreq2Edition>(4),
    paths<HwDatablockAttCalData2Edition>(4),
    paths<HwDatablockCwop3DetTuneFreq>(4),
    paths<HwDatablockCwop3DetTuneDac>(4),
    paths<HwDatablockMbrdRfResponseLpFreq>(4),
    paths<HwDatablockMbrdRfResponseIoPepInfo>(4),
    paths<HwDatablockMbrdRfResponseLpAmp>(4),
    paths<HwDatablockMbrdRfResponseLpPh>(4),
    paths<HwDatablockMbrdRfResponseBbFreq>(4),
    paths<HwDatablockMbrdRfResponseAttFreq>(4),
    paths<HwDatablockMbrdRfResponseAttAmpl>(4),
    record<HwDatablockSittMbrdPllDacCalibValue>(),
    paths<HwDatablockCwopDetLinCorrFreq>(2),
    paths<HwDatablockCwopDetLinCorrData>(2),
    miscData<MiscDataKinds::LoopgainFreq>(),
    miscData<MiscDataKinds::LoopgainPk>(),
    miscData<MiscDataKinds::LoopgainPValueBasePk>(),
    miscData<MiscDataKinds::LoopgainIValueBasePk>(),
    miscData<MiscDataKinds::LoopgainIValueOffsetPk>(),
    miscData<MiscDataKinds::LoopgainPkList>(),
    miscData<MiscDataKinds::LoopgainPValueBasePkList>(),
    miscData<MiscDataKinds::LoopgainIValueBasePkList>(),
    miscData<MiscDataKinds::LoopgainIValueOffsetPkList>(),
    miscData<MiscDataKinds::PimDconVtrimValue>(),
    miscData<MiscDataKinds::PimDconLevelpre2>(),
    miscData<MiscDataKinds::KivFreqcntrTcxoRefCalValue>(),
    miscData<MiscDataKinds::LimiterFrequencyNodeGhz>(),
    miscData<MiscDataKinds::LimiterMaxVoltage>(),
    miscData<MiscDataKinds::LimiterMaxVoltagePumOn>(),
    record<HwDatablockDacIfFullScale>(),
    flagged<HwDatablockBbinsCompFilterTabsI>(),
    flagged<HwDatablockBbinsCompFilterTabsQ>(),
    flagged<HwDatablockBbinsUncalibratedFirAmplitudeI>(),
    flagged<HwDatablockBbinsUncalibratedFirPhiI>(),
    flagged<HwDatablockBbinsUncalibratedFirAmplitudeQ>(),
    flagged<HwDatablockBbinsUncalibratedFirPhiQ>(),
    flagged<HwDatablockDacbFrequencyCompFreq>(),
    flagged<HwDatablockDacbFrequencyCompAmp>(),
    flagged<HwDatablockDacbFrequencyCompPh>(),
    flagged<HwDatablockDacbFrequencyCompDt>(),
    flagged<HwDatablockDacbIqImbalanceFreq>(),
    flagged<HwDatablockDacbIqImbalanceAmp>(),
    flagged<HwDatablockDacbIqImbalancePh>(),
    flagged<HwDatablockDacbIqImbalanceSwapAmp>(),
    flagged<HwDatablockDacbIqImbalanceSwapPh>(),
    flagged<HwDatablockDacbFrequencyCompAmpRear>(),
    flagged<HwDatablockDacbFrequencyCompPhRear>(),
    flagged<HwDatablockDacbFrequencyCompDtRear>(),
    flagged<HwDatablockDacbIqImbalanceRearAmp>(),
    flagged<HwDatablockDacbIqImbalanceRearPh>(),
    record<HwDatablockDacbIqImbalanceRearPh>(14801, 14801, make<HwDatablockDacbIqImbalanceRearPh, false>),
    table<HwDatablockMbrdIqInputB>(),
    table<HwDatablockMbrdExtCalUserFreqA>(),
    table<HwDatablockMbrdExtCalUserFreqB>(),
    table<HwDatablockMbrdExtCalUserDataA>(),
    table<HwDatablockMbrdExtCalUserDataB>(),
    record<HwDatablockSynexOcxoRefCalValue>(),
    record<HwDatablockFsynTcxoRefCalValue>(),
    record<HwDatablockPimOcxoRefCalValue>(),
    record<HwDatablockDetLimiterMaxVoltFreq>(),
    record<HwDatablockDetLimiterMaxVoltData>(),
    miscData<MiscDataKinds::PimTemperature>(),
    miscData<MiscDataKinds::PimTempcorrLevel>(),
    miscData<MiscDataKinds::DetDiffTemperature>(),
    miscData<MiscDataKinds::DetTempcorrLowFreq>(),
    miscData<MiscDataKinds::DetTempcorrHighFreq>(),
    miscData<MiscDataKinds::DetTempcorrMinFreqValues>(),
    miscData<MiscDataKinds::DetTempcorrMaxFreqValues>(),
    record<HwDatablockAduLevCoarseCalibData>(),
    record<HwDatablockAduGainOffsetCalData>(),
    table<HwDatablockStereocoderCo>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtInGain>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtInOffset>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboDetTuneFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboDetTuneData>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboTcxoCal>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboRfLevelMaxFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboRfLevelMaxData>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttCalFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttCalData>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalData>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboAlcFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboAlcData>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempGradient>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboTempOffset>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboAttRegData>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboSHFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboSHData>(Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttCalFreq>(Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttCalData>(Conversion::ClearAlignment),
    table<HwDatablockLornRfboTempCompFreq>(Conversion::ClearAlignment),
    table<HwDatablockLornRfboTempCompData>(Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttRegAttenuation>(Conversion::ClearAlignment),
    table<HwDatablockLornRfboAttRegData>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorRfLevelMaxFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorRfLevelMaxData>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcData>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqNormFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqNormData>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqWideFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorAlcIqWideData>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfBoExtCalVecFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfBoExtCalVecData>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfboAttCalVecFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfboAttCalVecData>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfboRfLevelMaxVecFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfboRfLevelMaxVecData>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTemp>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTempFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskVectorLevconTempLevcon>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalUserFreq>(Conversion::ClearAlignment),
    table<HwDatablockQelRfboExtCalUserData>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfboExtCalVecUserFreq>(Conversion::ClearAlignment),
    table<HwDatablockVaskRfboExtCalVecUserData>(Conversion::ClearAlignment),
    {65535, 65535, className<HwDatablockEnd>(), endKeys, sizeof(HwSDatablockEnd), {}, endFields, make<HwDatablockEnd>, Conversion::None, nullptr},
};

constexpr CatalogueRow others[] = {
    record<HwDatablockIpcUser10000>(),
    record<HwDatablockIpcUser10040>(),
    table<HwDatablockMbrdIqInputA>(),
    record<HwObelDatablockAnalogOutputCalibration>(15500, 15501, makeInstance<HwObelDatablockAnalogOutputCalibration, false>),
    record<HwDatablockOBELDelay>(),
    flagged<HwDatablockObelAnalogImbalanceFreq>(),
    flagged<HwDatablockObelAnalogImbalanceGainI>(),
    flagged<HwDatablockObelAnalogImbalanceGainQ>(),
    flagged<HwDatablockObelAnalogImbalancePhI>(),
    flagged<HwDatablockObelAnalogImbalancePhQ>(),
    record<HwDatablockObelBaseboardCalibValue>(),
    tables<HwDatablockObelWiqRfImbalanceData>(wiqImbalanceKeys, makeNumbered<HwDatablockObelWiqRfImbalanceData>, Conversion::None),
    record<HwDatablockObelWiqSensorData>(),
    record<HwDatablockObelWIQQuadDac>(),
    tables<HwDatablockVaskVectorLevconTempData>(levconTempKeys, makeNumbered<HwDatablockVaskVectorLevconTempData>, Conversion::ClearAlignment),
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

constexpr bool haveTheirCounters(std::span<const CatalogueRow> rows) {
  return std::ranges::all_of(rows, [](const CatalogueRow& row) { return detail::hasItsCounters(row.fields); });
}
static_assert(haveTheirCounters(dictionary) && haveTheirCounters(others),
              "what counts the elements of a field is a whole number of the same record");

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
