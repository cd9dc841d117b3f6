#pragma once

#include <sstream>
#include <string>

namespace VelkTest {

/// A table as the text that can be read back.
template <class Table>
std::string written(Table& table) {
  std::ostringstream os;
  Table::conv2ascii(os, table);
  return os.str();
}

}  // namespace VelkTest
