#pragma once

#include "velk/Export.h"

namespace Velk {

/// Ids of the errors that the library signals to the error manager. The detail text of an occurrence says which record
/// or value it concerns.
enum HwEErrorId {
  IdErrEprDataEepromVerifyChksumFailed = 1040001,  ///< a record was refused for its checksum
  IdErrEprDataWriteToEepromFailed = 1040002,       ///< a stored value reads back differently
  IdErrEprDataLast
};

/// Registers the library's errors with the error manager, on the first call in the process only.
VELK_EXPORT void registerEprDataErrors();

}  // namespace Velk
