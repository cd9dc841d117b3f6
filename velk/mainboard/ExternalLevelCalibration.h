#pragma once

#include "velk/layer/HwCountedBlock.h"
#include "velk/layer/HwGridBlock.h"
#include "velk/layer/HwInstance.h"

namespace Velk {

/// The frequency grid of a path's external level calibration. Presented values are ten times the stored ones; of two
/// equal neighbours, the second is presented 0.01 higher.
template <class Record>
class VELK_EXPORT HwPathFrequencyList : public HwSpreadFrequencyList<HwInstance<HwCountedBlock<Record>>> {
 public:
  /// Sets a value, in stored units.
  void setFrequencyValue(unsigned int value, unsigned int index) { this->setValue(value, index); }

 protected:
  using HwSpreadFrequencyList<HwInstance<HwCountedBlock<Record>>>::HwSpreadFrequencyList;

  static constexpr ListTraits frequencyTraits(RecordTraits traits) {
    traits.comments = {"# Das sind die Frequenzst�tzstellen"};
    return HwPathFrequencyList::template listTraits<"", 10>(traits, {.decimals = 2, .twinStep = 0.01});
  }
};

using HwSDatablockMbrdExtLevCalDataFreq = CountedRecord<unsigned int, unsigned int, 260>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalDataFreq) == 1052);

class VELK_EXPORT HwDatablockMbrdExtLevCalDataFreq : public HwPathFrequencyList<HwSDatablockMbrdExtLevCalDataFreq> {
 public:
  static constexpr ListTraits traits = frequencyTraits({
      .id = 12050,
      .refusal = "HwDatablockMbrdExtLevCalDataFreq",
      .keys = {"EXT_CAL_DAT_A_FREQ", "EXT_CAL_DAT_B_FREQ", "EXT_CAL_DAT_C_FREQ", "EXT_CAL_DAT_D_FREQ"},
  });

  HwDatablockMbrdExtLevCalDataFreq(int path, bool stopConversionOnError)
      : HwPathFrequencyList(traits, path, stopConversionOnError) {}
};

using HwSDatablockMbrdExtLevCalDataFreq_Enh = CountedRecord<unsigned int, unsigned int, 500>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalDataFreq_Enh) == 2012);

class VELK_EXPORT HwDatablockMbrdExtLevCalDataFreq_Enh
    : public HwPathFrequencyList<HwSDatablockMbrdExtLevCalDataFreq_Enh> {
 public:
  static constexpr ListTraits traits = frequencyTraits({
      .id = 12070,
      .refusal = "HwDatablockMbrdExtLevCalDataFreq_Enh",
      .keys = {"EXT_CAL_DAT_A_FREQ_ENH", "EXT_CAL_DAT_B_FREQ_ENH"},
      .alsoKeys = {.firstId = 12050, .keys = {"EXT_CAL_DAT_A_FREQ", "EXT_CAL_DAT_B_FREQ"}},
  });

  HwDatablockMbrdExtLevCalDataFreq_Enh(int path, bool stopConversionOnError)
      : HwPathFrequencyList(traits, path, stopConversionOnError) {}
};

using HwSDatablockMbrdExtLevCalDataFreq2Edition = CountedRecord<unsigned int, unsigned int, 260>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalDataFreq2Edition) == 1052);

class VELK_EXPORT HwDatablockMbrdExtLevCalDataFreq2Edition
    : public HwPathFrequencyList<HwSDatablockMbrdExtLevCalDataFreq2Edition> {
 public:
  static constexpr ListTraits traits = frequencyTraits({
      .id = 12150,
      .refusal = "HwDatablockMbrdExtLevCalDataFreq2Edition",
      .keys = {"EXT_CAL_DAT_A_FREQ_2_EDITION", "EXT_CAL_DAT_B_FREQ_2_EDITION", "EXT_CAL_DAT_C_FREQ_2_EDITION",
               "EXT_CAL_DAT_D_FREQ_2_EDITION"},
  });

  HwDatablockMbrdExtLevCalDataFreq2Edition(int path, bool stopConversionOnError)
      : HwPathFrequencyList(traits, path, stopConversionOnError) {}
};

using HwSDatablockMbrdExtLevCalDataFreq2Edition_Enh = CountedRecord<unsigned int, unsigned int, 500>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalDataFreq2Edition_Enh) == 2012);

class VELK_EXPORT HwDatablockMbrdExtLevCalDataFreq2Edition_Enh
    : public HwPathFrequencyList<HwSDatablockMbrdExtLevCalDataFreq2Edition_Enh> {
 public:
  static constexpr ListTraits traits = frequencyTraits({
      .id = 12090,
      .refusal = "HwDatablockMbrdExtLevCalDataFreq2Edition_Enh",
      .keys = {"EXT_CAL_DAT_A_FREQ_2_EDITION_ENH", "EXT_CAL_DAT_B_FREQ_2_EDITION_ENH"},
      .alsoKeys = {.firstId = 12150, .keys = {"EXT_CAL_DAT_A_FREQ_2_EDITION", "EXT_CAL_DAT_B_FREQ_2_EDITION"}},
  });

  HwDatablockMbrdExtLevCalDataFreq2Edition_Enh(int path, bool stopConversionOnError)
      : HwPathFrequencyList(traits, path, stopConversionOnError) {}
};

