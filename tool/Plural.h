#pragma once

#include <cstdint>
#include <string>

namespace VelkTool {

/// Returns "1 table" or "2 tables": the number and the form of the noun that goes with it.
inline std::string counted(std::uint64_t number, const char* one, const char* several) {
  return std::to_string(number) + ' ' + (number == 1 ? one : several);
}

}  // namespace VelkTool
