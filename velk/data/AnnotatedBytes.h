#pragma once

#include "velk/data/BlockData.h"

namespace Velk {

/// What the bytes of a span are.
enum class ByteRole : unsigned char {
  Header,     ///< a word of the header
  Checksum,   ///< a word of the header that is checked: checksum, CRC-32 or identifier of an event counter
  Value,      ///< a value, or several that share the bytes, such as bit fields
  Unused,     ///< elements of a list or table that are not in use
  Padding,    ///< what follows a part of a second-edition table up to the next multiple of four
  Uncovered,  ///< bytes of a block that belong to none of its fields
  Unknown,    ///< bytes of a block of unknown layout
  Stray,      ///< bytes that belong to no block, or are past the longest that a block can be
};

/// What is stored in a span, or in some bits of it.
struct AnnotatedValue {
  /// Path in the data of the block, "header.size" for a word of the header, or a range of elements: "values[2:26]".
  std::string path;
  std::optional<FieldElement> element{};  ///< nothing for elements that are not in use, and for unknown bytes
  bool isCut = false;                     ///< the block ends before the value does, or a text has no end
};

/// Consecutive bytes of a block that belong together.
struct AnnotatedSpan {
  std::size_t offset = 0;  ///< in the block
  std::size_t size = 0;    ///< at least 1
  ByteRole role = ByteRole::Uncovered;
  std::vector<AnnotatedValue> values{};  ///< in the order of the fields
};

/// Returns what every byte of a block is: spans without gap or overlap, in the order of the bytes. Damaged blocks are
/// described as far as their bytes go. Takes memory and time proportional to the bytes.
VELK_EXPORT std::vector<AnnotatedSpan> annotatedBytes(const BlockView& block);

/// Returns the path of the word of the header that a finding of the walk is about; empty if it is about none.
VELK_EXPORT const char* headerPathOf(Finding finding);

}  // namespace Velk
