// Text containers compared with a reader that tolerates nothing: digits to bytes with their checksum, in one pass.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string_view>
#include <vector>

#include "velk/velk.h"

namespace {

constexpr qsizetype fileSize = 8 * 1024 * 1024;

/// Returns a file of about 8 MB with 16 bytes a line.
QByteArray fileOf(Velk::Container container) {
  std::mt19937 random(1);
  QByteArray bytes(fileSize * 16 / 45, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return Velk::encodeImage({.bytes = bytes, .container = container, .address = 0x08000000});
}

const QByteArray& intelHex() {
  static const QByteArray file = fileOf(Velk::Container::IntelHex);
  return file;
}
const QByteArray& records() {
  static const QByteArray file = fileOf(Velk::Container::SRecord);
  return file;
}

/// Decodes files that consist of well-formed lines of one mark each. Returns the bytes of their data.
class BareReader {
 public:
  BareReader(std::size_t markLength, std::size_t before) : markLength_(markLength), before_(before) {
    for (unsigned i = 0; i < 16; ++i) {
      values_[static_cast<unsigned char>("0123456789ABCDEF"[i])] = static_cast<unsigned char>(i);
    }
  }

  std::vector<unsigned char> read(std::string_view text, unsigned char rightSum) const {
    std::vector<unsigned char> bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t at = 0; at < text.size();) {
      const auto* const found = static_cast<const char*>(std::memchr(text.data() + at, '\n', text.size() - at));
      const auto end = static_cast<std::size_t>(found - text.data());
      const std::size_t begin = bytes.size();
      unsigned sum = 0;
      for (at += markLength_; at < end; at += 2) {
        bytes.push_back(byteAt(text, at));
        sum += bytes.back();
      }
      if ((sum & 0xFFU) != rightSum) return {};
      // Only the data is kept.
      const std::size_t count = bytes.size() - begin - before_ - 1;
      std::memmove(bytes.data() + begin, bytes.data() + begin + before_, count);
      bytes.resize(begin + count);
      at = end + 1;
    }
    return bytes;
  }

 private:
  unsigned char byteAt(std::string_view text, std::size_t at) const {
    const unsigned high = values_[static_cast<unsigned char>(text[at])];
    return static_cast<unsigned char>(high << 4U | values_[static_cast<unsigned char>(text[at + 1])]);
  }

  std::size_t markLength_;
  std::size_t before_;
  unsigned char values_[256]{};
};

void decode(benchmark::State& state, const QByteArray& file) {
  for (auto _ : state) {
    const Velk::ImageFile image = Velk::decodeImage(file);
    if (!image.error.empty() || !image.findings.empty()) state.SkipWithError("the file was not read");
    benchmark::DoNotOptimize(image.bytes.constData());
  }
}

void decodeBare(benchmark::State& state, const QByteArray& file, const BareReader& reader, unsigned char rightSum) {
  const std::string_view text(file.constData(), static_cast<std::size_t>(file.size()));
  for (auto _ : state) {
    const auto bytes = reader.read(text, rightSum);
    if (bytes.empty()) state.SkipWithError("a checksum is wrong");
    benchmark::DoNotOptimize(bytes.data());
  }
}

void intelHexDecoded(benchmark::State& state) { decode(state, intelHex()); }
void intelHexDecodedBare(benchmark::State& state) { decodeBare(state, intelHex(), {1, 4}, 0); }
void recordsDecoded(benchmark::State& state) { decode(state, records()); }
void recordsDecodedBare(benchmark::State& state) { decodeBare(state, records(), {2, 5}, 0xFF); }

BENCHMARK(intelHexDecoded);
BENCHMARK(intelHexDecodedBare);
BENCHMARK(recordsDecoded);
BENCHMARK(recordsDecodedBare);

}  // namespace
