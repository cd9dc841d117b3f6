#include "Redaction.h"

#include "Images.h"
#include "velk/data/BlockEdit.h"

namespace VelkTool {

void tellLeft(Session& session, const std::string& name, const Velk::BlockView& block) {
  const Velk::RedactionReach reach = redactionReach(block);
  if (reach == Velk::RedactionReach::All) return;
  const char* const what = reach == Velk::RedactionReach::Nothing
                               ? ": left as it is, nobody knows what its bytes tell"
                               : ": bytes that belong to no field are left, nobody knows what they tell";
  session.complain(name, placeText(block) + what);
  session.worsen(Exit::Findings);
}

void redactImage(const Inputs& inputs, QByteArray& image, const std::function<void(const Redaction& redaction)>& tell) {
  const Velk::MemoryImage original(image, inputs.offset, inputs.sectorSize);
  auto* const bytes = reinterpret_cast<unsigned char*>(image.data());
  for (const Velk::BlockView& block : original) {
    tell({block, Velk::redactBlock({bytes + block.offset, block.bytes.size()}, block)});
  }
}

}  // namespace VelkTool
