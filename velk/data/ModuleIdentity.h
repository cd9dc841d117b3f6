#pragma once

#include <optional>
#include <string>

#include "velk/image/MemoryImage.h"

namespace Velk {

/// Which module a memory belongs to, as its first sound ident block says.
struct ModuleIdentity {
  std::string name{};
  std::string partNumber{};  ///< such as 1141.1000.02
  std::optional<std::uint32_t> serialNumber{};
};

/// Returns the identity of a module; an empty one if no ident block is sound.
VELK_EXPORT ModuleIdentity identityOf(const MemoryImage& image);

}  // namespace Velk
