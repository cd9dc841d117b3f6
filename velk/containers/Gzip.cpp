#include "velk/containers/Gzip.h"

#include <libdeflate.h>

#include <memory>
#include <new>

#include "velk/bytes/ByteArray.h"
#include "velk/bytes/HexText.h"
#include "velk/containers/ContentGuess.h"

namespace Velk::detail {
namespace {

/// Returns the most bytes that are taken from gzip data: what it can hold, below the limit of other files.
std::size_t limitFor(ConstBytes compressed) {
  constexpr std::size_t mostBytes = (std::size_t{1} << 30U) - 1;
  constexpr std::size_t bestRatio = 1032;
  return std::min(mostBytes, bestRatio * compressed.size());
}

/// Returns the size that the last four bytes claim for the contents.
std::size_t claimedSize(ConstBytes compressed) {
  constexpr std::size_t width = sizeof(std::uint32_t);
  return compressed.size() < width ? 0 : load<std::uint32_t>(compressed, compressed.size() - width);
}

/// Decompresses the members of a gzip file one after another.
class Members {
 public:
  explicit Members(ConstBytes compressed) : rest_(compressed), size_(compressed.size()), limit_(limitFor(compressed)) {
    if (decompressor_ == nullptr) throw std::bad_alloc();
  }

  /// Returns why there are no contents, or an empty text.
  std::string decompress() {
    bytes_.resize(static_cast<qsizetype>(std::min(claimedSize(rest_), limit_)));
    do {
      const libdeflate_result result = decompressMember();
      if (result == LIBDEFLATE_INSUFFICIENT_SPACE) return "decompresses to 1 GiB or more";
      if (result != LIBDEFLATE_SUCCESS) break;
    } while (isGzip(asText(rest_)));
    if (rest_.size() == size_) return "gzip data is damaged or cut";
    bytes_.resize(static_cast<qsizetype>(count_));
    return {};
  }

  /// Returns what is wrong with the bytes after the last member that could be decompressed, or an empty text.
  std::string trailer() const {
    if (rest_.empty()) return {};
    const std::string from = "from offset " + hexText(size_ - rest_.size(), 8) + " of the gzip file on, ";
    return isGzip(asText(rest_)) ? from + "its data is damaged or cut" : from + "it holds no gzip data";
  }

  QByteArray take() { return std::move(bytes_); }

 private:
  static std::string_view asText(ConstBytes bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }

  libdeflate_result decompressMember() {
    for (;;) {
      std::size_t taken = 0;
      std::size_t given = 0;
      const MutableBytes target = mutableBytesOf(bytes_).subspan(count_);
      const libdeflate_result result = libdeflate_gzip_decompress_ex(decompressor_.get(), rest_.data(), rest_.size(),
                                                                     target.data(), target.size(), &taken, &given);
      if (result == LIBDEFLATE_SUCCESS) {
        rest_ = rest_.subspan(taken);
        count_ += given;
      }
      if (result != LIBDEFLATE_INSUFFICIENT_SPACE || !grow()) return result;
    }
  }

  /// Makes room for more. Returns false at the limit.
  bool grow() {
    const auto size = static_cast<std::size_t>(bytes_.size());
    if (size >= limit_) return false;
    bytes_.resize(static_cast<qsizetype>(std::min(2 * size + 64, limit_)));
    return true;
  }

  struct Free {
    void operator()(libdeflate_decompressor* decompressor) const { libdeflate_free_decompressor(decompressor); }
  };

  std::unique_ptr<libdeflate_decompressor, Free> decompressor_{libdeflate_alloc_decompressor()};
  ConstBytes rest_;
  std::size_t size_;  ///< of all members
  std::size_t limit_;
  QByteArray bytes_{};
  std::size_t count_ = 0;  ///< of the bytes that are decompressed
};

}  // namespace

bool isGzip(std::string_view contents) { return contents.starts_with("\x1F\x8B\x08"); }

ImageFile readGzip(QByteArray contents) {
  Members members(bytesOf(contents));
  if (std::string error = members.decompress(); !error.empty()) {
    return {.error = std::move(error), .container = Container::Gzip};
  }
  const std::string trailer = members.trailer();
  contents = members.take();
  const bool isNested = isGzip(textOf(contents));
  ImageFile image = decodeImage(std::move(contents), isNested ? std::optional(Container::Raw) : std::nullopt);
  if (isNested) image.findings.push_back({0, guessContents(textOf(image.bytes))});
  if (!trailer.empty()) image.findings.insert(image.findings.begin(), {0, trailer});
  image.container = Container::Gzip;
  image.text.clear();
  return image;
}

}  // namespace Velk::detail
