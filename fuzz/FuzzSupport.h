#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <streambuf>
#include <vector>

#include "velk/bytes/Bytes.h"

/// What holds for every input whatsoever; a fuzzer reports the input where it does not.
#define FUZZ_EXPECT(condition) ((condition) ? void() : VelkFuzz::fail(#condition, __FILE__, __LINE__))

namespace VelkFuzz {

[[noreturn]] inline void fail(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
  std::abort();
}

/// Drops what the library says of damaged blocks; to be called before each input.
void quieten();

/// A stream that takes a limited text and fails then: printing has to stop, and to be bounded by that alone.
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

/// Every id with a class: those of the dictionary and the others.
const std::vector<unsigned short>& catalogueIds();

/// Makes the checks of a block right, which then is what it claims to be: the 16-bit sum, and with `crc` the CRC-32
/// before it. Does nothing to a block without a whole header.
void mendBlock(Velk::MutableBytes block, bool crc);

/// Makes a mutated image one that is worth a walk: sizes that reach to the next block or the end, and right checks, but
/// for what `seed` picks out to stay damaged.
void mendImage(Velk::MutableBytes image, unsigned seed);

/// Gives every line of an Intel HEX or S-record text a right checksum.
void mendText(Velk::MutableBytes text);

}  // namespace VelkFuzz
