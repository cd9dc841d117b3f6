#pragma once

namespace Velk::detail {

/// The unit of the I/Q RF module's fixed-point attenuations, in dB: 1/128.
inline constexpr double dbPerStep = 0.0078125;

}  // namespace Velk::detail
