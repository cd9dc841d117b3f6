#pragma once

#include <CLI/CLI.hpp>

namespace VelkTool {

/// Has an option take numbers as all options do: decimal, with zeros before it or not, or hexadecimal behind 0x. To be
/// given to CLI::Option::transform.
CLI::Validator plainNumber();

}  // namespace VelkTool
