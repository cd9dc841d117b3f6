#pragma once

#include <QString>

#include "velk/datablock/HwDatablockIds.h"
#include "velk/layer/HwRecordBlock.h"

namespace Velk {

namespace detail {
class TextWriter;
}

/// Identifies a module, and says when it was made and how large its memory is.
struct VELK_RECORD HwSDatablockIdent {
  HwSDatablockHeader header;
  unsigned int eepromSize;
  unsigned int partNumber;  ///< eight digits, written as 1141.1000
  unsigned char variant;    ///< of the part number
  unsigned char hardwareCode;
  unsigned short productIndex;  ///< written as two groups of two digits
  unsigned int serialNumber;
  unsigned short productDate;      ///< packed, see PackedDate
  unsigned short readCode;         ///< of the part that reads the module
  unsigned short testInstruction;  ///< written like the product index
  char name[14];                   ///< padded with zeros; a full one has no terminating zero

  bool operator==(const HwSDatablockIdent&) const = default;
};
static_assert(sizeof(HwSDatablockIdent) == 44);

inline constexpr FieldInfo identFields[] = {
    VELK_FIELD(HwSDatablockIdent, eepromSize).keyed("EEPROMSIZE"),
    VELK_FIELD(HwSDatablockIdent, partNumber).keyed("PARTNUMBER", Notation::PartNumber),
    VELK_FIELD(HwSDatablockIdent, variant),
    VELK_FIELD(HwSDatablockIdent, hardwareCode).keyed("HWCODE"),
    VELK_FIELD(HwSDatablockIdent, productIndex).keyed("PRODUCTINDEX", Notation::DigitPairs),
    VELK_FIELD(HwSDatablockIdent, serialNumber).keyed("SN").personal(),
    VELK_FIELD(HwSDatablockIdent, productDate).asDate().keyed("PRODUCTDATE"),
    VELK_FIELD(HwSDatablockIdent, readCode).keyed("READCODE"),
    VELK_FIELD(HwSDatablockIdent, testInstruction).keyed("TESTINSTRUCTION", Notation::DigitPairs),
    VELK_FIELD(HwSDatablockIdent, name).asText().keyed("NAME").personal(),
};

/// The ident record as a block: its fields and the lines that they print.
class VELK_EXPORT HwIdentRecordBlock : public HwTypedRecordBlock<HwSDatablockIdent> {
 public:
  unsigned int getEepromSize() const { return get(&HwSDatablockIdent::eepromSize); }
  unsigned int getPartNumber() const { return get(&HwSDatablockIdent::partNumber); }
  unsigned char getVariant() const { return get(&HwSDatablockIdent::variant); }
  unsigned char getHardwareCode() const { return get(&HwSDatablockIdent::hardwareCode); }
  unsigned short getProductIndex() const { return get(&HwSDatablockIdent::productIndex); }
  unsigned int getSerialNumber() const { return get(&HwSDatablockIdent::serialNumber); }
  unsigned short getProductDate() const { return get(&HwSDatablockIdent::productDate); }
  unsigned short getReadCode() const { return get(&HwSDatablockIdent::readCode); }
  unsigned short getTestInstruction() const { return get(&HwSDatablockIdent::testInstruction); }
  QString getName() const;

  void setEepromSize(unsigned int size) { set(&HwSDatablockIdent::eepromSize, size); }
  void setPartNumber(unsigned int number) { set(&HwSDatablockIdent::partNumber, number); }
  void setVariant(unsigned char variant) { set(&HwSDatablockIdent::variant, variant); }
  void setHardwareCode(unsigned char code) { set(&HwSDatablockIdent::hardwareCode, code); }
  void setProductIndex(unsigned short index) { set(&HwSDatablockIdent::productIndex, index); }
  void setSerialNumber(unsigned int number) { set(&HwSDatablockIdent::serialNumber, number); }
  void setProductDate(unsigned short date) { set(&HwSDatablockIdent::productDate, date); }
  void setReadCode(unsigned short code) { set(&HwSDatablockIdent::readCode, code); }
  void setTestInstruction(unsigned short instruction) { set(&HwSDatablockIdent::testInstruction, instruction); }
  /// Sets the name to the first 14 bytes of its local 8-bit form.
  void setName(const QString& name);

 protected:
  using HwTypedRecordBlock::HwTypedRecordBlock;

  /// Writes the lines from the part number on, but not that of the name.
  void printProduct(detail::TextWriter& text) const;
};

/// The identification block at the start of every module memory.
class VELK_EXPORT HwDatablockIdent : public HwIdentRecordBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = 2,
      .refusal = "HwDatablockIdent",
      .keys = {"IDENT_2", "IDENT_3", "IDENT_4", "IDENT_5", "IDENT_6", "IDENT_7", "IDENT_8", "IDENT_9", "IDENT_10"},
      .fields = identFields,
      .onSet = AlignmentRule::Take,
      .onSwap = AlignmentRule::Take,
      .name = {offsetof(HwSDatablockIdent, name), sizeof HwSDatablockIdent::name},
  });

  HwDatablockIdent() : HwIdentRecordBlock(traits, true) {}

  /// Leaves the fill character '0' and right alignment set on the stream.
  std::ostream& printToStream(std::ostream& os) override;
};

/// Other identification records have the layout of the ident record.
using HwSDatablockMiscIdent = HwSDatablockIdent;

/// The identification of a part that is in another memory of the module.
class VELK_EXPORT HwDatablockMiscIdent : public HwIdentRecordBlock {
 public:
  static constexpr RecordTraits traits = recordTraits({
      .id = _DatablockId_Stream_Opt_Ident_,
      .refusal = "HwDatablockMiscIdent",
      .keys = {"STREAM_OPT_IDENT", "STREAM_AUX_IDENT"},
      .fields = identFields,
      .onSet = AlignmentRule::Take,
      .onSwap = AlignmentRule::Take,
      .name = {offsetof(HwSDatablockMiscIdent, name), sizeof HwSDatablockMiscIdent::name},
      .idWidth = 14,
  });

  explicit HwDatablockMiscIdent(HwEVariantEepromDatablock id)
      : HwIdentRecordBlock(traits, true, static_cast<unsigned short>(id)), miscBlockId_(id) {}

  /// Returns the id that the block was constructed with.
  HwEVariantEepromDatablock getMiscBlockId() const { return miscBlockId_; }

  std::ostream& printToStream(std::ostream& os) override;

 private:
  HwEVariantEepromDatablock miscBlockId_;
};

}  // namespace Velk
