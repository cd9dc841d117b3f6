#include "velk/modulecal/StepAttenuatorCalibration.h"

namespace Velk {
namespace {

using detail::TextWriter;

/// A COUNT line with a fixed text, the column comments, and all rows of a table.
void printTable(TextWriter& text, detail::ConstBytes block, const RecordTraits& traits, const FieldInfo& cells,
                const char* count, const char* columnComment) {
  text.key("COUNT:").text(count).endLine();
  text.line("# f[10Hz]");
  text.line(columnComment);
  detail::printRows(text, block, cells, traits.text, cells.rows, cells.cols);
  text.endLine();
}

}  // namespace

std::ostream& HwAttenuationBlock::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), recordTraits());
  printTable(text, bytes(), recordTraits(), attenuationFields[0], count_, "#  ATTENUATOR_CORRECTION [1/100dB]");
  return os;
}

std::ostream& HwTemperatureGradientBlock::printToStream(std::ostream& os) {
  constexpr std::size_t temperatureWidth = 16;
  TextWriter text(os);
  detail::printHeading(text, bytes(), recordTraits());
  text.key("VTemp:", temperatureWidth).number(getCalibTemp()).endLine();
  printTable(text, bytes(), recordTraits(), temperatureGradientFields[1], count_,
             "# TEMPERATURE_GRADIENT [((TK+1)*50)]");
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
  const CounterText& names = (*texts_)[getId() == recordTraits().id ? 0 : 1];
  TextWriter text(os);
  text.line(names.comment);
  text.key("ID:").text(names.key).endLine();
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
