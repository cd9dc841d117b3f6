#pragma once

#include <cstdint>

#include "velk/Export.h"
#include "velk/bytes/Bytes.h"

namespace Velk::detail {

/// Returns the sum modulo 65536 of the little-endian 16-bit words of `bytes`, at any address. Ignores an odd last byte.
/// A block with a valid checksum sums to 0.
VELK_EXPORT unsigned short sumOfWords(ConstBytes bytes) noexcept;

/// Returns the checksum that makes `block` sum to 0. Its third word, where the checksum is stored, counts as 0.
VELK_EXPORT unsigned short checksumOf(ConstBytes block) noexcept;

/// The offset of a stored CRC-32, and the shortest block that has one.
inline constexpr std::size_t crcOffset = 8;
inline constexpr std::size_t shortestCrcBlock = crcOffset + sizeof(std::uint32_t);

/// Returns the CRC-32 of a block without its bytes 4 to 11: the 16-bit checksum, the alignment word and the CRC itself;
/// 0 for no bytes.
VELK_EXPORT std::uint32_t crcOf(ConstBytes block) noexcept;

/// Returns what an event counter block of `blockSize` bytes has in place of a CRC-32.
VELK_EXPORT std::uint32_t eventCounterMagic(unsigned short blockSize) noexcept;

}  // namespace Velk::detail
