#pragma once

#include "velk/layer/HwGridBlock.h"
#include "velk/layer/HwInstance.h"
#include "velk/modulecal/FrequencyList.h"

namespace Velk {

using HwSDatablockCwOp3AmGainFreq = CountedRecord<unsigned int, double, 200>;
static_assert(sizeof(HwSDatablockCwOp3AmGainFreq) == 1612);

/// Frequencies of the CW output stage's AM gain.
class VELK_EXPORT HwDatablockCwOp3AmGainFreq : public HwCountedBlock<HwSDatablockCwOp3AmGainFreq> {
 public:
  static constexpr ListTraits traits = listTraits({
      .id = 10500,
      .refusal = "HwSDatablockCwOp3AmGainFreq",
      .keys = {"CWOP3_6_AM_GAIN_FREQ"},
      .comments = {"#Frequenzst�tzstellen, maximale Anzahl mit dieser Id ist 200"},
  });

  HwDatablockCwOp3AmGainFreq() : HwCountedBlock(traits, true) {}

  unsigned int getCount() const { return count(); }
  void setCount(unsigned int n) { setListCount(n); }
  double getFrequencyValue(unsigned short index) const { return value(index); }
  void setFrequencyValue(double frequency, unsigned short index) { setValue(frequency, index); }
};

/// Gains at one frequency.
struct VELK_RECORD HwSCwOp3AmGainDataBlock {
  short cwGain;
  short amGain;
  short reserve1;
  short reserve2;

  bool operator==(const HwSCwOp3AmGainDataBlock&) const = default;
};
static_assert(sizeof(HwSCwOp3AmGainDataBlock) == 8);

struct VELK_RECORD HwSDatablockCwOp3AmGainData {
  HwSDatablockHeader header;
  HwSCwOp3AmGainDataBlock blocks[200];

  bool operator==(const HwSDatablockCwOp3AmGainData&) const = default;
};
static_assert(sizeof(HwSDatablockCwOp3AmGainData) == 1608);

inline constexpr FieldInfo cwOp3AmGainBlockFields[] = {
    VELK_FIELD(HwSCwOp3AmGainDataBlock, cwGain),
    VELK_FIELD(HwSCwOp3AmGainDataBlock, amGain),
    VELK_FIELD(HwSCwOp3AmGainDataBlock, reserve1),
    VELK_FIELD(HwSCwOp3AmGainDataBlock, reserve2),
};
inline constexpr FieldInfo cwOp3AmGainFields[] = {
    VELK_FIELD(HwSDatablockCwOp3AmGainData, blocks).of(cwOp3AmGainBlockFields),
};

/// AM gain of the CW output stage, one entry for each frequency of its list.
class VELK_EXPORT HwDatablockCwOp3AmGainData : public HwTypedRecordBlock<HwSDatablockCwOp3AmGainData> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10501,
      .refusal = "HwSDatablockCwOp3AmGainData",
      .keys = {"CWOP3_6_AM_GAIN_DATA"},
      .fields = cwOp3AmGainFields,
      .acceptance = Acceptance::ChecksumOrEmpty,
      .comments = {"# Das sind die AM-Gain Daten"},
      .idWidth = 20,
  });

  HwDatablockCwOp3AmGainData() : HwTypedRecordBlock(traits, true) {}

  HwSCwOp3AmGainDataBlock getAmGainDataBlock(int index) const {
    return get(&HwSDatablockCwOp3AmGainData::blocks, index);
  }
  void setAmGainDataBlock(const HwSCwOp3AmGainDataBlock& block, int index) {
    set(&HwSDatablockCwOp3AmGainData::blocks, block, index);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

/// Identification of the oscillator: a job number and the sub-bands.
struct VELK_RECORD HwSDatablockCwop6VcoIdent {
  HwSDatablockHeader header;
  unsigned int jobNumber;
  unsigned short serialNumber;
  unsigned short lotNumber;
  unsigned short taz;
  unsigned short osc3Subh;
  unsigned short osc3Subl;
  unsigned short osc2Subh;
  unsigned short osc2Subl;
  unsigned short osc1Subh;

  bool operator==(const HwSDatablockCwop6VcoIdent&) const = default;
};
static_assert(sizeof(HwSDatablockCwop6VcoIdent) == 28);

inline constexpr FieldInfo vcoIdentFields[] = {
    VELK_FIELD(HwSDatablockCwop6VcoIdent, jobNumber).keyed("JOBNR").personal(),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, serialNumber).keyed("SERNR").personal(),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, lotNumber).keyed("LOTNR").personal(),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, taz).keyed("TAZ"),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, osc3Subh).keyed("OSC3SUB_H"),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, osc3Subl).keyed("OSC3SUB_L"),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, osc2Subh).keyed("OSC2SUB_H"),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, osc2Subl).keyed("OSC2SUB_L"),
    VELK_FIELD(HwSDatablockCwop6VcoIdent, osc1Subh).keyed("OSC1SUB_H"),
};

