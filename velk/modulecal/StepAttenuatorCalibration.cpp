#include "velk/modulecal/StepAttenuatorCalibration.h"

#include "velk/layer/RecordText.h"

namespace Velk {
namespace {

using detail::TextWriter;

constexpr std::array<const char*, 2> gradientColumns{"# f[10Hz]", "# TEMPERATURE_GRADIENT [((TK+1)*50)]"};

/// The COUNT line, the column comments and all rows of a table.
void printTable(TextWriter& text, ConstBytes block, const FieldInfo& cells, const char* count,
                std::span<const char* const> columns) {
  text.key("COUNT:").text(count).endLine();
  detail::printComments(text, columns);
  detail::printRows(text, block, cells, {.rows = cells.rows, .columns = cells.cols});
  text.endLine();
}

}  // namespace

std::ostream& HwAttenuationBlock::printToStream(std::ostream& os) {
  TextWriter text(os);
  detail::printHeading(text, bytes(), ownTraits());
  printTable(text, bytes(), fieldNamed(attenuationFields, "attenuation"), count_, attenuationColumns);
  return os;
}

std::ostream& HwTemperatureGradientBlock::printToStream(std::ostream& os) {
  constexpr std::size_t temperatureWidth = 16;
  TextWriter text(os);
  detail::printHeading(text, bytes(), ownTraits());
  detail::printKeyed(text, bytes(), fieldNamed(temperatureGradientFields, "calibTemp"), temperatureWidth).endLine();
  printTable(text, bytes(), fieldNamed(temperatureGradientFields, "tempGradient"), count_, gradientColumns);
  return os;
}

}  // namespace Velk
