#include "velk/data/BlockEdit.h"

#include <algorithm>
#include <charconv>

#include "velk/data/ElementCounts.h"
#include "velk/data/NearestName.h"
#include "velk/datablock/Checksums.h"
#include "velk/datablock/FieldValue.h"

namespace Velk {
namespace {

using detail::MutableBytes;

std::string noMember(const DataNode& record, std::string_view name) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < record.size(); ++i) names.emplace_back(record.nameOf(i));
  const std::string_view nearest = detail::nearestName(name, names);
  std::string text = "no field \"" + std::string(name) + '"';
  if (!nearest.empty()) text.append("; the nearest is ").append(nearest);
  return text;
}

/// One step of a path: a name, or an index in brackets.
struct Step {
  std::string_view name{};
  std::optional<std::size_t> index{};
};

/// Takes the first step off a path, or nothing where it begins with none.
std::optional<Step> takeStep(std::string_view& path) {
  if (path.starts_with('[')) {
    std::size_t index = 0;
    const char* const end = path.data() + path.size();
    const auto [digitsEnd, error] = std::from_chars(path.data() + 1, end, index);
    if (error != std::errc{} || digitsEnd == end || *digitsEnd != ']') return std::nullopt;
    path.remove_prefix(static_cast<std::size_t>(digitsEnd - path.data()) + 1);
    return Step{.index = index};
  }
  const std::string_view name = path.substr(0, path.find_first_of(".["));
  path.remove_prefix(name.size());
  return Step{.name = name};
}

/// The part of a node that a step leads to; else `lookup` says why there is none.
std::optional<DataNode> take(const DataNode& node, const Step& step, std::string_view before, DataLookup& lookup) {
  const std::string text(before.empty() ? "a block" : before);
  if (node.kind() == DataNode::Kind::Record) {
    if (step.index || (step.name.empty() && !before.empty())) {
      lookup.complaint = text + " has fields, as " + (before.empty() ? "" : text + '.') + node.nameOf(0);
    } else if (const auto member = node.find(step.name)) {
      return member;
    } else {
      lookup.complaint = noMember(node, step.name);
    }
  } else if (node.kind() == DataNode::Kind::Value) {
    lookup.complaint = text + " is a single value";
  } else if (!step.index) {
    lookup.complaint = text + " is a list, as " + text + "[0]";
  } else if (*step.index < node.size()) {
    return node[*step.index];
  } else {
    lookup.complaint = text + " has " + std::to_string(node.size()) + " elements, counted from 0";
  }
  return std::nullopt;
}

/// The sum of all that the checksum of a block covers.
unsigned short restOfSum(detail::ConstBytes block) { return static_cast<unsigned short>(-detail::checksumOf(block)); }

bool takesFractions(const FieldInfo& field, ValueForm form) {
  return isFloating(field.type) || (form == ValueForm::Presented && detail::isScaled(field));
}

std::string describeRefusal(FieldResult result, const FieldElement& element, std::string_view text, ValueForm form) {
  const FieldInfo& field = *element.field;
  const std::string given(text);
  switch (result) {
    case FieldResult::Done:
      return {};
    case FieldResult::NotAValue:
      if (field.kind == FieldKind::Date) return '"' + given + "\" is no date such as 2017-03-15";
      return '"' + given + "\" is no " + (takesFractions(field, form) ? "number" : "whole number");
    case FieldResult::OutOfRange:
      if (field.kind == FieldKind::Text) {
        return '"' + given + "\" has " + std::to_string(given.size()) + " bytes, there is room for " +
               std::to_string(element.size);
      }
      return given + " is out of range: " + fieldLimits(field, form);
    case FieldResult::OutsideBlock:
      return "the block ends before it";
    case FieldResult::Fixed:
      return "cannot be changed: the rest of the block depends on it";
  }
  return {};
}

constexpr std::size_t checksumOffset = offsetof(HwSDatablockHeader, checksum);

}  // namespace

