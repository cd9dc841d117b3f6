#pragma once

#include <QString>

#include "velk/datablock/HwDatablock.h"
#include "velk/edition2/IHwDatablockAccess.h"
#include "velk/edition2/TypeIds.h"

namespace Velk {

/// What the caller knows about a block to be printed. The pages show only the block's name.
struct HwSDataBlockCfg {
  QString moduleName;
  QString description;
  unsigned int moduleIndex = 0;
  unsigned int blockIndex = 0;
  QString blockName;  ///< a null name ends the summary and sets the stream's badbit
  QString remark;
};

/// A self-describing block: after a header with a CRC-32 it holds tables, each with its counts and the types of its ids
/// and columns. CommonDatablockAccess reads the tables; this class holds the bytes, gives access to the header and the
/// first table, and prints the pages that are used in service.
///
/// A block with an alignment word other than 0 is assumed to have a header two bytes shorter: its update index begins
/// at offset 10. In list format a block is a plain header and a sequence of 4-byte entries.
class VELK_EXPORT HwDatablock2Edition : public HwDatablock, public IHwDatablockAccess {
 public:
  /// Makes an empty block of 12 bytes.
  HwDatablock2Edition();

  using HwDatablock::computeChecksum;
  using HwDatablock::computeChecksum32;
  using HwDatablock::getBlockSize;
  using HwDatablock::getData;
  using HwDatablock::setData;

  unsigned short computeChecksum() override;
  unsigned short getId() override;
  unsigned int getEepromSector() override;
  bool setData(QByteArray bytes) override;
  bool setData(HwDatablock* source) override;
  bool setEepromAddress(unsigned int address) override;
  bool setEepromSector(unsigned int sector) override;

  /// Return the counts of the first table, whatever the part.
  unsigned short getNumberOfRows(unsigned int part) override;
  unsigned short getNumberOfColumns(unsigned int part) override;
  /// Returns the stored hundredths, signed, as a number.
  double getUpdateIndex() override;
  /// Prints the complete page.
  virtual std::ostream& printToStream2Edition(std::ostream& os, HwSDataBlockCfg cfg);
  unsigned char* getData(unsigned int part) override;
  unsigned short getBlockSize(unsigned int part) override;
  unsigned int computeChecksum32() override;
  bool isListFormat() override;
  void setListFormat(bool list) override;

  /// Stores a CRC-32 if the block has room for it; leaves the 16-bit checksum unchanged. Always returns true.
  bool setChecksum32(unsigned int checksum);

  /// Return the types of the first table; TYPE_ID_NONE if the block has no such byte.
  ETypeId getRowIdType();
  ETypeId getColumnIdType();
  ETypeId getColumnType(int column);
  unsigned int getSizeOfRowIdType();
  unsigned int getSizeOfColumnIdType();

  /// Returns the size of a value in bytes; 0 for strings.
  static unsigned int size_in_byte(ETypeId type);
  static const char* getTypeString(ETypeId type);

  /// Prints the five lines at the top of a list of summaries or of a detail page.
  std::ostream& printDebugPageHeading(std::ostream& os, bool summary);
  /// Prints id, name and update index.
  std::ostream& printDebugPageSummary(std::ostream& os, HwSDataBlockCfg cfg);
  /// Prints the bytes of the first table as they are. Shows fixed-point values and long doubles, but no strings: a list
  /// of strings counts as having no bytes. For a table without columns, shows the row ids that its block holds. Leaves
  /// out values beyond the block's end, and rows without any value before it.
  std::ostream& printDebugPageDetail(std::ostream& os, HwSDataBlockCfg cfg);
  /// Prints every complete table in aligned columns, as the typed readers give them: strings are shown; fixed-point
  /// values and long doubles, which the readers do not convert, are 0. For a table without columns, shows the row ids
  /// if its block holds all of them and no further table, and otherwise no row.
  std::ostream& printDebugPageComplete(std::ostream& os, HwSDataBlockCfg cfg);

  /// Prints one stored value and four blanks, and returns the address after the value. `value` must have as many bytes
  /// as its type needs. A fixed-point value leaves the stream in fixed notation with its decimals.
  unsigned char* printDataTypeToStream(std::ostream& os, unsigned char* value, ETypeId type);

 private:
  /// Returns the offset in this block's header of a field of the normal header.
  std::size_t placed(std::size_t offset);
  std::size_t firstColumnType();

  bool listFormat_ = false;
};

}  // namespace Velk
