#include "velk/containers/ImageFile.h"

#include <algorithm>

#include "velk/bytes/ByteArray.h"
#include "velk/containers/ContentGuess.h"
#include "velk/files/ReadFile.h"

namespace Velk {
namespace {

const ContainerKind& recognised(std::string_view contents) {
  const auto kinds = containerKinds();
  const auto found = std::ranges::find_if(
      kinds, [&](const ContainerKind& kind) { return kind.recognises != nullptr && kind.recognises(contents); });
  return found == kinds.end() ? kindOf(Container::Raw) : *found;
}

}  // namespace

std::string FileFinding::describe() const { return line == 0 ? text : "line " + std::to_string(line) + ": " + text; }

ImageFile readImageFile(const std::string& path, std::optional<Container> container) {
  std::string error;
  auto contents = readFile(path, error);
  if (!contents) return {.error = std::move(error)};
  return decodeImage(std::move(*contents), container);
}

ImageFile decodeImage(QByteArray contents, std::optional<Container> container) {
  if (container) return kindOf(*container).read(std::move(contents));
  const ContainerKind& kind = recognised(textOf(contents));
  ImageFile image = kind.read(std::move(contents));
  if (kind.container == Container::Raw) {
    if (std::string guess = guessContents(textOf(image.bytes)); !guess.empty()) image.findings.push_back({0, guess});
  }
  return image;
}

std::uint64_t lostBytes(const ImageFile& image, std::uint64_t offset, std::uint64_t size) {
  const auto endsBefore = [](const ImageRange& range, std::uint64_t at) { return range.offset + range.size <= at; };
  auto range = std::lower_bound(image.lost.begin(), image.lost.end(), offset, endsBefore);
  std::uint64_t count = 0;
  for (; range != image.lost.end() && range->offset < offset + size; ++range) {
    count += std::min(offset + size, range->offset + range->size) - std::max(offset, range->offset);
  }
  return count;
}

std::string writingObstacle(const ImageFile& image) {
  const ContainerKind& kind = kindOf(image.container);
  if (kind.write == nullptr) return std::string(kind.title) + " cannot be written";
  const bool isText = image.container != Container::Raw;
  const std::uint64_t end = image.address + static_cast<std::uint64_t>(image.bytes.size());
  if (isText && end > std::uint64_t{1} << 32U) return std::string(kind.title) + " reaches no address past 4 GiB";
  const auto isOfLine = [](const FileFinding& finding) { return finding.line > 0; };
  const auto found = std::ranges::find_if(image.findings, isOfLine);
  if (image.text.isEmpty() || found == image.findings.end()) return {};
  return "its lines cannot be kept as they are: " + found->describe();
}

QByteArray encodeImage(const ImageFile& image) { return kindOf(image.container).write(image); }

void moveTo(ImageFile& image, Container container) {
  image.container = container;
  image.text.clear();
}

}  // namespace Velk
