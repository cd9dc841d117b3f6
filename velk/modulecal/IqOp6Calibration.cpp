#include "velk/modulecal/IqOp6Calibration.h"

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& HwDatablockIqOp6CalibData::printToStream(std::ostream& os) {
  using States = decltype(HwSDatablockIqOp6CalibData::daValueBz);
  constexpr unsigned char states = std::extent_v<States, 0>;
  constexpr unsigned char frequencies = std::extent_v<States, 1>;
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  // The frequencies are in a block of their own, by the same index; here, a "-" takes the place of their column.
  for (unsigned char frequency = 0; frequency < frequencies; ++frequency) {
    text.number(frequency + 1).text(": \t\t- ").number(getLevAtt_20(frequency));
    text.text(" ").number(getLevAtt_40(frequency));
    for (unsigned char state = 0; state < states; ++state) text.text(" ").number(getDaValueBz(state, frequency));
    text.endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
