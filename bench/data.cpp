// Blocks as data: export compared with formatting the same numbers, diff compared with reading and checking the images.
#include <benchmark/benchmark.h>

#include <charconv>

#include "../tool/DataJson.h"
#include "CalibratedImage.h"
#include "TemporaryFolder.h"
#include "velk/fields/FieldValue.h"
#include "velk/velk.h"

namespace {

using namespace Velk;
using namespace VelkBench;

/// A table of 20 rows and 1500 columns of numbers, and its export.
struct LargeTable {
  LargeTable() {
    for (int row = 0; row < rows; ++row) {
      for (int column = 0; column < columns; ++column) values.push_back((row * 977 + column * 31) % 4000 - 2000);
    }
    store(8, rows);
    store(12, columns);
    for (std::size_t i = 0; i < values.size(); ++i) {
      detail::store(view(), 16 + 2 * i, static_cast<short>(values[i]));
    }
  }
  void store(std::size_t offset, int value) { detail::store(view(), offset, value); }
  MutableBytes view() { return bytes; }

  static constexpr int rows = 20;
  static constexpr int columns = 1500;
  std::vector<unsigned char> bytes = std::vector<unsigned char>(60'016);
  std::vector<int> values;
};

LargeTable& largeTable() {
  static LargeTable table;
  return table;
}

void tableAsJson(benchmark::State& state) {
  constexpr int levelTable = 12041;
  const CatalogueRow* const row = findCatalogueRow(levelTable);
  std::size_t size = 0;
  for (auto _ : state) {
    size = 0;
    VelkTool::JsonWriter json([&](std::string_view text) { size += text.size(); });
    VelkTool::writeData(json, BlockData(largeTable().bytes, row->fields), ValueForm::Presented);
    json.finish();
  }
  if (size < largeTable().values.size()) state.SkipWithError("this is not the table");
}

void tableAsDigits(benchmark::State& state) {
  std::vector<char> text(largeTable().values.size() * 8);
  for (auto _ : state) {
    char* at = text.data();
    for (const int value : largeTable().values) at = std::to_chars(at, at + 8, value).ptr;
    benchmark::DoNotOptimize(at);
    benchmark::ClobberMemory();
  }
}

const TemporaryFolder& folder() {
  static const TemporaryFolder files("data");
  return files;
}

/// Two images of 1 MB that differ in one value per block.
const std::vector<std::string>& twoVersions() {
  static const std::vector<std::string> names = [] {
    const QByteArray first = calibratedImage(1'000'000);
    QByteArray second = first;
    const MemoryImage image(first);
    for (const BlockView& block : image) {
      auto* const at = reinterpret_cast<unsigned char*>(second.data()) + block.offset;
      const MutableBytes bytes(at, block.bytes.size());
      bytes[bytes.size() / 2] ^= 1U;
      sealBlock(bytes, block.kind);
    }
    return std::vector{folder().write("first.bin", first), folder().write("second.bin", second)};
  }();
  return names;
}

std::vector<BlockView> blocksOf(const MemoryImage& image) {
  std::vector<BlockView> blocks;
  for (const BlockView& block : image) blocks.push_back(block);
  return blocks;
}

void imagesCompared(benchmark::State& state) {
  std::size_t differences = 0;
  std::size_t pairs = 0;
  for (auto _ : state) {
    differences = pairs = 0;
    const MemoryImage first(readImageFile(twoVersions()[0]).bytes);
    const MemoryImage second(readImageFile(twoVersions()[1]).bytes);
    const std::vector<BlockView> a = blocksOf(first);
    const std::vector<BlockView> b = blocksOf(second);
    for (const ComparedBlocks& pair : pairBlocks(a, b)) {
      ++pairs;
      compareBlocks(*pair.first, *pair.second, [&](const Difference&) { ++differences; });
    }
  }
  if (differences < pairs) state.SkipWithError("differences are missing");
}

void imagesChecked(benchmark::State& state) {
  for (auto _ : state) {
    std::size_t sound = 0;
    const MemoryImage first(readImageFile(twoVersions()[0]).bytes);
    const MemoryImage second(readImageFile(twoVersions()[1]).bytes);
    for (const MemoryImage* const image : {&first, &second}) {
      for (const BlockView& block : *image) sound += block.isSound() ? 1 : 0;
    }
    benchmark::DoNotOptimize(sound);
  }
}

BENCHMARK(tableAsJson);
BENCHMARK(tableAsDigits);
BENCHMARK(imagesCompared);
BENCHMARK(imagesChecked);

}  // namespace
