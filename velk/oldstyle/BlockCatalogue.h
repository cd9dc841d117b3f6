#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "velk/datablock/HwDatablock.h"
#include "velk/layer/HwRecordBlock.h"

namespace Velk {

/// What a conversion between the two byte orders changes in a block, besides swapping its values, which does nothing
/// on this host.
enum class Conversion : unsigned char {
  None,            ///< blocks of these ids are not converted
  Values,          ///< nothing else
  Record,          ///< the header and the text become those that the record class keeps
  ClearAlignment,  ///< the alignment word is cleared
};

/// Sizes that blocks of a class may have besides the usual one.
struct OtherSizes {
  bool longer = false;      ///< any longer one
  unsigned short also = 0;  ///< another one
};

/// What is known about blocks with one id, or with consecutive ids of one class.
struct CatalogueRow {
  unsigned short firstId;
  unsigned short lastId;
  std::string_view className;
  std::span<const char* const> keys;  ///< the blocks' names, from firstId on; a single one serves all
  unsigned short size;                ///< bytes of a block
  OtherSizes others;
  std::span<const FieldInfo> fields;
  /// Makes a new, empty block.
  std::unique_ptr<HwDatablock> (*make)(unsigned short id);
  Conversion conversion;
  const RecordTraits* record;  ///< null unless the class is a record class

  const char* key(unsigned short id) const { return keys.size() == 1 ? keys[0] : keys[id - firstId]; }
  bool acceptsSize(unsigned short blockSize) const {
    return blockSize == size || (others.longer && blockSize > size) || (others.also != 0 && blockSize == others.also);
  }
};

/// Returns the rows of the old-style dictionary, in ascending order of their ids.
VELK_EXPORT std::span<const CatalogueRow> dictionaryRows();

/// Returns the rows of ids that have a class but are not in the dictionary, in ascending order. The velk command knows
/// them; the old-style interpreter prints only those in the dictionary.
VELK_EXPORT std::span<const CatalogueRow> otherRows();

/// Returns the dictionary's row for an id, or null.
VELK_EXPORT const CatalogueRow* findDictionaryRow(int id);

/// Returns the row for an id, from the dictionary or else from the other rows; null if there is none. If both have one,
/// prefers that whose blocks have `size` bytes.
VELK_EXPORT const CatalogueRow* findCatalogueRow(int id, unsigned short size = 0);

}  // namespace Velk
