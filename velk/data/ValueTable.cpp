#include "velk/data/ValueTable.h"

#include <algorithm>
#include <functional>

#include "velk/data/ElementCounts.h"
#include "velk/data/WrittenForm.h"

namespace Velk {
namespace {

std::string headingOf(const ValueAxis& axis) {
  const std::string quantity = axis.what().quantity;
  const std::string unit(quantityOf(axis.unit()).unit);
  return unit.empty() ? quantity : quantity + " [" + unit + ']';
}

}  // namespace

std::set<std::string> axisHeadings(int id) {
  std::set<std::string> headings;
  for (const BlockPair& pair : axesOf(id)) headings.insert(headingOf(ValueAxis(pair, nullptr)));
  return headings;
}

FieldAxis::FieldAxis(ValueAxis axis)
    : points_(axis),
      direction_(axis.pair().axis),
      bytes_(axis.bytes()),
      quantity_(quantityOf(axis.unit())),
      heading_(headingOf(axis)) {}

FieldAxis::FieldAxis(Axis direction, const DataNode& ids, ConstBytes block)
    : points_(ids),
      direction_(direction),
      bytes_(block),
      heading_(direction == Axis::Columns ? columnIdHeading : rowIdHeading) {}

bool FieldAxis::isShared() const {
  const auto* const axis = std::get_if<ValueAxis>(&points_);
  return axis == nullptr || axis->isShared();
}

bool FieldAxis::isField(std::string_view path) const {
  const auto* const axis = std::get_if<ValueAxis>(&points_);
  return axis != nullptr && axis->pair().count == PairCount::Same && path == axis->pair().points;
}

std::optional<FieldElement> FieldAxis::point(ValuePlace value) const {
  if (const auto* const axis = std::get_if<ValueAxis>(&points_)) return axis->point(value);
  const std::size_t index = isAcross() ? value.column : value.row;
  const auto& ids = std::get<DataNode>(points_);
  return index < ids.size() ? std::optional(ids[index].element()) : std::nullopt;
}

std::size_t FieldAxis::valuesInUse(ValuePlace value, std::size_t count) const {
  const auto* const axis = std::get_if<ValueAxis>(&points_);
  const auto inUse = axis != nullptr ? axis->valuesInUse(value) : std::nullopt;
  return inUse ? std::min(*inUse, count) : count;
}

std::optional<DataNode> ValueRow::follow(DataNode node, Steps steps, ValuePlace place) {
  for (const auto& [to, part] : steps) {
    const std::size_t index = to == Step::To::Part ? part : to == Step::To::Row ? place.row : place.column;
    if (index >= node.size()) return std::nullopt;
    node = node[index];
  }
  return node;
}

std::optional<FieldElement> ValueRow::at(std::size_t column) const {
  if (column >= size_) return std::nullopt;
  if (first_) {
    const FieldElement element{first_->field, first_->offset + column * first_->field->stride};
    return element.isInside(blockSize_) ? std::optional(element) : std::nullopt;
  }
  if (!start_) return std::nullopt;
  const auto node = follow(*start_, steps_, {0, column});
  const bool isThere = node && node->kind() == DataNode::Kind::Value && node->element().isInside(blockSize_);
  return isThere ? std::optional(node->element()) : std::nullopt;
}

std::pair<ValueField::Steps, ValueField::Steps> ValueField::splitAt(Step::To to) const {
  const auto at = static_cast<std::size_t>(std::ranges::find(steps_, to, &Step::to) - steps_.begin());
  return {Steps(steps_).first(at), Steps(steps_).subspan(at)};
}

ValueRow ValueField::row(std::size_t index) const {
  ValueRow row(1, blockSize_);
  if (first_) {
    row.first_ = FieldElement{first_->field, first_->offset + index * distance_};
    return row;
  }
  const auto [toRow, toValue] = splitAt(Step::To::Column);
  row.start_ = ValueRow::follow(start_, toRow, {index, 0});
  row.steps_ = toValue;
  if (rank_ < 2) return row;
  row.size_ = row.start_ ? row.start_->size() : 0;
  for (const FieldAxis& axis : axes_) {
    if (axis.isAcross()) row.size_ = axis.valuesInUse({index, 0}, row.size_);
  }
  const auto run = row.start_ && toValue.size() == 1 ? row.start_->run() : std::nullopt;
  if (run) row.first_ = run->first;
  return row;
}

void ValueField::findRows() {
  if (rank_ == 0) return;
  const auto [toList, toValue] = splitAt(Step::To::Row);
  const auto list = ValueRow::follow(start_, toList, {});
  rows_ = list ? list->size() : 0;
  for (const FieldAxis& axis : axes_) {
    if (!axis.isAcross()) rows_ = axis.valuesInUse({}, rows_);
  }
  if (list && rank_ == 1) findFirst(*list, toValue);
}

/// Finds where the values of a list begin: of a plain one, or those of one member of its records.
void ValueField::findFirst(const DataNode& list, Steps toValue) {
  const auto run = toValue.size() == 1 ? list.run() : std::nullopt;
  if (run) {
    first_ = run->first;
    distance_ = run->first.field->stride;
    return;
  }
  const FieldInfo* const record = list.field();
  const auto spacing = list.spacing();
  const bool isMember = toValue.size() == 2 && toValue[1].to == Step::To::Part && spacing && record != nullptr &&
                        record->type == ScalarType::Record && list.sample().kind() == DataNode::Kind::Record;
  if (!isMember) return;
  const FieldInfo& member = record->members[toValue[1].index];
  if (member.rank != 0 || member.type == ScalarType::Record) return;
  first_ = FieldElement{&member, spacing->offset + member.offset};
  distance_ = spacing->distance;
}

/// Collects the fields of a block's data.
class FieldCollector {
 public:
  using Step = ValueField::Step;

