#include "velk/data/BlockDiff.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "velk/datablock/Checksums.h"

namespace Velk {
namespace {

constexpr FieldInfo headerFields[] = {
    VELK_FIELD(HwSDatablockHeader, id),
    detail::describeField<unsigned short>("size", offsetof(HwSDatablockHeader, blockSize)),
    VELK_FIELD(HwSDatablockHeader, alignment),
};
constexpr FieldInfo checkFields[] = {
    VELK_FIELD(HwSDatablockHeader, checksum),
    detail::describeField<unsigned int>("checksum32", detail::crcOffset),
};
constexpr FieldInfo byteField = detail::describeField<unsigned char>("bytes", 0);

bool isEqual(ConstBytes first, ConstBytes second) {
  return first.size() == second.size() &&
         (first.empty() || std::memcmp(first.data(), second.data(), first.size()) == 0);
}

/// Returns how many bytes at the start of two equally long stretches are equal.
std::size_t equalBytes(ConstBytes first, ConstBytes second) {
  constexpr std::size_t piece = 256;  // comparing in pieces skips equal ones without looking at single bytes
  std::size_t at = 0;
  while (first.size() - at > piece && std::memcmp(first.data() + at, second.data() + at, piece) == 0) at += piece;
  const auto differing = std::mismatch(first.begin() + static_cast<std::ptrdiff_t>(at), first.end(),
                                       second.begin() + static_cast<std::ptrdiff_t>(at));
  return static_cast<std::size_t>(differing.first - first.begin());
}

bool hasHeader(const BlockView& block) { return block.kind != BlockKind::Stray && block.kind != BlockKind::End; }

/// Returns a block as bytes without a layout.
BlockView withoutLayout(BlockView block) {
  block.kind = hasHeader(block) ? BlockKind::Unknown : BlockKind::Stray;
  block.row = nullptr;
  return block;
}

/// Compares two blocks of the same layout.
class Comparison {
 public:
  Comparison(const BlockView& first, const BlockView& second, const std::function<void(const Difference&)>& report)
      : first_(first, Extent::Capacity),
        second_(second, Extent::Capacity),
        kind_(first.kind),
        sameSize_(first.bytes.size() == second.bytes.size()),
        explained_(first.bytes.size()),
        report_(report) {}

  void run(bool header) {
    compare({}, first_.root(), second_.root());
    for (const FieldInfo& field : headerFields) {
      if (header && !isExplained(field.offset)) compareInPlace(field);
    }
    if (!sameSize_) return tellLength();
    const std::size_t start = header ? sizeof(HwSDatablockHeader) : 0;
    const bool crc = kind_ == BlockKind::SecondEdition || kind_ == BlockKind::EventCounter;
    if (crc) explain({&checkFields[1], detail::crcOffset});
    compareRest(start);
    if (found_ || !header) return;
    for (const FieldInfo& field : std::span(checkFields).first(crc ? 2 : 1)) compareInPlace(field);
  }

 private:
  void report(const DataPath& path, std::optional<FieldElement> first, std::optional<FieldElement> second) {
    found_ = true;
    report_({path, first, second});
  }

  /// Compares a field that is in the same place in both blocks.
  void compareInPlace(const FieldInfo& field) {
    const FieldElement element{&field, field.offset};
    compareValues(DataPath(field.name), element, element);
  }

  void compare(const DataPath& path, const DataNode& first, const DataNode& second) {
    if (first.kind() == DataNode::Kind::Value) return compareValues(path, first.element(), second.element());
    const std::size_t common = std::min(first.size(), second.size());
    const bool record = first.kind() == DataNode::Kind::Record;
    for (std::size_t i = nextDifference(first, second, 0, common); i < common;
         i = nextDifference(first, second, i + 1, common)) {
      compare(record ? DataPath(path, first.nameOf(i)) : DataPath(path, i), first[i], second[i]);
    }
    for (std::size_t i = common; i < first.size(); ++i) tellAll(DataPath(path, i), first[i], true);
    for (std::size_t i = common; i < second.size(); ++i) tellAll(DataPath(path, i), second[i], false);
  }

  /// Returns the first part from `index` on that may differ. In lists at the same place in both blocks, this is the
  /// part with the next byte that differs.
  std::size_t nextDifference(const DataNode& first, const DataNode& second, std::size_t index,
                             std::size_t count) const {
    const auto spacing = first.spacing();
    if (!spacing || index >= count || first.field() != second.field() || spacing != second.spacing()) return index;
    const std::size_t start = spacing->offset + index * spacing->distance;
    const std::size_t end =
        std::min({spacing->offset + count * spacing->distance, first_.bytes().size(), second_.bytes().size()});
    if (start >= end) return count;
    const std::size_t equal =
        equalBytes(first_.bytes().subspan(start, end - start), second_.bytes().subspan(start, end - start));
    return equal == end - start ? count : index + equal / spacing->distance;
  }

