#include "velk/tables/DacIfFullScale.h"

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& HwDatablockDacIfFullScale::printToStream(std::ostream& os) {
  constexpr std::size_t labelWidth = 29;
  return detail::printKeyedFields(os, bytes(), traits, labelWidth);
}

}  // namespace Velk
