#pragma once

#include <cstddef>
#include <cstring>

namespace VelkBench {

/// Sums 16-bit words in a plain loop.
[[gnu::noinline]] inline unsigned short sumOf(const unsigned char* bytes, std::size_t size) {
  unsigned short sum = 0;
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    unsigned short word = 0;
    std::memcpy(&word, bytes + i, sizeof word);
    sum = static_cast<unsigned short>(sum + word);
  }
  return sum;
}

}  // namespace VelkBench
