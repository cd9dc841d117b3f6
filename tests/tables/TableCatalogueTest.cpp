#include "TestSupport.h"
#include "velk/oldstyle/BlockCatalogue.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"
#include "velk/tables/MbrdTables.h"
#include "velk/tables/ObelWiqTables.h"
#include "velk/tables/VaskTables.h"

namespace Velk {
namespace {

const FieldInfo& fieldNamedAtRun(std::span<const FieldInfo> fields, std::string_view name) {
  return *std::ranges::find(fields, name, [](const FieldInfo& field) { return std::string_view(field.name); });
}

struct Expected {
  unsigned short id;
  unsigned short size;
  double scale;
  unsigned rows;
  unsigned cols;
  const char* key;
};

// clang-format off
constexpr Expected expectedTables[] = {
    {11304, 2064, 1.0, 1, 2048, "PIM_MWIF_SATT_COUNTER"},
    {11305, 216, 100.0, 50, 1, "SATT_TEMP_FREQ"},
    {11306, 816, 1.0, 4, 50, "SATT_TEMP_GRADIENT"},
    {11307, 816, 1.0, 4, 50, "SATT_TEMP_OFFSET"},
    {12300, 816, 0.01, 200, 1, "LOOPGAIN_FREQ"},
    {12301, 816, 1000.0, 1, 200, "LOOPGAIN_PK"},
    {12302, 816, 1000.0, 1, 200, "LOOPGAIN_P_VALUE_BASE_PK"},
    {12303, 816, 1000.0, 1, 200, "LOOPGAIN_I_VALUE_BASE_PK"},
    {12304, 816, 1.0, 1, 200, "LOOPGAIN_I_VALUE_OFFSET_PK"},
    {12305, 216, 1.0, 50, 1, "LOOPGAIN_PK_LIST"},
    {12306, 40016, 1000.0, 50, 200, "LOOPGAIN_P_VALUE_BASE_PK_LIST"},
    {12307, 40016, 1000.0, 50, 200, "LOOPGAIN_I_VALUE_BASE_PK_LIST"},
    {12308, 40016, 1.0, 50, 200, "LOOPGAIN_I_VALUE_OFFSET_PK_LIST"},
    {12310, 56, 1.0, 10, 1, "PIM_DCON_VTRIM_VALUE"},
    {12311, 20, 1.0, 1, 1, "PIM_DCON_LEVELPRE2"},
    {12312, 56, 1.0, 10, 1, "KIV_FREQCNTR_TCXO_REF_CAL_VALUE"},
    {12313, 416, 0.00001, 100, 1, "LIMITER_FREQUENCY_NODE_GHZ"},
    {12314, 416, 0.00001, 100, 1, "LIMITER_MAX_VOLTAGE"},
    {12315, 416, 0.00001, 100, 1, "LIMITER_MAX_VOLTAGE_PUM_ON"},
    {14802, 56, 1.0, 10, 1, "IQ_INPUT_B"},
    {14803, 2416, 100.0, 600, 1, "EXT_CAL_USER_FREQ_A"},
    {14804, 2416, 100.0, 600, 1, "EXT_CAL_USER_FREQ_B"},
    {14805, 15776, 1.0, 13, 600, "EXT_CAL_USER_DATA_A"},
    {14806, 15776, 1.0, 13, 600, "EXT_CAL_USER_DATA_B"},
    {15022, 56, 100.0, 10, 1, "PIM_TEMPERATURE"},
    {15023, 56, 0.01, 10, 1, "PIM_TEMPCORR_LEVEL"},
    {15024, 20, 100.0, 1, 1, "DET_DIFF_TEMPERATURE"},
    {15025, 20, 100.0, 1, 1, "DET_TEMPCORR_LOW_FREQ"},
    {15026, 20, 100.0, 1, 1, "DET_TEMPCORR_HIGH_FREQ"},
    {15027, 416, 100.0, 10, 10, "DET_TEMPCORR_MIN_FREQ_VALUES"},
    {15028, 416, 100.0, 10, 10, "DET_TEMPCORR_MAX_FREQ_VALUES"},
    {15606, 1416, 1.0, 50, 7, "WIQ_RF_IMBALANCE_DATA_0"},
    {15690, 28, 1.0, 6, 1, "STEREOCODER_CO"},
    {15700, 56, 1.0, 10, 1, "RFBO_EXTIN_GAIN"},
    {15701, 56, 1.0, 10, 1, "RFBO_EXTIN_OFFSET"},
    {15705, 528, 100.0, 128, 1, "RFBO_DET_TUNE_FREQ"},
    {15706, 1040, 1.0, 2, 128, "RFBO_DET_TUNE_DATA"},
    {15710, 48, 1.0, 8, 1, "RFBO_TCXO_CAL"},
    {15715, 528, 100.0, 128, 1, "RFBO_RFLEVEL_MAX_FREQ"},
    {15716, 1040, 0.01, 2, 128, "RFBO_RFLEVEL_MAX_DATA"},
    {15720, 816, 100.0, 200, 1, "RFBO_ATT_CAL_FREQ"},
    {15721, 21724, 1.0, 27, 200, "RFBO_ATT_CAL_DATA"},
    {15725, 1416, 100.0, 350, 1, "RFBO_EXT_CAL_FREQ"},
    {15726, 7016, 1.0, 5, 350, "RFBO_EXT_CAL_DATA"},
    {15730, 56, 100.0, 10, 1, "RFBO_ALC_FREQ"},
    {15731, 176, 1.0, 4, 10, "RFBO_ALC_DATA"},
    {15735, 216, 100.0, 50, 1, "RFBO_TEMP_FREQ"},
    {15740, 1216, 1.0, 6, 50, "RFBO_TEMP_GRADIENT"},
    {15745, 1216, 1.0, 6, 50, "RFBO_TEMP_OFFSET"},
    {15750, 216, 1.0, 50, 1, "RFBO_ATTREG_DATA"},
    {15755, 616, 10.0, 150, 1, "RFBO_S_H_FREQ"},
    {15756, 21156, 1.0, 35, 150, "RFBO_S_H_DATA"},
    {15760, 1616, 100.0, 200, 1, "BLOCK_LORN_RFBO_ATT_CAL_FREQ"},
    {15761, 32176, 1.0, 40, 200, "BLOCK_LORN_RFBO_ATT_CAL_DATA"},
    {15770, 416, 1.0, 50, 1, "BLOCK_LORN_RFBO_TEMP_COMP_FREQ"},
    {15771, 16336, 1.0, 80, 50, "BLOCK_LORN_RFBO_TEMP_COMP_DATA"},
    {15798, 816, 1.0, 50, 4, "LORN_RFBO_ATTREG_ATTENUATION"},
    {15799, 816, 1.0, 50, 4, "LORN_RFBO_ATTREG_DATA"},
    {15800, 528, 100.0, 128, 1, "VECTOR_RFLEVEL_MAX_FREQ"},
    {15801, 528, 0.01, 1, 128, "VECTOR_RFLEVEL_MAX_DATA"},
    {15810, 144, 100.0, 32, 1, "VECTOR_ALC_FREQ"},
    {15811, 528, 100.0, 4, 32, "VECTOR_ALC_DATA"},
    {15820, 144, 100.0, 32, 1, "VECTOR_ALC_IQNORM_FREQ"},
    {15821, 528, 1.0, 4, 32, "VECTOR_ALC_IQNORM_DATA"},
    {15830, 144, 100.0, 32, 1, "VECTOR_ALC_IQWIDE_FREQ"},
    {15831, 528, 1.0, 4, 32, "VECTOR_ALC_IQWIDE_DATA"},
    {15840, 1184, 100.0, 292, 1, "RFBO_EXT_CAL_VEC_FREQ"},
    {15841, 4688, 1.0, 4, 292, "RFBO_EXT_CAL_VEC_DATA"},
    {15842, 96, 100.0, 20, 1, "RFBO_ATT_CAL_VEC_FREQ"},
    {15843, 2284, 1.0, 27, 20, "RFBO_ATT_CAL_VEC_DATA"},
    {15844, 528, 100.0, 128, 1, "RFBO_RFLEVEL_MAX_VEC_FREQ"},
    {15845, 528, 0.01, 1, 128, "RFBO_RFLEVEL_MAX_VEC_DATA"},
    {15850, 28, 1.0, 12, 1, "VECTOR_LEVCON_TEMP"},
    {15851, 144, 1.0, 64, 1, "VECTOR_LEVCON_TEMP_FREQ"},
    {15852, 116, 1.0, 50, 1, "VECTOR_LEVCON_TEMP_LEVCON"},
    {15853, 6416, 1.0, 64, 50, "VECTOR_LEVCON_TEMP_DATA_0"},
    {16000, 3016, 100.0, 750, 1, "RFBO_EXT_CAL_USER_FREQ"},
    {16001, 15176, 1.0, 5, 750, "RFBO_EXT_CAL_USER_DATA"},
    {16002, 1416, 100.0, 350, 1, "RFBO_EXT_CAL_VEC_USER_FREQ"},
    {16003, 5776, 1.0, 4, 350, "RFBO_EXT_CAL_VEC_USER_DATA"},
};
// clang-format on

std::unique_ptr<HwTableBlock> makeTable(unsigned short id) {
  std::unique_ptr<HwDatablock> block = findCatalogueRow(id)->make(id);
  return std::unique_ptr<HwTableBlock>(&dynamic_cast<HwTableBlock&>(*block.release()));
}

TEST(TableCatalogue, HasEveryTableWithItsIdSizeNameScaleAndCapacity) {
  for (const Expected& expected : expectedTables) {
    SCOPED_TRACE(expected.key);
    const std::unique_ptr<HwTableBlock> table = makeTable(expected.id);
    QByteArray empty(expected.size, '\0');
    detail::store({reinterpret_cast<unsigned char*>(empty.data()), 4}, 0, expected.id);
    detail::store({reinterpret_cast<unsigned char*>(empty.data()), 4}, 2, expected.size);
    EXPECT_EQ(table->getByteArrayData(), empty);
    EXPECT_EQ(table->getBlockString(), expected.key);
    EXPECT_EQ(table->getScale(), expected.scale);
    EXPECT_EQ(table->getRowCapacity(), expected.rows);
    EXPECT_EQ(table->getColCapacity(), expected.cols);
    EXPECT_STREQ(findCatalogueRow(expected.id)->key(expected.id), expected.key);
  }
}

TEST(TableCatalogue, TablesOfRfBoardsConvertAndTheOthersDoNot) {
  constexpr unsigned short firstRfBoardTable = 15690;
  for (const Expected& expected : expectedTables) {
    const std::unique_ptr<HwTableBlock> table = makeTable(expected.id);
    table->setAlignment(7);
    const QByteArray before = table->getByteArrayData();
    const bool converts = expected.id >= firstRfBoardTable;
    EXPECT_EQ(HwDatablockOldStyleInterpreter::swapHwDatablock(PPC_Conform, expected.id, table.get()), converts);
    EXPECT_EQ(table->getDataFormatTyp(), converts ? PPC_Conform : INTEL_Conform);
    EXPECT_EQ(table->getAlignment(), converts ? 0 : 7);
    QByteArray restored = table->getByteArrayData();
    restored.replace(6, 2, before.mid(6, 2));
    EXPECT_EQ(restored, before) << expected.key << ": the checksum and all else stay";
  }
}

TEST(TableCatalogue, OnlyTheDictionaryServesTheInterpreter) {
  HwDatablockOldStyleInterpreter interpreter;
  for (const Expected& expected : expectedTables) {
    const bool callerNamed = std::string(expected.key).ends_with("_0");
    std::ostringstream os;
    EXPECT_EQ(interpreter.printHwDatablockOldStyleInfo(makeTable(expected.id).get(), os), !callerNamed) << expected.id;
    // Generic tables and those of the step attenuator.
    const bool ofMicrowaveModule = expected.id < 14000 || (expected.id >= 15022 && expected.id <= 15028);
    EXPECT_EQ(makeTable(expected.id)->getStopConversionOnError(), ofMicrowaveModule) << expected.id;
  }
}

TEST(TableCatalogue, CallersNameAndNumberSomeTables) {
  HwDatablockObelWiqRfImbalanceData imbalance("PATH_C", 3, true);
  EXPECT_EQ(imbalance.getId(), 15609);
  EXPECT_EQ(imbalance.getBaseId(), 15606U);
  EXPECT_EQ(imbalance.getIdOffset(), 3);
  EXPECT_EQ(imbalance.getBlockString(), "PATH_C");
  EXPECT_TRUE(imbalance.getStopConversionOnError());
  EXPECT_EQ(HwDatablockVaskVectorLevconTempData(nullptr, 65536, false).getId(), 15853) << "an id has 16 bits";
  EXPECT_EQ(HwDatablockMbrdIqInputA(false).getId(), 14801) << "the dictionary has another class for this id";

  HwDatablockBaseTemplate<int, double, 1, 128> levels("LEVELS", 15801, false);
  HwDatablockBaseTemplate<unsigned int, double, 128, 1> points("POINTS", 15800, false);
  levels.setStoredValue(-1234, 0, 0);
  points.setStoredValue(10000000, 0, 0);
  EXPECT_EQ(levels.getValue(0, 0), -12.34);
  EXPECT_EQ(points.getValue(0, 0), 1000000000.0);
}

TEST(TableCatalogue, AccessorsRoundProductsAndFieldsDecimals) {
  HwDatablockVaskVectorRfLevelMaxData levels(false);
  EXPECT_EQ(levels.getScale(), HwDatablockVaskVectorRfLevelMaxData::traits.scale);
  const std::span<const FieldInfo> fields = findCatalogueRow(levels.getId())->fields;
  int differing = 0;
  for (int stored = -1000; stored <= 1000; ++stored) {
    levels.setStoredValue(stored, 0, 0);
    const FieldInfo& cells = fieldNamedAtRun(fields, "cells");
    const double field = std::stod(fieldText({levels.getData(), 528}, {&cells, cells.offset}, ValueForm::Presented));
    EXPECT_EQ(field, stored / 100.0) << "the decimal number that is meant";
    EXPECT_EQ(levels.getValue(0, 0), static_cast<double>(stored * static_cast<long double>(0.01))) << stored;
    if (levels.getValue(0, 0) != field) ++differing;
  }
  levels.setStoredValue(35, 0, 0);
  EXPECT_EQ(levels.getValue(0, 0), 0.35000000000000003);
  EXPECT_GT(differing, 0);
  EXPECT_LT(differing, 500) << "in the last digit, of some values";
}

}  // namespace
}  // namespace Velk
