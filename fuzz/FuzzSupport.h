#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <streambuf>
#include <vector>

#include "velk/bytes/Bytes.h"

/// Aborts if the condition is false, so that the fuzzer reports the input.
#define FUZZ_EXPECT(condition) ((condition) ? void() : VelkFuzz::fail(#condition, __FILE__, __LINE__))

namespace VelkFuzz {

[[noreturn]] inline void fail(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
  std::abort();
}

/// Discards the messages of the library about damaged blocks. To be called before each input.
void quieten();

/// A stream that fails after a limited amount of text. Printing has to stop then.
class LimitedStream : private std::streambuf, public std::ostream {
 public:
  LimitedStream() : std::ostream(static_cast<std::streambuf*>(this)) {}

 private:
  std::streamsize xsputn(const char* /*text*/, std::streamsize count) override {
    FUZZ_EXPECT(refused_ < 1000);
    left_ -= count;
    refused_ += left_ < 0 ? 1 : 0;
    return left_ < 0 ? 0 : count;
  }
  int_type overflow(int_type character) override {
    const char c = traits_type::to_char_type(character);
    return xsputn(&c, 1) == 1 ? character : traits_type::eof();
  }

  std::streamsize left_ = 64 * 1024;
  int refused_ = 0;
};

/// Returns every id that has a class.
const std::vector<unsigned short>& catalogueIds();

/// Updates the checksums of a block: with `crc` first the CRC-32, then the 16-bit checksum. Does nothing to a block
/// with an incomplete header.
void mendBlock(Velk::MutableBytes block, bool crc);

/// Repairs the sizes and checksums of the blocks in a mutated image, except for some that `seed` selects to stay
/// damaged. Repaired sizes reach to the next block or to the end.
void mendImage(Velk::MutableBytes image, unsigned seed);

/// Updates the checksum of every line of an Intel HEX or S-record text.
void mendText(Velk::MutableBytes text);

}  // namespace VelkFuzz
