#include "velk/modulecal/IqOp3RfmCalibDataMisc.h"

#include <iterator>

#include "velk/bytes/NumberConversion.h"
#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

using detail::TextWriter;

using detail::stepsPerDb;
constexpr const FieldInfo& pmaxBz = fieldNamed(iqOp3MiscFields, "pmaxBz");
constexpr const FieldInfo& toleranceLevAtt_15 = fieldNamed(iqOp3MiscFields, "toleranceLevAtt_15");
constexpr const FieldInfo& toleranceLevAtt_30_45 = fieldNamed(iqOp3MiscFields, "toleranceLevAtt_30_45");

/// Writes an empty line and the comment that explains the lines after it.
void printSection(TextWriter& text, const char* comment) {
  text.endLine();
  text.line(comment);
}

/// Writes a line for each operating state; `write` writes its value.
template <class Write>
void printStates(TextWriter& text, const char* label, const char* unit, std::uint64_t states, Write write) {
  for (std::uint64_t state = 0; state < states && text.ok(); ++state) {
    text.text(label).number(state + 1).text(detail::rowSeparator);
    write(static_cast<std::int64_t>(state));
    text.text(unit).endLine();
  }
}

void printWholeDb(TextWriter& text, const char* label, unsigned short value) {
  text.text(label).text(detail::rowSeparator).number(value / stepsPerDb).text("\t dB").endLine();
}

}  // namespace

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getPmaxBz(unsigned char state) const {
  return detail::toInteger<unsigned short>(get(&HwSDatablockIqOp3RfmCalibDataMisc::pmaxBz, state));
}

std::ostream& HwDatablockIqOp3RfmCalibDataMisc::printToStream(std::ostream& os) {
  using Record = HwSDatablockIqOp3RfmCalibDataMisc;
  const std::uint64_t states = getNumberOfOperatingStates();
  TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  detail::printKeyed(text, bytes(), fieldNamed(iqOp3MiscFields, "numberOfOperatingStates")).endLine();
  text.line("# Basisbandspannung (V) des Betriebszustandes x, gemessen an den Eing�ngen I und Q des Moduls");
  text.endLine();
  printStates(text, "UIQ_BZ", "\t V", states, [&](std::int64_t i) { text.general(get(&Record::uiqBz, i)); });
  printSection(text, "# Maximale Ausgangsleistung (dBm) des Betriebszustandes x, BZ Werte, 3 Nachkomma");
  printStates(text, "PMAX_BZ", "\t dBm", states, [&](std::int64_t i) {
    const auto pmax = detail::toInteger<unsigned short>(get(&Record::pmaxBz, i));
    text.fixed(presentedValue(pmaxBz, pmax), 1);
  });
  printSection(text, "# Reserve (dB) des LCON PIN D�mpfungsgliedes zum Vollausschlag, BZ Werte, 3 Nachkomma");
  printStates(text, "LCON_RESERVE_BZ", "\t dB", states,
              [&](std::int64_t i) { text.number(get(&Record::lconReserveBz, i) / stepsPerDb); });
  printSection(
      text,
      "# Vollausschlag des Detektorwandlers (Definition LCM), bei der Kalibrierung als Vollausschlag definiert "
      "(65535)");
  text.text("DET_FULL_SCALE").text(detail::rowSeparator).general(getDetFullScale()).text("\t V").endLine();
  printSection(text,
               "# minimale Detektorreserve (dB) zum Vollauschlag des Detektors bei PMAX_BZx, BZ Werte, 3 Nachkomma");
  printStates(text, "DET_RESERVE_BZ", "\t dB", states,
              [&](std::int64_t i) { text.number(get(&Record::detReserveBz, i)); });
  printTolerances(text);
  printErrorCodes(text);
  text.endLine();
  return os;
}

void HwDatablockIqOp3RfmCalibDataMisc::printTolerances(TextWriter& text) const {
  printSection(text, "# +/-Toleranz (dB) des LEVEL PRESET Step Attenuators., 3 Nachkomma");
  printWholeDb(text, "TOLERANZ_LEVPRE", getToleranceLevPre());
  printSection(text, "# +/-Toleranz (dB) des Level Attenuators., 3 Nachkomma");
  text.text("TOLERANZ_LEVATT_15")
      .text(detail::rowSeparator)
      .fixed(presentedValue(toleranceLevAtt_15, getToleranceLevAtt_15()), 1);
  text.text("\t dB").endLine();
  text.text("TOLERANZ_LEVATT_30_45:          ")
      .fixed(presentedValue(toleranceLevAtt_30_45, getToleranceLevAtt_30_45()), 1);
  text.text("\t dB").endLine();
  printSection(text, "# +/-Toleranz (dB) des Detektor Step Attenuators., 3 Nachkomma");
  printWholeDb(text, "TOLERANZ_DETATT", getToleranceDetAtt());
}

void HwDatablockIqOp3RfmCalibDataMisc::printErrorCodes(TextWriter& text) {
  constexpr const char* lines[] = {
      ("# F�r das Beschreiben des RFM EEPROMS werden pro Betriebszustandalle Spalten ausgenommen Fehler und OPU3RF_LP "
       "ben�tigt"),
      ("# OPURF_LP=Baugruppenausgangsleistung Ausgangsleistung mit LEVELPRESET Einstellung lt. Tabelle und "
       "LCON-Absenkung=LCONRESERVE"),
      "#",
      "# Fehler\t Beschreibung",
      "#      0\t kein Fehler",
      "#      1\t Iteration LPW fehlgeschlagen",
      "#      2\t Alle LPW au�erhalb des LP-Limits",
      "#      3\t LPW au�erhalb der LEVPRE-Toleranz",
      "#    +10\t PMAX_BZ nicht erreichbar",
      "#   +100\t LEVATT au�erhalb der Toleranz",
      "#  +1000\t Alle DETATT au�erhalb des LP-Limits",
      "#  +2000\t DETATT au�erhalb der Toleranz",
  };
  for (const char* const line : lines) text.line(line);
}

std::ostream& HwDatablockIqOp3RfmCalibDataMiscV20::printToStream(std::ostream& os) {
  constexpr std::size_t labelWidth = 23;
  TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  for (const FieldInfo& field : iqOp3MiscV20Fields) {
    detail::printKey(text, field, labelWidth);
    if (field.type == ScalarType::F32) {
      text.general(loadPadded<float>(field.offset));
    } else {
      text.number(loadPadded<short>(field.offset));
    }
    text.endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
