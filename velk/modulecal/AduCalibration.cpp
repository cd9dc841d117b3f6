#include "velk/modulecal/AduCalibration.h"

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& HwDatablockAduGainOffsetCalData::printToStream(std::ostream& os) {
  detail::TextWriter text(os);
  text.line(
      "# Offset-Kalibrierwerte: fest , nicht variabel , da mehr Werte nicht automatisch in der Firmware ausgewertet "
      "werden");
  text.line("# Bei einer Erweiterung muss die Firmware angepasst werden");
  text.line("# Kennung der Erweiterung �ber �nderung des Wertes TESTINSTRUCTION");
  text.line("# Reihenfolge �ber ansteigende Wert von GAIN notwendig");
  text.endLine();
  detail::printHeading(text, bytes(), traits);
  text.line(
      "# Das sind die Offset-Kalibrierwerte des HF-Detektor-Pfades und die Offset-Kalibrierwerte des "
      "Referenzdetektor-Pfades");
  text.line("#\t\tGAIN\t\tDET OFFSET\t\tREF OFFSET");
  text.endLine();
  const int count = getCount();
  for (int i = 0; i < count && text.ok(); ++i) {
    const HwSAduGainOffsetCalData entry = getAduCalibDataBlock(i);
    text.number(i + 1).text(": \t\t").general(entry.gain).text("\t\t\t\t").general(entry.detectorOffset);
    text.text("\t\t\t\t").general(entry.referenceOffset).text("\t").endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