class VELK_EXPORT HwDatablockCwop6VcoIdent : public HwTypedRecordBlock<HwSDatablockCwop6VcoIdent> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 10502,
      .refusal = "HwSDatablockCwop6VcoIdent",
      .keys = {"VCO_IDENT"},
      .fields = vcoIdentFields,
      .comments = {"# Das sind die VCO Ident Daten"},
      .idWidth = 18,
  });

  HwDatablockCwop6VcoIdent() : HwTypedRecordBlock(traits, true) {}

  unsigned int getJobNumber() const { return get(&HwSDatablockCwop6VcoIdent::jobNumber); }
  unsigned short getSerialNumber() const { return get(&HwSDatablockCwop6VcoIdent::serialNumber); }
  unsigned short getLotNumber() const { return get(&HwSDatablockCwop6VcoIdent::lotNumber); }
  unsigned short getTaz() const { return get(&HwSDatablockCwop6VcoIdent::taz); }
  unsigned short getOsc3Subh() const { return get(&HwSDatablockCwop6VcoIdent::osc3Subh); }
  unsigned short getOsc3Subl() const { return get(&HwSDatablockCwop6VcoIdent::osc3Subl); }
  unsigned short getOsc2Subh() const { return get(&HwSDatablockCwop6VcoIdent::osc2Subh); }
  unsigned short getOsc2Subl() const { return get(&HwSDatablockCwop6VcoIdent::osc2Subl); }
  unsigned short getOsc1Subh() const { return get(&HwSDatablockCwop6VcoIdent::osc1Subh); }

  void setJobNumber(unsigned int number) { set(&HwSDatablockCwop6VcoIdent::jobNumber, number); }
  void setSerialNumber(unsigned short number) { set(&HwSDatablockCwop6VcoIdent::serialNumber, number); }
  void setLotNumber(unsigned short number) { set(&HwSDatablockCwop6VcoIdent::lotNumber, number); }
  void setTaz(unsigned short taz) { set(&HwSDatablockCwop6VcoIdent::taz, taz); }
  void setOsc3Subh(unsigned short band) { set(&HwSDatablockCwop6VcoIdent::osc3Subh, band); }
  void setOsc3Subl(unsigned short band) { set(&HwSDatablockCwop6VcoIdent::osc3Subl, band); }
  void setOsc2Subh(unsigned short band) { set(&HwSDatablockCwop6VcoIdent::osc2Subh, band); }
  void setOsc2Subl(unsigned short band) { set(&HwSDatablockCwop6VcoIdent::osc2Subl, band); }
  void setOsc1Subh(unsigned short band) { set(&HwSDatablockCwop6VcoIdent::osc1Subh, band); }

  std::ostream& printToStream(std::ostream& os) override;
};

using HwSDatablockCwop3DetTuneFreq = CountedRecord<int, double, 100>;
static_assert(sizeof(HwSDatablockCwop3DetTuneFreq) == 812);

/// Frequencies of a path's detector tuning.
class VELK_EXPORT HwDatablockCwop3DetTuneFreq : public HwInstance<HwFrequencyList<HwSDatablockCwop3DetTuneFreq>> {
 public:
  static constexpr ListTraits traits = listTraits({
      .id = 12190,
      .refusal = "HwSDatablockCwop3DetTuneFreq",
      .keys = {"CWOP3_DET_TUNE_A_FREQ", "CWOP3_DET_TUNE_B_FREQ", "CWOP3_DET_TUNE_C_FREQ", "CWOP3_DET_TUNE_D_FREQ"},
      .comments = {"#Das sind die Frequenzst�tzstellen"},
  });

  HwDatablockCwop3DetTuneFreq(int index, bool stopConversionOnError)
      : HwInstance(traits, index, stopConversionOnError) {}
};

using HwSDatablockCwop3DetTuneDac = GridRecord<int, 1, 100>;
static_assert(sizeof(HwSDatablockCwop3DetTuneDac) == 412);

