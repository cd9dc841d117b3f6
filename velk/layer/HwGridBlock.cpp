#include "velk/layer/HwGridBlock.h"

#include <ostream>

#include "velk/layer/RecordText.h"

namespace Velk::detail {

std::ostream& printGrid(std::ostream& os, ConstBytes block, const GridTraits& traits) {
  const FieldInfo& cells = traits.cells();
  const GridForm& form = traits.form;
  const auto id = load<unsigned short>(block, offsetof(HwSDatablockHeader, id));
  const auto steps = loadPadded<unsigned>(block, traits.count().offset);
  TextWriter text(os);
  printHeading(text, block, traits);
  printStepCount(text, steps, traits.key(id), form.countWord, form.countJoint);
  printComments(text, form.columnComments);
  printRows(text, block, cells, {.rows = steps, .columns = cells.cols, .first = form.firstRow});
  text.endLine();
  return os;
}

void printStepCount(TextWriter& text, unsigned steps, std::string key, std::string_view word, const char* joint) {
  text.key("COUNT:").number(steps).text(joint);
  // "EXT_CAL_DAT_A_LEVEL" names its companion "COUNT_OF_EXT_CAL_DAT_A_FREQ".
  const std::size_t at = key.find(word);
  if (at != key.npos) text.text("COUNT_OF_");
  text.text(at == key.npos ? key : key.replace(at, word.size(), "FREQ")).endLine();
}

}  // namespace Velk::detail
