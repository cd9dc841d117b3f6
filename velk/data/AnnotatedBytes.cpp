#include "velk/data/AnnotatedBytes.h"

#include <algorithm>

#include "velk/image/BlockHeader.h"

namespace Velk {
namespace {

/// A damaged block may be taken up to the next one, however far that is.
constexpr std::size_t longestBlock = 0xFFFF;

constexpr const char* sizePath = "header.size";
constexpr const char* checksumPath = "header.checksum";
constexpr const char* crcPath = "header.crc";

struct HeaderWord {
  FieldInfo field;
  ByteRole role = ByteRole::Header;
};

template <class Word>
constexpr HeaderWord headerWord(const char* path, std::size_t offset, ByteRole role = ByteRole::Header) {
  return {detail::describeField<Word>(path, offset), role};
}

constexpr HeaderWord headerWords[] = {
    headerWord<unsigned short>("header.id", offsetof(HwSDatablockHeader, id)),
    headerWord<unsigned short>(sizePath, offsetof(HwSDatablockHeader, blockSize)),
    headerWord<unsigned short>(checksumPath, offsetof(HwSDatablockHeader, checksum), ByteRole::Checksum),
    headerWord<unsigned short>("header.alignment", offsetof(HwSDatablockHeader, alignment)),
};
constexpr HeaderWord crcWord = headerWord<unsigned int>(crcPath, detail::crcOffset, ByteRole::Checksum);
constexpr HeaderWord identifierWord =
    headerWord<unsigned int>("header.identifier", detail::crcOffset, ByteRole::Checksum);

/// The counters of an event counter, whose width is up to their owner; those that are known have 32 bits.
constexpr FieldInfo counterField = detail::describeField<unsigned int>("", detail::shortestCrcBlock);

std::string rangeText(const std::string& list, std::size_t first, std::size_t last) {
  return list + '[' + std::to_string(first) + ':' + std::to_string(last) + ']';
}

bool isString(const BlockView& block, const FieldInfo& field) {
  return block.kind == BlockKind::SecondEdition && field.kind == FieldKind::Text && field.isFixed;
}

/// Collects the spans of what is known about the bytes of a block; they may share bytes.
class SpanCollector {
 public:
  explicit SpanCollector(const BlockView& block) : block_(block) {}

  std::vector<AnnotatedSpan> collect() {
    addHeader();
    if (block_.kind == BlockKind::EventCounter) {
      addCounters();
    } else if (block_.kind == BlockKind::Unknown) {
      addRange(detail::headerSize, block_.bytes.size(), ByteRole::Unknown, "bytes");
    } else {
      const BlockData all(block_, Extent::Capacity);
      const BlockData used(block_, Extent::InUse);
      addNode(all.root(), used.root(), {});
      lastTableIsCut_ = !all.tables().empty() && !all.tables().back().stored.isComplete();
    }
    std::ranges::stable_sort(spans_, {}, &AnnotatedSpan::offset);
    return std::move(spans_);
  }

  /// Returns what bytes are that nothing was collected for.
  ByteRole roleOfGap(std::size_t end) const {
    const bool isPadding = block_.kind == BlockKind::SecondEdition && !(lastTableIsCut_ && end == block_.bytes.size());
    return isPadding ? ByteRole::Padding : ByteRole::Uncovered;
  }

 private:
  void addHeader() {
    for (const HeaderWord& word : headerWords) {
      if (!isField(word.field.offset)) addWord(word);
    }
    if (block_.kind == BlockKind::SecondEdition) addWord(crcWord);
    if (block_.kind == BlockKind::EventCounter) addWord(identifierWord);
  }

  /// Returns whether a class has a word of the header as a field of its own.
  bool isField(std::size_t offset) const {
    const std::span<const FieldInfo> fields = block_.row != nullptr ? block_.row->fields : std::span<const FieldInfo>();
    return std::ranges::any_of(fields, [&](const FieldInfo& field) { return field.offset == offset; });
  }

  void addWord(const HeaderWord& word) { addElement({&word.field, word.field.offset}, word.field.name, word.role); }

  void addCounters() {
    const std::size_t first = counterField.offset;
    for (std::size_t at = first; at + counterField.stride <= block_.bytes.size(); at += counterField.stride) {
      const std::size_t byte = at - first;
      addElement({&counterField, at}, rangeText("bytes", byte, byte + counterField.stride), ByteRole::Value);
    }
  }

