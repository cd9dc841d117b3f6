// Whole images: the walk compared with reading the bytes once, the command on hostile ones with clean ones.
#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "RunProgram.h"
#include "WordSum.h"
#include "velk/velk.h"

namespace {

/// Returns sound blocks of unknown ids, of 1 to 3 KiB each, up to `size` bytes.
QByteArray blocks(qsizetype size) {
  std::mt19937 random(1);
  QByteArray image;
  image.reserve(size);
  while (image.size() < size) {
    const auto wanted = static_cast<qsizetype>(1024 + random() % 2048 / 4 * 4);
    const qsizetype length = size - image.size() - wanted < 1024 ? size - image.size() : wanted;
    QByteArray bytes(length, '\0');
    for (qsizetype i = 8; i < length; ++i) bytes[i] = static_cast<char>(random());
    Velk::HwDatablock block(true);
    block.setData(bytes);
    block.setBlockSize(static_cast<unsigned short>(length));
    block.setBlockId(static_cast<unsigned short>(20000 + random() % 1000));
    image += block.getByteArrayData();
  }
  return image;
}

const QByteArray& largeImage() {
  static const QByteArray image = blocks(64 * 1024 * 1024);
  return image;
}

void imageWalked(benchmark::State& state) {
  const Velk::MemoryImage image(largeImage());
  for (auto _ : state) {
    std::size_t sound = 0;
    for (const Velk::BlockView& block : image) sound += block.isSound() ? 1 : 0;
    benchmark::DoNotOptimize(sound);
  }
}

/// Computes only the checksums that classify a block and decide whether it is sound.
void imageChecked(benchmark::State& state) {
  std::vector<Velk::ConstBytes> blocks;
  for (const Velk::BlockView& block : Velk::MemoryImage(largeImage())) blocks.push_back(block.bytes);
  for (auto _ : state) {
    std::uint32_t checks = 0;
    for (const auto bytes : blocks) {
      checks += libdeflate_crc32(0, bytes.data(), bytes.size());
      checks += VelkBench::sumOf(bytes.data(), bytes.size());
    }
    benchmark::DoNotOptimize(checks);
  }
}

void imageRead(benchmark::State& state) {
  const auto* const bytes = largeImage().constData();
  const auto size = static_cast<std::size_t>(largeImage().size());
  for (auto _ : state) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < size; i += sizeof sum) {
      std::uint64_t word = 0;
      std::memcpy(&word, bytes + i, sizeof word);
      sum += word;
    }
    benchmark::DoNotOptimize(sum);
  }
}

/// A file of 64 MiB that is removed at the end of the run.
class LargeFile {
 public:
  explicit LargeFile(const QByteArray& bytes) {
    std::ofstream(path_, std::ios::binary).write(bytes.data(), bytes.size());
  }
  LargeFile(const LargeFile&) = delete;
  LargeFile& operator=(const LargeFile&) = delete;
  ~LargeFile() { std::filesystem::remove(path_); }

  /// Runs `velk check` on the file.
  void check(benchmark::State& state) const {
    for (auto _ : state) {
      if (VelkBench::runProgram({VELK_COMMAND, "check", path_}) == -1) state.SkipWithError("velk check failed");
    }
  }

 private:
  static inline int made_ = 0;
  std::string path_ = std::filesystem::temp_directory_path() /
                      ("velk_bench_" + std::to_string(getpid()) + "_" + std::to_string(++made_));
};

QByteArray repeated(const QByteArray& bytes) {
  return bytes.repeated(largeImage().size() / bytes.size() + 1).left(largeImage().size());
}

QByteArray randomBytes() {
  std::mt19937 random(2);
  QByteArray bytes(largeImage().size(), '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

QByteArray contentsOf(const char* path) {
  std::ifstream file(path, std::ios::binary);
  const std::string contents{std::istreambuf_iterator<char>(file), {}};
  return QByteArray::fromStdString(contents);
}

void cleanChecked(benchmark::State& state) {
  static const LargeFile file(largeImage());
  file.check(state);
}
void randomChecked(benchmark::State& state) {
  static const LargeFile file(randomBytes());
  file.check(state);
}
/// Runs the command repeatedly.
void firmwareChecked(benchmark::State& state) {
  static const LargeFile file(repeated(contentsOf(VELK_COMMAND)));
  file.check(state);
}
/// A header of a known id with the maximum size at every fourth byte.
void slowIdsChecked(benchmark::State& state) {
  static const LargeFile file(repeated(QByteArray::fromHex("0200FFFF")));
  file.check(state);
}
/// A header of a known id with the size of its blocks at every fourth byte: each asks for a sum.
void slowSumsChecked(benchmark::State& state) {
  static const LargeFile file(repeated(QByteArray::fromHex("1327D400")));
  file.check(state);
}
/// Headers of blocks of 60,000 bytes with tables of strings.
void slowTablesChecked(benchmark::State& state) {
  static const LargeFile file(repeated(QByteArray::fromHex("100460EA00000000000000000100030001000019")));
  file.check(state);
}

BENCHMARK(cleanChecked)->UseRealTime();
BENCHMARK(randomChecked)->UseRealTime();
BENCHMARK(firmwareChecked)->UseRealTime();
BENCHMARK(slowIdsChecked)->UseRealTime();
BENCHMARK(slowSumsChecked)->UseRealTime();
BENCHMARK(slowTablesChecked)->UseRealTime();
BENCHMARK(imageWalked)->UseRealTime();
BENCHMARK(imageChecked)->UseRealTime();
BENCHMARK(imageRead)->UseRealTime();

}  // namespace
