#pragma once

#include "velk/image/Findings.h"

namespace Velk {

/// Returns the kinds of findings in the data of a block, whose own checks may be valid all the same.
VELK_EXPORT std::span<const FindingKind> dataFindingKinds();

/// Returns every kind: what the walk finds, by Finding, then those in the data.
VELK_EXPORT std::span<const FindingKind> findingKinds();

}  // namespace Velk
