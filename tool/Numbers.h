#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>

namespace VelkTool {

/// Returns the check for numeric options, for CLI::Option::transform: decimal, leading zeros allowed, or hexadecimal
/// after 0x, from `least` to `most`.
CLI::Validator plainNumber(std::uint64_t least = 0, std::uint64_t most = std::numeric_limits<std::uint64_t>::max());

/// Returns the same check for the id of a block.
inline CLI::Validator blockId() { return plainNumber(0, std::numeric_limits<std::uint16_t>::max()); }

}  // namespace VelkTool
