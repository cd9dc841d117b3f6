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

/// What is known of the blocks of one id, or of neighbouring ids that one class serves.
struct CatalogueRow {
  unsigned short firstId;
  unsigned short lastId;
  std::string_view className;
  std::span<const char* const> keys;  ///< the blocks' names, from firstId on; a single one serves all
  unsigned short size;                ///< bytes of a block
  OtherSizes others;
  std::span<const FieldInfo> fields;
  /// A new, empty block.
  std::unique_ptr<HwDatablock> (*make)(unsigned short id);
  Conversion conversion;
  const RecordTraits* record;  ///< of record classes, else null

  const char* key(unsigned short id) const { return keys.size() == 1 ? keys[0] : keys[id - firstId]; }
  bool acceptsSize(unsigned short blockSize) const {
    return blockSize == size || (others.longer && blockSize > size) || (others.also != 0 && blockSize == others.also);
  }
};

/// The rows of the old-style dictionary, in ascending order of their ids.
VELK_EXPORT std::span<const CatalogueRow> dictionaryRows();

/// The rows of ids that have a class but no place in the dictionary, in ascending order: the velk command knows them,
/// the old-style interpreter prints only what the dictionary has.
VELK_EXPORT std::span<const CatalogueRow> otherRows();

/// The dictionary's row for an id, or null.
VELK_EXPORT const CatalogueRow* findDictionaryRow(int id);

/// The row for an id, in the dictionary or else among the other rows; or null. Where both know the id, one whose blocks
/// have `size` bytes is preferred.
VELK_EXPORT const CatalogueRow* findCatalogueRow(int id, unsigned short size = 0);

}  // namespace Velk
