#pragma once

#include <cstdint>
#include <vector>

#include "velk/bytes/Bytes.h"

namespace Velk::detail {

/// The offsets of a memory at which blocks prove themselves (BlockProof), or lead, over blocks with right 16-bit sums
/// each of which ends where the next begins, to one that does.
///
/// Found in one pass from the memory's end to `from`; kept in a bit for each byte.
class ProvenStarts {
 public:
  ProvenStarts(ConstBytes memory, std::uint64_t from);

  bool has(std::uint64_t offset) const;
  /// The first one at `offset` or after it, or the memory's size.
  std::uint64_t next(std::uint64_t offset) const;

 private:
  static constexpr unsigned perWord = 64;

  void add(std::uint64_t offset);

  std::uint64_t from_;
  std::uint64_t size_;
  std::vector<std::uint64_t> bits_;
};

}  // namespace Velk::detail