/// The level corrections of a path's external level calibration: a row for each level step and a column for each
/// frequency.
template <class Record>
class VELK_EXPORT HwPathLevelTable : public HwInstance<HwGridBlock<Record>> {
 public:
  unsigned int getNumberOfLevelSteps() const { return this->count(); }
  void setNumberOfLevelSteps(unsigned short n) { this->setGridCount(n); }
  /// Returns 0 outside the table.
  short getCorLevelValue(unsigned char level, unsigned int frequencyIndex) const {
    return this->cell(level, frequencyIndex);
  }
  void setCorLevelValue(short value, unsigned char level, unsigned int frequencyIndex) {
    this->setCell(value, level, frequencyIndex);
  }

 protected:
  using HwInstance<HwGridBlock<Record>>::HwInstance;

  static constexpr GridTraits levelTraits(const RecordTraits& traits) {
    return HwPathLevelTable::gridTraits(traits, {.countJoint = " *", .countWord = "LEVEL", .firstRow = 0});
  }
};

using HwSDatablockMbrdExtLevCalData = GridRecord<short, 7, 260>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalData) == 3652);

class VELK_EXPORT HwDatablockMbrdExtLevCalData : public HwPathLevelTable<HwSDatablockMbrdExtLevCalData> {
 public:
  static constexpr GridTraits traits = levelTraits({
      .id = 12060,
      .refusal = "HwSDatablockMbrdExtLevCalData",
      .keys = {"EXT_CAL_DAT_A_LEVEL", "EXT_CAL_DAT_B_LEVEL", "EXT_CAL_DAT_C_LEVEL", "EXT_CAL_DAT_D_LEVEL"},
      .comments = {"# Das sind die Externen Kalibrierdaten "},
  });

  HwDatablockMbrdExtLevCalData(int path, bool stopConversionOnError)
      : HwPathLevelTable(traits, path, stopConversionOnError) {}
};

using HwSDatablockMbrdExtLevCalData_Enh = GridRecord<short, 7, 500>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalData_Enh) == 7012);

class VELK_EXPORT HwDatablockMbrdExtLevCalData_Enh : public HwPathLevelTable<HwSDatablockMbrdExtLevCalData_Enh> {
 public:
  static constexpr GridTraits traits = levelTraits({
      .id = 12080,
      .refusal = "HwSDatablockMbrdExtLevCalData_Enh",
      .keys = {"EXT_CAL_DAT_A_LEVEL_ENH", "EXT_CAL_DAT_B_LEVEL_ENH"},
      .alsoKeys = {.firstId = 12060, .keys = {"EXT_CAL_DAT_A_LEVEL", "EXT_CAL_DAT_B_LEVEL"}},
      .comments = {"# Das sind die Externen Kalibrierdaten "},
  });

  HwDatablockMbrdExtLevCalData_Enh(int path, bool stopConversionOnError)
      : HwPathLevelTable(traits, path, stopConversionOnError) {}
};

using HwSDatablockMbrdExtLevCalData2Edition = GridRecord<short, 7, 260>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalData2Edition) == 3652);

class VELK_EXPORT HwDatablockMbrdExtLevCalData2Edition
    : public HwPathLevelTable<HwSDatablockMbrdExtLevCalData2Edition> {
 public:
  static constexpr GridTraits traits = levelTraits({
      .id = 12160,
      .refusal = "HwSDatablockMbrdExtLevCalData2Edition",
      .keys = {"EXT_CAL_DAT_A_LEVEL_2_EDITION", "EXT_CAL_DAT_B_LEVEL_2_EDITION", "EXT_CAL_DAT_C_LEVEL_2_EDITION",
               "EXT_CAL_DAT_D_LEVEL_2_EDITION"},
      .comments = {"# Userdaten "},
  });

  HwDatablockMbrdExtLevCalData2Edition(int path, bool stopConversionOnError)
      : HwPathLevelTable(traits, path, stopConversionOnError) {}
};

using HwSDatablockMbrdExtLevCalData2Edition_Enh = GridRecord<short, 13, 500>;
static_assert(sizeof(HwSDatablockMbrdExtLevCalData2Edition_Enh) == 13012);

/// Has one of two sizes; the smaller one ends after seven rows. getBlock() extends its buffer by the others.
class VELK_EXPORT HwDatablockMbrdExtLevCalData2Edition_Enh
    : public HwPathLevelTable<HwSDatablockMbrdExtLevCalData2Edition_Enh> {
 public:
  static constexpr GridTraits traits = levelTraits({
      .id = 12095,
      .refusal = "HwSDatablockMbrdExtLevCalData2Edition_Enh",
      .keys = {"EXT_CAL_DAT_A_LEVEL_2_EDITION_ENH", "EXT_CAL_DAT_B_LEVEL_2_EDITION_ENH"},
      .alsoKeys = {.firstId = 12160, .keys = {"EXT_CAL_DAT_A_LEVEL_2_EDITION", "EXT_CAL_DAT_B_LEVEL_2_EDITION"}},
      .comments = {"# Userdaten "},
  });
  /// The size in bytes of a block with seven rows.
  static constexpr unsigned short smallSize = 7012;

  /// Makes a block with 13 rows if `blockSize` is 13012, and with seven otherwise.
  HwDatablockMbrdExtLevCalData2Edition_Enh(int path, bool stopConversionOnError, int blockSize)
      : HwPathLevelTable(blockSize == traits.size ? traits : smallTraits, path, stopConversionOnError) {}

  short getCorLevelValue(unsigned char level, unsigned int frequencyIndex) const;
  void setCorLevelValue(short value, unsigned char level, unsigned int frequencyIndex);

 private:
  static constexpr unsigned short smallRows = 7;
  bool hasRow(unsigned char level) const { return level < ownTraits().cells().rows; }

  static const std::array<FieldInfo, 2> smallFields;
  static const GridTraits smallTraits;
};

}  // namespace Velk
