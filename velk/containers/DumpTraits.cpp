#include <algorithm>
#include <numeric>

#include "velk/bytes/ByteArray.h"
#include "velk/containers/DumpReader.h"

namespace Velk::detail {
namespace {

/// Looks for lines that confirm that a text is a dump.
class Survey {
 public:
  void take(const DumpLine& line, std::string_view characters) {
    if (line.kind == DumpLine::Kind::Repeat) {
      repeats_ = true;
    } else if (line.kind == DumpLine::Kind::Offset && !first_.form.hasColon) {
      compare(line);
    } else if (line.kind == DumpLine::Kind::Bytes) {
      compare(line);
      checkText(line, characters);
      if (!isCertain_ && first_.count == 0) first_ = line;
      previous_ = line;
      repeats_ = false;
    }
  }

  bool isCertain() const { return isCertain_; }

  std::optional<DumpTraits> result() const {
    if (first_.count == 0) return std::nullopt;
    DumpTraits traits{.form = first_.form, .isCertain = isCertain_};
    // od prints pairs with octal offsets of seven digits, hexdump with eight.
    const bool isOctal = !traits.form.hasColon && traits.form.group == 2 && traits.form.width == 7;
    const std::size_t usual = isOctal ? 1 : 0;
    std::size_t best = usual;
    for (std::size_t i = 0; i < votes_.size(); ++i) best = votes_[i] > votes_[best] ? i : best;
    traits.base = offsetBases[best];
    return traits;
  }

 private:
  /// Compares the offset of a line with where the line before it ends.
  void compare(const DumpLine& line) {
    const DumpLine& last = previous_;
    if (last.count < 2 || last.form.hasColon != line.form.hasColon) return;
    for (std::size_t i = 0; i < votes_.size(); ++i) {
      const auto before = offsetValue(last.offset, offsetBases[i]);
      const auto address = offsetValue(line.offset, offsetBases[i]);
      if (!before || !address || *address <= *before) continue;
      const std::uint64_t distance = *address - *before;
      const bool isPadded = line.kind == DumpLine::Kind::Offset && last.form.printsWords();
      const bool follows = distance == last.count || (isPadded && distance + 1 == last.count) ||
                           (repeats_ && distance % last.count == 0);
      if (!follows) continue;
      ++votes_[i];
      confirm(last);
    }
  }

  void checkText(const DumpLine& line, std::string_view characters) {
    constexpr std::size_t fewest = 4;
    if (isCertain_ || line.count < fewest) return;
    bytes_.clear();
    line.appendBytes(bytes_);
    if (line.textAgrees(characters, bytesOf(bytes_)).value_or(false)) confirm(line);
  }

  void confirm(const DumpLine& line) {
    if (!isCertain_) first_ = line;
    isCertain_ = true;
  }

  DumpLine first_{};  ///< the first one, as far as none is certain; then the first that is
  DumpLine previous_{};
  bool repeats_ = false;  ///< an asterisk follows the previous line
  bool isCertain_ = false;
  std::array<std::size_t, offsetBases.size()> votes_{};
  QByteArray bytes_{};
};

}  // namespace

std::optional<DumpTraits> dumpTraitsOf(std::string_view text, bool untilCertain) {
  Survey survey;
  TextLines lines(text);
  while (const auto place = lines.next()) {
    const std::string_view characters = text.substr(place->begin, place->end - place->begin);
    survey.take(parseDumpLine(characters, nullptr), characters);
    if (untilCertain && survey.isCertain()) break;
  }
  return survey.result();
}

}  // namespace Velk::detail
