#include "Images.h"

#include "velk/bytes/HexText.h"

namespace VelkTool {

std::string offsetText(std::uint64_t offset) { return Velk::detail::hexText(offset, 8); }

std::string placeText(const Velk::BlockView& block) {
  const std::string place = "offset " + offsetText(block.offset);
  return block.kind == Velk::BlockKind::Stray ? place : place + ", id " + std::to_string(block.id);
}

}  // namespace VelkTool
