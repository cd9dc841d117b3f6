#include <algorithm>
#include <string_view>

#include "velk/checks/Check.h"
#include "velk/checks/FindingTable.h"
#include "velk/containers/ImageFile.h"

namespace Velk {
namespace {

/// These are found by the readers of containers.
constexpr detail::Check kinds[] = {
    {{"damaged-line", "damaged line", Severity::Error, "a line of a text container cannot be read",
      "A line of an Intel HEX or S-record file is cut, has a wrong checksum or contradicts another one; its bytes "
      "are lost and taken as erased. Example: a flipped character after a transfer by mail. Transfer the file again, "
      "or take the lost blocks from another dump by velk recover."}},
    {{"damaged-file", "damaged file", Severity::Error, "a file as a whole is not what it should be",
      "The file is empty, ends before its last record, or has more damaged lines than are listed. Example: a dump "
      "whose transfer broke off. Read the memory again."}},
    {{"unreadable", "unreadable", Severity::Error, "a file cannot be read",
      "The operating system does not let velk read the file, or its contents are no image. Example: a file without "
      "read permission. The exit code is 3."}},
    {{"no-blocks", "no blocks", Severity::Error, "a file holds no block",
      "Nothing in the file is a block. Example: an empty file. Only velk export --format jsonl reports it, so that "
      "every file has a line."}},
};

enum FileKind : unsigned char { DamagedLine, DamagedFile, Unreadable, NoBlocks };

const FindingKind& kindAt(FileKind kind) { return findingKinds()[*findKind(kinds[kind].kind.code)]; }

}  // namespace

std::span<const detail::Check> detail::fileChecks() { return kinds; }

const FindingKind& kindOf(const FileFinding& finding) { return kindAt(finding.line != 0 ? DamagedLine : DamagedFile); }
const FindingKind& unreadableKind() { return kindAt(Unreadable); }
const FindingKind& noBlocksKind() { return kindAt(NoBlocks); }

bool isOptional(const FindingKind& kind) {
  return std::ranges::none_of(
      kinds, [&](const detail::Check& check) { return std::string_view(check.kind.code) == kind.code; });
}

}  // namespace Velk
