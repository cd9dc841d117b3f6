#include "velk/modulecal/IqOp3RfmCalibration.h"

#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

using detail::TextWriter;

constexpr int entries = 300;

constexpr const FieldInfo& levPre = fieldNamed(iqOp3CalibBlockFields, "levPre");
constexpr const FieldInfo& detAtt = fieldNamed(iqOp3CalibBlockFields, "detAtt");
constexpr const FieldInfo& detConvDeflection = fieldNamed(iqOp3CalibBlockFields, "detConvDeflection");
constexpr const FieldInfo& levAtt15 = fieldNamed(iqOp3CalibBlockFields, "levAtt15");
constexpr const FieldInfo& levAtt30 = fieldNamed(iqOp3CalibBlockFields, "levAtt30");
constexpr const FieldInfo& levAtt45 = fieldNamed(iqOp3CalibBlockFields, "levAtt45");

std::int64_t part(const HwSIqOp3RfmCalibDataBlock& block, const FieldInfo& field) {
  const ConstBytes bytes(reinterpret_cast<const unsigned char*>(&block), sizeof block);
  return integerValue(bytes, {&field, field.offset});
}

double attenuation(const HwSIqOp3RfmCalibDataBlock& block, const FieldInfo& field) {
  return presentedValue(field, static_cast<double>(part(block, field)));
}

}  // namespace

std::ostream& HwDatablockIqOp3RfmHarmonic::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  for (unsigned char i = 0; i < iqOp3HarmonicFields[0].rows; ++i) {
    text.number(i + 1).text(detail::rowSeparator).number(getCutOffFrequency(i)).endLine();
  }
  text.endLine();
  return os;
}

std::ostream& HwDatablockIqOp3RfmCalibData::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  text.line("#Betriebszustand        LEVPRE LEVATT15\tLEVATT30 LEVATT45 DETATT  DETCONV_DEFLECTION ");
  text.text("#\t BZ ").number(getOperatingState()).endLine();
  text.line("\t        dB      dB\t  dB\t    dB\t   dBm");
  for (int row = 0; row < entries && text.ok(); ++row) {
    const HwSIqOp3RfmCalibDataBlock block = getCalibDataBlock(row);
    text.text("Zeile").number(row).text(": \t\t[").number(part(block, levPre));
    text.text("\t").fixed(attenuation(block, levAtt15), 3);
    text.text("\t").fixed(attenuation(block, levAtt30), 3);
    text.text("\t").fixed(attenuation(block, levAtt45), 3);
    text.text("\t")
        .number(part(block, detAtt))
        .text("\t\t")
        .number(part(block, detConvDeflection))
        .text("\t]")
        .endLine();
  }
  text.endLine();
  return os;
}

std::ostream& HwDatablockIqOp3RfmCalibDataV20::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  text.line(
      "SENS_LOW\t      SENS_MED\t     SENS_HIGH\t      SENS_OVR\t    LPRE_CW_NORM\t  LPRE_CW_OVR\t       "
      "LPRE_IQ_NORM\t    LEVATT15_NORM\t     LEVATT30_NORM\t        LEVATT45_NORM\t   LPRE_IQ_OVR\t         "
      "LEVATT15_OVR\t     LEVATT30_OVR\t  LEVATT45_OVR ");
  text.line(" SENS in DAC/mW, Rest in dB ");
  for (int row = 0; row < entries && text.ok(); ++row) {
    const HwSIqOp3RfmCalibDataBlockV20 block = getCalibDataBlock(row);
    text.text("Zeile").number(row).text(": \t\t").general(block.sensLow).text("\t").general(block.sensMed);
    text.text("\t").general(block.sensHigh).text("\t").general(block.sensOvr);
    text.text("\t").number(+block.lpreCwNorm).text("\t").number(+block.lpreCwOvr);
    text.text("\t").number(+block.lpreIqNorm).text("\t").general(block.levAtt15Norm);
    text.text("\t").general(block.levAtt30Norm).text("\t").general(block.levAtt45Norm);
    text.text("\t").number(+block.lpreIqOvr).text("\t").general(block.levAtt15Ovr);
    text.text("\t").general(block.levAtt30Ovr).text("\t").general(block.levAtt45Ovr).endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