  void compareValues(const DataPath& path, const FieldElement& first, const FieldElement& second) {
    moved_ = moved_ || first.offset != second.offset || first.size != second.size;
    if (isSameValue(first, second)) return;
    if (!moved_) explain(first);
    report(path, present(first_, first), present(second_, second));
  }

  bool isSameValue(const FieldElement& first, const FieldElement& second) const {
    const bool inFirst = first.isInside(first_.bytes().size());
    const bool inSecond = second.isInside(second_.bytes().size());
    if (!inFirst || !inSecond) return inFirst == inSecond;
    if (first.field != second.field) {
      // The types differ, which is reported for the types themselves.
      return fieldText(first_.bytes(), first) == fieldText(second_.bytes(), second);
    }
    if (first.field->bits.width != 0) {
      return integerValue(first_.bytes(), first) == integerValue(second_.bytes(), second);
    }
    return isEqual(first_.bytes().subspan(first.offset, first.size),
                   second_.bytes().subspan(second.offset, second.size));
  }

  static std::optional<FieldElement> present(const BlockData& data, const FieldElement& element) {
    return element.isInside(data.bytes().size()) ? std::optional(element) : std::nullopt;
  }

  /// Reports all values that only one of the blocks has.
  void tellAll(const DataPath& path, const DataNode& node, bool inFirst) {
    moved_ = true;
    const auto act = [&](const DataPath& place, const FieldElement& element) {
      report(place, inFirst ? std::optional(element) : std::nullopt, inFirst ? std::nullopt : std::optional(element));
    };
    forEachValue(node, path, act);
  }

  bool isExplained(std::size_t offset) const { return offset < explained_.size() && explained_[offset]; }

  /// Marks the bytes of an element as reported.
  void explain(const FieldElement& element) {
    for (std::size_t i = element.offset; i < element.offset + element.size && i < explained_.size(); ++i) {
      explained_[i] = true;
    }
  }

  /// Reports the bytes that one of the blocks lacks because the end of its memory cuts it off, after all of its fields.
  void tellLength() {
    if (found_) return;
    const bool firstIsLonger = first_.bytes().size() > second_.bytes().size();
    const ConstBytes longer = firstIsLonger ? first_.bytes() : second_.bytes();
    const DataPath bytes(byteField.name);
    for (std::size_t i = std::min(first_.bytes().size(), second_.bytes().size()); i < longer.size(); ++i) {
      const FieldElement element{&byteField, i};
      report(DataPath(bytes, i), present(first_, element), present(second_, element));
    }
  }

  /// Reports bytes that differ where no field does.
  void compareRest(std::size_t start) {
    if (moved_ || start >= first_.bytes().size()) return;
    if (isEqual(first_.bytes().subspan(start), second_.bytes().subspan(start))) return;
    const DataPath bytes(byteField.name);
    for (std::size_t i = start; i < explained_.size(); ++i) {
      i += equalBytes(first_.bytes().subspan(i), second_.bytes().subspan(i));
      if (i == explained_.size() || explained_[i]) continue;
      const FieldElement element{&byteField, i};
      compareValues(DataPath(bytes, i), element, element);
    }
  }

  const BlockData first_;
  const BlockData second_;
  BlockKind kind_;
  bool sameSize_;
  bool moved_ = false;  ///< values have other places in the second block, so that bytes cannot be compared one by one
  bool found_ = false;
  std::vector<bool> explained_;
  const std::function<void(const Difference&)>& report_;
};

}  // namespace

std::vector<ComparedBlocks> pairBlocks(std::span<const BlockView> first, std::span<const BlockView> second) {
  const auto key = [](const BlockView& block) { return block.kind == BlockKind::Stray ? -1 : int{block.id}; };
  std::map<int, std::vector<const BlockView*>> byId;
  for (const BlockView& block : second) byId[key(block)].push_back(&block);
  std::map<int, unsigned> seen;
  std::vector<ComparedBlocks> pairs;
  for (const BlockView& block : first) {
    const unsigned occurrence = ++seen[key(block)];
    const std::vector<const BlockView*>& others = byId[key(block)];
    pairs.push_back({&block, occurrence <= others.size() ? others[occurrence - 1] : nullptr, occurrence});
  }
  std::map<int, unsigned> seenInSecond;
  for (const BlockView& block : second) {
    const unsigned occurrence = ++seenInSecond[key(block)];
    if (occurrence > seen[key(block)]) pairs.push_back({nullptr, &block, occurrence});
  }
  return pairs;
}

void compareBlocks(const BlockView& first, const BlockView& second,
                   const std::function<void(const Difference&)>& report) {
  if (isEqual(first.bytes, second.bytes)) return;
  if (first.kind != second.kind || first.row != second.row) {
    return Comparison(withoutLayout(first), withoutLayout(second), report).run(hasHeader(first) && hasHeader(second));
  }
  Comparison(first, second, report).run(hasHeader(first));
}

}  // namespace Velk
