// The largest table: loading it, changing one cell, printing it.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstring>
#include <memory>
#include <sstream>

#include "WordSum.h"
#include "velk/tables/PimTables.h"

namespace {

using Table = Velk::HwDatablockPimMwIfExtLevCalData;
using Record = Velk::HwSDatablockPimMwIfExtLevCalData;

constexpr int levels = 20;
constexpr int frequencies = 1500;

Table fullTable() {
  Table table(true);
  table.setNumberOfLevelSteps(levels);
  table.setNumberOfFreqs(frequencies);
  for (int level = 0; level < levels; ++level) {
    for (int i = 0; i < frequencies; ++i) {
      table.setCorLevelValue(static_cast<short>(i * 7 - 4000), static_cast<unsigned char>(level),
                             static_cast<unsigned>(i), false);
    }
  }
  table.setChecksum(table.computeChecksum());
  return table;
}

void tableLoaded(benchmark::State& state) {
  Table source = fullTable();
  const auto record = std::make_unique<Record>(*source.getBlock());
  Table table(true);
  for (auto _ : state) {
    if (table.setBlock(record.get()) != 0) state.SkipWithError("refused");
  }
}

void tableLoadedBare(benchmark::State& state) {
  Table source = fullTable();
  const auto* const from = reinterpret_cast<const unsigned char*>(source.getBlock());
  const auto to = std::make_unique<unsigned char[]>(sizeof(Record));
  for (auto _ : state) {
    benchmark::DoNotOptimize(VelkBench::sumOf(from, sizeof(Record)));
    std::memcpy(to.get(), from, sizeof(Record));
    benchmark::DoNotOptimize(VelkBench::sumOf(to.get(), sizeof(Record)));
  }
}

void cellSet(benchmark::State& state) {
  Table table = fullTable();
  unsigned i = 0;
  for (auto _ : state) table.setCorLevelValue(5, 3, i++ % frequencies, true);
}

void cellSetBare(benchmark::State& state) {
  Table table = fullTable();
  const unsigned char* bytes = table.getData();
  for (auto _ : state) {
    benchmark::DoNotOptimize(bytes);
    benchmark::DoNotOptimize(VelkBench::sumOf(bytes, sizeof(Record)));
  }
}

/// The time per cell of the text.
void cellPrinted(benchmark::State& state) {
  Table table = fullTable();
  std::ostringstream os;
  while (state.KeepRunningBatch(levels * frequencies)) {
    os.seekp(0);
    table.printToStream(os);
  }
}

void cellPrintedBare(benchmark::State& state) {
  char digits[8];
  int value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::to_chars(digits, digits + sizeof digits, value++ % frequencies * 7 - 4000));
    benchmark::ClobberMemory();
  }
}

BENCHMARK(tableLoaded);
BENCHMARK(tableLoadedBare);
BENCHMARK(cellSet);
BENCHMARK(cellSetBare);
BENCHMARK(cellPrinted);
BENCHMARK(cellPrintedBare);

}  // namespace
