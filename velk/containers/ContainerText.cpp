#include "velk/containers/ContainerText.h"

#include <algorithm>
#include <cstring>

#include "velk/bytes/ByteArray.h"
#include "velk/bytes/HexText.h"

namespace Velk::detail {
namespace {

/// What is known of a byte of the image.
enum class Coverage : char { None, Given, Lost };

/// Puts the bytes of a text into memory, line by line.
class Layout {
 public:
  explicit Layout(const ContainerText& text) : text_(text) {}

  ImageFile run(Container container) {
    findLostRanges();
    ImageFile image{.container = container, .details = text_.details};
    if (!findSpan(image)) return image;
    image.bytes.fill(erasedByte, static_cast<qsizetype>(size_));
    coverage_.assign(size_, static_cast<char>(Coverage::None));
    FindingList findings(image.findings);
    for (const PlacedBytes& place : text_.places) put(image, place, findings);
    findings.close();
    for (const AddressRange& range : lost_) markLost(range);
    image.gaps = rangesOf(Coverage::None);
    image.lost = rangesOf(Coverage::Lost);
    return image;
  }

 private:
  /// Returns how many lines in a row are wrong from `first` on.
  std::size_t runOf(std::size_t first) const {
    std::size_t count = 1;
    while (first + count < text_.wrongLines.size() &&
           text_.wrongLines[first + count].before == text_.wrongLines[first].before) {
      ++count;
    }
    return count;
  }

  void findLostRanges() {
    for (std::size_t first = 0; first < text_.wrongLines.size();) {
      const std::size_t count = runOf(first);
      for (std::size_t i = 0; i < count; ++i) addLost(text_.wrongLines[first + i], count);
      first += count;
    }
  }

  /// A line's own address is believed if it puts its bytes between those of the lines around it. Otherwise the gap
  /// there is lost, or, where the lines around it leave none to see, the length of a line.
  void addLost(const WrongLine& line, std::size_t inRow) {
    const std::uint64_t lineLength = text_.details.recordLength * std::uint64_t{inRow};
    const bool isFirst = line.before == 0;
    const bool isLast = line.before == text_.places.size();
    if (text_.places.empty() || (line.claimed && line.claimed->size == 0)) return;
    const std::uint64_t next = isLast ? ~std::uint64_t{0} : text_.places[line.before].address;
    const std::uint64_t previous = isFirst ? 0 : text_.places[line.before - 1].end();
    const std::uint64_t from = !isFirst ? previous : next - std::min(next, lineLength);
    const std::uint64_t to = isLast ? previous + lineLength : next;
    if (line.claimed && line.claimed->address >= from && line.claimed->end() <= to) {
      lost_.push_back(*line.claimed);
    } else if (from < to) {
      const bool isWide = to - from > 255 * std::uint64_t{inRow};
      lost_.push_back({from, isWide ? lineLength : to - from});
    }
  }

  /// Finds the addresses that the text covers. Returns false, and says so, if they are too far apart.
  bool findSpan(ImageFile& image) {
    constexpr std::uint64_t perByte = 16;
    if (text_.places.empty()) return false;
    std::uint64_t end = 0;
    address_ = ~std::uint64_t{0};
    const auto include = [&](const auto& range) {
      address_ = std::min(address_, range.address);
      end = std::max(end, range.end());
    };
    std::ranges::for_each(text_.places, include);
    std::ranges::for_each(lost_, include);
    image.address = address_;
    size_ = end - address_;
    const auto given = static_cast<std::uint64_t>(text_.bytes.size());
    if (size_ <= std::max(freelySpanned, perByte * given)) return true;
    image.error = std::to_string(given) + " bytes are scattered over addresses " + hexText(address_, 8) + " to " +
                  hexText(end - 1, 8);
    return false;
  }

