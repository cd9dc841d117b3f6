// Runs all benches in one run, in mixed order, and compares their medians.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "velk/platform/Console.h"

namespace {

struct Comparison {
  const char* what;
  const char* measured;
  const char* floor;
  const char* floorName;
  double goal;           ///< times the floor
  double goalAbove = 0;  ///< or, where it is not 0, nanoseconds above it
  double goalInAll = 0;  ///< or, where it is not 0, nanoseconds whatever the floor
};

constexpr Comparison comparisons[] = {
    {"16-bit verify, 64 bytes", "sumVerified/64", "sumBare/64", "bare loop", 1.2},
    {"16-bit verify, 64 KB", "sumVerified/65532", "sumBare/65532", "bare loop", 1.2},
    {"CRC-32 verify, 64 bytes", "crcVerified/64", "crcBare/64", "libdeflate", 0, 40},
    {"CRC-32 verify, 64 KB", "crcVerified/65532", "crcBare/65532", "libdeflate", 1.1},
    {"walk of 64 MiB", "imageWalked/real_time", "imageRead/real_time", "one read pass", 2},
    {"the same", "imageWalked/real_time", "imageChecked/real_time", "CRC and sum", 0},
    {"random bytes, 64 MiB, checked", "randomChecked/real_time", "cleanChecked/real_time", "clean blocks", 3},
    {"a program as often", "firmwareChecked/real_time", "cleanChecked/real_time", "clean blocks", 3},
    {"headers of known ids as often", "slowIdsChecked/real_time", "cleanChecked/real_time", "clean blocks", 3},
    {"the same, of the right sizes", "slowSumsChecked/real_time", "cleanChecked/real_time", "clean blocks", 3},
    {"headers of tables as often", "slowTablesChecked/real_time", "cleanChecked/real_time", "clean blocks", 3},
    {"list of 10,000 files of 8 KB", "run/list10000/real_time", "filesRead/real_time", "reading them", 1.5},
    {"check of them, with warnings", "run/check10000/real_time", "filesRead/real_time", "reading them", 1.6},
    {"list of 2,000 files of 8 KB", "run/list2000/real_time", "run/plain2000/real_time", "read, summed", 1.5},
    {"check of them", "run/check2000/real_time", "run/plain2000/real_time", "read, summed", 1.5},
    {"their export as JSON lines", "run/export2000/real_time", "exportedPlainly/2000/real_time", "the same text", 1.3},
    {"list of 200 files of 64 KB", "run/list200/real_time", "run/plain200/real_time", "read, summed", 1.5},
    {"check of them", "run/check200/real_time", "run/plain200/real_time", "read, summed", 1.5},
    {"their export as JSON lines", "run/export200/real_time", "exportedPlainly/200/real_time", "the same text", 1.3},
    {"Intel HEX of 8 MB decoded", "intelHexDecoded", "intelHexDecodedBare", "digits, sum", 0},
    {"S-records as often", "recordsDecoded", "recordsDecodedBare", "digits, sum", 0},
    {"table of 60,016 bytes loaded", "tableLoaded", "tableLoadedBare", "copy, 2 sums", 1.5},
    {"one of its cells set", "cellSet", "cellSetBare", "one sum", 1.5},
    {"one of its cells printed", "cellPrinted", "cellPrintedBare", "to_chars", 0},
    {"64 KB of one-byte columns parsed", "tablesParsed1", "bytesCopiedAndCounted", "copy, count", 0},
    {"the same, 250 of them", "tablesParsed1Wide", "bytesCopiedAndCounted", "copy, count", 0},
    {"the same, 8-byte columns", "tablesParsed8", "bytesCopiedAndCounted", "copy, count", 0},
    {"their columns read", "columnsRead", "columnsDecoded", "known layout", 0},
    {"64 KB of one-byte columns written", "tablesWritten1", "bytesChecked", "copies, checks", 0},
    {"the same, 250 of them", "tablesWritten1Wide", "bytesChecked", "copies, checks", 0},
    {"the same, 8-byte columns", "tablesWritten8", "bytesChecked", "copies, checks", 0},
    {"30 hostile bytes parsed", "hostileParsed", "tablesParsed1", "64 KB parsed", 0},
    {"30,000 numbers as JSON", "tableAsJson", "tableAsDigits", "to_chars", 0, 0, 3'000'000},
    {"two images of 1 MB compared", "imagesCompared", "imagesChecked", "read, checked", 3},
    {"ident made, changed, verified", "identLife", "identBare", "plain record", 0},
    {"interpreter of every id built", "interpreterBuilt", "interpreterBare", "map of blocks", 0, 0, 300'000},
    {"number of every id printed", "numberPrinted", "numberPrintedBare", "to_chars", 0, 0, 60},
    {"block printed by the command", "commandPrints/real_time", "librariesLoaded/real_time", "empty program", 2},
};

/// A quantity other than time that a bench counts.
struct Count {
  const char* what;
  const char* counter;
  double goal;
};

constexpr Count counts[] = {
    {"heap allocations of an ident made, changed and verified", "allocations", 2},
    {"bytes of the heap that an interpreter holds", "held", 200'000},
};

/// Keeps the medians of each bench.
class Medians : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
      if (run.aggregate_name != "median") continue;
      const std::string name = run.run_name.str();
      nanoseconds[name] = run.GetAdjustedRealTime();
      for (const auto& [counter, value] : run.counters) counted[counter] = value;
    }
  }

