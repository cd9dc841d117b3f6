#include "velk/tables/QelRfboTables.h"

#include <algorithm>

#include "velk/diag/HwErrors.h"
#include "velk/platform/ErrorManager.h"

namespace Velk {
namespace {

// Both counts are limited to the eight adjustments, even that of the columns, although there is only one.
constexpr unsigned mostAdjustments = 8;

}  // namespace

int HwDatablockQelRfboTcxoCal::setTcxoValue(int value, int index) {
  if (index < 0 || index >= static_cast<int>(mostAdjustments)) return -1;
  setStoredValue(value, index, 0);
  if (getStoredValue(index, 0) == value) return 0;
  ErrorManager()->signal(IdErrEprDataWriteToEepromFailed, "Setting TXCO value failed");
  storeFreshChecksum();
  return -1;
}

void HwDatablockQelRfboTcxoCal::setRowCount(unsigned count) {
  setCounts(std::min(count, mostAdjustments), getColCount());
}

void HwDatablockQelRfboTcxoCal::setColCount(unsigned count) {
  setCounts(getRowCount(), std::min(count, mostAdjustments));
}

}  // namespace Velk
