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
      // The same for all lines in a row, which may be many.
      const bool isWide = to - from > 255 * std::uint64_t{inRow};
      const AddressRange range{from, isWide ? lineLength : to - from};
      if (range != lastOpen_) lost_.push_back(range);
      lastOpen_ = range;
    }
  }

  /// Finds the addresses that the text covers. Returns false, and says so, if they are too far apart.
  bool findSpan(ImageFile& image) {
    constexpr std::uint64_t perByte = 16;
    constexpr std::uint64_t largest = 1024 * 1024 * 1024;  // a compressed text is small and gives many bytes
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
    const std::uint64_t most = std::min(largest, std::max(freelySpanned, perByte * given));
    if (size_ <= most) return staysIn(most, image);
    image.error = std::to_string(given) + " bytes are scattered over addresses " + hexText(address_, 8) + " to " +
                  hexText(end - 1, 8);
    return false;
  }

  /// Checks that lines do not repeat their bytes over and over at the same addresses.
  bool staysIn(std::uint64_t most, ImageFile& image) const {
    constexpr std::uint64_t oftenEnough = 4;
    std::uint64_t placed = 0;
    for (const PlacedBytes& place : text_.places) placed += place.size();
    for (const AddressRange& range : lost_) placed += range.size;
    if (placed <= oftenEnough * most) return true;
    image.error = "its lines put " + std::to_string(placed) + " bytes at " + std::to_string(size_) + " addresses";
    return false;
  }

  void put(ImageFile& image, const PlacedBytes& place, FindingList& findings) {
    const std::uint64_t offset = place.address - address_;
    char* const target = image.bytes.data() + offset;
    char* const coverage = coverage_.data() + offset;
    if (std::memchr(coverage, static_cast<int>(Coverage::Given), place.size()) != nullptr) {
      reportConflict(place, target, coverage, findings);
    }
    std::memcpy(target, text_.bytesAt(place).data(), place.count);
    for (std::uint64_t done = place.count; done < place.size();) {
      const std::uint64_t count = std::min(done, place.size() - done);
      std::memcpy(target + done, target, count);
      done += count;
    }
    std::memset(coverage, static_cast<int>(Coverage::Given), place.size());
  }

  void reportConflict(const PlacedBytes& place, const char* old, const char* coverage, FindingList& findings) {
    const ConstBytes bytes = text_.bytesAt(place);
    const auto isSame = [&](std::uint64_t i) {
      return coverage[i] != static_cast<char>(Coverage::Given) ||
             static_cast<unsigned char>(old[i]) == bytes[i % bytes.size()];
    };
    std::uint64_t i = 0;
    while (i < place.size() && isSame(i)) ++i;
    if (i == place.size()) return;
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
  AddressRange lastOpen_{};  ///< the last one that no line claims
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
  std::vector<ImageRange> holes = image.gaps;
  holes.insert(holes.end(), image.lost.begin(), image.lost.end());
  std::ranges::sort(holes, {}, &ImageRange::offset);
  std::vector<Stretch> stretches;
  std::uint64_t from = 0;
  const auto addUpTo = [&](std::uint64_t to) {
    if (from < to) stretches.push_back({image.address + from, bytes.subspan(from, to - from)});
  };
  for (const ImageRange& hole : holes) {
    const std::uint64_t end = hole.offset + hole.size;
    if (end >= bytes.size()) break;
    const std::string_view part = textOf(image.bytes).substr(hole.offset, hole.size);
    if (part.find_first_not_of(erasedByte) != part.npos) continue;
    addUpTo(hole.offset);
    from = end;
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
