#include "Redaction.h"

#include "Images.h"
#include "velk/data/BlockEdit.h"

namespace VelkTool {

void tellLeft(Session& session, const std::string& file, const Redaction& redaction) {
  if (redaction.isKnown) return;
  session.complain(file, placeText(redaction.block) + ": left as it is, nobody knows what its bytes tell");
}

void redactImage(QByteArray& image, std::uint64_t start, std::uint64_t sectorSize,
                 const std::function<void(const Redaction& redaction)>& tell) {
  const Velk::MemoryImage original(image, start, sectorSize);
  auto* const bytes = reinterpret_cast<unsigned char*>(image.data());
  for (const Velk::BlockView& block : original) {
    tell({block, Velk::isRedactable(block), Velk::redactBlock({bytes + block.offset, block.bytes.size()}, block)});
  }
}

}  // namespace VelkTool
