#pragma once

#include <string_view>

/// Lines that the pages of second-edition blocks share.
namespace Velk::detail {

inline constexpr std::string_view pageStart = "############# NEW CONCEPT  #####################################";
inline constexpr std::string_view pageRule = "#=======================================================================";

/// Columns of a line's label in the lines before a table.
inline constexpr std::size_t pageLabelWidth = 20;

}  // namespace Velk::detail
