#include "velk/modulecal/StepAttenuatorCounters.h"

#include "velk/layer/RecordText.h"

namespace Velk {

using detail::TextWriter;

int HwOverloadCounterBlock::setBlock(const HwSDatablockSAtt3OWLDCounter* record) {
  if (!acceptRecord(record)) return 1;
  const HwSDatablockSAtt3OWLDCounter taken = *record;
  setCounterValue(taken.counterValue);
  setChecksum(taken.header.checksum);
  return 0;
}

std::ostream& HwOverloadCounterBlock::printToStream(std::ostream& os) {
  const std::size_t which = getId() == ownTraits().id ? 0 : 1;
  TextWriter text(os);
  text.line((*comments_)[which]);
  text.key("ID:").text(ownTraits().keys[which]).endLine();
  detail::printKeyed(text, bytes(), overloadCounterFields[0]).endLine();
  text.endLine();
  return os;
}

int HwDatablockSAttCCounter::setBlock(const HwSDatablockSAttCCounter* record) {
  if (record == nullptr) return 1;
  const HwSDatablockSAttCCounter taken = *record;
  setCounterValue(taken.counterValue[0], 0);
  setCounterValue(taken.counterValue[1], 1);
  return 0;
}

std::ostream& HwDatablockSAttCCounter::printToStream(std::ostream& os) {
  constexpr const char* comments[] = {"#Das ist der OVLD-Z�hler", "#Das ist der backup OVLD-Z�hler",
                                      "#Das ist der HP-Z�hler", "#Das ist der backup HP-Z�hler"};
  constexpr std::size_t valueWidth = 16;
  TextWriter text(os);
  const int which = getId() - traits.id;
  if (which >= 0 && which < static_cast<int>(std::size(comments))) text.line(comments[which]);
  detail::printHeading(text, bytes(), traits);
  detail::printKey(text, satCounterFields[0], valueWidth);
  text.number(getCounterValue(0)).text(" ").number(getCounterValue(1)).endLine();
  text.endLine();
  return os;
}

}  // namespace Velk
