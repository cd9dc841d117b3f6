#include "velk/image/Region.h"

#include <array>
#include <cmath>

#include "velk/image/BlockHeader.h"

namespace Velk {
namespace {

/// How often each byte occurs in samples that are spread over all bytes.
class Histogram {
 public:
  explicit Histogram(ConstBytes bytes) {
    constexpr std::size_t sample = 1024;
    constexpr std::size_t samples = 64;
    const std::size_t distance = std::max(sample, bytes.size() / samples);
    for (std::size_t at = 0; at < bytes.size(); at += distance) {
      count(bytes.subspan(at, std::min(sample, bytes.size() - at)));
    }
  }

  std::size_t total() const { return total_; }

  std::size_t textBytes() const {
    std::size_t text = counts_['\t'] + counts_['\n'] + counts_['\r'];
    for (unsigned byte = ' '; byte < 0x7F; ++byte) text += counts_[byte];
    return text;
  }

  /// Returns the entropy in bits per byte.
  double entropy() const {
    double bits = 0;
    for (const std::size_t count : counts_) {
      if (count == 0) continue;
      const double share = static_cast<double>(count) / static_cast<double>(total_);
      bits -= share * std::log2(share);
    }
    return bits;
  }

 private:
  void count(ConstBytes bytes) {
    for (const unsigned char byte : bytes) ++counts_[byte];
    total_ += bytes.size();
  }

  std::array<std::size_t, 256> counts_{};
  std::size_t total_ = 0;
};

}  // namespace

const char* lookName(RegionLook look) {
  constexpr const char* names[] = {"erased", "zeros", "text", "high-entropy", "other"};
  return names[static_cast<std::size_t>(look)];
}

RegionLook lookOf(ConstBytes bytes) {
  if (bytes.empty()) return RegionLook::Other;
  if (detail::isErased(bytes)) return RegionLook::Erased;
  if (bytes[0] == 0 && detail::isUniform(bytes)) return RegionLook::Zeros;
  constexpr std::size_t enoughForEntropy = 256;
  constexpr double highEntropy = 6.8;
  const Histogram histogram(bytes);
  if (histogram.textBytes() >= histogram.total() / 10 * 9 + histogram.total() % 10) return RegionLook::Text;
  const bool isHigh = histogram.total() >= enoughForEntropy && histogram.entropy() >= highEntropy;
  return isHigh ? RegionLook::HighEntropy : RegionLook::Other;
}

}  // namespace Velk
