// Reads any bytes as a block of a catalogued id: prints it, sets every field, converts it both ways and verifies it.
#include <algorithm>
#include <cstring>

#include "FieldSupport.h"
#include "FuzzSupport.h"
#include "velk/bytes/ByteArray.h"
#include "velk/datablock/Checksums.h"
#include "velk/oldstyle/BlockCatalogue.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

namespace {

using namespace Velk;

/// Sets the id of the block to one with a class, and returns the row of that class.
const CatalogueRow& claimId(MutableBytes block) {
  const auto id = detail::load<unsigned short>(block, 0);
  if (const CatalogueRow* const row = findCatalogueRow(id)) return *row;
  const auto& ids = VelkFuzz::catalogueIds();
  const unsigned short known = ids[id % ids.size()];
  detail::store(block, 0, known);
  return *findCatalogueRow(known);
}

/// Checks that printing does not change the block, in either data format.
void print(HwDatablock& block, HwDatablock& raw) {
  static HwDatablockOldStyleInterpreter interpreter;
  VelkFuzz::LimitedStream stream;
  block.printToStream(stream);
  VelkFuzz::LimitedStream other;
  const bool inDictionary = findDictionaryRow(raw.getId()) != nullptr;
  const QByteArray before = raw.getByteArrayData();
  raw.setDataFormatTyp(raw.getChecksum() % 2 == 0 ? INTEL_Conform : PPC_Conform);
  FUZZ_EXPECT(interpreter.printHwDatablockOldStyleInfo(&raw, other) == inDictionary);
  FUZZ_EXPECT(raw.getByteArrayData() == before);
  raw.setDataFormatTyp(INTEL_Conform);
}

/// Checks that a conversion keeps the length and the id, and that verifying changes nothing.
void convert(HwDatablock& block) {
  const QByteArray before = block.getByteArrayData();
  const unsigned short id = block.getId();
  for (const HwEDataFormatTyp format : {PPC_Conform, INTEL_Conform}) {
    block.swapDataTo(format, id, &block);
    const QByteArray after = block.getByteArrayData();
    FUZZ_EXPECT(after.size() == before.size() && block.getId() == id);
    const bool verified = block.verifyChecksum();
    FUZZ_EXPECT(block.getByteArrayData().size() == before.size() && block.verifyChecksum() == verified);
    block.verifyChecksum32();
  }
}

/// Sets a field to a text that may or may not be valid, and checks that only the field changes.
void setField(QByteArray& bytes, FieldElement element, std::string_view text) {
  const QByteArray before(bytes.constData(), bytes.size());
  const std::string shown = fieldText(bytesOf(bytes), element);
  const MutableBytes block = mutableBytesOf(bytes);
  const FieldResult result = setFieldText(block, element, text);
  if (result != FieldResult::Done) {
    FUZZ_EXPECT(bytes == before);
    return;
  }
  const std::size_t end = element.offset + element.field->stride;
  FUZZ_EXPECT(end <= block.size());
  FUZZ_EXPECT(std::memcmp(before.constData(), bytes.constData(), element.offset) == 0);
  FUZZ_EXPECT(std::memcmp(before.constData() + end, bytes.constData() + end, block.size() - end) == 0);
  if (text == shown) FUZZ_EXPECT(fieldText(block, element) == shown);
}

/// Sets all fields of a record, or a sample of a long table.
void setFields(const CatalogueRow& row, QByteArray bytes) {
  constexpr std::size_t most = 48;
  constexpr std::string_view texts[] = {"0", "-1", "255", "65536", "1.5", "1e300", "2017-03-15", "", "nan", "ab"};
  std::size_t elements = 0;
  const auto size = static_cast<std::size_t>(bytes.size());
  VelkTest::forEachField(row.fields, size, [&](const std::string&, FieldElement) { ++elements; });
  const std::size_t stride = elements / most + 1;
  std::size_t index = size % stride;
  std::size_t at = 0;
  VelkTest::forEachField(row.fields, size, [&](const std::string&, FieldElement element) {
    if (at++ != index) return;
    index += stride;
    setField(bytes, element, fieldText(bytesOf(bytes), element));
    setField(bytes, element, texts[at % std::size(texts)]);
  });
}

/// Checks that a block with a new checksum passes verification, if it has room for one.
void edit(HwDatablock& block) {
  constexpr unsigned short checksumEnd = 6;
  block.setBlockId(block.getId());
  block.setAlignment(7);
  const unsigned covered =
      std::min<unsigned>(block.getBlockSize(), static_cast<unsigned>(block.getByteArrayData().size()));
  if (covered >= checksumEnd) FUZZ_EXPECT(block.verifyChecksum());
  block.setBlockSize(static_cast<unsigned short>(block.getByteArrayData().size()));
  block.resizeData(static_cast<unsigned>(block.getByteArrayData().size() / 2));
  block.verifyChecksum();
  VelkFuzz::LimitedStream stream;
  block.printToStream(stream);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  VelkFuzz::quieten();
  if (size < sizeof(unsigned short) || size > 0x10000) return 0;
  QByteArray bytes = toByteArray({data, size});
  const CatalogueRow& row = claimId(mutableBytesOf(bytes));
  HwDatablock raw(true);
  raw.setData(bytes);
  const std::unique_ptr<HwDatablock> block = row.make(raw.getId());
  block->setData(&raw);
  print(*block, raw);
  convert(*block);
  convert(raw);
  setFields(row, bytes);
  edit(*block);
  return 0;
}
