#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "velk/data/BlockData.h"

namespace VelkTool {

/// A block's data, or one table of a second-edition block, as a table for spreadsheets and data frames.
///
/// A line for each index of the block's lists, a column for each value at that index; single values stand in every
/// line, counts are left out, a list that is shorter leaves its cells empty. The first line names the columns: by the
/// fields without their first index, those of a second-edition table by its column ids.
class CsvTable {
 public:
  /// How many tables a block's data make.
  static std::size_t count(const Velk::BlockData& data);

  /// Table `index` of the data, which have to outlive it. With `stored`, a column of stored values follows each column
  /// that presents them as other numbers.
  CsvTable(const Velk::BlockData& data, std::size_t index, bool stored);

  /// Hands the text on in pieces.
  void write(const std::function<void(std::string_view text)>& sink) const;

 private:
  /// Neighbouring columns that one field gives.
  struct Columns {
    Velk::DataNode node;
    bool isList;  ///< an element a line
    std::vector<std::string> names{};
  };

  void addRecord(const Velk::DataNode& record);
  void addTable(const Velk::DataNode& table);
  void add(
      const Velk::DataNode& node, const char* name,
      const std::function<std::string(const Velk::DataPath& path)>& nameOf = [](const Velk::DataPath& path) {
        return path.text();
      });
  void appendCells(std::string& line, const Velk::DataNode& node, std::size_t count) const;

  const Velk::BlockData& data_;
  bool stored_;
  std::vector<Columns> columns_;
  std::size_t rows_ = 0;
  bool hasLists_ = false;
};

}  // namespace VelkTool
