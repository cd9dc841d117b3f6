#pragma once

#include <vector>

#include "velk/oldstyle/BlockCatalogue.h"

namespace VelkTest {

/// Returns the rows of both catalogues.
inline std::vector<Velk::CatalogueRow> allRows() {
  const auto dictionary = Velk::dictionaryRows();
  const auto others = Velk::otherRows();
  std::vector<Velk::CatalogueRow> rows(dictionary.begin(), dictionary.end());
  rows.insert(rows.end(), others.begin(), others.end());
  return rows;
}

}  // namespace VelkTest
