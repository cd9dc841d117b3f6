#pragma once

#include <vector>

#include "velk/data/DataLookup.h"

namespace VelkTest {

/// Calls `act` with the path and the element of every value in a block of `size` bytes with these fields.
template <class Act>
void forEachField(std::span<const Velk::FieldInfo> fields, std::size_t size, Act act) {
  const std::vector<unsigned char> block(size);
  const Velk::BlockData data(block, fields, Velk::Extent::Capacity);
  const auto visit = [&](const Velk::DataPath& path, const Velk::FieldElement& element) { act(path.text(), element); };
  forEachValue(data.root(), {}, visit);
}

/// Returns the value at a path of a block of full size, or nothing.
inline std::optional<Velk::FieldElement> findField(std::span<const Velk::FieldInfo> fields, std::string_view path) {
  const std::vector<unsigned char> block(0xFFFF);
  const Velk::BlockData data(block, fields, Velk::Extent::Capacity);
  const Velk::DataLookup lookup = findValue(data.root(), path);
  return lookup.value ? std::optional(lookup.value->element()) : std::nullopt;
}

}  // namespace VelkTest
