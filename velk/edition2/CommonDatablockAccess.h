#pragma once

#include <memory>
#include <string>
#include <vector>

#include "velk/edition2/CommonSubDatablock.h"
#include "velk/edition2/IHwDatablockAccess.h"
#include "velk/edition2/IHwVariantEeprom.h"

namespace Velk {

/// Reads the tables of any second-edition block as typed values or as text, without a class for each kind of block, and
/// rewrites blocks.
///
/// The accessor owns the block, but not the store. It parses the block once, can then read it any number of times, and
/// can write it. All readers append to `out`, take the number of the table in the block, and return true; if the table
/// or column is missing or the type unsuitable, they append nothing. They append as many values as the table claims. In
/// place of a value outside the block, lists of ids get 0, and columns the value before it.
class VELK_EXPORT CommonDatablockAccess {
 public:
  static constexpr char nullString[] = "";

  /// Takes ownership of `block`; both may be null. Without `parseNow` there are no tables until parse() is called.
  CommonDatablockAccess(IHwDatablockAccess* block, IHwVariantEeprom* store, bool parseNow);
  ~CommonDatablockAccess();
  CommonDatablockAccess(const CommonDatablockAccess&) = delete;
  CommonDatablockAccess& operator=(const CommonDatablockAccess&) = delete;

  /// Reads the block's header and tables without reporting anything, whatever the bytes. The last table is always an
  /// incomplete one: empty if the block ends after a table. A second call adds all tables again.
  void parse();

  unsigned short getId() const { return header_.header.id; }
  /// Returns the stored hundredths, unsigned, as a number.
  double getUpdateIndex() const;
  unsigned int getRowCount(unsigned int table) const;
  unsigned int getColCount(unsigned int table) const;
  const std::vector<CommonSubDatablock>& tables() const { return tables_; }
  /// Returns the block to the caller, who then owns it; the tables stay.
  IHwDatablockAccess* releaseBlock() { return block_.release(); }

  /// Returns the size of a value in bytes; 1 for a string, 0 for values that are not types.
  static unsigned int getSizeInBytes(unsigned int typeId, unsigned int table);

  /// Returns the stored value at `source`, which must have as many bytes as its type needs, as a number. Integers are
  /// converted modulo the range of T, 64-bit ones from their lower 32 bits; floating values lose their fraction;
  /// characters are copied byte by byte. For any other type, returns 0 and writes a line to the Console's output.
  ///
  /// T is an integer of 8 to 64 bits, float or double, here and in the readers, which also give std::string.
  template <class T>
  static T convValue(const char* source, unsigned int typeId);

  /// Reads a column's cells, each through convValue; texts are the stored bytes, whatever the type.
  template <class T>
  bool getDataColumn(unsigned int column, std::vector<T>& out, unsigned int table) const;
  /// Reads the column ids, each through convValue; texts end at a zero byte, and zeros before a text are skipped.
  template <class T>
  bool getColIdList(std::vector<T>& out, unsigned int table) const;
  /// Reads the row ids, whose bytes are copied and never converted; texts end at a zero byte.
  template <class T>
  bool getRowIdList(std::vector<T>& out, unsigned int table) const;

  bool getStringColumn(unsigned int column, std::vector<std::string>& out, unsigned int table) const;
  bool getColIdStringList(std::vector<std::string>& out, unsigned int table) const;
  /// Reads the names of the column types; clears `out` first.
  bool getDataTypeList(std::vector<std::string>& out, unsigned int table) const;
  /// Reads one list of a table as text, with values of type `typeId`.
  bool getDataInStringVector(std::vector<std::string>& out, VECTOR_TYPE kind, unsigned int typeId, unsigned int column,
                             unsigned int table) const;
  /// Formats numbers with up to 15 digits; T is an integer of 16 to 64 bits, float, double or std::string.
  template <class T>
  static void convertVectorToStingVector(std::vector<T> values, std::vector<std::string>& out);

  /// Rebuilds the block from its complete tables, with new checksums, and passes the bytes to the block, whose 16-bit
  /// checksum stays 0, and to the store. Cells are written column by column, strings without their zeros, so only
  /// tables of one column without strings read back unchanged. So do those without columns, which are a header and no
  /// padding, since the next table is read from there on. Returns false and does nothing if there is no block or the
  /// image would be longer than a block can be.
  bool write();
  /// Passes a block of these bytes to the store; always returns true.
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
