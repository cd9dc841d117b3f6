#include "velk/mainboard/ExternalLevelCalibration.h"

namespace Velk {

using Enhanced = HwDatablockMbrdExtLevCalData2Edition_Enh;

constexpr std::array<FieldInfo, 2> Enhanced::smallFields = [] {
  std::array<FieldInfo, 2> fields{traits.fields[0], traits.fields[1]};
  fields[1].rows = smallRows;
  return fields;
}();

constexpr RecordTraits Enhanced::smallTraits = [] {
  RecordTraits small = traits;
  small.size = smallSize;
  small.fields = smallFields;
  return small;
}();

void Enhanced::setCorLevelValue(short value, unsigned char level, unsigned int frequencyIndex) {
  if (level < recordTraits().fields[1].rows) setCell(value, level, frequencyIndex);
}

}  // namespace Velk
