#pragma once

#include <bitset>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "velk/bytes/PackedDate.h"
#include "velk/image/MemoryImage.h"

namespace Velk {

/// One thing that was found in an image.
struct CheckFinding {
  const FindingKind* kind = nullptr;    ///< one of findingKinds()
  Severity severity = Severity::Error;  ///< that of the kind, or Error if the options raise it
  std::string text{};                   ///< a sentence with its numbers
  std::string path{};                   ///< of the field that it is about, such as "values[3]"; empty for a whole block
  std::optional<std::uint64_t> offset{};  ///< of the block that it is about; none for the image as a whole
};

/// A set of checks, indexed as findingKinds().
using CheckSet = std::bitset<64>;

/// Returns every check.
VELK_EXPORT CheckSet allChecks();
/// Returns the checks that the walk makes.
VELK_EXPORT CheckSet walkChecks();
/// Returns the checks for counts and tables that cannot be right, whatever the block means.
VELK_EXPORT CheckSet dataChecks();

struct CheckOptions {
  CheckSet enabled = allChecks();
  CheckSet raised{};                  ///< warnings that count as errors
  std::optional<PackedDate> today{};  ///< later dates are reported; nothing: the date of this computer
  bool isWhole = true;  ///< the image reaches to the end of its memory; a text container may leave out the end
};

/// Runs the checks over the blocks of an image, one after another, and then over the image as a whole.
///
/// Only what a memory can have at most one of is kept: memory and time do not depend on how many blocks there are, or
/// in how they are damaged. The bytes of the image must outlive the checker.
class VELK_EXPORT ImageChecker {
 public:
  ImageChecker(const MemoryImage& image, const CheckOptions& options);
  ~ImageChecker();

  /// Returns what is found about the next block of the walk, in the order of findingKinds().
  std::vector<CheckFinding> check(const BlockView& block);

  /// Returns what is found about the image as a whole. Call it after the last block.
  std::vector<CheckFinding> finish();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// Returns what is found about one block, by the checks that need nothing else.
VELK_EXPORT std::vector<CheckFinding> checkBlock(const BlockView& block, const CheckOptions& options);

/// Returns everything that is found in an image: about each block in turn, then about the image as a whole.
VELK_EXPORT std::vector<CheckFinding> checkImage(const MemoryImage& image, const CheckOptions& options = {});

}  // namespace Velk
