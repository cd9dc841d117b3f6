#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "velk/bytes/HexText.h"
#include "velk/containers/ImageFile.h"

namespace VelkTest {

/// "0x0100 AABB____CC?? (line 2: not hexadecimal); entry 0x00000010": everything that a text said; gaps are "__", lost
/// bytes "??".
inline std::string summary(const QByteArray& text, Velk::Container container) {
  const Velk::ImageFile image = Velk::decodeImage(text, container);
  if (!image.error.empty()) return image.error;
  std::string bytes = image.bytes.toHex().toUpper().toStdString();
  const auto mark = [&](const std::vector<Velk::ImageRange>& ranges, char character) {
    for (const Velk::ImageRange& range : ranges)
      bytes.replace(2 * range.offset, 2 * range.size, 2 * range.size, character);
  };
  mark(image.gaps, '_');
  mark(image.lost, '?');
  std::string result = bytes.empty() ? "" : Velk::detail::hexText(image.address, 4) + ' ' + bytes;
  for (const Velk::FileFinding& finding : image.findings) result += " (" + finding.describe() + ')';
  if (const auto& entry = image.details.entry) {
    result += std::string("; ") + (entry->segmented ? "segmented " : "") + "entry " +
              Velk::detail::hexText(entry->address, 8);
  }
  if (!image.details.header.isEmpty()) result += "; header " + image.details.header.toStdString();
  return result;
}

struct ContainerCase {
  const char* text;
  const char* meaning;
};

inline void expectMeanings(std::span<const ContainerCase> cases, Velk::Container container) {
  for (const ContainerCase& expected : cases)
    EXPECT_EQ(summary(expected.text, container), expected.meaning) << expected.text;
}

}  // namespace VelkTest
