#include "velk/containers/Reshape.h"

#include <algorithm>

namespace Velk {
namespace {

std::vector<ImageRange> cropped(const std::vector<ImageRange>& ranges, std::uint64_t from, std::uint64_t to) {
  std::vector<ImageRange> kept;
  for (const ImageRange& range : ranges) {
    const std::uint64_t begin = std::max(range.offset, from);
    const std::uint64_t end = std::min(range.offset + range.size, to);
    if (begin < end) kept.push_back({begin - from, end - begin});
  }
  return kept;
}

}  // namespace

void cropImage(ImageFile& image, std::uint64_t from, std::uint64_t to) {
  image.bytes = image.bytes.mid(static_cast<qsizetype>(from), static_cast<qsizetype>(to - from));
  image.gaps = cropped(image.gaps, from, to);
  image.lost = cropped(image.lost, from, to);
  image.address += from;
  moveTo(image, image.container);
}

void fillImage(ImageFile& image, char byte) {
  for (const auto* const ranges : {&image.gaps, &image.lost}) {
    for (const ImageRange& range : *ranges) {
      std::fill_n(image.bytes.data() + range.offset, range.size, byte);
    }
  }
  image.gaps.clear();
  image.lost.clear();
  moveTo(image, image.container);
}

}  // namespace Velk
