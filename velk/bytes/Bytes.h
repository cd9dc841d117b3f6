#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>

#include "velk/bytes/ByteOrder.h"

namespace Velk {

/// The bytes of a block or an image that somebody else owns.
using ConstBytes = std::span<const unsigned char>;
using MutableBytes = std::span<unsigned char>;

}  // namespace Velk

namespace Velk::detail {

/// Whether `count` bytes from `offset` lie wholly inside `size` bytes; cannot overflow.
constexpr bool fits(std::size_t size, std::size_t offset, std::size_t count) noexcept {
  return count <= size && offset <= size - count;
}

/// The stored value at `offset`, or 0 where it is not wholly inside the bytes.
template <class T>
T load(ConstBytes bytes, std::size_t offset) noexcept {
  T value{};
  if (fits(bytes.size(), offset, sizeof(T))) {
    std::memcpy(&value, bytes.data() + offset, sizeof(T));
    swapStoredAndHost(value);
  }
  return value;
}

/// The first N bytes; zeros follow where there are fewer.
template <std::size_t N>
std::array<unsigned char, N> firstBytes(ConstBytes bytes) noexcept {
  std::array<unsigned char, N> first{};
  std::copy_n(bytes.begin(), std::min(N, bytes.size()), first.begin());
  return first;
}

/// The value at `offset` of which bytes are missing. Seldom called, and better kept out of the code of all who load.
template <class T>
[[gnu::noinline, gnu::cold]] T loadCut(ConstBytes bytes, std::size_t offset) noexcept {
  return load<T>(firstBytes<sizeof(T)>(bytes.subspan(std::min(offset, bytes.size()))), 0);
}

/// The stored value at `offset` of a record that may be cut: bytes that are missing count as 0.
template <class T>
T loadPadded(ConstBytes bytes, std::size_t offset) noexcept {
  return fits(bytes.size(), offset, sizeof(T)) ? load<T>(bytes, offset) : loadCut<T>(bytes, offset);
}

/// Stores `value` at `offset`; does nothing and returns false where it is not wholly inside the bytes.
template <class T>
bool store(MutableBytes bytes, std::size_t offset, T value) noexcept {
  if (!fits(bytes.size(), offset, sizeof(T))) return false;
  swapStoredAndHost(value);
  std::memcpy(bytes.data() + offset, &value, sizeof(T));
  return true;
}

/// The text in the `length` bytes at `offset`, up to its first zero byte and as far as the bytes reach.
inline std::string_view textAt(ConstBytes bytes, std::size_t offset, std::size_t length) noexcept {
  const std::size_t begin = std::min(offset, bytes.size());
  const ConstBytes text = bytes.subspan(begin, std::min(length, bytes.size() - begin));
  const auto end = std::find(text.begin(), text.end(), 0);
  return {reinterpret_cast<const char*>(text.data()), static_cast<std::size_t>(end - text.begin())};
}

}  // namespace Velk::detail
