#pragma once

#include "velk/layer/HwInstance.h"
#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// A correction polynomial for amplitudes scaled by 10000.
struct VELK_RECORD HwSAttPolynomValues {
  short coefficients[4];

  bool operator==(const HwSAttPolynomValues&) const = default;
};
static_assert(sizeof(HwSAttPolynomValues) == 8);

struct VELK_RECORD HwSDatablockMbrdRfResponseAttAmpl {
  HwSDatablockHeader header;
  unsigned int count;  ///< frequency points in use
  HwSAttPolynomValues cells[6][200];

  bool operator==(const HwSDatablockMbrdRfResponseAttAmpl&) const = default;
};
static_assert(sizeof(HwSDatablockMbrdRfResponseAttAmpl) == 9612);

inline constexpr FieldInfo attPolynomFields[] = {VELK_FIELD(HwSAttPolynomValues, coefficients).in("1/10000")};
inline constexpr FieldInfo rfResponseAttAmplFields[] = {
    VELK_FIELD(HwSDatablockMbrdRfResponseAttAmpl, count),
    VELK_FIELD(HwSDatablockMbrdRfResponseAttAmpl, cells).of(attPolynomFields).counted("", "count"),
};

/// A path's amplitude response with its attenuator pads: a row for each attenuator setting, a column for each frequency
/// of the attenuator grid.
class VELK_EXPORT HwDatablockMbrdRfResponseAttAmpl
    : public HwInstance<HwTypedRecordBlock<HwSDatablockMbrdRfResponseAttAmpl>> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12270,
      .refusal = "HwSDatablockMbrdRfResponseAttAmpl   ",
      .keys = {"PATH_A_RF_RESPONSE_ATT_AMP", "PATH_B_RF_RESPONSE_ATT_AMP", "PATH_C_RF_RESPONSE_ATT_AMP",
               "PATH_D_RF_RESPONSE_ATT_AMP"},
      .fields = rfResponseAttAmplFields,
      .comments = {"# Das sind die Amplitudenwerte bei D�mpfungsgliedern [1*10000] "},
  });

  HwDatablockMbrdRfResponseAttAmpl(int path, bool stopConversionOnError)
      : HwInstance(traits, path, stopConversionOnError) {}

  unsigned int getNumberOfRfRespAttFreqs() const { return get(&HwSDatablockMbrdRfResponseAttAmpl::count); }
  void setNumberOfRfRespAttFreqs(unsigned int n) { set(&HwSDatablockMbrdRfResponseAttAmpl::count, n); }
  /// Returns zeros outside the table.
  HwSAttPolynomValues getCorLevelValue(unsigned char attenuator, unsigned int frequencyIndex) const {
    return get(&HwSDatablockMbrdRfResponseAttAmpl::cells, attenuator, frequencyIndex);
  }
  void setCorLevelValue(const HwSAttPolynomValues& values, unsigned char attenuator, unsigned int frequencyIndex) {
    set(&HwSDatablockMbrdRfResponseAttAmpl::cells, values, attenuator, frequencyIndex);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

inline constexpr std::size_t lowPassFilters = 9;
inline constexpr unsigned lowPassLevels = 4;
inline constexpr std::size_t lowPassPoints = 150;

/// Frequency points of each low-pass filter, in MHz.
struct VELK_RECORD HwSDatablockMbrdRfResponseLpFreq {
  HwSDatablockHeader header;
  unsigned int counts[lowPassFilters];  ///< points in use
  unsigned int cells[lowPassFilters][lowPassPoints];

  bool operator==(const HwSDatablockMbrdRfResponseLpFreq&) const = default;
};
static_assert(sizeof(HwSDatablockMbrdRfResponseLpFreq) == 5444);

/// A correction polynomial; the comments in the texts give its scaling.
struct VELK_RECORD HwSPolynomValues {
  signed char coefficients[4];

  bool operator==(const HwSPolynomValues&) const = default;
};
static_assert(sizeof(HwSPolynomValues) == 4);

/// Corrections of each low-pass filter: a row for each filter and level, ordered by filter; a column for each point.
struct VELK_RECORD HwSDatablockMbrdRfResponseLpAmp {
  HwSDatablockHeader header;
  unsigned int counts[lowPassFilters];  ///< points in use
  HwSPolynomValues cells[lowPassFilters * lowPassLevels][lowPassPoints];

  bool operator==(const HwSDatablockMbrdRfResponseLpAmp&) const = default;
};
static_assert(sizeof(HwSDatablockMbrdRfResponseLpAmp) == 21644);
using HwSDatablockMbrdRfResponseLpPh = HwSDatablockMbrdRfResponseLpAmp;

inline constexpr FieldInfo lowPassFreqFields[] = {
    VELK_FIELD(HwSDatablockMbrdRfResponseLpFreq, counts),
    VELK_FIELD(HwSDatablockMbrdRfResponseLpFreq, cells).in("MHz"),
};
inline constexpr FieldInfo polynomFields[] = {VELK_FIELD(HwSPolynomValues, coefficients)};
inline constexpr FieldInfo lowPassCorrectionFields[] = {
    VELK_FIELD(HwSDatablockMbrdRfResponseLpAmp, counts),
    VELK_FIELD(HwSDatablockMbrdRfResponseLpAmp, cells).of(polynomFields),
};

/// A path's low-pass tables: the number of points of each filter. A filter above 8 reads as 0 and is not written.
template <class Record>
class VELK_EXPORT HwLowPassBlock : public HwInstance<HwTypedRecordBlock<Record>> {
 public:
  unsigned int getNumberOfFreqCount(unsigned int filter) const { return this->get(&Record::counts, filter); }
  void setNumberOfFreqCount(unsigned int count, unsigned int filter) { this->set(&Record::counts, count, filter); }

 protected:
  using HwInstance<HwTypedRecordBlock<Record>>::HwInstance;
};

class VELK_EXPORT HwDatablockMbrdRfResponseLpFreq : public HwLowPassBlock<HwSDatablockMbrdRfResponseLpFreq> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12210,
      .refusal = "HwSDatablockMbrdRfResponseLpFreq   ",
      .keys = {"PATH_A_RF_RESPONSE_LP_FREQ", "PATH_B_RF_RESPONSE_LP_FREQ", "PATH_C_RF_RESPONSE_LP_FREQ",
               "PATH_D_RF_RESPONSE_LP_FREQ"},
      .fields = lowPassFreqFields,
      .comments = {"#Das sind die Frequenzst�tzstellen f�r die Tiefp�sse"},
  });

  HwDatablockMbrdRfResponseLpFreq(int path, bool stopConversionOnError)
      : HwLowPassBlock(traits, path, stopConversionOnError) {}

  unsigned int getFrequencyValue(unsigned int filter, unsigned int index) const {
    return get(&HwSDatablockMbrdRfResponseLpFreq::cells, filter, index);
  }
  void setFrequencyValue(unsigned int value, unsigned char filter, unsigned int index) {
    set(&HwSDatablockMbrdRfResponseLpFreq::cells, value, filter, index);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

/// The common base of the amplitude and the phase corrections.
class VELK_EXPORT HwLowPassCorrectionBlock : public HwLowPassBlock<HwSDatablockMbrdRfResponseLpAmp> {
 public:
  std::ostream& printToStream(std::ostream& os) override;

 protected:
  /// `section` is the comment before each filter's corrections, up to the filter's number.
  HwLowPassCorrectionBlock(const RecordTraits& traits, const char* section, int path, bool stopConversionOnError)
      : HwLowPassBlock(traits, path, stopConversionOnError), section_(section) {}

  HwSPolynomValues correction(unsigned filter, unsigned level, unsigned index) const;
  void setCorrection(const HwSPolynomValues& values, unsigned filter, unsigned level, unsigned index);

 private:
  const char* section_;
};

class VELK_EXPORT HwDatablockMbrdRfResponseLpAmp : public HwLowPassCorrectionBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12230,
      .refusal = "HwSDatablockMbrdRfResponseLpAmp   ",
      .keys = {"PATH_A_RF_RESPONSE_LP_AMP", "PATH_B_RF_RESPONSE_LP_AMP", "PATH_C_RF_RESPONSE_LP_AMP",
               "PATH_D_RF_RESPONSE_LP_AMP"},
      .fields = lowPassCorrectionFields,
      .comments = {"#Das sind die Amplitudenwerte f�r die Tiefp�sse "},
  });

  HwDatablockMbrdRfResponseLpAmp(int path, bool stopConversionOnError)
      : HwLowPassCorrectionBlock(
            traits, "# Das sind die Amplitudenwerte [Skalierung: x*460, x*300, x*190, (x-1)*3200] fuer den ", path,
            stopConversionOnError) {}

  HwSPolynomValues getCorAmplValue(unsigned char filter, unsigned char level, unsigned int index) const {
    return correction(filter, level, index);
  }
  void setCorAmplValue(const HwSPolynomValues& values, unsigned char filter, unsigned char level, unsigned int index) {
    setCorrection(values, filter, level, index);
  }
};

class VELK_EXPORT HwDatablockMbrdRfResponseLpPh : public HwLowPassCorrectionBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12240,
      .refusal = "HwSDatablockMbrdRfResponseLpPh   ",
      .keys = {"PATH_A_RF_RESPONSE_LP_PH", "PATH_B_RF_RESPONSE_LP_PH", "PATH_C_RF_RESPONSE_LP_PH",
               "PATH_D_RF_RESPONSE_LP_PH"},
      .fields = lowPassCorrectionFields,
      .comments = {"#Das sind die Phasenwerte f�r die Tiefp�sse "},
  });

  HwDatablockMbrdRfResponseLpPh(int path, bool stopConversionOnError)
      : HwLowPassCorrectionBlock(traits, "# Das sind die Phasenwerte [Skalierung: x*3] fuer den ", path,
                                 stopConversionOnError) {}

  HwSPolynomValues getCorPhaseValue(unsigned char filter, unsigned char level, unsigned int index) const {
    return correction(filter, level, index);
  }
  void setCorPhaseValue(const HwSPolynomValues& values, unsigned char filter, unsigned char level, unsigned int index) {
    setCorrection(values, filter, level, index);
  }
};

}  // namespace Velk
