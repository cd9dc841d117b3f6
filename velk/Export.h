#pragma once

/// Marks what the shared libraries offer; everything else is hidden.
#define VELK_EXPORT __attribute__((visibility("default")))
