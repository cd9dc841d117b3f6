#include "velk/modulecal/CwOp3Calibration.h"

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& HwDatablockCwOp3AmGainData::printToStream(std::ostream& os) {
  constexpr int entries = std::extent_v<decltype(HwSDatablockCwOp3AmGainData::blocks)>;
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  text.line("FreqIndex   CW_GAIN   AM_GAIN    RESERVE1    RESERVE2");
  for (int i = 0; i < entries; ++i) {
    const HwSCwOp3AmGainDataBlock block = getAmGainDataBlock(i);
    text.number(i + 1).text(": \t\t").number(+block.cwGain).text(" ").number(+block.amGain);
    text.text(" ").number(+block.reserve1).text(" ").number(+block.reserve2).endLine();
  }
  text.endLine();
  return os;
}

std::ostream& HwDatablockCwop6VcoIdent::printToStream(std::ostream& os) {
  constexpr std::size_t labelWidth = 18;
  return detail::printKeyedFields(os, bytes(), traits, labelWidth);
}

std::ostream& HwDatablockCwopDetLinCorrData::printToStream(std::ostream& os) {
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  text.line("# number of steps");
  detail::printStepCount(text, getNumberOfDetLinCorrSteps(), key(), "DATA");
  text.line("# level values and corresponding correction values");
  for (int frequency = 0; frequency < getNumberOfValidFreqs() && text.ok(); ++frequency) {
    text.number(frequency + 1).text(":");
    for (int step = 0; step < getNumberOfDetLinCorrSteps() && text.ok(); ++step) {
      const HwSLevCorrValues values = getDetLinCorrData(step, frequency);
      text.text("\t\t ").general(values.level).text(" ").general(values.correction);
    }
    text.endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