DataLookup findValue(const DataNode& root, std::string_view path) {
  DataLookup lookup;
  DataNode node = root;
  const std::string_view whole = path;
  do {
    const std::string_view before = whole.substr(0, whole.size() - path.size());
    if (!before.empty() && path.starts_with('.')) path.remove_prefix(1);
    const std::optional<Step> step = takeStep(path);
    if (!step) {
      lookup.complaint = std::string(before) + " is followed by no index in brackets";
      return lookup;
    }
    const std::optional<DataNode> part = take(node, *step, before, lookup);
    if (!part) return lookup;
    node = *part;
  } while (!path.empty());
  if (node.kind() == DataNode::Kind::Value) {
    lookup.value = node;
  } else {
    take(node, {}, whole, lookup);
  }
  return lookup;
}

std::string setValue(MutableBytes block, const BlockView& view, std::string_view path, std::string_view text,
                     ValueForm form) {
  const BlockData data(view, Extent::Capacity);
  const DataLookup lookup = findValue(data.root(), path);
  if (!lookup.value) return lookup.complaint;
  const FieldElement& element = lookup.value->element();
  const std::vector<unsigned char> before(block.begin(), block.end());
  const FieldResult result = setFieldText(block, element, text, form);
  std::string refusal = describeRefusal(result, element, text, form);
  if (refusal.empty()) refusal = detail::noSuchCount(data.root(), path, integerValue(block, element));
  if (refusal.empty()) return {};
  std::ranges::copy(before, block.begin());
  return std::string(path) + ": " + refusal;
}

void sealBlock(MutableBytes block, BlockKind kind) {
  if (kind == BlockKind::End || kind == BlockKind::Stray) return;
  if (kind == BlockKind::SecondEdition) detail::store(block, detail::crcOffset, detail::crcOf(block));
  detail::store(block, checksumOffset, detail::checksumOf(block));
}

RedactionReach redactionReach(const BlockView& block) {
  constexpr unsigned char erased = 0xFF;
  const auto isSilent = [](unsigned char byte) { return byte == 0 || byte == erased; };
  if (block.row == nullptr) {
    const std::size_t known = block.kind == BlockKind::Stray ? 0 : sizeof(HwSDatablockHeader);
    const auto rest = block.bytes.subspan(std::min(known, block.bytes.size()));
    return std::ranges::all_of(rest, isSilent) ? RedactionReach::All : RedactionReach::Nothing;
  }
  std::vector<bool> isKnown(block.bytes.size());
  const auto know = [&](std::size_t offset, std::size_t size) {
    for (std::size_t i = offset; i < std::min(offset + size, isKnown.size()); ++i) isKnown[i] = true;
  };
  know(0, sizeof(HwSDatablockHeader));
  const BlockData data(block, Extent::Capacity);
  const auto knowValue = [&](const DataPath&, const FieldElement& element) { know(element.offset, element.size); };
  forEachValue(data.root(), {}, knowValue);
  for (std::size_t i = 0; i < isKnown.size(); ++i) {
    if (!isKnown[i] && !isSilent(block.bytes[i])) return RedactionReach::Fields;
  }
  return RedactionReach::All;
}

std::vector<std::string> redactBlock(MutableBytes block, const BlockView& view) {
  std::vector<std::string> taken;
  if (view.row == nullptr) return taken;
  const unsigned short before = restOfSum(block);
  const BlockData data(view, Extent::Capacity);
  const auto erase = [&](const DataPath& path, const FieldElement& element) {
    if (!element.field->isPersonal || element.offset >= block.size()) return;
    // A block that is cut off may end within the field.
    const MutableBytes bytes = block.subspan(element.offset, std::min(element.size, block.size() - element.offset));
    if (std::ranges::all_of(bytes, [](unsigned char byte) { return byte == 0; })) return;
    std::ranges::fill(bytes, static_cast<unsigned char>(0));
    std::string name = path.text(false);
    if (taken.empty() || taken.back() != name) taken.push_back(std::move(name));
  };
  forEachValue(data.root(), {}, erase);
  if (taken.empty() || block.size() < sizeof(HwSDatablockHeader)) return taken;
  const auto stored = detail::load<unsigned short>(block, checksumOffset);
  detail::store(block, checksumOffset, static_cast<unsigned short>(stored + before - restOfSum(block)));
  return taken;
}

}  // namespace Velk
