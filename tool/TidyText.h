#pragma once

#include <cstddef>
#include <string>

#include "Tidy.h"

namespace VelkTool {

/// Returns the number of characters of a line: that of the terminal that standard output is, else 80.
std::size_t lineWidth();

/// Returns a block as tables for eyes: a heading that says whose it is, then its single values by name, its lists
/// beside their points, and its tables below and beside theirs. Tables that are wider than `width` characters are in
/// pieces.
std::string tidyText(const TidyBlock& block, std::size_t width);

}  // namespace VelkTool
