#include "velk/image/Findings.h"

#include <algorithm>

#include "velk/bytes/HexText.h"
#include "velk/image/BlockHeader.h"
#include "velk/image/BlockView.h"
#include "velk/image/Region.h"

namespace Velk {
namespace {

using detail::storedCrc;

std::string describeSize(const BlockView& block) {
  return "size " + std::to_string(block.declaredSize) + " cannot be right, " + std::to_string(block.bytes.size()) +
         " bytes taken up to the next block";
}

std::string describeChecksum(const BlockView& block) {
  const auto stored = detail::load<unsigned short>(block.bytes, offsetof(HwSDatablockHeader, checksum));
  return "checksum is " + detail::hexText(stored, 4) + ", the bytes give " +
         detail::hexText(detail::checksumOf(block.bytes), 4);
}

std::string describeCrc(const BlockView& block) {
  return "CRC-32 is " + detail::hexText(storedCrc(block.bytes), 8) + ", the bytes give " +
         detail::hexText(detail::crcOf(block.bytes), 8);
}

std::string describeTooShort(const BlockView& block) {
  return std::to_string(block.bytes.size()) + " bytes are too few for a block";
}

/// Says what bytes look like; empty if they look like nothing known.
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

std::string describeSizeOfClass(const BlockView& block) {
  return "size " + std::to_string(block.declaredSize) + ", blocks of this id have " + std::to_string(block.row->size);
}

/// Describes a finding if the walk has set it.
template <Finding finding, std::string (*text)(const BlockView&)>
std::vector<std::string> describeSet(const BlockView& block) {
  if (!block.has(finding)) return {};
  return {text(block)};
}

/// Indexed by Finding.
constexpr FindingKind kinds[] = {
    {"damaged-size", "damaged size", Severity::Error, describeSet<Finding::UnbelievableSize, describeSize>},
    {"wrong-checksum", "wrong checksum", Severity::Error, describeSet<Finding::WrongChecksum, describeChecksum>},
    {"wrong-crc", "wrong CRC", Severity::Error, describeSet<Finding::WrongCrc, describeCrc>},
    {"too-short", "too short for a block", Severity::Error, describeSet<Finding::TooShort, describeTooShort>},
    {"not-erased", "not erased", Severity::Error, describeSet<Finding::NotErased, describeNotErased>},
    {"no-block", "no block", Severity::Error, describeSet<Finding::NoBlock, describeNoBlock>},
    {"unexpected-size", "unexpected size", Severity::Remark, describeSet<Finding::SizeNotOfClass, describeSizeOfClass>},
    {"wrong-16-bit-checksum", "wrong 16-bit checksum", Severity::Remark,
     describeSet<Finding::WrongSumBesideCrc, describeChecksum>},
};
static_assert(std::size(kinds) == findingCount);

constexpr unsigned long long errorBits = [] {
  unsigned long long bits = 0;
  for (std::size_t i = 0; i < findingCount; ++i) {
    if (kinds[i].severity == Severity::Error) bits |= 1ULL << i;
  }
  return bits;
}();

}  // namespace

std::span<const FindingKind> walkFindingKinds() { return kinds; }

FindingSet errorFindings() { return errorBits; }

std::string describe(const BlockView& block, Finding finding) {
  const std::vector<std::string> texts = kinds[static_cast<std::size_t>(finding)].describe(block);
  return texts.empty() ? std::string() : texts.front();
}

const char* verdictName(const BlockView& block) {
  if (block.isSound()) return "sound";
  std::size_t worst = 0;
  while (!block.findings[worst]) ++worst;
  return kinds[worst].name;
}

}  // namespace Velk
