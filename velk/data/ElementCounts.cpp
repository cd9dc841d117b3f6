#include "velk/data/ElementCounts.h"

#include <algorithm>

namespace Velk {
namespace {

/// Returns why so many elements cannot be in use; empty if they can.
std::string excess(std::int64_t count, unsigned capacity, const FieldInfo& counted) {
  if (count < 0) return std::to_string(count) + " is no count";
  if (count <= capacity) return {};
  std::string reason;
  reason.reserve(96);  // mostly enough; a damaged memory gives very many reasons
  return reason.append(std::to_string(count))
      .append(" is more than the ")
      .append(std::to_string(capacity))
      .append(" that ")
      .append(counted.name)
      .append(" has room for");
}

/// Calls `act` with the name of each member that counts others, what it counts, and how many of them fit.
template <class Act>
void forEachCounter(const DataNode& record, Act act) {
  for (std::size_t i = 0; record.kind() == DataNode::Kind::Record && i < record.size(); ++i) {
    const FieldInfo* const field = record[i].field();
    if (field == nullptr) continue;
    if (*field->usedRows != '\0') act(std::string_view(field->usedRows), *field, field->rows);
    if (*field->usedCols != '\0') act(std::string_view(field->usedCols), *field, field->cols);
  }
}

}  // namespace

std::set<std::string_view> counterNames(const DataNode& record) {
  std::set<std::string_view> names;
  forEachCounter(record, [&](std::string_view counter, const FieldInfo&, unsigned) { names.insert(counter); });
  return names;
}

std::string detail::noSuchCount(const DataNode& record, std::string_view name, std::int64_t count) {
  std::string reason;
  forEachCounter(record, [&](std::string_view counter, const FieldInfo& counted, unsigned capacity) {
    if (counter == name && reason.empty()) reason = excess(count, capacity, counted);
  });
  return reason;
}

QByteArray withHeldCounts(const BlockView& block) {
  QByteArray bytes(reinterpret_cast<const char*>(block.bytes.data()), static_cast<qsizetype>(block.bytes.size()));
  const MutableBytes changed(reinterpret_cast<unsigned char*>(bytes.data()), block.bytes.size());
  const BlockData data(block, Extent::Capacity);
  const DataNode root = data.root();
  bool hasChanged = false;
  forEachCounter(root, [&](std::string_view counter, const FieldInfo& counted, unsigned capacity) {
    const auto member = root.find(counter);
    if (!member || excess(integerValue(block.bytes, member->element()), capacity, counted).empty()) return;
    const std::size_t held = counter == counted.usedRows ? root.find(counted.name)->size() : capacity;
    const std::string text = std::to_string(held);
    hasChanged = setFieldText(changed, member->element(), text) == FieldResult::Done || hasChanged;
  });
  return hasChanged ? bytes : QByteArray();
}

std::vector<ImpossibleCount> impossibleCounts(const BlockView& block) {
  std::vector<ImpossibleCount> counts;
  if (block.row == nullptr) return counts;  // only the fields of catalogued classes count others
  const std::span<const FieldInfo> fields = block.row->fields;
  const auto examine = [&](std::string_view counter, const FieldInfo& counted, unsigned capacity) {
    if (counter.empty()) return;
    const auto member = std::ranges::find_if(fields, [&](const FieldInfo& field) { return counter == field.name; });
    if (member == fields.end()) return;
    std::string reason = excess(integerValue(block.bytes, {&*member, member->offset}), capacity, counted);
    // A member may count several lists.
    const bool isSaid =
        !reason.empty() && std::ranges::find(counts, counter, &ImpossibleCount::counter) != counts.end();
    if (!reason.empty() && !isSaid) counts.push_back({counter, std::move(reason)});
  };
  for (const FieldInfo& field : fields) {
    examine(field.usedRows, field, field.rows);
    examine(field.usedCols, field, field.cols);
  }
  return counts;
}

}  // namespace Velk
