#include "FuzzSupport.h"

#include <algorithm>
#include <random>

#include "CatalogueSupport.h"
#include "velk/bytes/HexText.h"
#include "velk/datablock/Checksums.h"
#include "velk/platform/Console.h"
#include "velk/platform/ErrorManager.h"

namespace VelkFuzz {
namespace {

using namespace Velk::detail;

constexpr std::size_t sizeOffset = offsetof(Velk::HwSDatablockHeader, blockSize);
constexpr std::size_t checksumOffset = offsetof(Velk::HwSDatablockHeader, checksum);

/// Returns a size for the block at the start of `rest`: its own, that of its class, or all of `rest`.
std::size_t pickSize(Velk::ConstBytes rest, unsigned choice) {
  const std::size_t own = load<unsigned short>(rest, sizeOffset);
  if (choice % 4 != 0 && own >= sizeof(Velk::HwSDatablockHeader) && own <= rest.size()) return own;
  const Velk::CatalogueRow* const row = Velk::findCatalogueRow(load<unsigned short>(rest, 0));
  const std::size_t wanted = choice % 2 == 0 && row != nullptr ? row->size : rest.size();
  return std::min<std::size_t>({wanted, rest.size(), 0xFFFF});
}

unsigned valueOf(unsigned char digit) {
  return static_cast<unsigned>(std::min(hexDigits.find(static_cast<char>(digit)), std::size_t{15}));
}

/// Repairs the checksum of a line that starts with `mark` characters that are not digits.
void mendLine(Velk::MutableBytes line, std::size_t mark, bool complement) {
  if (line.size() < mark + 4) return;
  const Velk::MutableBytes digits = line.subspan(mark);
  unsigned sum = 0;
  for (std::size_t i = 0; i + 3 < digits.size(); i += 2) sum += valueOf(digits[i]) * 16 + valueOf(digits[i + 1]);
  const unsigned checksum = complement ? ~sum : 0U - sum;
  digits[digits.size() - 2] = static_cast<unsigned char>(hexDigits[checksum >> 4U & 0xFU]);
  digits[digits.size() - 1] = static_cast<unsigned char>(hexDigits[checksum & 0xFU]);
}

}  // namespace

void quieten() {
  static const bool once = [] {
    Velk::Console::redirect([](Velk::Console::Stream, std::string_view) {});
    Velk::ErrorManager()->setSink([](int, const QString&) {});
    return true;
  }();
  static_cast<void>(once);
}

const std::vector<unsigned short>& catalogueIds() {
  static const std::vector<unsigned short> ids = [] {
    std::vector<unsigned short> all;
    for (const Velk::CatalogueRow& row : VelkTest::allRows()) {
      for (int id = row.firstId; id <= row.lastId; ++id) all.push_back(static_cast<unsigned short>(id));
    }
    return all;
  }();
  return ids;
}

void mendBlock(Velk::MutableBytes block, bool crc) {
  if (block.size() < sizeof(Velk::HwSDatablockHeader)) return;
  if (crc && block.size() >= shortestCrcBlock) store(block, crcOffset, crcOf(block));
  store(block, checksumOffset, checksumOf(block));
}

void mendImage(Velk::MutableBytes image, unsigned seed) {
  std::minstd_rand random(seed + 1);
  while (image.size() >= sizeof(Velk::HwSDatablockHeader)) {
    if (random() % 4 == 0) {
      const auto& ids = catalogueIds();
      store(image, 0, ids[random() % ids.size()]);
    }
    if (load<unsigned short>(image, 0) == Velk::erasedBlockId) return;
    const std::size_t size = pickSize(image, static_cast<unsigned>(random()));
    store(image, sizeOffset, static_cast<unsigned short>(size));
    if (random() % 8 != 0) mendBlock(image.first(size), random() % 3 == 0);
    image = image.subspan(std::max(size, sizeof(Velk::HwSDatablockHeader)));
  }
}

void mendText(Velk::MutableBytes text) {
  for (auto begin = text.begin(); begin != text.end();) {
    const auto end = std::find(begin, text.end(), '\n');
    const Velk::MutableBytes line(begin, end);
    if (!line.empty() && line[0] == ':') mendLine(line, 1, false);
    if (!line.empty() && line[0] == 'S') mendLine(line, 2, true);
    begin = end == text.end() ? end : end + 1;
  }
}

}  // namespace VelkFuzz
