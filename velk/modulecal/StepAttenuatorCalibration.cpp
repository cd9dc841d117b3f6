#include "velk/modulecal/StepAttenuatorCalibration.h"

namespace Velk {
namespace {

using detail::TextWriter;

/// The COUNT line, the column comments and all rows of a table, the last field of its record.
void printTable(TextWriter& text, ConstBytes block, const RecordTraits& traits) {
  const FieldInfo& cells = traits.fields.back();
  text.key(traits.text.countKey, traits.text.countWidth).text(traits.text.countText).endLine();
  detail::printColumnComments(text, traits.text);
  detail::printRows(text, block, cells, traits.text, cells.rows, cells.cols);
  text.endLine();
}

}  // namespace

std::ostream& HwAttenuationBlock::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), recordTraits());
  printTable(text, bytes(), recordTraits());
  return os;
}

std::ostream& HwTemperatureGradientBlock::printToStream(std::ostream& os) {
  constexpr std::size_t temperatureWidth = 16;
  TextWriter text(os);
  detail::printHeading(text, bytes(), recordTraits());
  text.key("VTemp:", temperatureWidth).number(getCalibTemp()).endLine();
  printTable(text, bytes(), recordTraits());
  return os;
}

int HwOverloadCounterBlock::setBlock(const HwSDatablockSAtt3OWLDCounter* record) {
  if (!acceptRecord(record)) return 1;
  const HwSDatablockSAtt3OWLDCounter taken = *record;
  setCounterValue(taken.counterValue);
  setChecksum(taken.header.checksum);
  return 0;
}

std::ostream& HwOverloadCounterBlock::printToStream(std::ostream& os) {
  const std::size_t which = getId() == recordTraits().id ? 0 : 1;
  TextWriter text(os);
  text.line((*comments_)[which]);
  text.key("ID:").text(recordTraits().keys[which]).endLine();
  text.key("COUNT_VALUE:").number(getCounterValue()).endLine();
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
  text.key("COUNT_VALUE:", valueWidth).number(getCounterValue(0)).text(" ").number(getCounterValue(1)).endLine();
  text.endLine();
  return os;
}

}  // namespace Velk
