#include "velk/image/Recovery.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "velk/datablock/HwDatablockEnd.h"

namespace Velk {
namespace {

constexpr char erased = '\xFF';

std::string_view textOf(const DumpView& block) {
  return {reinterpret_cast<const char*>(block.view.bytes.data()), block.view.bytes.size()};
}

std::int64_t endOf(const DumpView& block) { return block.place + static_cast<std::int64_t>(block.view.bytes.size()); }

/// A block of the merged list and the block of another dump that equals it.
struct Anchor {
  std::size_t merged;
  std::size_t other;
};

/// Returns the pairs of equal blocks of which each list has only one, in the order of `others`.
std::vector<Anchor> uniquePairs(const std::vector<DumpView>& merged, const std::vector<DumpView>& others) {
  struct Places {
    std::size_t merged = 0, other = 0, mergedCount = 0, otherCount = 0;
  };
  std::unordered_map<std::string_view, Places> byBytes;
  for (std::size_t i = 0; i < merged.size(); ++i) {
    Places& places = byBytes[textOf(merged[i])];
    places.merged = i;
    ++places.mergedCount;
  }
  for (std::size_t i = 0; i < others.size(); ++i) {
    Places& places = byBytes[textOf(others[i])];
    places.other = i;
    ++places.otherCount;
  }
  std::vector<Anchor> pairs;
  for (const auto& [bytes, places] : byBytes) {
    if (places.mergedCount == 1 && places.otherCount == 1) pairs.push_back({places.merged, places.other});
  }
  std::ranges::sort(pairs, {}, &Anchor::other);
  return pairs;
}

/// Returns the longest sequence of pairs that is in the order of both lists.
std::vector<Anchor> inOrder(const std::vector<Anchor>& pairs) {
  constexpr std::size_t none = ~std::size_t{0};
  std::vector<std::size_t> ends;  // of the best sequence of each length, the index of its last pair
  std::vector<std::size_t> before(pairs.size(), none);
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const auto at =
        std::ranges::lower_bound(ends, pairs[i].merged, {}, [&](std::size_t end) { return pairs[end].merged; });
    if (at != ends.begin()) before[i] = *(at - 1);
    if (at == ends.end()) {
      ends.push_back(i);
    } else {
      *at = i;
    }
  }
  std::vector<Anchor> anchors;
  for (std::size_t i = ends.empty() ? none : ends.back(); i != none; i = before[i]) anchors.push_back(pairs[i]);
  std::ranges::reverse(anchors);
  return anchors;
}

/// How far the offsets in a dump are from the places in the memory.
class Shift {
 public:
  /// Adds that the block at `offset` of the dump is at `place`.
  void add(std::uint64_t offset, std::int64_t place) {
    shifts_[static_cast<std::int64_t>(offset)] = place - static_cast<std::int64_t>(offset);
  }
  /// Returns the place of an offset, by the nearest block before it that has a place, or else by the first one.
  std::int64_t placeOf(std::uint64_t offset) const {
    if (shifts_.empty()) return static_cast<std::int64_t>(offset);
    auto after = shifts_.upper_bound(static_cast<std::int64_t>(offset));
    if (after != shifts_.begin()) --after;
    return static_cast<std::int64_t>(offset) + after->second;
  }

 private:
  std::map<std::int64_t, std::int64_t> shifts_;
};

/// The views of one dump.
struct Dump {
  std::vector<DumpView> sound{};
  std::vector<DumpView> damaged{};
};

Dump survey(const MemoryImage& image, std::size_t number) {
  Dump dump;
  for (const BlockView& view : image) {
    if (view.kind == BlockKind::End) continue;
    (view.isSound() ? dump.sound : dump.damaged).push_back({number, view, static_cast<std::int64_t>(view.offset)});
  }
  return dump;
}

using Blocks = std::vector<DumpView>;
using Part = std::span<const DumpView>;

/// Returns whether the memory can have had only one of two blocks. One with bytes missing before it is a little early.
bool isSamePlace(const DumpView& first, const DumpView& second) {
  const std::int64_t shared = std::min(endOf(first), endOf(second)) - std::max(first.place, second.place);
  const auto shorter = static_cast<std::int64_t>(std::min(first.view.bytes.size(), second.view.bytes.size()));
  return shared > shorter / 2;
}

/// Moves overlapping blocks apart, and the blocks after them along.
void moveApart(Blocks& blocks) {
  std::int64_t moved = 0;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    blocks[i].place += moved;
    const std::int64_t overlap = i == 0 ? 0 : endOf(blocks[i - 1]) - blocks[i].place;
    if (overlap <= 0) continue;
    blocks[i].place += overlap;
    moved += overlap;
  }
}

