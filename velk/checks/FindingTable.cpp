#include "velk/checks/FindingTable.h"

#include "velk/data/ElementCounts.h"

namespace Velk {
namespace {

std::vector<std::string> incompleteTables(const BlockView& block) {
  std::vector<std::string> texts;
  if (block.kind != BlockKind::SecondEdition) return texts;
  const BlockData data(block, Extent::Capacity);
  for (std::size_t i = 0; i < data.tables().size(); ++i) {
    const StoredTable& table = data.tables()[i].stored;
    if (table.isComplete()) continue;
    texts.push_back("tables[" + std::to_string(i) + "] is not there whole: it claims " + std::to_string(table.rows()) +
                    " rows and " + std::to_string(table.columns()) + " columns");
  }
  return texts;
}

constexpr FindingKind dataKinds[] = {
    {"impossible-count", "doubtful data", Severity::Remark, impossibleCounts},
    {"incomplete-table", "doubtful data", Severity::Remark, incompleteTables},
};

std::vector<FindingKind> joinedKinds() {
  const std::span<const FindingKind> walked = walkFindingKinds();
  std::vector<FindingKind> kinds(walked.begin(), walked.end());
  kinds.insert(kinds.end(), std::begin(dataKinds), std::end(dataKinds));
  return kinds;
}

}  // namespace

std::span<const FindingKind> dataFindingKinds() { return dataKinds; }

std::span<const FindingKind> findingKinds() {
  static const std::vector<FindingKind> kinds = joinedKinds();
  return kinds;
}

}  // namespace Velk
