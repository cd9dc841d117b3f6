#pragma once

#include "velk/layer/HwCountedBlock.h"
#include "velk/layer/HwSingleValueBlock.h"

namespace Velk {

using HwSDatablockPimOcxoRefCalValue = SingleValueRecord;

/// The value that tunes the microwave module's reference oscillator.
class VELK_EXPORT HwDatablockPimOcxoRefCalValue : public HwReferenceOscillatorBlock {
 public:
  static constexpr RecordTraits traits = singleValueTraits(
      {
          .id = 15002,
          .refusal = "HwDatablockPimOcxoRefCalValue",
          .keys = {"PIM_OCXO_REF_CAL_VALUE"},
          .comments = {"#Kalibrierwert f�r den Feinabgleich der OCXO-Frequenz", "# Wertebereich: 0...65535",
                       "# Maximal m�gliche Koefizienten sind mit dieser ID 1"},
      },
      unsignedSingleValueFields);

  HwDatablockPimOcxoRefCalValue() : HwReferenceOscillatorBlock(traits) {}
};

/// A list of frequencies in 100 Hz, presented in Hz. Of two equal neighbours, the second is presented 0.001 higher.
template <class Record>
class VELK_EXPORT HwPimFrequencyList : public HwSpreadFrequencyList<HwCountedBlock<Record>> {
 public:
  /// Sets a frequency in 100 Hz. Updates the checksum if `withChecksum` is set.
  void setFrequencyValue(unsigned int value, unsigned int index, bool withChecksum) {
    this->setValue(value, index, withChecksum);
  }

 protected:
  using HwSpreadFrequencyList<HwCountedBlock<Record>>::HwSpreadFrequencyList;

  static constexpr ListTraits frequencyTraits(unsigned short id, const char* refusal, const char* key) {
    return HwPimFrequencyList::template listTraits<"Hz", 100>(
        {.id = id, .refusal = refusal, .keys = {key}, .comments = {"# Frequenzst�tzstellen [Hz]"}},
        {.decimals = 3, .twinStep = 0.001});
  }
};

using HwSDatablockPimMwIfExtLevCalDataFreq = CountedRecord<unsigned int, unsigned int, 1500>;
static_assert(sizeof(HwSDatablockPimMwIfExtLevCalDataFreq) == 6012);

/// Frequencies of the external level calibration.
class VELK_EXPORT HwDatablockPimMwIfExtLevCalDataFreq
    : public HwPimFrequencyList<HwSDatablockPimMwIfExtLevCalDataFreq> {
 public:
  static constexpr ListTraits traits =
      frequencyTraits(12040, "HwDatablockPimMwIfExtLevCalDataFreq", "LEV_CAL_DAT_FREQ");

  explicit HwDatablockPimMwIfExtLevCalDataFreq(bool stopConversionOnError)
      : HwPimFrequencyList(traits, stopConversionOnError) {}
};

using HwSDatablockPimAttCalDatFreq = CountedRecord<unsigned int, unsigned int, 200>;
static_assert(sizeof(HwSDatablockPimAttCalDatFreq) == 812);

/// Frequencies of the attenuator calibration.
class VELK_EXPORT HwDatablockPimAttCalDatFreq : public HwPimFrequencyList<HwSDatablockPimAttCalDatFreq> {
 public:
  static constexpr ListTraits traits = frequencyTraits(12044, "HwDatablockPimAttCalDatFreq", "ATT_CAL_DAT_FREQ");

  explicit HwDatablockPimAttCalDatFreq(bool stopConversionOnError)
      : HwPimFrequencyList(traits, stopConversionOnError) {}
};

using HwSDatablockPimAttCalDatFreqSe = CountedRecord<unsigned int, unsigned int, 500>;
static_assert(sizeof(HwSDatablockPimAttCalDatFreqSe) == 2012);

/// A longer list of frequencies of the attenuator calibration.
class VELK_EXPORT HwDatablockPimAttCalDatFreqSe : public HwPimFrequencyList<HwSDatablockPimAttCalDatFreqSe> {
 public:
  static constexpr ListTraits traits = frequencyTraits(12046, "HwDatablockPimAttCalDatFreqSe", "ATT_CAL_DAT_FREQ_SE");

  explicit HwDatablockPimAttCalDatFreqSe(bool stopConversionOnError)
      : HwPimFrequencyList(traits, stopConversionOnError) {}
};

using HwSDatablockPimMwIfExtLevCalDataAbsCorr = CountedRecord<unsigned int, short, 1500>;
static_assert(sizeof(HwSDatablockPimMwIfExtLevCalDataAbsCorr) == 3012);

/// Absolute level corrections in 1/100 dB, one for each frequency.
class VELK_EXPORT HwDatablockPimMwIfExtLevCalDataAbsCorr
    : public HwCountedBlock<HwSDatablockPimMwIfExtLevCalDataAbsCorr> {
 public:
  static constexpr ListTraits traits = listTraits<"1/100 dB">({
      .id = 12042,
      .refusal = "HwDatablockPimMwIfExtLevCalDataAbsCorr",
      .keys = {"LEV_CAL_DAT_ABS_CORR"},
      .comments = {"# Korrekturdaten [1/100dB] "},
  });

  explicit HwDatablockPimMwIfExtLevCalDataAbsCorr(bool stopConversionOnError)
      : HwCountedBlock(traits, stopConversionOnError) {}

  unsigned int getNumberOfAbsCorr() const { return count(); }
  void setNumberOfAbsCorr(unsigned int n) { setListCount(n); }
  short getAbsCorrValue(unsigned int index) const { return value(index); }
  /// Updates the checksum if `withChecksum` is set.
  void setAbsCorrValue(short value, unsigned int index, bool withChecksum) { setValue(value, index, withChecksum); }
};

/// Corrections in 1/100 dB: a row for each level step, a column for each frequency.
template <std::size_t N>
struct VELK_RECORD LevelTableRecord {
  HwSDatablockHeader header;
  unsigned int levelSteps;
  unsigned int freqs;
  short cells[20][N];

