#pragma once

#include <set>

#include "velk/data/BlockData.h"

namespace Velk {

/// A member that counts more elements than there can be, or fewer than none.
struct ImpossibleCount {
  std::string_view counter;  ///< the name of the member
  std::string reason;        ///< such as "99 is more than the 26 that values has room for"
};

/// Returns each impossible count of a block.
VELK_EXPORT std::vector<ImpossibleCount> impossibleCounts(const BlockView& block);

/// Returns the bytes of a block in which each count that is negative, or above the number of elements that the block
/// holds, is set to that number. Empty if there is none. The checksum is not updated.
VELK_EXPORT QByteArray withHeldCounts(const BlockView& block);

/// Returns the names of the members of a record that count the elements in use of others.
VELK_EXPORT std::set<std::string_view> counterNames(const DataNode& record);

namespace detail {
/// Returns why a member of a record that counts others cannot be `count`, such as "99 is more than the 26 that values
/// has room for"; empty if it can, or if the member counts nothing.
std::string noSuchCount(const DataNode& record, std::string_view name, std::int64_t count);
}  // namespace detail

}  // namespace Velk
