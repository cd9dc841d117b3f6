#pragma once

#include "velk/data/BlockData.h"

namespace Velk {

/// Sets a value of a block from `text`. In presented form that is a number as export shows it, or what people read: in
/// the notation of the field (1141.1000.02), or in its unit (see setQuantityText); an address sets the whole list of
/// its bytes, and their count. Returns an empty text, or the path and the reason why it cannot be set, such as
/// "values[3]: 70000 is out of range: -32768 to 32767"; then the block is unchanged. A count may not exceed what it
/// counts. The block's checks are not updated: see sealBlock. `block` has the bytes that `view` describes.
VELK_EXPORT std::string setValue(MutableBytes block, const BlockView& view, std::string_view path,
                                 std::string_view text, ValueForm form);

}  // namespace Velk