/// Returns how far the offsets of a dump are from the places of the merged blocks, by the blocks that both have.
Shift shiftOf(const Dump& dump, const Blocks& merged) {
  Shift shift;
  for (const Anchor& anchor : inOrder(uniquePairs(merged, dump.sound))) {
    shift.add(dump.sound[anchor.other].view.offset, merged[anchor.merged].place);
  }
  return shift;
}

class Merger {
 public:
  explicit Merger(std::optional<std::size_t> preferred) : preferred_(preferred) {}

  /// Adds the blocks of a dump, part by part between the blocks that it shares with earlier dumps.
  void add(Dump& dump) {
    const Blocks before = std::exchange(recovery_.blocks, {});
    const std::vector<Anchor> anchors = inOrder(uniquePairs(before, dump.sound));
    const Shift shift = shiftOf(dump, before);
    for (DumpView& block : dump.sound) block.place = shift.placeOf(block.view.offset);
    Part merged = before;
    Part others = dump.sound;
    for (const Anchor& anchor : anchors) {
      const std::size_t mergedCount = anchor.merged - (before.size() - merged.size());
      const std::size_t otherCount = anchor.other - (dump.sound.size() - others.size());
      addPart(merged.first(mergedCount), others.first(otherCount));
      recovery_.blocks.push_back(before[anchor.merged]);
      merged = merged.subspan(mergedCount + 1);
      others = others.subspan(otherCount + 1);
    }
    addPart(merged, others);
    moveApart(recovery_.blocks);
  }

  void addDamage(const Dump& dump) {
    const Shift shift = shiftOf(dump, recovery_.blocks);
    for (DumpView view : dump.damaged) {
      view.place = shift.placeOf(view.view.offset);
      recovery_.damage.push_back({view, bytesRecovered(view)});
    }
  }

  Recovery take() { return std::move(recovery_); }

 private:
  /// Merges blocks of the same stretch of memory, by their places.
  void addPart(Part merged, Part others) {
    while (!merged.empty() || !others.empty()) {
      if (!merged.empty() && !others.empty() && isSamePlace(merged.front(), others.front())) {
        compare(merged.front(), others.front());
        others = others.subspan(1);
        continue;
      }
      const bool isMergedNext = others.empty() || (!merged.empty() && merged.front().place <= others.front().place);
      Part& next = isMergedNext ? merged : others;
      recovery_.blocks.push_back(next.front());
      next = next.subspan(1);
    }
  }

  void compare(const DumpView& first, const DumpView& second) {
    if (textOf(first) != textOf(second) && first.dump != preferred_) recovery_.conflicts.push_back({first, second});
  }

  /// Returns how many bytes of a view the recovered blocks cover.
  std::uint64_t bytesRecovered(const DumpView& view) const {
    const Blocks& blocks = recovery_.blocks;
    std::int64_t count = 0;
    auto block = std::ranges::upper_bound(blocks, view.place, {}, endOf);
    for (; block != blocks.end() && block->place < endOf(view); ++block) {
      count += std::min(endOf(*block), endOf(view)) - std::max(block->place, view.place);
    }
    return static_cast<std::uint64_t>(count);
  }

  std::optional<std::size_t> preferred_;
  Recovery recovery_;
};

}  // namespace

Recovery recoverBlocks(std::span<const MemoryImage* const> dumps, std::optional<std::size_t> preferred) {
  std::vector<Dump> surveys;
  for (std::size_t i = 0; i < dumps.size(); ++i) surveys.push_back(survey(*dumps[i], i));
  Merger merger(preferred);
  if (preferred) merger.add(surveys[*preferred]);
  for (std::size_t i = 0; i < surveys.size(); ++i) {
    if (i != preferred) merger.add(surveys[i]);
  }
  for (const Dump& dump : surveys) merger.addDamage(dump);
  return merger.take();
}

std::optional<QByteArray> layOut(std::span<const DumpView> blocks, std::uint64_t size) {
  QByteArray image;
  for (const DumpView& block : blocks) {
    image.append(textOf(block).data(), static_cast<qsizetype>(textOf(block).size()));
    if (static_cast<std::uint64_t>(image.size()) > size) return std::nullopt;
  }
  const QByteArray end = HwDatablockEnd().getByteArrayData();
  if (static_cast<std::uint64_t>(image.size() + end.size()) <= size) image += end;
  image.append(static_cast<qsizetype>(size) - image.size(), erased);
  return image;
}

}  // namespace Velk
