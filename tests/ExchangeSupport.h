#pragma once

#include <sstream>
#include <string>

namespace VelkTest {

/// Returns the exchange text of a table.
template <class Table>
std::string written(Table& table) {
  std::ostringstream os;
  Table::conv2ascii(os, table);
  return os.str();
}

}  // namespace VelkTest
