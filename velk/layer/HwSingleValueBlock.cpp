#include "velk/layer/HwSingleValueBlock.h"

#include "velk/diag/HwErrors.h"
#include "velk/layer/RecordText.h"
#include "velk/platform/ErrorManager.h"

namespace Velk {

int HwSingleValueBlock::storeValue(int value, unsigned char index) {
  if (index != 0) return 0;
  store(offsetof(SingleValueRecord, value), value);
  const bool stored = get(&SingleValueRecord::value) == value;
  if (!stored) ErrorManager()->signal(IdErrEprDataWriteToEepromFailed, failure_);
  storeFreshChecksum();
  return stored ? 0 : -1;
}

std::ostream& HwSingleValueBlock::printToStream(std::ostream& os) {
  constexpr std::size_t valueWidth = 12;
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), ownTraits());
  detail::printKeyed(text, bytes(), ownTraits().fields[0], valueWidth).endLine();
  const FieldInfo& value = ownTraits().fields[1];
  text.key("1:", valueWidth).text(fieldText(bytes(), {&value, value.offset})).endLine();
  text.endLine();
  return os;
}

}  // namespace Velk
