#include "velk/checks/ValueChecks.h"

#include "velk/image/BlockHeader.h"

#include "velk/records/HwDatablockCommonStatisticData.h"

namespace Velk::detail {
namespace {

/// Calls `act` with the bytes of each run of elements in use, until it returns false: a list is one run, a table one
/// for each row.
template <class Act>
void forEachRunOfBytes(const DataNode& list, ConstBytes block, Act act) {
  const FieldInfo& field = *list.field();
  const auto spacing = list.spacing();
  const bool isTable = field.rank > 1;
  const std::size_t runs = isTable ? list.size() : 1;
  for (std::size_t i = 0; spacing && list.size() != 0 && i < runs; ++i) {
    const std::size_t offset = std::min(spacing->offset + i * spacing->distance, block.size());
    const std::size_t elements = isTable ? list[i].size() : list.size();
    if (!act(block.subspan(offset, std::min(elements * field.stride, block.size() - offset)))) return;
  }
}

/// Calls `act` with each counted list or table of a block of which all bytes in use have this value.
template <class Act>
void forEachUniformList(const CheckedBlock& block, unsigned char value, Act act) {
  if (block.view.row == nullptr) return;
  const std::span<const FieldInfo> fields = block.view.row->fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::size_t first = fields[i].offset;
    if (first >= block.view.bytes.size() || block.view.bytes[first] != value || !isCounted(fields[i])) continue;
    const Uniformity uniform = uniformityOf(block.data.root()[i], block.view.bytes);
    if (uniform.bytes != 0) act(fields[i], uniform);
  }
}

/// Fewer bytes may well be FF by chance: a register, or -1.
constexpr std::size_t fewestErased = 4;

void findErasedValues(const CheckedBlock& block, const Report& report) {
  forEachUniformList(block, erasedByte, [&](const FieldInfo& field, const Uniformity& uniform) {
    if (uniform.bytes >= fewestErased)
      report("everything in use of " + std::string(field.name) + " is erased (FF)", field.name);
  });
}

/// Returns whether zeros are what new modules have: nothing was counted yet.
bool countsEvents(const CatalogueRow& row) {
  constexpr unsigned short attenuatorCounter = 11304;
  return row.firstId == HwDatablockCommonStatisticData::traits.id || row.firstId == attenuatorCounter;
}

void findZeroValues(const CheckedBlock& block, const Report& report) {
  if (block.view.row == nullptr || countsEvents(*block.view.row)) return;
  forEachUniformList(block, 0, [&](const FieldInfo& field, const Uniformity& uniform) {
    // A single value may well be 0.
    if (uniform.bytes > field.stride) report("everything in use of " + std::string(field.name) + " is 0", field.name);
  });
}

constexpr Check kinds[] = {
    {{"erased-values", "erased values", Severity::Warning, "all values in use of a list or table are erased",
      "A block was written with its count, but its values are still FF, as in erased memory. Example: a count of 26, "
      "and 26 values of -1. A list with a count of 0 is not checked: it has no values yet. The calibration has to be "
      "written again."},
     findErasedValues},
    {{"zero-values", "zero values", Severity::Warning, "all values in use of a list or table are 0",
      "A calibration with two values or more that finds nothing to correct anywhere is rather one that was never "
      "made. Example: 26 amplitudes of 0. Counters are not checked, and neither are single values. Calibrate the "
      "module, or turn the check off if the zeros are meant."},
     findZeroValues},
};

}  // namespace

bool isCounted(const FieldInfo& field) {
  return field.rank != 0 && field.kind == FieldKind::Number && (*field.usedRows != '\0' || *field.usedCols != '\0');
}

Uniformity uniformityOf(const DataNode& list, ConstBytes block) {
  Uniformity result;
  forEachRunOfBytes(list, block, [&](ConstBytes run) {
    if (run.empty()) return true;
    if (result.bytes == 0) result.value = run[0];
    result.bytes += run.size();
    result.isUniform = run[0] == result.value && isUniform(run);
    return result.isUniform;
  });
  return result.isUniform ? result : Uniformity{};
}

std::span<const Check> valueChecks() { return kinds; }

}  // namespace Velk::detail
