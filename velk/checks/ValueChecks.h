#pragma once

#include "velk/checks/Check.h"

namespace Velk::detail {

/// How many bytes of a list or table are in use, and their value, if all are the same.
struct Uniformity {
  std::size_t bytes = 0;  ///< 0 if they differ
  unsigned char value = 0;
  bool isUniform = true;
};

Uniformity uniformityOf(const DataNode& list, ConstBytes block);

/// Returns whether a field is a list or table of numbers of which a count says how many are in use.
bool isCounted(const FieldInfo& field);

}  // namespace Velk::detail
