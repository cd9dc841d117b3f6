#pragma once

#include <QString>

#include "velk/datablock/HwDatablock.h"
#include "velk/edition2/IHwDatablockAccess.h"
#include "velk/edition2/TypeIds.h"

namespace Velk {

/// What the caller states about a block that it prints. The pages show only the block's name.
struct HwSDataBlockCfg {
  QString moduleName;
  QString description;
  unsigned int moduleIndex = 0;
  unsigned int blockIndex = 0;
  QString blockName;  ///< a null name stops the summary, and all else on its stream
  QString remark;
};

/// A self-describing block: after a header with a CRC-32 it holds tables, each of which states its counts and the
/// types of its ids and columns. CommonDatablockAccess reads the tables; this class holds the bytes, answers for
/// the header and the first table, and prints the pages that service looks at.
///
/// Blocks with an alignment word other than 0 are taken for ones whose header is two bytes shorter: their update index
/// begins at offset 10. In list format a block is a plain header and a sequence of 4-byte entries.
class VELK_EXPORT HwDatablock2Edition : public HwDatablock, public IHwDatablockAccess {
 public:
  /// An empty block of 12 bytes.
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

  /// Of the first table, whatever the part.
  unsigned short getNumberOfRows(unsigned int part) override;
  unsigned short getNumberOfColumns(unsigned int part) override;
  /// The stored hundredths, signed, as a number.
  double getUpdateIndex() override;
  /// Prints the complete page.
  virtual std::ostream& printToStream2Edition(std::ostream& os, HwSDataBlockCfg cfg);
  unsigned char* getData(unsigned int part) override;
  unsigned short getBlockSize(unsigned int part) override;
  unsigned int computeChecksum32() override;
  bool isListFormat() override;
  void setListFormat(bool list) override;

  /// Stores a CRC-32 where the block has room for it; the 16-bit checksum stays as it is. Always true.
  bool setChecksum32(unsigned int checksum);

  /// The types of the first table, TYPE_ID_NONE where the block has no such byte.
  ETypeId getRowIdType();
  ETypeId getColumnIdType();
  ETypeId getColumnType(int column);
  unsigned int getSizeOfRowIdType();
  unsigned int getSizeOfColumnIdType();

  /// Returns the size of a value in bytes; 0 for strings.
  static unsigned int size_in_byte(ETypeId type);
  static const char* getTypeString(ETypeId type);

  /// The five lines that head a list of summaries or a detail page.
  std::ostream& printDebugPageHeading(std::ostream& os, bool summary);
  /// Id, name and update index.
  std::ostream& printDebugPageSummary(std::ostream& os, HwSDataBlockCfg cfg);
  /// The first table as its bytes stand. Shows fixed-point values and long doubles, and no strings: a list of strings
  /// counts as having no bytes. A table without columns shows the row ids that its block holds. Values beyond the
  /// block's end are left out, and rows that have none before it.
  std::ostream& printDebugPageDetail(std::ostream& os, HwSDataBlockCfg cfg);
  /// Every complete table in aligned columns, as the typed readers give them: strings are shown; fixed-point values and
  /// long doubles, which the readers do not convert, are 0. A table without columns has its row ids shown where its
  /// block holds all of them and no further table, and else no row.
  std::ostream& printDebugPageComplete(std::ostream& os, HwSDataBlockCfg cfg);

  /// Prints one stored value and four blanks, and returns what follows the value. `value` has the bytes that its type
  /// asks for. A fixed-point value leaves the stream in fixed notation with its decimals.
  unsigned char* printDataTypeToStream(std::ostream& os, unsigned char* value, ETypeId type);

 private:
  /// The place of a field of the normal header, in the header that this block has.
  std::size_t placed(std::size_t offset);
  std::size_t firstColumnType();

  bool listFormat_ = false;
};

}  // namespace Velk
