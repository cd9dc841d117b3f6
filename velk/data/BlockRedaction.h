#pragma once

#include <string>
#include <vector>

#include "velk/image/BlockView.h"

namespace Velk {

/// Overwrites with zeros what identifies a module, who had it, and what users wrote into it:
/// numbers of modules, lots and repairs, names, departments, network addresses,
/// descriptions. Updates the checksum; a wrong checksum remains wrong by as much. Returns
/// the names of the fields that were not empty. `block` has the bytes that `view` describes.
VELK_EXPORT std::vector<std::string> redactBlock(MutableBytes block, const BlockView& view);

/// How much of a block redaction can judge. Erased memory and zeros contain nothing.
enum class RedactionReach : unsigned char {
  All,      ///< the meaning of every byte is known
  Fields,   ///< bytes that belong to no field are left
  Nothing,  ///< the meaning of no byte is known
};

/// Returns how much of a block redaction can judge.
VELK_EXPORT RedactionReach redactionReach(const BlockView& block);

}  // namespace Velk
