// Blocks as data: export compared with formatting the same numbers, diff compared with reading and checking the images.
#include <benchmark/benchmark.h>

#include <charconv>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <random>

#include "../tool/DataJson.h"
#include "RunProgram.h"
#include "velk/fields/FieldValue.h"
#include "velk/velk.h"

namespace {

using namespace Velk;

/// Sets the counts of all lists of a record to their capacity.
void fillCounts(MutableBytes block, std::span<const FieldInfo> fields) {
  for (const FieldInfo& list : fields) {
    for (const auto& [counter, capacity] : {std::pair(list.usedRows, list.rows), std::pair(list.usedCols, list.cols)}) {
      const auto field = std::ranges::find(fields, std::string_view(counter), &FieldInfo::name);
      if (field != fields.end()) setFieldText(block, {&*field, field->offset}, std::to_string(capacity));
    }
  }
}

/// Returns sound blocks of random classes of the dictionary, one after another, up to `size` bytes. Their values look
/// like calibration data.
QByteArray calibratedImage(qsizetype size) {
  std::mt19937 random(20261125);
  QByteArray image;
  while (true) {
    const CatalogueRow& row = dictionaryRows()[random() % dictionaryRows().size()];
    if (row.firstId == erasedBlockId || row.size < 12 || row.size > 30'000) continue;
    const std::unique_ptr<HwDatablock> block = row.make(row.firstId);
    QByteArray bytes = block->getByteArrayData();
    if (image.size() + bytes.size() > size) {
      if (image.size() > size - 1000) break;
      continue;
    }
    const MutableBytes view(reinterpret_cast<unsigned char*>(bytes.data()), std::size_t(bytes.size()));
    const BlockData data(view, row.fields, Extent::Capacity);
    const auto fill = [&](const DataPath&, const FieldElement& element) {
      const double thousandths = isFloating(element.field->type) ? 1000 : 1;
      char text[32];
      const char* const end = std::to_chars(text, text + 32, static_cast<double>(random() % 30'000) / thousandths).ptr;
      setFieldText(view, element, {text, static_cast<std::size_t>(end - text)});
    };
    forEachValue(data.root(), {}, fill);
    fillCounts(view, row.fields);
    sealBlock(view, BlockKind::OldStyle);
    image += bytes;
  }
  return image;
}

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

/// Files that are removed at the end of the run.
class Folder {
 public:
  Folder() { std::filesystem::create_directories(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  std::string write(const std::string& name, const QByteArray& bytes) const {
    std::ofstream(path_ / name, std::ios::binary).write(bytes.constData(), bytes.size());
    return path_ / name;
  }

 private:
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("velk_bench_data_" + std::to_string(getpid()));
};

const Folder& folder() {
  static const Folder files;
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

constexpr int fleetSize = 1000;

const QByteArray& fleetImage() {
  static const QByteArray image = calibratedImage(64 * 1024);
  return image;
}

void fleetExported(benchmark::State& state) {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (int i = 0; i < fleetSize; ++i) all.push_back(folder().write(std::to_string(i) + ".bin", fleetImage()));
    return all;
  }();
  std::vector<std::string> words = {VELK_COMMAND, "export", "--format", "jsonl"};
  words.insert(words.end(), names.begin(), names.end());
  for (auto _ : state) {
    if (VelkBench::runProgram(words) != 0) state.SkipWithError("velk export failed");
  }
}

/// The numbers in the export of an image, in their own types.
struct Numbers {
  std::vector<std::int64_t> integers;
  std::vector<float> floats;
  std::vector<double> doubles;
};

Numbers numbersOf(const QByteArray& bytes) {
  Numbers numbers;
  const MemoryImage image(bytes);
  for (const BlockView& block : image) {
    const BlockData data(block);
    const auto take = [&]<class T>(T value) {
      if constexpr (std::is_integral_v<T>) numbers.integers.push_back(static_cast<std::int64_t>(value));
      if constexpr (std::is_same_v<T, float>) numbers.floats.push_back(value);
      if constexpr (std::is_same_v<T, double>) numbers.doubles.push_back(value);
    };
    const auto visit = [&](const DataPath&, const FieldElement& element) {
      detail::withValue(block.bytes, element, ValueForm::Presented, take);
    };
    forEachValue(data.root(), {}, visit);
  }
  return numbers;
}

void fleetAsDigits(benchmark::State& state) {
  const Numbers numbers = numbersOf(fleetImage());
  char digits[32];
  std::size_t size = 0;
  const auto write = [&](const auto& values) {
    for (const auto value : values)
      size += static_cast<std::size_t>(std::to_chars(digits, digits + 32, value).ptr - digits);
  };
  for (auto _ : state) {
    for (int i = 0; i < fleetSize; ++i) {
      write(numbers.integers);
      write(numbers.floats);
      write(numbers.doubles);
    }
    benchmark::DoNotOptimize(size);
  }
}

BENCHMARK(tableAsJson);
BENCHMARK(tableAsDigits);
BENCHMARK(imagesCompared);
BENCHMARK(imagesChecked);
BENCHMARK(fleetExported)->UseRealTime();
BENCHMARK(fleetAsDigits)->UseRealTime();

}  // namespace
