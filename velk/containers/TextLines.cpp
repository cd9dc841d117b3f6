#include "velk/containers/TextLines.h"

#include <algorithm>

namespace Velk::detail {

std::optional<TextLine> TextLines::next() {
  const std::size_t begin = at_;
  if (begin >= text_.size()) return std::nullopt;
  const auto findNext = [&](char character, std::size_t& found) {
    if (found < begin || begin == 0) found = std::min(text_.find(character, begin), text_.size());
    return found;
  };
  const std::size_t end = std::min(findNext('\n', lineFeed_), findNext('\r', carriageReturn_));
  at_ = std::min(end + 1, text_.size());
  for (const std::string_view ending : {"\r\n", "\r\r\n"}) {
    if (text_.substr(end).starts_with(ending)) at_ = end + ending.size();
  }
  return TextLine{begin, end, at_};
}

}  // namespace Velk::detail