  FieldCollector(const BlockData& data, std::function<std::vector<ValueAxis>(const std::string& path)> axesOf)
      : data_(data), axesOf_(std::move(axesOf)) {}

  std::vector<ValueField> collect() {
    const ValueField root(data_);
    data_.isSelfDescribing() ? addTables(root) : addRecord(data_.root(), root);
    return std::move(fields_);
  }

 private:
  /// Adds the members of a record; the sample of a list stands for all of its elements.
  void addRecord(const DataNode& record, const ValueField& at) {
    const std::set<std::string_view> counters = counterNames(record);
    for (std::size_t i = 0; i < record.size(); ++i) {
      if (!counters.contains(record.nameOf(i))) add(record[i], member(at, i, record.nameOf(i)));
    }
  }

  void add(const DataNode& node, ValueField at) {
    if (node.kind() == DataNode::Kind::Value) return finish(std::move(at));
    if (node.kind() == DataNode::Kind::Record) return addRecord(node, at);
    if (node.field() != nullptr && node.field()->notation == Notation::Address) return addText(node, std::move(at));
    if (at.rank_ < 2) {
      at.steps_.push_back({++at.rank_ == 1 ? Step::To::Row : Step::To::Column});
      return add(node.sample(), std::move(at));
    }
    for (std::size_t i = 0; i < node.size(); ++i) add(node[i], element(at, i));
  }

  void addText(const DataNode& list, ValueField at) {
    at.text_ = writtenForm(data_, list);
    if (at.text_ && !at.text_->empty()) fields_.push_back(std::move(at));
  }

  /// Adds what a second-edition block holds, but not the members that describe its tables.
  void addTables(const ValueField& root) {
    const DataNode block = data_.root();
    const std::size_t index = *block.indexOf("updateIndex");
    add(block[index], member(root, index, "updateIndex"));
    const std::size_t tablesIndex = *block.indexOf("tables");
    const DataNode tables = block[tablesIndex];
    for (std::size_t i = 0; i < tables.size(); ++i) {
      const std::size_t cells = *tables[i].indexOf("cells");
      ValueField at = member(element(member(root, tablesIndex, "tables"), i), cells, "cells");
      for (const auto& [direction, ids] : {std::pair(Axis::Rows, "rowIds"), std::pair(Axis::Columns, "columnIds")}) {
        const DataNode list = *tables[i].find(ids);
        if (list.size() != 0) at.axes_.emplace_back(direction, list, data_.bytes());
      }
      add(tables[i][cells], std::move(at));
    }
  }

  static ValueField member(ValueField at, std::size_t index, const char* name) {
    for (std::string* const path : {&at.path_, &at.plainPath_}) path->append(path->empty() ? "" : ".").append(name);
    at.steps_.push_back({Step::To::Part, index});
    return at;
  }

  static ValueField element(ValueField at, std::size_t index) {
    at.path_ += '[' + std::to_string(index) + ']';
    at.steps_.push_back({Step::To::Part, index});
    return at;
  }

  void finish(ValueField field) {
    for (const ValueAxis& axis : axesOf_(field.plainPath_)) field.axes_.emplace_back(axis);
    field.findRows();
    fields_.push_back(std::move(field));
  }

  const BlockData& data_;
  std::function<std::vector<ValueAxis>(const std::string& path)> axesOf_;
  std::vector<ValueField> fields_;
};

ValueTable::ValueTable(const BlockView& block, std::size_t occurrence, const ImageAxes& axes) : data_(block) {
  if (block.kind != BlockKind::OldStyle && block.kind != BlockKind::SecondEdition) return;
  const auto axesOfField = [&](const std::string& path) { return axes.axesOf(block, occurrence, path); };
  fields_ = FieldCollector(data_, axesOfField).collect();
}

}  // namespace Velk
