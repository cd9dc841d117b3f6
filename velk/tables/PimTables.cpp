#include "velk/tables/PimTables.h"

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& detail::printLevelTable(std::ostream& os, ConstBytes block, const RecordTraits& traits) {
  const auto steps = loadPadded<unsigned>(block, traits.fields[0].offset);
  const auto columns = loadPadded<unsigned>(block, traits.fields[1].offset);
  TextWriter text(os);
  printHeading(text, block, traits);
  text.key("COUNT:").number(steps).text("*").number(columns).endLine();
  printRows(text, block, traits.fields[2], {.rows = steps, .columns = columns, .first = 0, .step = 10});
  text.endLine();
  return os;
}

}  // namespace Velk
