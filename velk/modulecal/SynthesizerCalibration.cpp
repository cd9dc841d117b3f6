#include "velk/modulecal/SynthesizerCalibration.h"

#include <algorithm>

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& HwDatablockSsynOpuDblCoefficient::printToStream(std::ostream& os) {
  constexpr int decimals[] = {0, 3, 6};
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  text.key("COUNT:").number(getCount()).endLine();
  for (std::uint64_t i = 0; i < getCount() && text.ok(); ++i) {
    const int places = decimals[std::min(i, std::size(decimals) - 1)];
    text.number(i + 1).text(detail::rowSeparator).fixed(value(static_cast<std::int64_t>(i)), places).endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
