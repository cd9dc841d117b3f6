#include "Redaction.h"

#include <algorithm>

#include "Images.h"
#include "velk/bytes/ByteArray.h"
#include "velk/data/BlockRedaction.h"

namespace VelkTool {

bool reportLeft(Session& session, const std::string& name, const Velk::BlockView& block) {
  const Velk::RedactionReach reach = redactionReach(block);
  if (reach == Velk::RedactionReach::All) return false;
  const char* const what = reach == Velk::RedactionReach::Nothing
                               ? ": left as it is, since the meaning of its bytes is unknown"
                               : ": bytes that belong to no field are left, since their meaning is unknown";
  session.complain(name, placeText(block) + what);
  session.worsen(Exit::Findings);
  return true;
}

bool isUninterpreted(const Velk::BlockView& block) {
  const bool isUnsure = block.kind == Velk::BlockKind::Stray || block.has(Velk::Finding::UnbelievableSize);
  return isUnsure && Velk::redactionReach(block) != Velk::RedactionReach::All;
}

std::uint64_t redactForShow(const Velk::MemoryImage& image, QByteArray& bytes) {
  std::uint64_t hidden = 0;
  redactImage(image, bytes, [&](const Redaction& redaction) {
    const Velk::BlockView& block = redaction.block;
    if (!isUninterpreted(block)) return;
    const bool isStray = block.kind == Velk::BlockKind::Stray;
    const std::size_t known = isStray                ? 0
                              : block.row != nullptr ? std::size_t{block.row->size}
                                                     : sizeof(Velk::HwSDatablockHeader);
    if (known >= block.bytes.size()) return;
    const std::size_t count = block.bytes.size() - known;
    std::fill_n(bytes.begin() + static_cast<qsizetype>(block.offset + known), count, '\0');
    hidden += count;
  });
  return hidden;
}

void redactImage(const Velk::MemoryImage& image, QByteArray& bytes,
                 const std::function<void(const Redaction& redaction)>& report) {
  const Velk::MutableBytes redacted = Velk::mutableBytesOf(bytes);
  for (const Velk::BlockView& block : image) {
    report({block, Velk::redactBlock(redacted.subspan(block.offset, block.bytes.size()), block)});
  }
}

}  // namespace VelkTool
