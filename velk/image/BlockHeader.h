#pragma once

#include "velk/bytes/Bytes.h"
#include "velk/datablock/Checksums.h"
#include "velk/datablock/HwDatablock.h"

namespace Velk::detail {

inline constexpr std::size_t headerSize = sizeof(HwSDatablockHeader);
inline constexpr unsigned char erasedByte = 0xFF;

inline unsigned short idOf(ConstBytes block) { return load<unsigned short>(block, offsetof(HwSDatablockHeader, id)); }

inline unsigned short sizeOf(ConstBytes block) {
  return load<unsigned short>(block, offsetof(HwSDatablockHeader, blockSize));
}

/// Returns what is stored where a block has its CRC-32; 0 for shorter blocks.
inline std::uint32_t storedCrc(ConstBytes block) { return load<std::uint32_t>(block, crcOffset); }

inline bool hasRightCrc(ConstBytes block) {
  return block.size() >= shortestCrcBlock && storedCrc(block) == crcOf(block);
}

inline bool hasCounterIdentifier(ConstBytes block) { return storedCrc(block) == eventCounterMagic(sizeOf(block)); }

/// Returns the block that bytes begin with, as long as it claims to be; empty if it cannot be that long.
inline ConstBytes claimedBlock(ConstBytes ahead) {
  const std::size_t size = sizeOf(ahead);
  return size < headerSize || size > ahead.size() ? ConstBytes{} : ahead.first(size);
}

/// Returns whether all bytes are equal.
inline bool isUniform(ConstBytes bytes) {
  return bytes.size() < 2 || std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0;
}

inline bool isErased(ConstBytes bytes) { return bytes.empty() || (bytes[0] == erasedByte && isUniform(bytes)); }

}  // namespace Velk::detail
