#include "velk/data/WrittenForm.h"

#include "velk/fields/Notation.h"

namespace Velk {

std::optional<std::string> writtenForm(const BlockData& data, const DataNode& node) {
  const FieldInfo* const field = node.field();
  if (field == nullptr || field->notation == Notation::Plain) return std::nullopt;
  if (node.kind() == DataNode::Kind::Value) return writtenText(data.bytes(), node.element());
  const auto run = node.run();
  if (field->notation != Notation::Address || !run) return std::nullopt;
  return addressText(data.bytes().subspan(run->first.offset, run->count));
}

}  // namespace Velk
