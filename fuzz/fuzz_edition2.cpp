// Reads any bytes as a second-edition block: parses it, calls every reader, prints every page, writes it and parses the
// result.
#include <algorithm>
#include <memory>
#include <tuple>

#include "FuzzSupport.h"
#include "edition2/ReferenceParser.h"
#include "velk/bytes/ByteArray.h"
#include "velk/edition2/CommonDatablockAccess.h"
#include "velk/edition2/HwDatablockEventCount.h"
#include "velk/image/MemoryImage.h"

namespace {

using namespace Velk;

std::unique_ptr<HwDatablock2Edition> blockOf(const QByteArray& bytes) {
  auto block = std::make_unique<HwDatablock2Edition>();
  block->setDataWithoutChecksumCheck(bytesOf(bytes).data(), static_cast<unsigned>(bytes.size()));
  return block;
}

std::string text(std::span<const char> bytes) { return {bytes.begin(), bytes.end()}; }

void compareWithReference(const CommonDatablockAccess& access, const QByteArray& bytes) {
  const std::unique_ptr<HwDatablock2Edition> block = blockOf(bytes);
  const auto size = std::min<std::size_t>(block->getBlockSize(), static_cast<std::size_t>(bytes.size()));
  const VelkTest::ReferenceParser reference({block->getData(), size});
  FUZZ_EXPECT(access.getId() == reference.id);
  FUZZ_EXPECT(access.tables().size() == reference.tables.size());
  for (std::size_t i = 0; i < reference.tables.size(); ++i) {
    const CommonSubDatablock& table = access.tables()[i];
    const VelkTest::ReferenceTable& wanted = reference.tables[i];
    FUZZ_EXPECT(table.rows == wanted.rows && table.columns == wanted.columns);
    FUZZ_EXPECT(table.columnTypes == wanted.types);
    FUZZ_EXPECT(text(table.rowIds) == wanted.rowIds && text(table.columnIds) == wanted.columnIds);
    FUZZ_EXPECT(table.complete == (i + 1 < reference.tables.size()));
    for (const auto& [place, cell] : wanted.cells) FUZZ_EXPECT(text(table.cells[place.first][place.second]) == cell);
  }
}

template <class T>
void readAs(const CommonDatablockAccess& access, unsigned table, unsigned column) {
  std::vector<T> values;
  access.getDataColumn(column, values, table);
  const std::size_t rows = access.getRowCount(table);
  FUZZ_EXPECT(values.size() == (column < access.tables()[table].columnTypes.size() ? rows : 0));
  values.clear();
  access.getRowIdList(values, table);
  access.getColIdList(values, table);
  FUZZ_EXPECT(values.size() == rows + access.getColCount(table));
}

void readAll(const CommonDatablockAccess& access) {
  for (unsigned table = 0; table < std::min<std::size_t>(access.tables().size(), 6); ++table) {
    const CommonSubDatablock& parsed = access.tables()[table];
    std::vector<std::string> texts;
    access.getDataTypeList(texts, table);
    // Columns are read one by one; reading claimed columns that do not exist only costs time.
    const bool believable = parsed.rows + parsed.columns < 1000;
    for (unsigned column = 0; believable && column < std::min(parsed.columns, 3U); ++column) {
      [&]<class... T>(std::tuple<T...>) {
        (readAs<T>(access, table, column), ...);
      }(std::tuple<unsigned char, signed char, unsigned short, short, unsigned, int, unsigned long long, long long,
                   float, double, std::string>{});
      for (const VECTOR_TYPE kind : {ROW_TYPE, COLUMN_TYPE, DATA_TYPE}) {
        for (unsigned type = 0; type <= 26; type += 5) {
          access.getDataInStringVector(texts, kind, type + column, column, table);
        }
        texts.clear();
      }
    }
  }
}

void printAll(HwDatablock2Edition& block) {
  HwSDataBlockCfg cfg;
  cfg.blockName = "X";
  for (const auto page : {&HwDatablock2Edition::printDebugPageComplete, &HwDatablock2Edition::printDebugPageDetail,
                          &HwDatablock2Edition::printDebugPageSummary, &HwDatablock2Edition::printToStream2Edition}) {
    VelkFuzz::LimitedStream stream;
    (block.*page)(stream, cfg);
  }
  for (unsigned type = 0; type < 30; ++type) {
    unsigned char value[20] = {};
    const QByteArray bytes = block.getByteArrayData().left(sizeof value);
    std::copy(bytes.begin(), bytes.end(), value);
    VelkFuzz::LimitedStream stream;
    const auto id = static_cast<ETypeId>(type);
    FUZZ_EXPECT(block.printDataTypeToStream(stream, value, id) == value + HwDatablock2Edition::size_in_byte(id));
  }
}

class Store : public IHwVariantEeprom {
 public:
  void writeDatablock(unsigned int /*blockId*/, HwDatablock* written) override { block.reset(written); }
  std::unique_ptr<HwDatablock> block;
};

/// Returns whether a table survives writing and parsing unchanged.
bool survives(const CommonSubDatablock& table) {
  return table.columns <= 1 && std::ranges::count(table.columnTypes, 25U) == 0;
}

void writeAndReadBack(const QByteArray& bytes) {
  Store store;
  CommonDatablockAccess access(blockOf(bytes).release(), &store, true);
  // The id of erased memory turns any block into an end block of four bytes.
  if (access.getId() == erasedBlockId || !access.write()) return;
  const QByteArray image = store.block->getByteArrayData();
  FUZZ_EXPECT(store.block->verifyChecksum32() && store.block->verifyChecksum());
  const CommonDatablockAccess again(blockOf(image).release(), nullptr, true);
  if (blockOf(bytes)->getAlignment() != 0 ||
      !std::ranges::all_of(access.tables().begin(), access.tables().end() - 1, survives))
    return;
  FUZZ_EXPECT(again.tables().size() == access.tables().size());
  for (std::size_t i = 0; i + 1 < access.tables().size(); ++i) {
    const CommonSubDatablock& was = access.tables()[i];
    const CommonSubDatablock& is = again.tables()[i];
    FUZZ_EXPECT(was.rows == is.rows && was.columnTypes == is.columnTypes && was.rowIds == is.rowIds);
    for (unsigned row = 0; row < was.rows; ++row) FUZZ_EXPECT(text(was.cells[0][row]) == text(is.cells[0][row]));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  VelkFuzz::quieten();
  if (size == 0 || size > 0xFFFF) return 0;
  const unsigned flags = data[0];
  QByteArray bytes = toByteArray({data + 1, size - 1});
  for (int i = 0; i < 2 && (flags & 1U) != 0 && bytes.size() >= 4; ++i) {
    bytes[2 + i] = static_cast<char>(bytes.size() >> (8 * i));
  }
  const std::unique_ptr<HwDatablock2Edition> block = blockOf(bytes);
  block->setListFormat((flags & 6U) == 6U);
  {
    CommonDatablockAccess access(block.get(), nullptr, true);
    access.releaseBlock();
    if (!block->isListFormat()) compareWithReference(access, bytes);
    readAll(access);
  }
  printAll(*block);
  writeAndReadBack(bytes);
  HwDatablockEventCount counter;
  counter.setData(bytesOf(bytes).data(), static_cast<unsigned>(bytes.size()));
  counter.updateEventCountBlock(flags * 3, 'x');
  printAll(counter);
  for (const BlockView& view : MemoryImage(bytes)) describe(view, Finding::WrongCrc);
  return 0;
}
