#include "velk/checks/Check.h"
#include "velk/data/ElementCounts.h"

namespace Velk::detail {
namespace {

void findImpossibleCounts(const CheckedBlock& block, const Report& report) {
  for (ImpossibleCount& count : impossibleCounts(block.view)) {
    std::string text = std::move(count.reason);
    report(std::move(text.insert(0, ": ").insert(0, count.counter)), std::string(count.counter));
  }
}

void findIncompleteTables(const CheckedBlock& block, const Report& report) {
  const std::vector<DataTable>& tables = block.data.tables();
  for (std::size_t i = 0; i < tables.size(); ++i) {
    const StoredTable& table = tables[i].stored;
    if (table.isComplete()) continue;
    const std::string path = "tables[" + std::to_string(i) + ']';
    report(path + " is not there whole: it claims " + std::to_string(table.rows()) + " rows and " +
               std::to_string(table.columns()) + " columns",
           path);
  }
}

constexpr Check kinds[] = {
    {{"impossible-count", "doubtful data", Severity::Warning, "a count says more than there is room for",
      "A list or table has a fixed room, and its count is larger, or negative; all its elements are taken to be in "
      "use. Example: a count of 99 for a list of 26. velk set corrects the count."},
     findImpossibleCounts},
    {{"incomplete-table", "doubtful data", Severity::Warning, "a table of a second-edition block is cut off",
      "The block ends before the rows and columns that the header of the table claims, or a text among them has no "
      "end. Example: a table of 255 rows in a block of 196 bytes. What is there is shown; the block has to be "
      "written anew."},
     findIncompleteTables},
};

}  // namespace

std::span<const Check> dataChecks() { return kinds; }

}  // namespace Velk::detail