  bool operator==(const LevelTableRecord&) const = default;
};

template <class Record>
inline constexpr FieldInfo levelTableFields[] = {
    VELK_FIELD(Record, levelSteps),
    VELK_FIELD(Record, freqs),
    VELK_FIELD(Record, cells).in("1/100 dB").counted("levelSteps", "freqs"),
};

namespace detail {
/// Writes the text of a level table: a line for each level step, with as many values as there are frequencies.
VELK_EXPORT std::ostream& printLevelTable(std::ostream& os, ConstBytes block, const RecordTraits& traits);
}  // namespace detail

/// The accessors of level tables. A cell outside the table reads as 0 and is not written; the counts are not checked.
template <class Record>
class VELK_EXPORT HwLevelTable : public HwTypedRecordBlock<Record> {
 public:
  unsigned int getNumberOfLevelSteps() const { return this->get(&Record::levelSteps); }
  void setNumberOfLevelSteps(unsigned short n) { this->set(&Record::levelSteps, n); }
  void setNumberOfFreqs(unsigned short n) { this->set(&Record::freqs, n); }
  short getCorLevelValue(unsigned char level, unsigned int freq) const {
    return this->get(&Record::cells, level, freq);
  }
  /// Updates the checksum if `withChecksum` is set.
  void setCorLevelValue(short value, unsigned char level, unsigned int freq, bool withChecksum) {
    this->set(&Record::cells, value, level, freq, withChecksum);
  }

  std::ostream& printToStream(std::ostream& os) override {
    return detail::printLevelTable(os, this->bytes(), this->ownTraits());
  }

 protected:
  using HwTypedRecordBlock<Record>::HwTypedRecordBlock;

  unsigned int columns() const { return this->get(&Record::freqs); }

  static constexpr RecordTraits levelTraits(unsigned short id, const char* refusal, const char* key,
                                            const char* comment) {
    return HwLevelTable::recordTraits({
        .id = id,
        .refusal = refusal,
        .keys = {key},
        .fields = levelTableFields<Record>,
        .comments = {comment},
    });
  }
};

using HwSDatablockPimMwIfExtLevCalData = LevelTableRecord<1500>;
static_assert(sizeof(HwSDatablockPimMwIfExtLevCalData) == 60016);

/// The levels of the external level calibration.
class VELK_EXPORT HwDatablockPimMwIfExtLevCalData : public HwLevelTable<HwSDatablockPimMwIfExtLevCalData> {
 public:
  static constexpr RecordTraits traits =
      levelTraits(12041, "HwSDatablockPimMwIfExtLevCalData   ", "LEV_CAL_DAT_LEVEL", "# Pegelst�tzstellen [dBm] ");

  explicit HwDatablockPimMwIfExtLevCalData(bool stopConversionOnError) : HwLevelTable(traits, stopConversionOnError) {}

  unsigned int getNumberOfFreqs() const { return columns(); }
};

using HwSDatablockPimMwIfExtLevCalDataRelCorr = LevelTableRecord<1500>;
static_assert(sizeof(HwSDatablockPimMwIfExtLevCalDataRelCorr) == 60016);

/// Relative corrections of the external level calibration.
class VELK_EXPORT HwDatablockPimMwIfExtLevCalDataRelCorr
    : public HwLevelTable<HwSDatablockPimMwIfExtLevCalDataRelCorr> {
 public:
  static constexpr RecordTraits traits = levelTraits(12043, "HwSDatablockPimMwIfExtLevCalDataRelCorr   ",
                                                     "LEV_CAL_DAT_REL_CORR", "# Externe Kalibrierdaten [1/100dBm] ");

  explicit HwDatablockPimMwIfExtLevCalDataRelCorr(bool stopConversionOnError)
      : HwLevelTable(traits, stopConversionOnError) {}

  unsigned int getNumberOfRelCorrValues() const { return columns(); }
};

using HwSDatablockPimAttCalDat = LevelTableRecord<200>;
static_assert(sizeof(HwSDatablockPimAttCalDat) == 8016);

/// Corrections of the attenuator.
class VELK_EXPORT HwDatablockPimAttCalDat : public HwLevelTable<HwSDatablockPimAttCalDat> {
 public:
  static constexpr RecordTraits traits =
      levelTraits(12045, "HwSDatablockPimAttCalDat   ", "ATT_CAL_DAT_CORR", "# Korrekturdaten [1/100dB] ");

  explicit HwDatablockPimAttCalDat(bool stopConversionOnError) : HwLevelTable(traits, stopConversionOnError) {}

  unsigned int getNumberOfFreqs() const { return columns(); }
};

using HwSDatablockPimAttCalDatSe = LevelTableRecord<500>;
static_assert(sizeof(HwSDatablockPimAttCalDatSe) == 20016);

/// Corrections of the attenuator over the longer list of frequencies.
class VELK_EXPORT HwDatablockPimAttCalDatSe : public HwLevelTable<HwSDatablockPimAttCalDatSe> {
 public:
  static constexpr RecordTraits traits =
      levelTraits(12047, "HwSDatablockPimAttCalDatSe   ", "ATT_CAL_DAT_CORR_SE", "# Korrekturdaten [1/100dB] ");

  explicit HwDatablockPimAttCalDatSe(bool stopConversionOnError) : HwLevelTable(traits, stopConversionOnError) {}

  unsigned int getNumberOfFreqs() const { return columns(); }
};

}  // namespace Velk
