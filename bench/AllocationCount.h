#pragma once

#include <cstddef>

namespace VelkBench {

/// Heap allocations of this process so far.
std::size_t allocationCount();

}  // namespace VelkBench
