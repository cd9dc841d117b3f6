#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>

namespace VelkTool {

/// Has an option take numbers as all options do: decimal, with zeros before it or not, or hexadecimal after 0x; none
/// below `least` or above `most`. To be given to CLI::Option::transform.
CLI::Validator plainNumber(std::uint64_t least = 0, std::uint64_t most = std::numeric_limits<std::uint64_t>::max());

/// The same for the id of a block.
inline CLI::Validator blockId() { return plainNumber(0, std::numeric_limits<std::uint16_t>::max()); }

}  // namespace VelkTool
