// Parsing, reading by column and writing of second-edition blocks, each compared with the minimum cost of its work.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

#include "SecondEditionBuilder.h"
#include "velk/edition2/CommonDatablockAccess.h"

namespace {

using namespace Velk;
using Examples::SecondEditionBuilder;
using Examples::Table;

/// Returns a block of about 64 KB with one table of these columns.
HwDatablock2Edition largeBlock(const std::vector<ETypeId>& types) {
  std::size_t rowSize = 0;
  for (const ETypeId type : types) rowSize += detail::typeSize(type);
  Table table{.columnTypes = types};
  table.rows.assign(65000 / rowSize, std::vector<Examples::Value>(types.size(), 3));
  return SecondEditionBuilder(1).add(table).finish();
}

const std::vector<ETypeId> oneByte(1, TYPE_ID_UINT8);
const std::vector<ETypeId> oneByteWide(250, TYPE_ID_UINT8);
const std::vector<ETypeId> eightBytes(8, TYPE_ID_DOUBLE);
const std::vector<ETypeId> mixed = {TYPE_ID_UINT8, TYPE_ID_INT16, TYPE_ID_UINT32, TYPE_ID_FLOAT, TYPE_ID_DOUBLE};

void parse(benchmark::State& state, HwDatablock2Edition block) {
  benchmark::IterationCount tables = 0;
  for (auto _ : state) {
    CommonDatablockAccess access(&block, nullptr, true);
    access.releaseBlock();
    tables += static_cast<benchmark::IterationCount>(access.tables().size());
  }
  if (tables != 2 * state.iterations()) state.SkipWithError("not one table");
  state.SetBytesProcessed(state.iterations() * block.getBlockSize());
}

void tablesParsed1(benchmark::State& state) { parse(state, largeBlock(oneByte)); }
void tablesParsed1Wide(benchmark::State& state) { parse(state, largeBlock(oneByteWide)); }
void tablesParsed8(benchmark::State& state) { parse(state, largeBlock(eightBytes)); }

/// Copies the bytes and reads each once.
void bytesCopiedAndCounted(benchmark::State& state) {
  HwDatablock2Edition block = largeBlock(oneByte);
  for (auto _ : state) {
    QByteArray copy(reinterpret_cast<const char*>(block.getData()), block.getBlockSize());
    benchmark::DoNotOptimize(std::count(copy.cbegin(), copy.cend(), '\0'));
  }
}

void hostileParsed(benchmark::State& state) {
  const QByteArray bytes =
      QByteArray::fromHex("01 00 1E 00 00 00 00 00 00 00 00 00 00 00 FF FF FF FF 01 01 01 01 01 01 01 01 01 01 01 01");
  HwDatablock2Edition block;
  block.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(bytes.constData()), 30);
  for (auto _ : state) {
    CommonDatablockAccess access(&block, nullptr, true);
    access.releaseBlock();
    benchmark::DoNotOptimize(access.tables().data());
  }
}

void columnsRead(benchmark::State& state) {
  HwDatablock2Edition block = largeBlock(mixed);
  CommonDatablockAccess access(&block, nullptr, true);
  access.releaseBlock();
  for (auto _ : state) {
    for (unsigned column = 0; column < mixed.size(); ++column) {
      std::vector<double> values;
      access.getDataColumn(column, values, 0);
      benchmark::DoNotOptimize(values.data());
    }
  }
}

template <class T>
void decode(const unsigned char* cell, std::size_t rows, std::size_t rowSize) {
  std::vector<double> values;
  values.reserve(rows);
  for (std::size_t row = 0; row < rows; ++row, cell += rowSize) {
    T value;
    std::memcpy(&value, cell, sizeof value);
    values.push_back(static_cast<double>(value));
  }
  benchmark::DoNotOptimize(values.data());
}

/// Reads the columns of `mixed` with their layout known in advance.
void columnsDecoded(benchmark::State& state) {
  HwDatablock2Edition block = largeBlock(mixed);
  constexpr std::size_t rowSize = 19;
  const std::size_t rows = block.getNumberOfRows(0);
  const unsigned char* const cells = block.getData() + 28;
  for (auto _ : state) {
    decode<unsigned char>(cells, rows, rowSize);
    decode<short>(cells + 1, rows, rowSize);
    decode<unsigned>(cells + 3, rows, rowSize);
    decode<float>(cells + 7, rows, rowSize);
    decode<double>(cells + 11, rows, rowSize);
  }
}

void write(benchmark::State& state, HwDatablock2Edition block) {
  CommonDatablockAccess access(new HwDatablock2Edition(block), nullptr, true);
  for (auto _ : state) {
    if (!access.write()) state.SkipWithError("not written");
  }
}

void tablesWritten1(benchmark::State& state) { write(state, largeBlock(oneByte)); }
void tablesWritten1Wide(benchmark::State& state) { write(state, largeBlock(oneByteWide)); }
void tablesWritten8(benchmark::State& state) { write(state, largeBlock(eightBytes)); }

/// Copies the bytes three times and computes their checksums as often as a writer has to.
void bytesChecked(benchmark::State& state) {
  HwDatablock2Edition block = largeBlock(eightBytes);
  for (auto _ : state) {
    HwDatablock2Edition copy;
    for (int i = 0; i < 3; ++i)
      copy.setData(QByteArray(reinterpret_cast<const char*>(block.getData()), block.getBlockSize()));
    benchmark::DoNotOptimize(copy.computeChecksum32());
    benchmark::DoNotOptimize(copy.computeChecksum());
  }
}

BENCHMARK(tablesParsed1);
BENCHMARK(tablesParsed1Wide);
BENCHMARK(tablesParsed8);
BENCHMARK(bytesCopiedAndCounted);
BENCHMARK(hostileParsed);
BENCHMARK(columnsRead);
BENCHMARK(columnsDecoded);
BENCHMARK(tablesWritten1);
BENCHMARK(tablesWritten1Wide);
BENCHMARK(tablesWritten8);
BENCHMARK(bytesChecked);

}  // namespace
