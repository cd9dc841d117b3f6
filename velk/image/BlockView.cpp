#include "velk/image/BlockView.h"

#include <algorithm>

#include "velk/bytes/HexText.h"
#include "velk/image/BlockHeader.h"
#include "velk/image/Region.h"

namespace Velk {
namespace {

using detail::storedCrc;

std::string describeChecksum(const BlockView& block) {
  const auto stored = detail::load<unsigned short>(block.bytes, offsetof(HwSDatablockHeader, checksum));
  return "checksum is " + detail::hexText(stored, 4) + ", the bytes give " +
         detail::hexText(detail::checksumOf(block.bytes), 4);
}

std::string describeCrc(const BlockView& block) {
  return "CRC-32 is " + detail::hexText(storedCrc(block.bytes), 8) + ", the bytes give " +
         detail::hexText(detail::crcOf(block.bytes), 8);
}

/// What bytes look like, where they look like something.
std::string describeLook(const BlockView& block) {
  const RegionLook look = lookOf(block.bytes);
  return look == RegionLook::Other ? "" : std::string("; they look like ") + lookName(look);
}

std::string describeNotErased(const BlockView& block) {
  const auto first = std::ranges::find_if(block.bytes, [](unsigned char b) { return b != detail::erasedByte; });
  const auto at = static_cast<std::uint64_t>(first - block.bytes.begin());
  return std::to_string(block.bytes.size()) + " bytes behind the end block are not erased, the first at " +
         detail::hexText(block.offset + at, 4) + describeLook(block);
}

std::string describeNoBlock(const BlockView& block) {
  return std::to_string(block.bytes.size()) + " bytes hold no block" + describeLook(block);
}

/// By finding.
constexpr const char* findingNames[] = {"damaged size", "wrong checksum", "wrong CRC",       "too short for a block",
                                        "not erased",   "no block",       "unexpected size", "wrong 16-bit checksum"};
static_assert(std::size(findingNames) == findingCount);

constexpr Finding firstRemark = Finding::SizeNotOfClass;

}  // namespace

bool BlockView::isSound() const {
  constexpr std::bitset<findingCount> damage((1U << static_cast<unsigned>(firstRemark)) - 1U);
  return (findings & damage).none();
}

const char* kindName(BlockKind kind) {
  constexpr const char* names[] = {"old-style", "second-edition", "event-counter", "end", "unknown", "stray"};
  return names[static_cast<std::size_t>(kind)];
}

const char* foundName(Found found) { return found == Found::InSequence ? "in-sequence" : "out-of-sequence"; }

std::string blockName(const BlockView& block) {
  if (block.row != nullptr) return block.row->key(block.id);
  return block.kind == BlockKind::Stray ? "(bytes)" : "ID_" + std::to_string(block.id);
}

const char* findingName(Finding finding) { return findingNames[static_cast<std::size_t>(finding)]; }

bool isRemark(Finding finding) { return finding >= firstRemark; }

const char* verdictName(const BlockView& block) {
  if (block.isSound()) return "sound";
  std::size_t worst = 0;
  while (!block.findings[worst]) ++worst;
  return findingNames[worst];
}

std::string describe(const BlockView& block, Finding finding) {
  switch (finding) {
    case Finding::UnbelievableSize:
      return "size " + std::to_string(block.declaredSize) + " cannot be right, " + std::to_string(block.bytes.size()) +
             " bytes taken up to the next block";
    case Finding::WrongChecksum:
    case Finding::WrongSumBesideCrc:
      return describeChecksum(block);
    case Finding::WrongCrc:
      return describeCrc(block);
    case Finding::TooShort:
      return std::to_string(block.bytes.size()) + " bytes are too few for a block";
    case Finding::NotErased:
      return describeNotErased(block);
    case Finding::NoBlock:
      return describeNoBlock(block);
    case Finding::SizeNotOfClass:
      return "size " + std::to_string(block.declaredSize) + ", blocks of this id have " +
             std::to_string(block.row->size);
  }
  return {};
}

}  // namespace Velk
