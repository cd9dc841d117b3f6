#pragma once

#include "velk/data/BlockData.h"

namespace Velk {

/// What is odd about the data of a block although its checks may be right, a sentence each: counts of more than there
/// is room for, tables that the block does not hold whole. For people; nothing that reads the data depends on it.
VELK_EXPORT std::vector<std::string> doubtsAbout(const BlockView& block);

/// The bytes of a block with each count that claims more than the block holds, or less than nothing, set to what it
/// holds. Empty where no count does. The checksum is not mended.
VELK_EXPORT QByteArray withHeldCounts(const BlockView& block);

namespace detail {
/// Why a member of a record that counts others cannot be `count`, as "99 is more than the 26 that values has room for";
/// empty where it can, and for a name that counts nothing.
std::string noSuchCount(const DataNode& record, std::string_view name, std::int64_t count);
}  // namespace detail

}  // namespace Velk
