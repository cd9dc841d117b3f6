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

/// Allocates once: hostile memories have a wrong checksum every few bytes.
std::string describeChecksum(const BlockView& block) {
  constexpr std::size_t longest = 64;
  const auto stored = detail::load<unsigned short>(block.bytes, offsetof(HwSDatablockHeader, checksum));
  std::string text;
  text.reserve(longest);
  return text.append("checksum is ")
      .append(detail::hexText(stored, 4))
      .append(", the bytes give ")
      .append(detail::hexText(detail::checksumOf(block.bytes), 4));
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

/// Indexed by Finding.
constexpr std::string (*descriptions[])(const BlockView&) = {
    describeSize,      describeChecksum, describeCrc,         describeTooShort,
    describeNotErased, describeNoBlock,  describeSizeOfClass, describeChecksum,
};
static_assert(std::size(descriptions) == findingCount);

/// Indexed by Finding.
constexpr FindingKind kinds[] = {
    {"damaged-size", "damaged size", Severity::Error, "the size of a block cannot be right",
     "The size field is below the eight bytes of the header, reaches past the end of the memory, or leads to no "
     "block while the checksum is wrong too. Example: a flipped bit turns size 64 into 16448 in a memory of 1 KiB. "
     "The block is shown up to the next one that can be verified. Read the memory again; velk recover merges several "
     "reads."},
    {"wrong-checksum", "wrong checksum", Severity::Error, "the 16-bit words of a block do not add up to 0",
     "A bit of the block has changed since its checksum was calculated, or a program changed the block without "
     "calculating it. Example: one flipped bit of a serial number. Read the memory again; if the bytes are still the "
     "same, compare them with an older dump by velk diff."},
    {"wrong-crc", "wrong CRC", Severity::Error, "the CRC-32 of a second-edition block does not match its bytes",
     "The bytes read as tables that fill the block exactly, but their CRC-32 is another one. Example: a cell that "
     "was patched without a new CRC-32. Read the memory again; if the bytes are still the same, compare them with an "
     "older dump by velk diff."},
    {"too-short", "too short for a block", Severity::Error, "bytes among blocks are fewer than a block header has",
     "A block has at least eight bytes, so these belong to none. Example: a dump that was cut three bytes after its "
     "last block. Read the memory again, completely."},
    {"not-erased", "not erased", Severity::Error, "bytes after the end block are not erased",
     "After the end block a memory is erased: every byte is FF. Example: an older, longer content of which the end "
     "is left, or an end block that is really an erased page among the blocks. The text says what the bytes look "
     "like. If the image is a flash memory, --sector-size walks it sector by sector."},
    {"no-block", "no block", Severity::Error, "bytes before the first block hold none",
     "The walk starts with bytes that are no block. Example: a dump with a header of the programming device in "
     "front. --offset starts the walk after it."},
    {"unexpected-size", "unexpected size", Severity::Warning, "the size of a sound block is not that of its id",
     "The checksum is valid, but blocks of this id have another size, so some fields may be missing or left over. "
     "Example: a list that was written by another version of the firmware. Compare the block with that of another "
     "module."},
    {"wrong-16-bit-checksum", "wrong 16-bit checksum", Severity::Warning,
     "a block that is checked otherwise has a wrong 16-bit checksum",
     "A second-edition block is checked by its CRC-32, and an event counter by its identifier; the 16-bit checksum "
     "is redundant there. Example: an event counter after a count, which does not update the checksum. Nothing needs "
     "to be done."},
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
  return block.has(finding) ? descriptions[static_cast<std::size_t>(finding)](block) : std::string();
}

const char* verdictName(const BlockView& block) {
  if (block.isSound()) return "sound";
  std::size_t worst = 0;
  while (!block.findings[worst]) ++worst;
  return kinds[worst].name;
}

}  // namespace Velk
