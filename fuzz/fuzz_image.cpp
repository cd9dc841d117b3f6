// Any bytes as a memory image: the walk loses nothing, describes every block and prints it.
#include "FuzzSupport.h"
#include "velk/image/MemoryImage.h"
#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

namespace {

using namespace Velk;

void look(const BlockView& block) {
  FUZZ_EXPECT(kindName(block.kind) != nullptr && verdictName(block) != nullptr);
  FUZZ_EXPECT(!blockName(block).empty());
  for (std::size_t i = 0; i < findingCount; ++i) {
    const auto finding = static_cast<Finding>(i);
    if (block.has(finding)) FUZZ_EXPECT(!describe(block, finding).empty());
  }
}

void print(const BlockView& block) {
  static HwDatablockOldStyleInterpreter interpreter;
  HwDatablock copy(true);
  copy.setDataWithoutChecksumCheck(block.bytes.data(), static_cast<unsigned>(block.bytes.size()));
  VelkFuzz::LimitedStream stream;
  if (!interpreter.printHwDatablockOldStyleInfo(&copy, stream)) copy.printToStream(stream);
}

/// Every byte is in one view, in order, but for erased memory behind an end block.
void walk(const QByteArray& bytes, std::uint64_t start, std::uint64_t sectorSize, bool printing) {
  const MemoryImage image(bytes, start, sectorSize);
  std::uint64_t position = std::min<std::uint64_t>(start, image.bytes().size());
  for (const BlockView& block : image) {
    FUZZ_EXPECT(!block.bytes.empty() && block.bytes.data() == image.bytes().data() + block.offset);
    FUZZ_EXPECT(block.offset >= position && detail::fits(image.bytes().size(), block.offset, block.bytes.size()));
    for (; position < block.offset; ++position) FUZZ_EXPECT(image.bytes()[position] == 0xFF);
    position += block.bytes.size();
    look(block);
    if (printing) print(block);
  }
  for (; position < image.bytes().size(); ++position) FUZZ_EXPECT(image.bytes()[position] == 0xFF);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  VelkFuzz::quieten();
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  walk(bytes, 0, 0, true);
  const std::uint64_t start = size == 0 ? 0 : data[0];
  const std::uint64_t sectorSize = size == 0 ? 0 : 1 + data[size - 1];
  walk(bytes, start, sectorSize, false);
  return 0;
}
