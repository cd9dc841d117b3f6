#include "velk/data/ModuleIdentity.h"

#include "velk/fields/Notation.h"
#include "velk/records/HwDatablockIdent.h"

namespace Velk {
namespace {

constexpr const FieldInfo& partNumber = fieldNamed(identFields, "partNumber");
constexpr const FieldInfo& serialNumber = fieldNamed(identFields, "serialNumber");
constexpr const FieldInfo& moduleName = fieldNamed(identFields, "name");

bool isIdent(const BlockView& block) {
  return block.row != nullptr && block.row->firstId == HwDatablockIdent::traits.id && block.isSound();
}

}  // namespace

ModuleIdentity identityOf(const MemoryImage& image) {
  for (const BlockView& block : image) {
    if (!isIdent(block)) continue;
    const ConstBytes bytes = block.bytes;
    return {.name = fieldText(bytes, {&moduleName, moduleName.offset}),
            .partNumber = writtenText(bytes, {&partNumber, partNumber.offset}),
            .serialNumber = static_cast<std::uint32_t>(integerValue(bytes, {&serialNumber, serialNumber.offset}))};
  }
  return {};
}

}  // namespace Velk
