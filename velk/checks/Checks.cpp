#include "velk/checks/Checks.h"

#include <algorithm>
#include <ctime>
#include <iterator>

#include "velk/bytes/HexText.h"
#include "velk/checks/Check.h"
#include "velk/checks/FindingTable.h"

namespace Velk {
namespace {

using detail::Check;
using detail::CheckedBlock;
using detail::Report;

Report reportOf(std::size_t index, const CheckOptions& options, std::vector<CheckFinding>& findings,
                std::optional<std::uint64_t> offset = {}) {
  const FindingKind& kind = findingKinds()[index];
  return {findings, kind, options.raised[index] ? Severity::Error : kind.severity, offset};
}

void addWalkFindings(const BlockView& block, const CheckOptions& options, std::vector<CheckFinding>& findings) {
  for (std::size_t i = 0; block.findings.any() && i < findingCount; ++i) {
    if (!block.findings[i] || !options.enabled[i]) continue;
    reportOf(i, options, findings, block.offset)(describe(block, static_cast<Finding>(i)));
  }
}

/// Returns the `count` checks from `first` on.
CheckSet checksFrom(std::size_t first, std::size_t count) {
  CheckSet set;
  for (std::size_t i = first; i < first + count; ++i) set.set(i);
  return set;
}

}  // namespace

CheckSet allChecks() { return checksFrom(0, detail::checks().size()); }
CheckSet walkChecks() { return checksFrom(0, findingCount); }
CheckSet dataChecks() { return checksFrom(findingCount, detail::dataChecks().size()); }

std::vector<CheckFinding> checkBlock(const BlockView& block, const CheckOptions& options) {
  std::vector<CheckFinding> findings;
  if (!block.isSound()) findings.reserve(4);  // rarely more: very many blocks may be damaged
  addWalkFindings(block, options, findings);
  if (block.kind == BlockKind::Stray || block.kind == BlockKind::End) return findings;
  const BlockData data(block);
  const CheckedBlock checked{block, data, options};
  const std::span<const Check> checks = detail::checks();
  // Values of a damaged block mean nothing, but its counts and tables decide what of it can be shown.
  const std::size_t end = block.isSound() ? checks.size() : findingCount + detail::dataChecks().size();
  for (std::size_t i = findingCount; i < end; ++i) {
    if (checks[i].examineBlock == nullptr || !options.enabled[i]) continue;
    checks[i].examineBlock(checked, reportOf(i, options, findings, block.offset));
  }
  return findings;
}

struct ImageChecker::State {
  CheckOptions options;
  detail::CheckedImage image;
};

ImageChecker::ImageChecker(const MemoryImage& image, const CheckOptions& options)
    : state_(new State{options, {image.bytes().size(), image.start(), image.sectorSize(), options.isWhole}}) {
  if (!options.today) state_->options.today = detail::currentDate();
}

ImageChecker::~ImageChecker() = default;

std::vector<CheckFinding> ImageChecker::check(const BlockView& block) {
  state_->image.add(block);
  return checkBlock(block, state_->options);
}

std::vector<CheckFinding> ImageChecker::finish() {
  std::vector<CheckFinding> findings;
  const std::span<const Check> checks = detail::checks();
  for (std::size_t i = findingCount; i < checks.size(); ++i) {
    if (checks[i].examineImage == nullptr || !state_->options.enabled[i]) continue;
    checks[i].examineImage(state_->image, reportOf(i, state_->options, findings));
  }
  return findings;
}

std::vector<CheckFinding> checkImage(const MemoryImage& image, const CheckOptions& options) {
  ImageChecker checker(image, options);
  std::vector<CheckFinding> findings;
  const auto take = [&](std::vector<CheckFinding> found) { std::ranges::move(found, std::back_inserter(findings)); };
  for (const BlockView& block : image) take(checker.check(block));
  take(checker.finish());
  return findings;
}

PackedDate detail::currentDate() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {static_cast<unsigned>(local.tm_year) + 1900, static_cast<unsigned>(local.tm_mon) + 1,
          static_cast<unsigned>(local.tm_mday)};
}

std::string detail::placeOf(const BlockView& block) {
  std::string name = blockName(block);
  name.erase(name.find_last_not_of(' ') + 1);
  return name + " at " + hexText(block.offset, 8);
}

std::string detail::counted(std::size_t number, const char* noun) {
  return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

}  // namespace Velk
