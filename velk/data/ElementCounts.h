#pragma once

#include "velk/data/BlockData.h"

namespace Velk {

/// Describes each count of a block that cannot be right, as "count: 99 is more than the 26 that values has room for".
VELK_EXPORT std::vector<std::string> impossibleCounts(const BlockView& block);

/// Returns the bytes of a block with each count that claims more elements than the block holds, or less than none, set
/// to what it holds. Empty where no count does. The checksum is not updated.
VELK_EXPORT QByteArray withHeldCounts(const BlockView& block);

namespace detail {
/// Says why a member of a record that counts others cannot be `count`, as "99 is more than the 26 that values has room
/// for"; empty where it can, and for a name that counts nothing.
std::string noSuchCount(const DataNode& record, std::string_view name, std::int64_t count);
}  // namespace detail

}  // namespace Velk
