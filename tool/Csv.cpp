#include "Csv.h"

#include <algorithm>

#include "velk/data/ElementCounts.h"
#include "velk/fields/FieldValue.h"

namespace VelkTool {
namespace {

using Velk::BlockData;
using Velk::DataNode;
using Velk::DataPath;
using Velk::FieldElement;
using Velk::ValueForm;

void appendValue(CsvText& line, Velk::ConstBytes block, const FieldElement& element, ValueForm form) {
  Velk::detail::withValue(block, element, form, [&](auto value) { line.value(value); });
}

/// Returns the number of columns of an element.
std::size_t width(const FieldElement& element, bool stored) {
  return stored && Velk::detail::isScaled(*element.field) ? 2 : 1;
}

}  // namespace

std::size_t CsvTable::count(const BlockData& data) { return data.isSelfDescribing() ? data.tables().size() : 1; }

CsvTable::CsvTable(const BlockData& data, std::size_t index, bool stored, const CsvForm& form)
    : data_(data), stored_(stored), form_(form) {
  const DataNode root = data.root();
  if (data.isSelfDescribing()) {
    addTable((*root.find("tables"))[index]);
  } else {
    addRecord(root);
  }
}

void CsvTable::addRecord(const DataNode& record) {
  const std::set<std::string_view> counting = counterNames(record);
  for (std::size_t i = 0; i < record.size(); ++i) {
    if (!counting.contains(record.nameOf(i))) add(record[i], record.nameOf(i));
  }
  if (!hasLists_) rows_ = 1;
}

void CsvTable::addTable(const DataNode& table) {
  const DataNode rowIds = *table.find("rowIds");
  if (rowIds.size() != 0) add(rowIds, "rowId");
  const DataNode ids = *table.find("columnIds");
  const DataNode cells = *table.find("cells");
  std::size_t column = 0;
  add(cells, "cells", [&](const DataPath& path) {
    const std::size_t id = column++;
    return id < ids.size() ? fieldText(data_.bytes(), ids[id].element(), ValueForm::Presented) : path.text();
  });
  // Without cells a damaged block would give rows of separators only, possibly very many.
  if (cells.sample().size() != 0) rows_ = cells.size();
}

void CsvTable::add(const DataNode& node, const char* name, const std::function<std::string(const DataPath&)>& nameOf) {
  Columns columns{node, node.kind() == DataNode::Kind::List};
  hasLists_ = hasLists_ || columns.isList;
  const auto addName = [&](const DataPath& path, const FieldElement& element) {
    columns.names.push_back(nameOf(path));
    if (width(element, stored_) == 2) columns.names.push_back(columns.names.back() + ".stored");
  };
  forEachValue(columns.isList ? node.sample() : node, DataPath(name), addName);
  rows_ = std::max(rows_, columns.isList ? node.size() : 0);
  columns_.push_back(std::move(columns));
}

void CsvTable::appendCells(CsvText& line, const DataNode& node, std::size_t count) const {
  const auto append = [&](const DataPath&, const FieldElement& element) {
    if (width(element, stored_) > count) return;
    count -= width(element, stored_);
    appendValue(line.separate(), data_.bytes(), element, ValueForm::Presented);
    if (width(element, stored_) == 2) appendValue(line.separate(), data_.bytes(), element, ValueForm::Stored);
  };
  forEachValue(node, {}, append);
  line.separate(count);
}

void CsvTable::write(const std::function<void(std::string_view text)>& sink) const {
  // Without lists there is no index column; skip the separator before the first value.
  const std::size_t first = hasLists_ ? 0 : 1;
  CsvText line(form_);
  const auto passLine = [&] {
    sink(std::string_view(line.endLine().str()).substr(first));
    line.clear();
  };
  if (hasLists_) line.value("row");
  for (const Columns& columns : columns_) {
    for (const std::string& name : columns.names) line.separate().value(std::string_view(name));
  }
  passLine();
  for (std::size_t row = 0; row < rows_; ++row) {
    if (hasLists_) line.value(row);
    for (const Columns& columns : columns_) {
      if (!columns.isList) {
        appendCells(line, columns.node, columns.names.size());
      } else if (row < columns.node.size()) {
        appendCells(line, columns.node[row], columns.names.size());
      } else {
        line.separate(columns.names.size());
      }
    }
    passLine();
  }
}

}  // namespace VelkTool