  /// Skips benches that a filter left out.
  bool has(const std::string& name) const { return nanoseconds.count(name) != 0; }

  std::map<std::string, double> nanoseconds;
  std::map<std::string, double> counted;  ///< by the counter's name
};

const char* verdict(bool reached) { return reached ? ", reached" : ", missed"; }

void print(const Comparison& comparison, const Medians& medians) {
  const double measured = medians.nanoseconds.at(comparison.measured);
  const double floor = medians.nanoseconds.at(comparison.floor);
  std::printf("%-32s%14.1f ns%14.1f ns  %-14s%8.2f", comparison.what, measured, floor, comparison.floorName,
              measured / floor);
  bool reached = true;
  if (comparison.goalAbove != 0) {
    reached = measured - floor <= comparison.goalAbove;
    std::printf("   %.1f ns above; goal %.0f", measured - floor, comparison.goalAbove);
  } else if (comparison.goalInAll != 0) {
    reached = measured <= comparison.goalInAll;
    std::printf("   goal %.0f ns", comparison.goalInAll);
  } else if (comparison.goal != 0) {
    reached = measured <= comparison.goal * floor;
    std::printf("   goal %.1f", comparison.goal);
  } else {
    std::printf("\n");
    return;
  }
  std::printf("%s\n", verdict(reached));
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string options[] = {"--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true",
                           "--benchmark_min_time=0.1"};
  for (std::string& option : options) arguments.insert(arguments.begin() + 1, option.data());
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  // Odd sizes are measured and printed too.
  Velk::Console::redirect([](Velk::Console::Stream, std::string_view) {});
  benchmark::Initialize(&count, arguments.data());
  Medians medians;
  benchmark::RunSpecifiedBenchmarks(&medians);
  std::printf("%-32s%17s%17s  %-14s%8s\n", "", "velk", "floor", "which is", "ratio");
  for (const Comparison& comparison : comparisons) {
    if (medians.has(comparison.measured) && medians.has(comparison.floor)) print(comparison, medians);
  }
  for (const Count& total : counts) {
    const auto found = medians.counted.find(total.counter);
    if (found == medians.counted.end()) continue;
    std::printf("%s: %.0f   goal %.0f%s\n", total.what, found->second, total.goal,
                verdict(found->second <= total.goal));
  }
  return 0;
}
