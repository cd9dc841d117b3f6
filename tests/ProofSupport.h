#pragma once

#include <QByteArray>
#include <map>

#include "velk/edition2/StoredTable.h"
#include "velk/image/MemoryImage.h"

namespace VelkTest {

inline Velk::ConstBytes asBytes(const QByteArray& bytes) {
  return {reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

/// Returns whether a block has at least 12 bytes, not all equal, whose words add up to 0. Independent of the library.
inline bool isWorthASum(Velk::ConstBytes block) {
  unsigned sum = 0;
  bool varied = false;
  for (std::size_t i = 0; i < block.size(); ++i) {
    if (i + 1 < block.size() || i % 2 != 0) sum += i % 2 == 0 ? block[i] : block[i] * 0x100U;
    varied = varied || block[i] != block[0];
  }
  return block.size() >= 12 && varied && sum % 0x10000 == 0;
}

/// Computes the CRC-32 bit by bit, without bytes 4 to 11.
inline std::uint32_t plainCrc(Velk::ConstBytes block) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = 0; i < block.size(); ++i) {
    if (i >= 4 && i < 12) continue;
    crc ^= block[i];
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1U ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

/// Returns whether a block is accepted at any offset.
inline bool provesItself(Velk::ConstBytes block) {
  const auto word = [&](std::size_t at) { return at + 1 < block.size() ? block[at] | block[at + 1] << 8U : 0U; };
  const unsigned id = word(0);
  const auto size = static_cast<unsigned short>(word(2));
  if (size < 8 || size != block.size() || id == 0xFFFF) return false;
  unsigned sum = 0;
  for (std::size_t i = 0; i + 1 < block.size(); i += 2) sum += word(i);
  const Velk::CatalogueRow* const row = Velk::findCatalogueRow(static_cast<int>(id), size);
  const bool ownSize = row != nullptr && (size == row->size || size == row->others.also);
  if (ownSize && sum % 0x10000 == 0) return true;
  if (word(6) != 0 || size < 16) return false;
  if (word(8) == size && word(10) == 0x452D) return size % 4 == 0;
  return word(16) != 0 && (word(8) | word(10) << 16U) == plainCrc(block) && Velk::isFilledByTables(block);
}

/// Blocks that damage did not touch: their sizes by their offsets.
using Untouched = std::map<qsizetype, std::size_t>;

/// Returns whether a block proves itself, or adjoins one that does, over others that are not touched.
inline bool isProvable(Velk::ConstBytes bytes, const Untouched& untouched, qsizetype at, std::size_t size) {
  if (!isWorthASum(bytes.subspan(at, size))) return provesItself(bytes.subspan(at, size));
  for (auto block = untouched.find(at); block != untouched.end();
       block = untouched.find(block->first + static_cast<qsizetype>(block->second))) {
    if (provesItself(bytes.subspan(block->first, block->second))) return true;
    if (!isWorthASum(bytes.subspan(block->first, block->second))) break;
  }
  auto before = untouched.find(at);
  while (before != untouched.begin()) {
    const auto next = before--;
    if (before->first + static_cast<qsizetype>(before->second) != next->first) return false;
    if (provesItself(bytes.subspan(before->first, before->second))) return true;
  }
  return false;
}

}  // namespace VelkTest
