#include "velk/mainboard/ExternalLevelCalibration.h"

namespace Velk {

using Enhanced = HwDatablockMbrdExtLevCalData2Edition_Enh;

constexpr std::array<FieldInfo, 2> Enhanced::smallFields = [] {
  std::array<FieldInfo, 2> fields{traits.count(), traits.cells()};
  fields[1].rows = smallRows;
  return fields;
}();

constexpr GridTraits Enhanced::smallTraits = [] {
  GridTraits small = traits;
  small.size = smallSize;
  small.fields = smallFields;
  return small;
}();

short Enhanced::getCorLevelValue(unsigned char level, unsigned int frequencyIndex) const {
  return hasRow(level) ? cell(level, frequencyIndex) : short{0};
}

void Enhanced::setCorLevelValue(short value, unsigned char level, unsigned int frequencyIndex) {
  if (hasRow(level)) setCell(value, level, frequencyIndex);
}

}  // namespace Velk
