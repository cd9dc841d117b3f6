#include "velk/checks/FindingTable.h"

#include <algorithm>

#include "velk/checks/Check.h"

namespace Velk {
namespace detail {
namespace {

std::vector<Check> joinedChecks() {
  std::vector<Check> joined;
  for (const FindingKind& kind : walkFindingKinds()) joined.push_back({kind});
  for (const auto& theme : {dataChecks(), fileChecks(), identChecks(), dateChecks(), pairChecks(), pointChecks(),
                            valueChecks(), numberChecks(), counterChecks(), edition2Checks()}) {
    joined.insert(joined.end(), theme.begin(), theme.end());
  }
  return joined;
}

}  // namespace

std::span<const Check> checks() {
  static const std::vector<Check> joined = joinedChecks();
  return joined;
}

}  // namespace detail

std::span<const FindingKind> findingKinds() {
  static const std::vector<FindingKind> kinds = [] {
    std::vector<FindingKind> all;
    for (const detail::Check& check : detail::checks()) all.push_back(check.kind);
    return all;
  }();
  return kinds;
}

std::optional<std::size_t> findKind(std::string_view code) {
  const auto kinds = findingKinds();
  const auto found = std::ranges::find_if(kinds, [code](const FindingKind& kind) { return kind.code == code; });
  if (found == kinds.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kinds.begin());
}

const char* severityName(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

}  // namespace Velk
