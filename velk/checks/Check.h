#pragma once

#include "velk/checks/CheckedImage.h"
#include "velk/checks/Checks.h"
#include "velk/data/BlockData.h"

namespace Velk::detail {

/// A block and its data, with the elements in use.
struct CheckedBlock {
  const BlockView& view;
  const BlockData& data;
  const CheckOptions& options;
};

/// Takes what one check finds.
class Report {
 public:
  Report(std::vector<CheckFinding>& findings, const FindingKind& kind, Severity severity,
         std::optional<std::uint64_t> offset = {})
      : findings_(findings), kind_(kind), severity_(severity), offset_(offset) {}

  /// Adds a finding about the block that is checked, or about the image.
  void operator()(std::string text, std::string path = {}) const {
    findings_.push_back({&kind_, severity_, std::move(text), std::move(path), offset_});
  }
  /// Adds a finding about one of the blocks of an image.
  void operator()(const BlockView& block, std::string text, std::string path = {}) const {
    findings_.push_back({&kind_, severity_, std::move(text), std::move(path), block.offset});
  }

 private:
  std::vector<CheckFinding>& findings_;
  const FindingKind& kind_;
  Severity severity_;
  std::optional<std::uint64_t> offset_;
};

/// What there is to find, and how: in one block, in an image, or, without a function, elsewhere.
struct Check {
  FindingKind kind;
  void (*examineBlock)(const CheckedBlock& block, const Report& report) = nullptr;
  void (*examineImage)(const CheckedImage& image, const Report& report) = nullptr;
};

/// Return the checks of each theme.
std::span<const Check> dataChecks();
std::span<const Check> fileChecks();
std::span<const Check> identChecks();
std::span<const Check> dateChecks();
std::span<const Check> pairChecks();
std::span<const Check> pointChecks();
std::span<const Check> valueChecks();
std::span<const Check> numberChecks();
std::span<const Check> counterChecks();
std::span<const Check> edition2Checks();

/// Returns all of them, indexed as findingKinds().
std::span<const Check> checks();

/// Returns the date of this computer, in local time.
PackedDate currentDate();

/// Returns how a block is named in a text about several: "IDENT_2 at 0x00000000".
std::string placeOf(const BlockView& block);

/// Returns "1 value" or "26 values".
std::string counted(std::size_t number, const char* noun);

}  // namespace Velk::detail
