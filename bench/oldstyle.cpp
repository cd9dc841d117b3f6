// The old-style interpreter: its construction, and printing a block of every id; and the command printing one block.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <charconv>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "RunProgram.h"
#include "velk/velk.h"

namespace {

using Velk::HwDatablock;
using Velk::HwDatablockOldStyleInterpreter;

/// Bytes allocated on the heap.
double heapBytes() { return static_cast<double>(mallinfo2().uordblks); }

void interpreterBuilt(benchmark::State& state) {
  const double before = heapBytes();
  const HwDatablockOldStyleInterpreter kept;
  state.counters["held"] = heapBytes() - before;
  for (auto _ : state) {
    const HwDatablockOldStyleInterpreter interpreter;
    benchmark::DoNotOptimize(&interpreter);
  }
}

/// Puts the same number of plain blocks into a map.
void interpreterBare(benchmark::State& state) {
  for (auto _ : state) {
    std::map<int, std::unique_ptr<HwDatablock>> blocks;
    for (const Velk::CatalogueRow& row : Velk::dictionaryRows()) {
      for (int id = row.firstId; id <= row.lastId; ++id) {
        blocks.emplace_hint(blocks.end(), id, std::make_unique<HwDatablock>(true));
      }
    }
    benchmark::DoNotOptimize(&blocks);
  }
}

/// Returns the blocks of the example image that has every id.
std::vector<std::unique_ptr<HwDatablock>> blocksOfEveryId() {
  std::vector<std::unique_ptr<HwDatablock>> blocks;
  const Velk::ImageFile image = Velk::readImageFile(VELK_EXAMPLES "/every_id.bin");
  for (const Velk::BlockView& view : Velk::MemoryImage(image.bytes)) {
    blocks.push_back(std::make_unique<HwDatablock>(true));
    blocks.back()->setData(view.bytes.data(), static_cast<unsigned>(view.bytes.size()));
  }
  return blocks;
}

/// Counts the numbers in a text, line labels and values, without those in comments.
benchmark::IterationCount numbersIn(const std::string& text) {
  benchmark::IterationCount numbers = 0;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('#')) continue;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const auto isNumeric = [&](std::size_t at) { return std::isalnum(static_cast<unsigned char>(line[at])) != 0; };
      const bool begins = i == 0 || (!isNumeric(i - 1) && line[i - 1] != '.' && line[i - 1] != '_');
      if (begins && std::isdigit(static_cast<unsigned char>(line[i])) != 0) ++numbers;
    }
  }
  return numbers;
}

/// The time per number of the text.
void numberPrinted(benchmark::State& state) {
  HwDatablockOldStyleInterpreter interpreter;
  const auto blocks = blocksOfEveryId();
  const auto print = [&](std::ostream& os) {
    for (const auto& block : blocks) interpreter.printHwDatablockOldStyleInfo(block.get(), os);
  };
  std::ostringstream os;
  print(os);
  const benchmark::IterationCount numbers = numbersIn(os.str());
  while (state.KeepRunningBatch(numbers)) {
    os.seekp(0);
    print(os);
  }
  state.counters["numbers"] = static_cast<double>(numbers);
}

void numberPrintedBare(benchmark::State& state) {
  char digits[8];
  int value = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::to_chars(digits, digits + sizeof digits, value++ % 1000));
    benchmark::ClobberMemory();
  }
}

void commandPrints(benchmark::State& state) {
  for (auto _ : state) {
    const int status = VelkBench::runProgram({VELK_COMMAND, "print", "--id", "2", VELK_EXAMPLES "/rf_board.bin"});
    if (status != 0) state.SkipWithError("velk print failed");
  }
}

void librariesLoaded(benchmark::State& state) {
  for (auto _ : state) {
    if (VelkBench::runProgram({VELK_LIBRARIES_LOADED}) != 0) state.SkipWithError("the program failed");
  }
}

BENCHMARK(interpreterBuilt);
BENCHMARK(interpreterBare);
BENCHMARK(numberPrinted);
BENCHMARK(numberPrintedBare);
BENCHMARK(commandPrints)->UseRealTime();
BENCHMARK(librariesLoaded)->UseRealTime();

}  // namespace
