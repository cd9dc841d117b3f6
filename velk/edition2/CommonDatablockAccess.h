#pragma once

#include <memory>
#include <string>
#include <vector>

#include "velk/edition2/CommonSubDatablock.h"
#include "velk/edition2/IHwDatablockAccess.h"
#include "velk/edition2/IHwVariantEeprom.h"

namespace Velk {

/// Reads the tables of any second-edition block as typed values or as text, without a class for each kind of block, and
/// writes a block anew.
///
/// The accessor owns the block, but not the store. It parses the block once, reads it any number of times and may write
/// it. All readers append to `out`, take the table's number in the block, and return true: for a missing table or
/// column or an unsuitable type they append nothing. They append as many values as the table claims; a value outside
/// the block is 0 in lists of ids, and repeats the value before it in a column.
class VELK_EXPORT CommonDatablockAccess {
 public:
  static constexpr char nullString[] = "";

  /// Takes ownership of `block`; both may be null. Without `parseNow` there are no tables until parse() is called.
  CommonDatablockAccess(IHwDatablockAccess* block, IHwVariantEeprom* store, bool parseNow);
  ~CommonDatablockAccess();
  CommonDatablockAccess(const CommonDatablockAccess&) = delete;
  CommonDatablockAccess& operator=(const CommonDatablockAccess&) = delete;

  /// Reads the block's header and tables; reports nothing, whatever the bytes. The tables end with one that the block
  /// leaves open: empty if the block ends after a table. A second call adds all tables again.
  void parse();

  unsigned short getId() const { return header_.header.id; }
  /// The stored hundredths, unsigned, as a number.
  double getUpdateIndex() const;
  unsigned int getRowCount(unsigned int table) const;
  unsigned int getColCount(unsigned int table) const;
  const std::vector<CommonSubDatablock>& tables() const { return tables_; }
  /// Gives the block back to the caller; the tables stay.
  IHwDatablockAccess* releaseBlock() { return block_.release(); }

  /// Returns the size of a value in bytes; 1 for a string, 0 for values that are not types.
  static unsigned int getSizeInBytes(unsigned int typeId, unsigned int table);

  /// The stored value at `source`, which has the bytes that its type asks for, as a number. Integers are converted by
  /// value modulo the width of T, 64-bit ones from their lower 32 bits; floating values lose their fraction; characters
  /// are copied byte by byte. Of any other type the value is 0, and a line on the Console's output says so.
  ///
  /// T is an integer of 8 to 64 bits, float or double, here and in the readers, which also give std::string.
  template <class T>
  static T convValue(const char* source, unsigned int typeId);

  /// A column's cells, each through convValue; texts are the stored bytes, whatever the type.
  template <class T>
  bool getDataColumn(unsigned int column, std::vector<T>& out, unsigned int table) const;
  /// The column ids, each through convValue; texts end at a zero byte, and zeros before a text are passed over.
  template <class T>
  bool getColIdList(std::vector<T>& out, unsigned int table) const;
  /// The row ids, whose bytes are copied and never converted; texts end at a zero byte.
  template <class T>
  bool getRowIdList(std::vector<T>& out, unsigned int table) const;

  bool getStringColumn(unsigned int column, std::vector<std::string>& out, unsigned int table) const;
  bool getColIdStringList(std::vector<std::string>& out, unsigned int table) const;
  /// The names of the column types; `out` is cleared first.
  bool getDataTypeList(std::vector<std::string>& out, unsigned int table) const;
  /// One list of a table as text, read as values of type `typeId`.
  bool getDataInStringVector(std::vector<std::string>& out, VECTOR_TYPE kind, unsigned int typeId, unsigned int column,
                             unsigned int table) const;
  /// Numbers in general notation of 15 digits; T is an integer of 16 to 64 bits, float, double or std::string.
  template <class T>
  static void convertVectorToStingVector(std::vector<T> values, std::vector<std::string>& out);

  /// Builds the block anew from its complete tables, with fresh checksums, and hands it to the block, whose 16-bit
  /// checksum stays 0, and to the store. Cells are written column by column, strings without their zeros: only tables
  /// of one column without strings read back as they were. So do those without columns, which are a header and no
  /// padding, since the next table is read from there on. False, and nothing done, without a block or where the image
  /// would be longer than a block can be.
  bool write();
  /// Hands the store a block of these bytes; always true.
  bool writeVariantBock(unsigned int blockId, QByteArray& bytes);

 private:
  const CommonSubDatablock* find(unsigned int table) const;
  QByteArray buildImage() const;

  std::unique_ptr<IHwDatablockAccess> block_;
  HwSDatablockHeader2Edition header_{};
  IHwVariantEeprom* store_;
  std::vector<CommonSubDatablock> tables_;
};

}  // namespace Velk
