#include <algorithm>
#include <string_view>

#include "velk/bytes/HexText.h"
#include "velk/checks/Check.h"
#include "velk/image/BlockHeader.h"
#include "velk/records/HwDatablockIdent.h"
#include "velk/records/MainboardRecords.h"

namespace Velk::detail {
namespace {

bool isUnset(ConstBytes bytes) {
  return isUniform(bytes) && !bytes.empty() && (bytes[0] == 0 || bytes[0] == erasedByte);
}

bool isIdentRecord(const CatalogueRow& row) { return row.fields.data() == identFields; }

/// Returns whether a field is there to tell modules apart.
bool isIdentity(const CatalogueRow& row, const FieldInfo& field) {
  if (row.firstId == HwDatablockMbrdSerialNumber::traits.id || row.firstId == HwDatablockMbrdModel::traits.id)
    return true;
  constexpr std::string_view names[] = {"partNumber", "serialNumber", "name"};
  return isIdentRecord(row) && std::ranges::find(names, field.name) != std::end(names);
}

void findUnsetIdentity(const CheckedBlock& block, const Report& report) {
  const BlockView& view = block.view;
  if (view.row == nullptr) return;
  for (const FieldInfo& field : view.row->fields) {
    if (!isIdentity(*view.row, field) || !fits(view.bytes.size(), field.offset, field.stride)) continue;
    const ConstBytes bytes = view.bytes.subspan(field.offset, field.stride);
    if (!isUnset(bytes)) continue;
    report(std::string(field.name) + " is not set: " + (bytes[0] == 0 ? "all its bytes are 0" : "it is erased"),
           field.name);
  }
}

void findMissingIdent(const CheckedImage& image, const Report& report) {
  const bool hasIdent =
      std::ranges::any_of(image.blocks(), [](const KnownBlock& known) { return isIdent(known.first.id); });
  if (image.firstBlock() && !hasIdent)
    report("no ident block (ids 2 to 10) says which module this is; the first block is " +
           placeOf(*image.firstBlock()));
}

void findLateIdent(const CheckedImage& image, const Report& report) {
  if (!image.lateIdent()) return;
  report(*image.lateIdent(), placeOf(*image.lateIdent()) + " is not the first block");
}

void findConflictingIdents(const CheckedImage& image, const Report& report) {
  for (const KnownBlock& known : image.blocks()) {
    if (!known.conflict) continue;
    report(*known.conflict,
           placeOf(*known.conflict) + " has another part number or serial number than " + placeOf(known.latest));
  }
}

void findWrongMemorySize(const CheckedImage& image, const Report& report) {
  const BlockView* const ident = image.findSound(HwDatablockIdent::traits.id);
  if (ident == nullptr || image.hasSectors()) return;
  const auto size = load<unsigned>(ident->bytes, offsetof(HwSDatablockIdent, eepromSize));
  const bool isStated = size != 0 && size != ~0U;
  const bool mayBeShorter = !image.isWhole() && image.walkedSize() < size;
  if (!isStated || mayBeShorter || size == image.walkedSize() || size == image.size()) return;
  report(*ident,
         placeOf(*ident) + ": eepromSize is " + std::to_string(size) + ", but the image has " +
             std::to_string(image.walkedSize()) + " bytes",
         "eepromSize");
}

void findRepeatedBlocks(const CheckedImage& image, const Report& report) {
  for (const KnownBlock& known : image.blocks()) {
    if (known.repeated == 0 || known.conflict) continue;
    const std::string others =
        known.repeated == 1 ? "" : ", and " + counted(known.repeated - 1, "more time") + " after that";
    report(*known.repeat, placeOf(*known.repeat) + " is there already at " + hexText(known.latest.offset, 8) + others);
  }
}

constexpr Check kinds[] = {
    {{"unset-identity", "unset identity", Severity::Warning, "a part number, a serial number or a name is not set",
      "A module is known by these. One of them is 0, empty or erased. Example: a board that left production without "
      "its serial number, or an image after velk redact. velk set writes it."},
     findUnsetIdentity},
    {{"no-ident", "no ident block", Severity::Warning, "the memory has no ident block",
      "Every memory of a module begins with an ident block, one of the ids 2 to 10; without it the instrument does "
      "not know the module. Example: a dump that begins after the first 44 bytes. Read the memory from its first "
      "byte on."},
     nullptr,
     findMissingIdent},
    {{"ident-not-first", "ident not first", Severity::Warning, "another block precedes the ident block",
      "Programs look for the ident block in the first bytes of a memory. Example: an image to which the ident was "
      "appended. Write the blocks in their order."},
     nullptr,
     findLateIdent},
    {{"conflicting-idents", "conflicting idents", Severity::Warning, "two ident blocks name different modules",
      "Two sound ident blocks of one id have different part numbers or serial numbers. Example: a memory that was "
      "reused without erasing its end, or a flash memory that is walked without its sectors. Find out by the label "
      "of the module which one is right."},
     nullptr,
     findConflictingIdents},
    {{"wrong-memory-size", "wrong memory size", Severity::Warning, "the ident block states another size of the memory",
      "The field eepromSize of the ident block is not the number of bytes of the image. A field of 0, an erased one, "
      "and flash memories with sectors are not checked, nor an Intel HEX or S-record file that is shorter, since "
      "such files leave out erased bytes. Example: the first 1024 bytes of a memory of 4096. Read the whole memory, "
      "or correct the field by velk set."},
     nullptr,
     findWrongMemorySize},
    {{"repeated-block", "repeated block", Severity::Warning, "a memory has two blocks of one id",
      "Readers take one of them, mostly the first. Example: a calibration that was appended instead of replaced. "
      "Compare the two by velk export --id, and keep the right one. In a flash memory each sector may have its own; "
      "blocks without a class are not checked."},
     nullptr,
     findRepeatedBlocks},
};

}  // namespace

std::span<const Check> identChecks() { return kinds; }

}  // namespace Velk::detail