  /// Adds a node; `used` is the same node with only the elements in use.
  void addNode(const DataNode& node, const DataNode& used, const DataPath& path) {
    switch (node.kind()) {
      case DataNode::Kind::Value:
        return addElement(node.element(), path.text(), ByteRole::Value);
      case DataNode::Kind::Record:
        for (std::size_t i = 0; i < node.size(); ++i) addNode(node[i], used[i], {path, node.nameOf(i)});
        return;
      case DataNode::Kind::List:
        return addList(node, used, path);
    }
  }

  void addList(const DataNode& list, const DataNode& used, const DataPath& path) {
    const std::size_t inUse = std::min(used.size(), list.size());
    const auto run = list.run();
    if (run && run->first.field->notation == Notation::Address) {
      const FieldInfo* const field = run->first.field;
      addElement({field, run->first.offset, inUse * field->stride}, path.text(), ByteRole::Value);
    } else {
      for (std::size_t i = 0; i < inUse; ++i) addNode(list[i], used[i], {path, i});
    }
    const auto spacing = list.spacing();
    if (!spacing || inUse == list.size()) return;
    addRange(spacing->offset + inUse * spacing->distance, spacing->offset + list.size() * spacing->distance,
             ByteRole::Unused, rangeText(path.text(), inUse, list.size()));
  }

  void addElement(const FieldElement& element, std::string path, ByteRole role) {
    std::size_t end = element.offset + element.size;
    bool isCut = end > block_.bytes.size();
    if (isString(block_, *element.field)) {
      const bool hasZero = element.size != 0 && !isCut && block_.bytes[end - 1] == 0;
      isCut = !hasZero && (end >= block_.bytes.size() || block_.bytes[end] != 0);
      if (!hasZero && !isCut) ++end;
    }
    add(element.offset, end, role, {std::move(path), element, isCut});
  }

  void addRange(std::size_t begin, std::size_t end, ByteRole role, std::string path) {
    add(begin, end, role, {std::move(path)});
  }

  /// Adds the bytes of a range that the block has.
  void add(std::size_t begin, std::size_t end, ByteRole role, AnnotatedValue value) {
    end = std::min(end, block_.bytes.size());
    if (begin >= end) return;
    AnnotatedSpan& span = spans_.emplace_back(AnnotatedSpan{begin, end - begin, role});
    span.values.push_back(std::move(value));
  }

  const BlockView& block_;
  bool lastTableIsCut_ = false;
  std::vector<AnnotatedSpan> spans_;
};

/// Adds the values of a span to the one before it, with which it shares bytes.
void join(AnnotatedSpan& span, AnnotatedSpan& next) {
  span.size = std::max(span.size, next.offset + next.size - span.offset);
  std::ranges::move(next.values, std::back_inserter(span.values));
}

}  // namespace

std::vector<AnnotatedSpan> annotatedBytes(const BlockView& block) {
  if (block.kind == BlockKind::Stray) return {{0, block.bytes.size(), ByteRole::Stray}};
  BlockView known = block;
  known.bytes = block.bytes.first(std::min(block.bytes.size(), longestBlock));
  SpanCollector collector(known);
  std::vector<AnnotatedSpan> spans;
  std::size_t position = 0;
  const auto fillUpTo = [&](std::size_t offset) {
    if (offset > position) spans.push_back({position, offset - position, collector.roleOfGap(offset)});
  };
  for (AnnotatedSpan& next : collector.collect()) {
    fillUpTo(next.offset);
    next.offset < position ? join(spans.back(), next) : spans.push_back(std::move(next));
    position = spans.back().offset + spans.back().size;
  }
  fillUpTo(known.bytes.size());
  const std::size_t beyond = block.bytes.size() - known.bytes.size();
  if (beyond != 0) spans.push_back({known.bytes.size(), beyond, ByteRole::Stray});
  return spans;
}

const char* headerPathOf(Finding finding) {
  switch (finding) {
    case Finding::UnbelievableSize:
    case Finding::SizeNotOfClass:
      return sizePath;
    case Finding::WrongChecksum:
    case Finding::WrongSumBesideCrc:
      return checksumPath;
    case Finding::WrongCrc:
      return crcPath;
    default:
      return "";
  }
}

}  // namespace Velk
