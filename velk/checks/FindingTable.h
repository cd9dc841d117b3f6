#pragma once

#include <optional>
#include <string_view>

#include "velk/image/Findings.h"

namespace Velk {

struct FileFinding;

/// Returns everything that can be found: what the walk finds, by Finding, then what is doubtful in the data of a block,
/// what is wrong with a file, and what makes no sense.
VELK_EXPORT std::span<const FindingKind> findingKinds();

/// Returns the index of a kind in findingKinds(); nothing if no kind has this code.
VELK_EXPORT std::optional<std::size_t> findKind(std::string_view code);

/// Returns whether a kind can be left out of a check. What is wrong with a file is always reported.
VELK_EXPORT bool isOptional(const FindingKind& kind);

/// Returns the kind of a finding about a file.
VELK_EXPORT const FindingKind& kindOf(const FileFinding& finding);

/// Returns the kinds of a file that could not be read, and of one that holds no block.
VELK_EXPORT const FindingKind& unreadableKind();
VELK_EXPORT const FindingKind& noBlocksKind();

/// Returns "error" or "warning".
VELK_EXPORT const char* severityName(Severity severity);

}  // namespace Velk
