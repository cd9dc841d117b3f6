#include "velk/containers/HexDump.h"

#include <algorithm>

#include "velk/bytes/ByteArray.h"
#include "velk/containers/ContentGuess.h"
#include "velk/containers/DumpReader.h"
#include "velk/containers/PlainDump.h"

namespace Velk::detail {
namespace {

/// Returns the text without the mark that some editors put in front of it.
std::string_view withoutMark(std::string_view text) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return text.substr(text.starts_with(mark) ? mark.size() : 0);
}

}  // namespace

bool isHexDump(std::string_view contents) {
  if (!looksLikeText(contents)) return false;
  const std::string_view text = withoutMark(contents);
  const auto traits = dumpTraitsOf(text, true);
  return (traits && traits->isCertain) || isPlainDump(text);
}

ImageFile readHexDump(QByteArray contents) {
  const std::string_view text = withoutMark(textOf(contents));
  const auto traits = dumpTraitsOf(text, false);
  const ContainerText read = traits ? DumpReader(text, *traits).read() : readPlainDump(text);
  ImageFile image = imageOfText(read, Container::HexDump);
  if (read.records == 0 && read.findings.empty()) image.error = "holds no line of a hex dump";
  image.details = {};
  return image;
}

}  // namespace Velk::detail
