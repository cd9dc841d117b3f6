#pragma once

#include <string>
#include <vector>

#include "velk/image/BlockView.h"

namespace Velk {

/// Replaces what identifies a module, who had it and what users wrote into it by zeros: numbers of
/// modules, lots and repairs, names, departments, network addresses, descriptions. Updates the checksum; one that was
/// wrong stays as wrong as it was. Returns the names of the fields that held something. `block` are the bytes that
/// `view` describes.
VELK_EXPORT std::vector<std::string> redactBlock(MutableBytes block, const BlockView& view);

/// How much of a block redaction can judge. Erased memory and zeros hold nothing.
enum class RedactionReach : unsigned char {
  All,      ///< the meaning of every byte is known
  Fields,   ///< bytes that belong to no field are left
  Nothing,  ///< the meaning of no byte is known
};

/// Returns how much of a block redaction can judge.
VELK_EXPORT RedactionReach redactionReach(const BlockView& block);

}  // namespace Velk
