#pragma once

namespace Velk::detail {

/// The unit of the I/Q RF module's fixed-point attenuations.
inline constexpr int stepsPerDb = 128;
inline constexpr double dbPerStep = 1.0 / stepsPerDb;

}  // namespace Velk::detail
