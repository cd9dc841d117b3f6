#include "Csv.h"

#include <algorithm>
#include <set>

#include "Utf8.h"
#include "velk/fields/FieldValue.h"

namespace VelkTool {
namespace {

using Velk::BlockData;
using Velk::DataNode;
using Velk::DataPath;
using Velk::FieldElement;
using Velk::ValueForm;

constexpr char separator = ',';

void appendText(std::string& line, std::string_view text) {
  std::string converted;
  text = asUtf8(text, converted);
  if (text.find_first_of(",\"\r\n") == text.npos) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
}

void appendValue(std::string& line, Velk::ConstBytes block, const FieldElement& element, ValueForm form) {
  Velk::detail::withValue(block, element, form, [&]<class T>(T value) {
    if constexpr (std::is_arithmetic_v<T>) {
      char digits[64];
      line.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    } else if constexpr (std::is_same_v<T, std::string_view>) {
      appendText(line, value);
    }
  });
}

/// Returns the names of the fields that count the elements in use of other fields.
std::set<std::string_view> counters(const DataNode& record) {
  std::set<std::string_view> names;
  for (std::size_t i = 0; i < record.size(); ++i) {
    if (const Velk::FieldInfo* const field = record[i].field()) names.insert({field->usedRows, field->usedCols});
  }
  return names;
}

/// Returns the number of columns of an element.
std::size_t width(const FieldElement& element, bool stored) {
  return stored && Velk::detail::isScaled(*element.field) ? 2 : 1;
}

}  // namespace

std::size_t CsvTable::count(const BlockData& data) { return data.isSelfDescribing() ? data.tables().size() : 1; }

CsvTable::CsvTable(const BlockData& data, std::size_t index, bool stored) : data_(data), stored_(stored) {
  const DataNode root = data.root();
  if (data.isSelfDescribing()) {
    addTable((*root.find("tables"))[index]);
  } else {
    addRecord(root);
  }
}

void CsvTable::addRecord(const DataNode& record) {
  const std::set<std::string_view> counting = counters(record);
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

void CsvTable::appendCells(std::string& line, const DataNode& node, std::size_t count) const {
  const auto append = [&](const DataPath&, const FieldElement& element) {
    if (width(element, stored_) > count) return;
    count -= width(element, stored_);
    line += separator;
    appendValue(line, data_.bytes(), element, ValueForm::Presented);
    if (width(element, stored_) == 2) appendValue(line += separator, data_.bytes(), element, ValueForm::Stored);
  };
  forEachValue(node, {}, append);
  line.append(count, separator);
}

void CsvTable::write(const std::function<void(std::string_view text)>& sink) const {
  // Without lists there is no index column; skip the separator before the first value.
  const std::size_t first = hasLists_ ? 0 : 1;
  std::string line = hasLists_ ? "row" : "";
  for (const Columns& columns : columns_) {
    for (const std::string& name : columns.names) appendText(line += separator, name);
  }
  sink((line += '\n').substr(first));
  for (std::size_t row = 0; row < rows_; ++row) {
    line = hasLists_ ? std::to_string(row) : "";
    for (const Columns& columns : columns_) {
      if (!columns.isList) {
        appendCells(line, columns.node, columns.names.size());
      } else if (row < columns.node.size()) {
        appendCells(line, columns.node[row], columns.names.size());
      } else {
        line.append(columns.names.size(), separator);
      }
    }
    line += '\n';
    sink(std::string_view(line).substr(first));
  }
}

}  // namespace VelkTool
