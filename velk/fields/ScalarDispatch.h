#pragma once

#include "velk/fields/Fields.h"

namespace Velk::detail {

/// Calls `act` with a zero of the scalar type, so that a loop over many elements is compiled for that type. Calls
/// nothing for sub-records and for x87 numbers, which no C++ type stores in ten bytes.
template <class Act>
void withScalarType(ScalarType type, Act act) {
  switch (type) {
    case ScalarType::U8:
      return act(static_cast<unsigned char>(0));
    case ScalarType::I8:
      return act(static_cast<signed char>(0));
    case ScalarType::U16:
      return act(static_cast<unsigned short>(0));
    case ScalarType::I16:
      return act(static_cast<short>(0));
    case ScalarType::U32:
      return act(0U);
    case ScalarType::I32:
      return act(0);
    case ScalarType::U64:
      return act(std::uint64_t{0});
    case ScalarType::I64:
      return act(std::int64_t{0});
    case ScalarType::F32:
      return act(0.0F);
    case ScalarType::F64:
      return act(0.0);
    case ScalarType::F80:
    case ScalarType::Record:
      return;
  }
}

}  // namespace Velk::detail
