#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "CsvText.h"
#include "Inputs.h"
#include "Selection.h"
#include "velk/data/ModuleIdentity.h"
#include "velk/data/ValueTable.h"

namespace VelkTool {

/// A block whose values are exported, and where it is from.
struct TidyBlock {
  const Input& input;
  const Velk::ModuleIdentity& module;
  const Velk::BlockView& block;
  unsigned nth;  ///< from 1 among the blocks of the same id
  const Velk::ValueTable& values;
};

/// Calls `act` with each selected block of an input that has values; of an unreadable one with none. Reports on all
/// selected blocks to `part`.
void forEachTidyBlock(Session& part, const Inputs& inputs, const Input& input, SearchedBlocks& searched,
                      const std::function<void(const TidyBlock& block)>& act);

/// Returns the headings of all axes that the selected blocks can have, whatever the images hold.
std::set<std::string> axisHeadings(const Selection& selection);
/// Returns those of the blocks of the same class, or of a block without a class.
std::set<std::string> axisHeadings(const Velk::BlockView& block);

/// Writes blocks as a table with a line for each value, which says whose it is and to which points it belongs.
class TidyTable {
 public:
  using Sink = std::function<void(std::string_view text)>;

  /// `axes` are the headings of the columns with points. Points of other axes are left out.
  TidyTable(const CsvForm& form, const std::set<std::string>& axes) : form_(form), axes_(axes.begin(), axes.end()) {}

  /// Returns the first line, which names the columns.
  std::string heading() const;
  /// Passes the lines of a block to `sink` in pieces.
  void write(const TidyBlock& block, const Sink& sink) const;

 private:
  CsvForm form_;
  std::vector<std::string> axes_;
};

}  // namespace VelkTool
