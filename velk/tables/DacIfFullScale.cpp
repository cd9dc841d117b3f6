#include "velk/tables/DacIfFullScale.h"

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& HwDatablockDacIfFullScale::printToStream(std::ostream& os) {
  constexpr std::size_t labelWidth = 29;
  detail::TextWriter text(os);
  detail::printHeading(text, bytes(), traits);
  text.key("FullscaleValue:", labelWidth).number(getFullScaleValue()).endLine();
  text.endLine();
  return os;
}

}  // namespace Velk
