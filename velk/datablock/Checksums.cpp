// This file is built at -O3, where the plain loop below vectorises.
#include "velk/datablock/Checksums.h"

#include <libdeflate.h>

#include "velk/datablock/HwDatablock.h"

namespace Velk::detail {

unsigned short sumOfWords(ConstBytes bytes) noexcept {
  unsigned short sum = 0;
  const std::size_t words = bytes.size() / 2;
  for (std::size_t i = 0; i < words; ++i) {
    unsigned short word = 0;
    std::memcpy(&word, bytes.data() + 2 * i, sizeof word);
    swapStoredAndHost(word);
    sum = static_cast<unsigned short>(sum + word);
  }
  return sum;
}

unsigned short checksumOf(ConstBytes block) noexcept {
  const auto stored = load<unsigned short>(block, offsetof(HwSDatablockHeader, checksum));
  return static_cast<unsigned short>(stored - sumOfWords(block));
}

std::uint32_t crcOf(ConstBytes block) noexcept {
  constexpr std::size_t headEnd = offsetof(HwSDatablockHeader, checksum);
  if (block.empty()) return 0;
  const std::uint32_t head = libdeflate_crc32(0, block.data(), std::min(block.size(), headEnd));
  if (block.size() <= shortestCrcBlock) return head;
  return libdeflate_crc32(head, block.data() + shortestCrcBlock, block.size() - shortestCrcBlock);
}

std::uint32_t eventCounterMagic(unsigned short blockSize) noexcept {
  const auto low = static_cast<unsigned char>(HwDatablock::eventCountIdentifier[0]);
  const auto high = static_cast<unsigned char>(HwDatablock::eventCountIdentifier[1]);
  return (std::uint32_t{high} << 24U | std::uint32_t{low} << 16U) + blockSize;
}

}  // namespace Velk::detail