  void put(ImageFile& image, const PlacedBytes& place, FindingList& findings) {
    const std::uint64_t offset = place.address - address_;
    const ConstBytes bytes = text_.bytesAt(place);
    char* const target = image.bytes.data() + offset;
    char* const coverage = coverage_.data() + offset;
    if (std::memchr(coverage, static_cast<int>(Coverage::Given), place.count) != nullptr) {
      reportConflict(place, {reinterpret_cast<const unsigned char*>(target), place.count}, coverage, findings);
    }
    std::memcpy(target, bytes.data(), bytes.size());
    std::memset(coverage, static_cast<int>(Coverage::Given), place.count);
  }

  void reportConflict(const PlacedBytes& place, ConstBytes old, const char* coverage, FindingList& findings) {
    const ConstBytes bytes = text_.bytesAt(place);
    std::size_t i = 0;
    while (i < bytes.size() && (coverage[i] != static_cast<char>(Coverage::Given) || old[i] == bytes[i])) ++i;
    if (i == bytes.size()) return;
    const std::uint64_t address = place.address + i;
    std::string text = "other bytes for address " + hexText(address, 8);
    if (findings.isFull()) return findings.add(place.line, std::move(text));
    const auto* earlier = &place;
    do {
      --earlier;
    } while (address < earlier->address || address >= earlier->end());
    findings.add(place.line, text + " than line " + std::to_string(earlier->line) + "; these are taken");
  }

  void markLost(const AddressRange& range) {
    char* const coverage = coverage_.data() + (range.address - address_);
    std::replace(coverage, coverage + range.size, static_cast<char>(Coverage::None), static_cast<char>(Coverage::Lost));
  }

  std::vector<ImageRange> rangesOf(Coverage coverage) const {
    std::vector<ImageRange> ranges;
    for (std::size_t at = coverage_.find(static_cast<char>(coverage)); at != coverage_.npos;) {
      const std::size_t end = std::min(coverage_.find_first_not_of(static_cast<char>(coverage), at), coverage_.size());
      ranges.push_back({at, end - at});
      at = coverage_.find(static_cast<char>(coverage), end);
    }
    return ranges;
  }

  const ContainerText& text_;
  std::vector<AddressRange> lost_;
  std::uint64_t address_ = 0;
  std::uint64_t size_ = 0;
  std::string coverage_;  ///< a Coverage for each byte
};

}  // namespace

ConstBytes ContainerText::bytesAt(const PlacedBytes& place) const {
  return bytesOf(bytes).subspan(place.at, place.count);
}

ImageFile imageOfText(const ContainerText& text, Container container) {
  if (text.records == 0) {
    const bool hasReason = !text.findings.empty() && text.findings.front().line > 0;
    const std::string none = std::string("no line of it is ") + kindOf(container).title;
    return {.error = hasReason ? text.findings.front().describe() : none, .container = container};
  }
  ImageFile image = Layout(text).run(container);
  image.findings.insert(image.findings.begin(), text.findings.begin(), text.findings.end());
  return image;
}

std::vector<Stretch> stretchesOf(const ImageFile& image) {
  const ConstBytes bytes = bytesOf(image.bytes);
  std::vector<Stretch> stretches;
  std::uint64_t from = 0;
  const auto addUpTo = [&](std::uint64_t to) {
    if (from < to) stretches.push_back({image.address + from, bytes.subspan(from, to - from)});
  };
  for (const ImageRange& gap : image.gaps) {
    const std::string_view part =
        textOf(image.bytes).substr(std::min<std::uint64_t>(gap.offset, bytes.size()), gap.size);
    if (gap.offset + gap.size >= bytes.size() || part.find_first_not_of(erasedByte) != part.npos) continue;
    addUpTo(gap.offset);
    from = gap.offset + gap.size;
  }
  addUpTo(bytes.size());
  return stretches;
}

void FindingList::add(std::size_t line, std::string text) {
  if (isFull()) {
    ++leftOut_;
  } else {
    findings_.push_back({line, std::move(text)});
    ++count_;
  }
}

void FindingList::close() {
  if (leftOut_ == 0) return;
  findings_.push_back(
      {0, std::to_string(leftOut_) + (leftOut_ == 1 ? " more line is wrong" : " more lines are wrong")});
}

}  // namespace Velk::detail
