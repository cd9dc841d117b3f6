// Reads any text as each table that has a text form: the result is a valid block that can be written and read again.
#include <span>
#include <sstream>

#include "ExchangeSupport.h"
#include "FuzzSupport.h"
#include "velk/tables/LornRfboTables.h"
#include "velk/tables/QelRfboTables.h"

namespace {

using namespace Velk;
using VelkTest::written;

constexpr bool isExact(int) { return true; }
constexpr bool isExact(unsigned) { return true; }
/// Floating-point values are rounded by the text form.
constexpr bool isExact(double) { return false; }

/// Returns whether every word that was read as a number is a number.
template <class Table>
bool read(Table& table, const std::string& text) {
  std::istringstream is(text);
  std::vector<std::string> doubts;
  table.readExchangeText(is, &doubts);
  FUZZ_EXPECT(is.fail() && table.verifyChecksum());
  FUZZ_EXPECT(table.getByteArrayData().size() == Table::layout.record.size);
  FUZZ_EXPECT(table.getId() == Table::traits.id || (table.getId() == 0 && table.getRowCount() == 0));
  return doubts.empty();
}

template <class Table>
void readAndWrite(const std::string& text) {
  Table table(false);
  read(table, text);
  VelkFuzz::LimitedStream stream;
  table.printToStream(stream);
  Table::conv2ascii(stream, table);
  if (table.getRowCount() > table.getRowCapacity() || table.getColCount() > table.getColCapacity()) return;
  const std::string exported = written(table);
  Table again(false);
  const bool undoubted = read(again, exported);
  FUZZ_EXPECT(again.getId() == Table::traits.id);
  FUZZ_EXPECT(again.getRowCount() == table.getRowCount() && again.getColCount() == table.getColCount());
  if (isExact(typename Table::StorageType{})) FUZZ_EXPECT(undoubted && written(again) == exported);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  VelkFuzz::quieten();
  const std::string text(reinterpret_cast<const char*>(data), size);
  readAndWrite<HwDatablockQelRfboAttRegData>(text);
  readAndWrite<HwDatablockLornRfboAttCalFreq>(text);
  readAndWrite<HwDatablockLornRfboAttRegAttenuation>(text);
  readAndWrite<HwDatablockLornRfboAttRegData>(text);
  readAndWrite<HwDatablockLornRfboTempCompData>(text);
  readAndWrite<HwDatablockLornRfboTempCompFreq>(text);
  return 0;
}
