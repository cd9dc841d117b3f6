#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "velk/data/AnnotatedBytes.h"

namespace VelkTest {

/// Returns the paths of the values in use of which a block has bytes. A list that is one address is one value.
inline std::vector<std::string> pathsInUse(const Velk::BlockView& block) {
  std::vector<std::string> paths;
  const Velk::BlockData data(block);
  const auto add = [&](const Velk::DataPath& path, const Velk::FieldElement& element) {
    if (element.offset >= block.bytes.size()) return;
    std::string text = path.text();
    if (element.field->notation == Velk::Notation::Address) text.erase(text.rfind('['));
    if (paths.empty() || paths.back() != text) paths.push_back(text);
  };
  forEachValue(data.root(), {}, add);
  return paths;
}

inline bool haveSame(std::vector<std::string> one, std::vector<std::string> other) {
  if (one == other) return true;
  std::ranges::sort(one);
  std::ranges::sort(other);
  return one == other;
}

/// Returns what is wrong with the spans of a block; empty if they have each of its bytes once, in order, and each value
/// in use once, at its bytes.
inline std::string faultOfAnnotation(const Velk::BlockView& block) {
  std::size_t position = 0;
  std::vector<std::string> paths;
  for (const Velk::AnnotatedSpan& span : annotatedBytes(block)) {
    if (span.size == 0 || span.offset != position) return "gap or overlap at " + std::to_string(position);
    position += span.size;
    for (const Velk::AnnotatedValue& value : span.values) {
      if (span.role == Velk::ByteRole::Value) paths.push_back(value.path);
      if (!value.element) continue;
      const auto [field, offset, size] = *value.element;
      const bool isInside = offset >= span.offset && (value.isCut || offset + size <= position);
      if (!isInside) return value.path + " is outside its span";
    }
  }
  if (position != block.bytes.size()) return "ends at " + std::to_string(position);
  const bool hasFields = block.row != nullptr || block.kind == Velk::BlockKind::SecondEdition;
  return !hasFields || haveSame(std::move(paths), pathsInUse(block)) ? "" : "other values than those in use";
}

}  // namespace VelkTest
