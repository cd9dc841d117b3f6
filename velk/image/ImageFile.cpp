#include "velk/image/ImageFile.h"

#include <algorithm>

#include "velk/bytes/ByteArray.h"
#include "velk/bytes/HexText.h"
#include "velk/files/ReadFile.h"
#include "velk/image/IntelHex.h"
#include "velk/image/SRecord.h"

namespace Velk {
namespace {

constexpr char erased = '\xFF';

/// One text container: how to know it, to read and to write it.
struct TextFormat {
  ImageFormat format;
  const char* name;
  char firstCharacter;
  SparseImage (*read)(std::string_view text);
  QByteArray (*write)(const SparseImage& image);
};

constexpr TextFormat textFormats[] = {
    {ImageFormat::IntelHex, "Intel HEX", ':', readIntelHex, writeIntelHex},
    {ImageFormat::SRecord, "S-record", 'S', readSRecords, writeSRecords},
};

const TextFormat& textFormat(ImageFormat format) {
  return *std::ranges::find(textFormats, format, &TextFormat::format);
}

std::string errorOf(const SparseImage& image) { return "line " + std::to_string(image.errorLine) + ": " + image.error; }

/// Lays the segments into one piece of memory.
ImageFile flatten(const SparseImage& sparse, ImageFormat format) {
  constexpr std::uint64_t freely = 16 * 1024 * 1024;
  constexpr std::uint64_t perByte = 16;
  ImageFile image{.format = format, .details = sparse.details};
  if (!sparse.details.ended) image.warning = "has no end record; it may have been cut";
  if (sparse.segments.empty()) return image;
  image.address = sparse.segments.front().address;
  const std::uint64_t span = sparse.segments.back().end() - image.address;
  std::uint64_t given = 0;
  for (const ImageSegment& segment : sparse.segments) given += static_cast<std::uint64_t>(segment.bytes.size());
  if (span > std::max(freely, perByte * given)) {
    image.error = std::to_string(given) + " bytes are scattered over addresses " + detail::hexText(image.address, 8) +
                  " to " + detail::hexText(image.address + span - 1, 8);
    return image;
  }
  image.bytes.reserve(static_cast<qsizetype>(span));
  for (const ImageSegment& segment : sparse.segments) {
    const std::uint64_t from = segment.address - image.address;
    const auto end = static_cast<std::uint64_t>(image.bytes.size());
    if (from > end) image.gaps.push_back({end, from - end});
    image.bytes.append(static_cast<qsizetype>(from - end), erased);
    image.bytes += segment.bytes;
  }
  return image;
}

bool isErased(const QByteArray& bytes, const ImageGap& gap) {
  const auto gapBytes = textOf(bytes).substr(gap.offset, gap.size);
  return gapBytes.find_first_not_of(erased) == std::string_view::npos;
}

/// The image without those of its gaps in which nothing was written since.
SparseImage withoutGaps(const ImageFile& image) {
  SparseImage sparse{.details = image.details};
  const auto size = static_cast<std::uint64_t>(image.bytes.size());
  std::uint64_t from = 0;
  const auto addUpTo = [&](std::uint64_t to) {
    const auto length = static_cast<qsizetype>(to - from);
    sparse.segments.push_back({image.address + from, image.bytes.mid(static_cast<qsizetype>(from), length)});
  };
  for (const ImageGap& gap : image.gaps) {
    if (gap.offset + gap.size >= size || !isErased(image.bytes, gap)) continue;
    addUpTo(gap.offset);
    from = gap.offset + gap.size;
  }
  if (from < size) addUpTo(size);
  return sparse;
}

ImageFile decodeText(const QByteArray& contents, const TextFormat& format) {
  const SparseImage sparse = format.read(textOf(contents));
  if (!sparse.error.empty()) return {.error = errorOf(sparse), .format = format.format};
  return flatten(sparse, format.format);
}

/// The format that the first character hints at; null for a raw dump.
const TextFormat* guessFormat(const QByteArray& contents) {
  const std::string_view text = textOf(contents);
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == text.npos) return nullptr;
  const auto* const found = std::ranges::find(textFormats, text[first], &TextFormat::firstCharacter);
  return found != std::end(textFormats) ? found : nullptr;
}

/// Whether the first line could be one of a text container for all that its characters say.
bool beginsWithText(std::string_view text) {
  constexpr std::size_t shortestRecord = 10;
  constexpr std::size_t longestRecord = 600;
  const std::string_view line = text.substr(0, text.find('\n'));
  return line.size() >= shortestRecord && line.size() <= longestRecord &&
         std::ranges::all_of(line, [](char c) { return (c >= ' ' && c < '\x7F') || c == '\t' || c == '\r'; });
}

ImageFile decodeUnknown(QByteArray contents) {
  const TextFormat* const guess = guessFormat(contents);
  if (guess == nullptr) return {.bytes = std::move(contents)};
  const SparseImage sparse = guess->read(textOf(contents));
  if (sparse.error.empty()) return flatten(sparse, guess->format);
  ImageFile raw{.bytes = std::move(contents)};
  // One character proves nothing, a right record before the wrong one or a line of text does.
  if (sparse.errorLine > 1 || beginsWithText(textOf(raw.bytes))) {
    raw.warning = std::string("would be ") + guess->name + " but for " + errorOf(sparse) + "; taken as a raw dump";
  }
  return raw;
}

}  // namespace

const char* formatName(ImageFormat format) {
  constexpr const char* names[] = {"raw", "hex", "srec"};
  return names[static_cast<std::size_t>(format)];
}

ImageFile readImageFile(const std::string& path, std::optional<ImageFormat> format) {
  std::string error;
  auto contents = readFile(path, error);
  if (!contents) return {.error = std::move(error)};
  return decodeImage(std::move(*contents), format);
}

ImageFile decodeImage(QByteArray contents, std::optional<ImageFormat> format) {
  if (!format) return decodeUnknown(std::move(contents));
  if (*format == ImageFormat::Raw) return {.bytes = std::move(contents)};
  return decodeText(contents, textFormat(*format));
}

QByteArray encodeImage(const ImageFile& image) {
  return image.format == ImageFormat::Raw ? image.bytes : textFormat(image.format).write(withoutGaps(image));
}

}  // namespace Velk
