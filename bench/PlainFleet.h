#pragma once

#include <fcntl.h>
#include <libdeflate.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "WordSum.h"

namespace VelkBench {

/// Reads images as a plain program would: one after another, into one buffer.
class PlainFleet {
 public:
  /// Reads a file. Returns the number of its bytes.
  std::size_t read(const std::string& name) {
    const int file = open(name.c_str(), O_RDONLY);
    std::size_t count = 0;
    for (ssize_t got = 0; (got = ::read(file, buffer_.data() + count, buffer_.size() - count)) > 0;) {
      count += static_cast<std::size_t>(got);
    }
    close(file);
    return count;
  }

  /// Walks the blocks of the file that was read and computes both checksums of each. Returns how many blocks have a
  /// valid one.
  std::size_t countSound(std::size_t size) const {
    std::size_t sound = 0;
    for (std::size_t at = 0; at + headerSize <= size;) {
      const unsigned char* const block = buffer_.data() + at;
      const std::size_t length = wordAt(block, 2);
      if (length < headerSize || length > size - at) break;
      const std::uint32_t head = libdeflate_crc32(0, block, 4);
      const std::uint32_t crc = length > 12 ? libdeflate_crc32(head, block + 12, length - 12) : head;
      sound += sumOf(block, length) == 0 || crc == (wordAt(block, 8) | wordAt(block, 10) << 16U) ? 1 : 0;
      at += length;
    }
    return sound;
  }

 private:
  static constexpr std::size_t headerSize = 8;

  static unsigned wordAt(const unsigned char* block, std::size_t at) {
    return block[at] | unsigned{block[at + 1]} << 8U;
  }

  std::vector<unsigned char> buffer_ = std::vector<unsigned char>(128 * 1024);
};

}  // namespace VelkBench
