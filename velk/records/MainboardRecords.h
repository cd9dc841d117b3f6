#pragma once

#include <QString>

#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// The serial number of the instrument.
struct VELK_RECORD HwSDatablockMbrdSerialNumber {
  HwSDatablockHeader header;
  unsigned int serialNumber;

  bool operator==(const HwSDatablockMbrdSerialNumber&) const = default;
};
static_assert(sizeof(HwSDatablockMbrdSerialNumber) == 12);

inline constexpr FieldInfo mbrdSerialNumberFields[] = {
    VELK_FIELD(HwSDatablockMbrdSerialNumber, serialNumber).keyed("SN").personal()};

class VELK_EXPORT HwDatablockMbrdSerialNumber : public HwTypedRecordBlock<HwSDatablockMbrdSerialNumber> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12000,
      .refusal = "HwSDatablockMbrdSerialNumber",
      .keys = {"SERIAL_NUMBER"},
      .fields = mbrdSerialNumberFields,
      .comments = {"# Das ist die Seriennummer des Orvan`s"},
  });

  HwDatablockMbrdSerialNumber() : HwTypedRecordBlock(traits, true) {}

  unsigned int getSerialNumber() const { return get(&HwSDatablockMbrdSerialNumber::serialNumber); }
  void setSerialNumber(unsigned int number) { set(&HwSDatablockMbrdSerialNumber::serialNumber, number); }

  std::ostream& printToStream(std::ostream& os) override;
};

/// The model name of the instrument.
struct VELK_RECORD HwSDatablockMbrdModel {
  HwSDatablockHeader header;
  char model[32];  ///< padded with zeros

  bool operator==(const HwSDatablockMbrdModel&) const = default;
};
static_assert(sizeof(HwSDatablockMbrdModel) == 40);

inline constexpr FieldInfo mbrdModelFields[] = {VELK_FIELD(HwSDatablockMbrdModel, model).asText().keyed("MODEL")};

class VELK_EXPORT HwDatablockMbrdModel : public HwTypedRecordBlock<HwSDatablockMbrdModel> {
  /// Setting a name leaves the last byte unchanged.
  static constexpr unsigned short longestName = sizeof HwSDatablockMbrdModel::model - 1;

 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12001,
      .refusal = "HwDatablockMbrdModel",
      .keys = {"GENERATOR_MODEL"},
      .fields = mbrdModelFields,
      .name = {offsetof(HwSDatablockMbrdModel, model), longestName},
      .comments = {"# Das ist der Modellname des TARN`s"},
  });

  HwDatablockMbrdModel() : HwTypedRecordBlock(traits, false) {}

  QString getModel() const;
  /// Sets the model to the first 31 bytes of its local 8-bit form.
  void setModel(const QString& model);

  int setBlock(const HwSDatablockMbrdModel* record);
  using HwDatablock::swapBlock;
  void swapBlock(const HwSDatablockMbrdModel* record);

  std::ostream& printToStream(std::ostream& os) override;
};

/// The network address of the instrument.
struct VELK_RECORD HwSDatablockMbrdMac {
  HwSDatablockHeader header;
  unsigned int macLength;  ///< valid bytes of the address
  unsigned char mac[16];   ///< unused bytes are 0xFF
  unsigned char reserved[228];

  bool operator==(const HwSDatablockMbrdMac&) const = default;
};
static_assert(sizeof(HwSDatablockMbrdMac) == 256);

inline constexpr FieldInfo mbrdMacFields[] = {
    VELK_FIELD(HwSDatablockMbrdMac, macLength),
    VELK_FIELD(HwSDatablockMbrdMac, mac).counted("macLength").written(Notation::Address).personal(),
};

/// The network address of the mainboard, whose text is the block's bytes.
class VELK_EXPORT HwDatablockMbrdMac : public HwTypedRecordBlock<HwSDatablockMbrdMac> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 12004,
      .refusal = "HwDatablockMbrdMac",
      .keys = {"MBRD_MAC"},
      .fields = mbrdMacFields,
      .acceptance = Acceptance::ChecksumAndHeader,
  });

  HwDatablockMbrdMac();

  /// Returns the 16 bytes of the address in the block; `length`, unless null, gets how many of them are valid.
  unsigned char* getMac(unsigned int* length);
  unsigned int getMacLength() const { return get(&HwSDatablockMbrdMac::macLength); }
  /// Stores `length` and at most 16 bytes of the address, but no checksum. Does nothing if `bytes` is null.
  void setMac(const unsigned char* bytes, unsigned int length);

  /// Copies id, alignment, checksum and the 16 bytes of the address; the length becomes 16. Returns 1 for a refusal.
  int setBlock(const HwSDatablockMbrdMac* record);

  /// Writes the raw bytes, as this block has always been printed.
  std::ostream& printToStream(std::ostream& os) override { return HwDatablock::printToStream(os); }
};

/// The analog output calibration of the baseband option: a header and nothing else.
struct VELK_RECORD HwSDatablockAnalogOutputCalibration {
  HwSDatablockHeader header;

  bool operator==(const HwSDatablockAnalogOutputCalibration&) const = default;
};
static_assert(sizeof(HwSDatablockAnalogOutputCalibration) == 8);

inline constexpr FieldInfo analogOutputCalibrationFields[] = {
    detail::describeField<unsigned short>("alignment", offsetof(HwSDatablockHeader, alignment)),
};

class VELK_EXPORT HwObelDatablockAnalogOutputCalibration
    : public HwTypedRecordBlock<HwSDatablockAnalogOutputCalibration> {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 15500,
      .refusal = "HwSDatablockAnalogOutputCalibration",
      .keys = {"OBEL_ANALOG_OUTPUT_CALIBRATION_1", "OBEL_ANALOG_OUTPUT_CALIBRATION_2"},
      .fields = analogOutputCalibrationFields,
  });

  /// Makes the block with id 15500 if `second` is 0, and otherwise the one with id 15501.
  HwObelDatablockAnalogOutputCalibration(unsigned int second, bool stopConversionOnError)
      : HwTypedRecordBlock(traits, stopConversionOnError, second != 0 ? traits.id + 1 : traits.id) {}

  /// Writes nothing.
  std::ostream& printToStream(std::ostream& os) override;
};

}  // namespace Velk
