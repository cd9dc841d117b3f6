#include "velk/modulecal/IpcUser.h"

#include "velk/layer/RecordText.h"

namespace Velk {

std::ostream& detail::printUserData(std::ostream& os, ConstBytes block, const RecordTraits& traits) {
  constexpr std::size_t labelWidth = 7;
  const FieldInfo& data = traits.fields[0];
  TextWriter text(os);
  printHeading(text, block, traits);
  for (std::size_t i = 0; i < data.rows; ++i) {
    text.key(std::to_string(i + 1) + ':', labelWidth).number(load<unsigned char>(block, data.offset + i)).endLine();
  }
  text.endLine();
  return os;
}

}  // namespace Velk
