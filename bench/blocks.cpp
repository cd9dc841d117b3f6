// Checksums and the life cycle of one block, each compared with the minimum cost of its work.
#include <benchmark/benchmark.h>
#include <libdeflate.h>

#include <cstring>
#include <map>

#include "AllocationCount.h"
#include "WordSum.h"
#include "velk/velk.h"

namespace {

using Velk::HwDatablock;
using VelkBench::sumOf;

/// Returns a new block of `size` bytes with valid checksums.
HwDatablock makeSoundBlock(std::size_t size) {
  QByteArray bytes(static_cast<qsizetype>(size), '\0');
  for (qsizetype i = 12; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7);
  HwDatablock block(true);
  block.setData(bytes);
  block.setBlockSize(static_cast<unsigned short>(size));
  const unsigned crc = block.computeChecksum32();
  std::memcpy(block.getData() + 8, &crc, sizeof crc);
  block.setChecksum(block.computeChecksum());
  return block;
}

/// Returns the block of this size, which the measured code and its reference share: both see the same bytes at the same
/// address.
HwDatablock& soundBlock(const benchmark::State& state) {
  static std::map<std::int64_t, HwDatablock> blocks;
  const std::int64_t size = state.range(0);
  return blocks.try_emplace(size, makeSoundBlock(static_cast<std::size_t>(size))).first->second;
}

void sumVerified(benchmark::State& state) {
  HwDatablock& block = soundBlock(state);
  for (auto _ : state) {
    const bool right = block.verifyChecksum();
    benchmark::DoNotOptimize(right);
    if (!right) state.SkipWithError("wrong checksum");
  }
}

void sumBare(benchmark::State& state) {
  HwDatablock& block = soundBlock(state);
  const unsigned char* bytes = block.getData();
  for (auto _ : state) {
    benchmark::DoNotOptimize(bytes);
    benchmark::DoNotOptimize(sumOf(bytes, static_cast<std::size_t>(state.range(0))));
  }
}

void crcVerified(benchmark::State& state) {
  HwDatablock& block = soundBlock(state);
  for (auto _ : state) {
    const bool right = block.verifyChecksum32();
    benchmark::DoNotOptimize(right);
    if (!right) state.SkipWithError("wrong CRC-32");
  }
}

void crcBare(benchmark::State& state) {
  HwDatablock& block = soundBlock(state);
  const unsigned char* bytes = block.getData();
  for (auto _ : state) {
    benchmark::DoNotOptimize(bytes);
    benchmark::DoNotOptimize(libdeflate_crc32(0, bytes, static_cast<std::size_t>(state.range(0))));
  }
}

void identLife(benchmark::State& state) {
  const std::size_t before = VelkBench::allocationCount();
  for (auto _ : state) {
    Velk::HwDatablockIdent ident;
    ident.setSerialNumber(100234);
    benchmark::DoNotOptimize(ident.verifyChecksum());
  }
  state.counters["allocations"] = benchmark::Counter(static_cast<double>(VelkBench::allocationCount() - before),
                                                     benchmark::Counter::kAvgIterations);
}

/// Does the same with a plain record in its own buffer.
void identBare(benchmark::State& state) {
  for (auto _ : state) {
    QByteArray bytes(sizeof(Velk::HwSDatablockIdent), '\0');
    auto* const record = reinterpret_cast<Velk::HwSDatablockIdent*>(bytes.data());
    record->header = {2, sizeof *record, 0, 0};
    record->serialNumber = 100234;
    const auto* const words = reinterpret_cast<const unsigned char*>(record);
    record->header.checksum = static_cast<unsigned short>(-sumOf(words, sizeof *record));
    benchmark::DoNotOptimize(sumOf(words, sizeof *record));
  }
}

constexpr int small = 64;
constexpr int large = 65532;

BENCHMARK(sumVerified)->Arg(small)->Arg(large);
BENCHMARK(sumBare)->Arg(small)->Arg(large);
BENCHMARK(crcVerified)->Arg(small)->Arg(large);
BENCHMARK(crcBare)->Arg(small)->Arg(large);
BENCHMARK(identLife);
BENCHMARK(identBare);

}  // namespace
