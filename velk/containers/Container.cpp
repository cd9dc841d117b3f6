#include "velk/containers/Container.h"

#include <algorithm>

#include "velk/containers/Gzip.h"
#include "velk/containers/HexDump.h"
#include "velk/containers/ImageFile.h"
#include "velk/containers/IntelHex.h"
#include "velk/containers/SRecord.h"

namespace Velk {
namespace {

constexpr const char* rawExtensions[] = {"bin", "raw", "img", "dump"};
constexpr const char* hexExtensions[] = {"hex", "ihex", "ihx", "h86"};
constexpr const char* recordExtensions[] = {"s19", "s28", "s37", "srec", "srecord", "mot", "mhx"};
constexpr const char* dumpExtensions[] = {"hexdump", "xxd"};
constexpr const char* gzipExtensions[] = {"gz"};

ImageFile readRaw(QByteArray contents) { return {.bytes = std::move(contents)}; }
QByteArray writeRaw(const ImageFile& image) { return image.bytes; }

constexpr ContainerKind kinds[] = {
    {Container::Raw, "raw", "raw dump", "the bytes alone", rawExtensions, nullptr, readRaw, writeRaw},
    {Container::IntelHex, "hex", "Intel HEX", "addresses below 4 GiB, gaps and an entry point", hexExtensions,
     detail::isIntelHex, detail::readIntelHex, detail::writeIntelHex},
    {Container::SRecord, "srec", "S-record", "addresses below 4 GiB, gaps, a header and an entry point",
     recordExtensions, detail::isSRecord, detail::readSRecord, detail::writeSRecord},
    {Container::HexDump, "hexdump", "hex dump", "addresses and gaps", dumpExtensions, detail::isHexDump,
     detail::readHexDump, nullptr},
    {Container::Gzip, "gzip", "gzip", "what the file in it carries", gzipExtensions, detail::isGzip, detail::readGzip,
     nullptr},
};

}  // namespace

std::span<const ContainerKind> containerKinds() { return kinds; }

const ContainerKind& kindOf(Container container) {
  return *std::ranges::find(kinds, container, &ContainerKind::container);
}

const ContainerKind* containerForFile(std::string_view fileName) {
  const auto isIn = [&](const ContainerKind& kind) {
    return std::ranges::any_of(kind.extensions, [&](std::string_view extension) {
      const std::size_t dot = fileName.size() - std::min(fileName.size(), extension.size() + 1);
      return fileName.substr(dot).starts_with('.') && fileName.substr(dot + 1) == extension;
    });
  };
  const auto* const found = std::ranges::find_if(kinds, isIn);
  return found == std::end(kinds) ? nullptr : found;
}

}  // namespace Velk
