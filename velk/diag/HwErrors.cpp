#include "velk/diag/HwErrors.h"

#include <utility>

#include "velk/platform/ErrorManager.h"

namespace Velk {
namespace {

constexpr int severityError = 1;

constexpr SErrorDefinition errorTable[] = {
    {IdErrEprDataEepromVerifyChksumFailed, severityError, 202, 0,
     "Check of new EEPROM data failed, download to Eeprom is denied", "", ""},
    {IdErrEprDataWriteToEepromFailed, severityError, 203, 0, "WriteToEepromFailed", "", ""},
    {-1, 0, 0, 0, "", "", ""},
};

constexpr int tableCapacity = 16;

bool registered = false;

}  // namespace

void registerEprDataErrors() {
  if (!std::exchange(registered, true)) ErrorManager()->registerErrors(errorTable, tableCapacity);
}

}  // namespace Velk
