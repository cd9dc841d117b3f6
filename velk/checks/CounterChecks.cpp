#include <algorithm>

#include "velk/checks/Check.h"
#include "velk/image/BlockHeader.h"

namespace Velk::detail {
namespace {

/// The counters of some blocks, in one field of each.
struct CounterField {
  unsigned short firstId;
  unsigned short lastId;
  const char* field;
};

constexpr CounterField counters[] = {
    {200, 299, "opTimeHours"},      {200, 299, "opTimeTurnOn"},     {300, 300, "opHours"},
    {10604, 10605, "counterValue"}, {11203, 11204, "counterValue"}, {11300, 11303, "counterValue"},
    {11310, 11313, "data"},
};

/// A counter that is kept twice, and the field that counts.
struct Copies {
  unsigned short id;
  unsigned short backupId;
  const char* field;
};

constexpr Copies copies[] = {
    {11300, 11301, "counterValue"},
    {11302, 11303, "counterValue"},
    {11310, 11311, "data"},
    {11312, 11313, "data"},
};

bool isAllOnes(ConstBytes block, const FieldElement& element) {
  const Bits bits = element.field->bits;
  const unsigned width = bits.width != 0 ? bits.width : 8U * element.field->stride;
  return element.isInside(block.size()) && integerValue(block, element) == (std::int64_t{1} << width) - 1;
}

void reportFullCounter(const std::string& path, const Report& report) {
  report(path + " is all ones: erased, or as far as it can count", path);
}

/// Bytes of a longer counter, of which none has a meaning of its own.
void examineBytes(const DataNode& bytes, const char* name, const CheckedBlock& block, const Report& report) {
  const auto run = bytes.run();
  if (!run || run->count == 0) return;
  if (isErased(block.view.bytes.subspan(run->first.offset, run->count))) reportFullCounter(name, report);
}

void examineField(const DataNode& field, const char* name, const CheckedBlock& block, const Report& report) {
  if (field.kind() == DataNode::Kind::Value) {
    if (isAllOnes(block.view.bytes, field.element())) reportFullCounter(name, report);
    return;
  }
  if (field.field()->type == ScalarType::U8) return examineBytes(field, name, block, report);
  for (std::size_t i = 0; i < field.size(); ++i) {
    if (isAllOnes(block.view.bytes, field[i].element()))
      reportFullCounter(std::string(name) + '[' + std::to_string(i) + ']', report);
  }
}

void findFullCounters(const CheckedBlock& block, const Report& report) {
  if (block.view.kind == BlockKind::EventCounter)
    return examineBytes(block.data.root()[0], block.data.root().nameOf(0), block, report);
  if (block.view.row == nullptr) return;
  for (const CounterField& counter : counters) {
    if (block.view.id < counter.firstId || block.view.id > counter.lastId) continue;
    if (const auto field = block.data.root().find(counter.field)) examineField(*field, counter.field, block, report);
  }
}

/// Returns the values of a counter, one after another.
std::vector<std::int64_t> valuesOf(const BlockView& block, const char* name) {
  const BlockData data(block);
  std::vector<std::int64_t> values;
  const auto field = data.root().find(name);
  for (std::size_t i = 0; field && i < field->size(); ++i)
    values.push_back(integerValue(block.bytes, (*field)[i].element()));
  return values;
}

void findDifferentCopies(const CheckedImage& image, const Report& report) {
  for (const Copies& pair : copies) {
    const BlockView* const main = image.findSound(pair.id);
    const BlockView* const backup = main == nullptr ? nullptr : image.findSound(pair.backupId);
    if (backup == nullptr) continue;
    const std::vector<std::int64_t> values = valuesOf(*main, pair.field);
    const std::vector<std::int64_t> others = valuesOf(*backup, pair.field);
    const auto [value, other] = std::ranges::mismatch(values, others);
    if (value == values.end() && other == others.end()) continue;
    const std::string path = std::string(pair.field) + '[' + std::to_string(value - values.begin()) + ']';
    const auto shown = [&](const auto& place, const auto& list) {
      return place == list.end() ? std::string("not in use") : std::to_string(*place);
    };
    report(*main,
           placeOf(*main) + " and " + placeOf(*backup) + " differ: " + path + " is " + shown(value, values) + " and " +
               shown(other, others),
           path);
  }
}

constexpr Check kinds[] = {
    {{"full-counter", "full counter", Severity::Warning, "a counter is all ones",
      "All bits of a counter are set: no module counts that far, but erased memory looks like that. Example: an "
      "overload counter of 4294967295. It counts on from 0. Take the count from its backup copy, or write it anew."},
     findFullCounters},
    {{"different-copies", "different copies", Severity::Warning, "a counter and its backup copy disagree",
      "Power-on counts, operating times and attenuator counters are kept in two blocks, one after the other is "
      "written. Example: 785 in POWERON COUNT and 784 in its backup, after the supply failed between the two. The "
      "greater one is mostly right."},
     nullptr,
     findDifferentCopies},
};

}  // namespace

std::span<const Check> counterChecks() { return kinds; }

}  // namespace Velk::detail
