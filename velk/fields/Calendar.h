#pragma once

#include "velk/Export.h"
#include "velk/bytes/PackedDate.h"

namespace Velk {

/// Returns whether the calendar has a date; 1980-00-00, which is stored as 0 for none, is not in it.
VELK_EXPORT bool isOfCalendar(PackedDate date);

}  // namespace Velk
