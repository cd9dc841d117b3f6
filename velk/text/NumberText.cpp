#include "velk/text/NumberText.h"

namespace Velk {

std::string turnInt2String(unsigned int value, unsigned int width) {
  std::string text = std::to_string(value);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

}  // namespace Velk
