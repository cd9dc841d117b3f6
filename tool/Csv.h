#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "CsvText.h"
#include "velk/data/BlockData.h"

namespace VelkTool {

/// A block's data, or one table of a second-edition block, as a table for spreadsheets and data frames.
///
/// There is a line for each index of the block's lists and a column for each value at that index. Single values are
/// repeated in every line, counts are omitted, shorter lists leave their cells empty. The first line names the columns:
/// by the fields without their first index, or by the column ids of a second-edition table.
class CsvTable {
 public:
  /// Returns the number of tables in the data of a block.
  static std::size_t count(const Velk::BlockData& data);

  /// Takes table `index` of `data`, which must outlive it. With `stored`, each scaled column is followed by a column of
  /// the stored values.
  CsvTable(const Velk::BlockData& data, std::size_t index, bool stored, const CsvForm& form = {});

  /// Passes the text to `sink` in pieces.
  void write(const std::function<void(std::string_view text)>& sink) const;

 private:
  /// The adjacent columns of one field.
  struct Columns {
    Velk::DataNode node;
    bool isList;  ///< one element per line
    std::vector<std::string> names{};
  };

  void addRecord(const Velk::DataNode& record);
  void addTable(const Velk::DataNode& table);
  void add(
      const Velk::DataNode& node, const char* name,
      const std::function<std::string(const Velk::DataPath& path)>& nameOf = [](const Velk::DataPath& path) {
        return path.text();
      });
  void appendCells(CsvText& line, const Velk::DataNode& node, std::size_t count) const;

  const Velk::BlockData& data_;
  bool stored_;
  CsvForm form_;
  std::vector<Columns> columns_;
  std::size_t rows_ = 0;
  bool hasLists_ = false;
};

}  // namespace VelkTool