/// DAC values of a path's detector tuning: one row, a column for each frequency.
class VELK_EXPORT HwDatablockCwop3DetTuneDac : public HwInstance<HwGridBlock<HwSDatablockCwop3DetTuneDac>> {
 public:
  static constexpr GridTraits traits = gridTraits(
      {.id = 12200,
       .refusal = "HwSDatablockCwop3DetTuneDac",
       .keys = {"CWOP3_DET_TUNE_A_DAC", "CWOP3_DET_TUNE_B_DAC", "CWOP3_DET_TUNE_C_DAC", "CWOP3_DET_TUNE_D_DAC"},
       .comments = {"#Userdaten: Det-Tune DAC"}},
      {.countWord = "DAC"});

  HwDatablockCwop3DetTuneDac(int index, bool stopConversionOnError)
      : HwInstance(traits, index, stopConversionOnError) {}

  unsigned int getNumberOfDacSteps() const { return count(); }
  void setNumberOfDacSteps(unsigned short n) { setGridCount(n); }
  int getDetTuneDacValue(int column, int row) const { return cell(row, column); }
  void setDetTuneDacValue(short value, int column, int row) { setCell(value, row, column); }
};

using HwSDatablockCwopDetLinCorrFreq = CountedRecord<int, double, 50>;
static_assert(sizeof(HwSDatablockCwopDetLinCorrFreq) == 412);

/// Frequencies of a path's detector linearity.
class VELK_EXPORT HwDatablockCwopDetLinCorrFreq : public HwInstance<HwFrequencyList<HwSDatablockCwopDetLinCorrFreq>> {
 public:
  static constexpr ListTraits traits = listTraits({
      .id = 12290,
      .refusal = "HwSDatablockCwopDetLinCorrFreq",
      .keys = {"CWOP_DETLINCORR_A_FREQ", "CWOP_DETLINCORR_B_FREQ"},
      .comments = {"#Frequenzst�tzstellen Maximale Anzahl mit dieser Id ist 200"},
  });

  HwDatablockCwopDetLinCorrFreq(int index, bool stopConversionOnError)
      : HwInstance(traits, index, stopConversionOnError) {}
};

/// A level and its correction.
struct VELK_RECORD HwSLevCorrValues {
  float level;
  float correction;

  bool operator==(const HwSLevCorrValues&) const = default;
};
static_assert(sizeof(HwSLevCorrValues) == 8);

struct VELK_RECORD HwSDatablockCwopDetLinCorrData {
  HwSDatablockHeader header;
  unsigned short steps;       ///< in use at each frequency
  unsigned short validFreqs;  ///< in use
  HwSLevCorrValues values[50][10];

  bool operator==(const HwSDatablockCwopDetLinCorrData&) const = default;
};
static_assert(sizeof(HwSDatablockCwopDetLinCorrData) == 4012);

inline constexpr FieldInfo levCorrFields[] = {
    VELK_FIELD(HwSLevCorrValues, level),
    VELK_FIELD(HwSLevCorrValues, correction),
};
inline constexpr FieldInfo detLinCorrFields[] = {
    VELK_FIELD(HwSDatablockCwopDetLinCorrData, steps),
    VELK_FIELD(HwSDatablockCwopDetLinCorrData, validFreqs),
    VELK_FIELD(HwSDatablockCwopDetLinCorrData, values).of(levCorrFields).counted("validFreqs", "steps"),
};

/// A path's detector linearity: at each frequency, levels and their corrections.
class VELK_EXPORT HwDatablockCwopDetLinCorrData
    : public HwInstance<HwTypedRecordBlock<HwSDatablockCwopDetLinCorrData>> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12292,
      .refusal = "HwSDatablockCwopDetLinCorrData",
      .keys = {"CWOP_DETLINCORR_A_DATA", "CWOP_DETLINCORR_B_DATA"},
      .fields = detLinCorrFields,
      .comments = {"# max number of steps 10"},
  });

  HwDatablockCwopDetLinCorrData(int index, bool stopConversionOnError)
      : HwInstance(traits, index, stopConversionOnError) {}

  unsigned short getNumberOfDetLinCorrSteps() const { return get(&HwSDatablockCwopDetLinCorrData::steps); }
  void setNumberOfDetLinCorrSteps(unsigned short n) { set(&HwSDatablockCwopDetLinCorrData::steps, n); }
  unsigned short getNumberOfValidFreqs() const { return get(&HwSDatablockCwopDetLinCorrData::validFreqs); }
  void setNumberOfValidFreqs(unsigned short n) { set(&HwSDatablockCwopDetLinCorrData::validFreqs, n); }
  HwSLevCorrValues getDetLinCorrData(int step, int frequency) const {
    return get(&HwSDatablockCwopDetLinCorrData::values, frequency, step);
  }
  void setDetLinCorrData(const HwSLevCorrValues& values, int step, int frequency) {
    set(&HwSDatablockCwopDetLinCorrData::values, values, frequency, step);
  }

  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
