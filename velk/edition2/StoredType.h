#pragma once

#include "velk/edition2/TypeIds.h"

namespace Velk::detail {

enum class StoredForm : unsigned char {
  Nothing,     ///< not a type
  Number,      ///< an integer or floating-point type of the host
  Extended,    ///< the ten bytes of the x87
  FixedPoint,  ///< a signed integer in units of fixedPointUnit
  Characters,  ///< a text of a fixed size, padded with zeros
  String       ///< a text of any length with its terminating zero
};

/// How the values of a type are stored. `Value` is the number in the block, or the type of a text's bytes.
template <StoredForm f, class T = unsigned char>
struct StoredType {
  using Value = T;
  static constexpr StoredForm form = f;
};

/// Calls `act` with the StoredType of a type and returns its result, so a loop over many values checks their
/// type once.
template <class Act>
constexpr auto withStoredType(unsigned int typeId, Act act) {
  using enum StoredForm;
  switch (typeId) {
    case TYPE_ID_UINT8:
      return act(StoredType<Number, unsigned char>{});
    case TYPE_ID_INT8:
      return act(StoredType<Number, signed char>{});
    case TYPE_ID_UINT16:
      return act(StoredType<Number, unsigned short>{});
    case TYPE_ID_INT16:
      return act(StoredType<Number, short>{});
    case TYPE_ID_UINT32:
      return act(StoredType<Number, unsigned int>{});
    case TYPE_ID_INT32:
      return act(StoredType<Number, int>{});
    case TYPE_ID_UINT64:
      return act(StoredType<Number, unsigned long long>{});
    case TYPE_ID_INT64:
      return act(StoredType<Number, long long>{});
    case TYPE_ID_FLOAT:
      return act(StoredType<Number, float>{});
    case TYPE_ID_DOUBLE:
      return act(StoredType<Number, double>{});
    case TYPE_ID_LONG_DOUBLE:
      return act(StoredType<Extended, long double>{});
    case TYPE_ID_STRING:
      return act(StoredType<String>{});
    default:
      if (isCharacters(typeId)) return act(StoredType<Characters>{});
      if (!isFixedPoint(typeId)) return act(StoredType<Nothing>{});
      return typeSize(typeId) == sizeof(short) ? act(StoredType<FixedPoint, short>{})
                                               : act(StoredType<FixedPoint, int>{});
  }
}

// A number fills the bytes that the table gives its type.
static_assert([] {
  bool agrees = true;
  for (unsigned int type = TYPE_ID_MIN; type <= TYPE_ID_MAX; ++type) {
    agrees = agrees && withStoredType(type, [type]<class Stored>(Stored) {
               const bool number = Stored::form == StoredForm::Number || Stored::form == StoredForm::FixedPoint;
               return !number || sizeof(typename Stored::Value) == typeSize(type);
             });
  }
  return agrees;
}());

}  // namespace Velk::detail
