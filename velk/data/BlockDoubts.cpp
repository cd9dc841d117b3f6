#include "velk/data/BlockDoubts.h"

namespace Velk {
namespace {

void doubtCounts(const BlockData& data, std::vector<std::string>& doubts) {
  const DataNode root = data.root();
  for (std::size_t i = 0; i < root.size(); ++i) {
    const auto value = root.valueAt(i);
    if (!value || value->field->kind != FieldKind::Number) continue;
    const std::string doubt = detail::noSuchCount(root, root.nameOf(i), integerValue(data.bytes(), *value));
    if (!doubt.empty()) doubts.push_back(std::string(root.nameOf(i)) + ": " + doubt);
  }
}

void doubtTables(const BlockData& data, std::vector<std::string>& doubts) {
  for (std::size_t i = 0; i < data.tables().size(); ++i) {
    const StoredTable& table = data.tables()[i].stored;
    if (table.isComplete()) continue;
    doubts.push_back("tables[" + std::to_string(i) + "] is not there whole: it claims " + std::to_string(table.rows()) +
                     " rows and " + std::to_string(table.columns()) + " columns");
  }
}

}  // namespace

std::string detail::noSuchCount(const DataNode& record, std::string_view name, std::int64_t count) {
  for (std::size_t i = 0; record.kind() == DataNode::Kind::Record && i < record.size(); ++i) {
    const FieldInfo* const field = record[i].field();
    if (field == nullptr) continue;
    const unsigned capacity = name == field->usedRows ? field->rows : name == field->usedCols ? field->cols : 0;
    if (capacity != 0 && count < 0) return std::to_string(count) + " is no count";
    if (capacity != 0 && count > capacity) {
      return std::to_string(count) + " is more than the " + std::to_string(capacity) + " that " + field->name +
             " has room for";
    }
  }
  return {};
}

std::vector<std::string> doubtsAbout(const BlockView& block) {
  std::vector<std::string> doubts;
  const BlockData data(block, Extent::Capacity);
  doubtCounts(data, doubts);
  doubtTables(data, doubts);
  return doubts;
}

}  // namespace Velk
