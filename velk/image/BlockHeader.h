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

/// What stands where a block that has a CRC-32 keeps it; 0 in shorter blocks.
inline std::uint32_t storedCrc(ConstBytes block) { return load<std::uint32_t>(block, crcOffset); }

inline bool hasRightCrc(ConstBytes block) {
  return block.size() >= shortestCrcBlock && storedCrc(block) == crcOf(block);
}

inline bool hasCounterIdentifier(ConstBytes block) { return storedCrc(block) == eventCounterMagic(sizeOf(block)); }

/// The block that bytes begin with, as long as it claims to be; nothing where it cannot be.
inline ConstBytes claimedBlock(ConstBytes ahead) {
  const std::size_t size = sizeOf(ahead);
  return size < headerSize || size > ahead.size() ? ConstBytes{} : ahead.first(size);
}

/// Whether all bytes are alike.
inline bool isUniform(ConstBytes bytes) {
  return bytes.size() < 2 || std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0;
}

inline bool isErased(ConstBytes bytes) { return bytes.empty() || (bytes[0] == erasedByte && isUniform(bytes)); }

}  // namespace Velk::detail
