#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <type_traits>

#include "velk/bytes/ByteOrder.h"
#include "velk/bytes/NumberConversion.h"
#include "velk/edition2/StoredType.h"
#include "velk/platform/Console.h"

/// Stored values as the type that a reader asks for.
namespace Velk::detail {

/// Reads a T from its first `size` bytes; the others are zero.
template <class T>
T copied(const char* source, std::size_t size) {
  T value{};
  std::memcpy(&value, source, std::min(size, sizeof value));
  swapStoredAndHost(value);
  return value;
}

template <class T, class Stored>
T converted(const char* source) {
  const auto stored = copied<Stored>(source, sizeof(Stored));
  if constexpr (std::is_floating_point_v<Stored> && std::is_integral_v<T>) {
    return toInteger<T>(stored);
  } else {
    return static_cast<T>(stored);
  }
}

template <class T>
T unsupported(unsigned int typeId) {
  const auto number = std::to_string(static_cast<int>(typeId));
  Console::write(Console::Stream::Output, "CommonDatablockAccess::convValue: type (" + number + ") not supported\n");
  return T{};
}

/// The type as which a stored number is read: only the lower half of 64-bit integers is used.
template <class Stored>
using ReadAs = std::conditional_t<std::is_same_v<Stored, unsigned long long>, unsigned int,
                                  std::conditional_t<std::is_same_v<Stored, long long>, int, Stored>>;

/// Calls `act` with the function that reads a stored value of type `typeId` as a T.
template <class T, class Act>
auto withConversion(unsigned int typeId, Act act) {
  using enum StoredForm;
  return withStoredType(typeId, [typeId, &act]<class Stored>(Stored) {
    if constexpr (Stored::form == Number) {
      return act([](const char* source) { return converted<T, ReadAs<typename Stored::Value>>(source); });
    } else if constexpr (Stored::form == Characters) {
      return act([typeId](const char* source) { return copied<T>(source, typeSize(typeId)); });
    } else {
      return act([typeId](const char*) { return unsupported<T>(typeId); });
    }
  });
}

}  // namespace Velk::detail
