#include "CalibratedImage.h"

#include <algorithm>
#include <charconv>
#include <random>

#include "velk/fields/FieldValue.h"
#include "velk/velk.h"

namespace VelkBench {

using namespace Velk;

namespace {

/// Sets the counts of all lists of a record to their capacity.
void fillCounts(MutableBytes block, std::span<const FieldInfo> fields) {
  for (const FieldInfo& list : fields) {
    for (const auto& [counter, capacity] : {std::pair(list.usedRows, list.rows), std::pair(list.usedCols, list.cols)}) {
      const auto field = std::ranges::find(fields, std::string_view(counter), &FieldInfo::name);
      if (field != fields.end()) setFieldText(block, {&*field, field->offset}, std::to_string(capacity));
    }
  }
}

}  // namespace

QByteArray calibratedImage(qsizetype size) {
  std::mt19937 random(20261125);
  QByteArray image;
  while (true) {
    const CatalogueRow& row = dictionaryRows()[random() % dictionaryRows().size()];
    if (row.firstId == erasedBlockId || row.size < 12 || row.size > 30'000) continue;
    const std::unique_ptr<HwDatablock> block = row.make(row.firstId);
    QByteArray bytes = block->getByteArrayData();
    if (image.size() + bytes.size() > size) {
      if (image.size() > size - 1000) break;
      continue;
    }
    const MutableBytes view(reinterpret_cast<unsigned char*>(bytes.data()), std::size_t(bytes.size()));
    const BlockData data(view, row.fields, Extent::Capacity);
    const auto fill = [&](const DataPath&, const FieldElement& element) {
      const double thousandths = isFloating(element.field->type) ? 1000 : 1;
      char text[32];
      const char* const end = std::to_chars(text, text + 32, static_cast<double>(random() % 30'000) / thousandths).ptr;
      setFieldText(view, element, {text, static_cast<std::size_t>(end - text)});
    };
    forEachValue(data.root(), {}, fill);
    fillCounts(view, row.fields);
    sealBlock(view, BlockKind::OldStyle);
    image += bytes;
  }
  return image;
}

}  // namespace VelkBench
