#pragma once

#include <random>

#include "CatalogueSupport.h"
#include "TestSupport.h"
#include "velk/data/BlockData.h"
#include "velk/data/BlockSeal.h"
#include "velk/image/MemoryImage.h"

namespace VelkTest {

/// The bytes of one block, and its view.
struct OwnedBlock {
  std::string name;
  std::vector<unsigned char> bytes;

  Velk::BlockView view() const {
    const QByteArray image(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
    const Velk::MemoryImage walked(image);
    Velk::BlockView block = *walked.begin();
    block.bytes = bytes;
    return block;
  }
};

/// Returns a value for a field as text, different in each call.
inline std::string anyText(const Velk::FieldElement& element, std::mt19937& random) {
  const Velk::FieldInfo& field = *element.field;
  const auto below = [&](unsigned long limit) { return std::to_string(random() % limit); };
  if (field.kind == Velk::FieldKind::Text) {
    std::string text(random() % element.size + 1, ' ');
    for (char& c : text) c = static_cast<char>('A' + random() % 26);
    return text;
  }
  if (field.kind == Velk::FieldKind::Date)
    return "20" + std::to_string(10 + random() % 90) + "-0" + std::to_string(1 + random() % 9) + "-1" + below(9);
  if (isFloating(field.type)) return below(100'000) + "." + below(8) + "25";
  const bool isSigned = field.bits.width != 0 ? field.bits.isSigned : field.type == Velk::ScalarType::I8;
  const unsigned long most = field.bits.width != 0 ? 1UL << (field.bits.width - 1U) : field.stride == 1 ? 127 : 32'000;
  return (isSigned && random() % 2 == 0 ? "-" : "") + below(most);
}

/// Fills every field with a different value; lists and tables are full.
inline void fill(OwnedBlock& block, std::mt19937& random) {
  const Velk::BlockView view = block.view();
  const Velk::BlockData data(view, Velk::Extent::Capacity);
  const auto set = [&](const Velk::DataPath& path, const Velk::FieldElement& element) {
    if (element.field->isFixed) return;
    std::string text = anyText(element, random);
    for (std::size_t i = 0; i < data.root().size(); ++i) {
      const Velk::FieldInfo* const list = data.root()[i].field();
      if (list != nullptr && path.text() == list->usedRows) text = std::to_string(list->rows);
      if (list != nullptr && path.text() == list->usedCols) text = std::to_string(list->cols);
    }
    EXPECT_EQ(setFieldText(block.bytes, element, text), Velk::FieldResult::Done) << block.name << ' ' << path.text();
  };
  forEachValue(data.root(), {}, set);
  sealBlock(block.bytes, view.kind);
}

/// Returns a block of every catalogued class, of every second-edition type, an event counter and a block of an unknown
/// id. All are sound; their fields are zero, except texts of variable length.
inline std::vector<OwnedBlock> everyKindOfBlock() {
  std::vector<OwnedBlock> blocks;
  const auto add = [&](const std::string& name, QByteArray bytes) {
    blocks.push_back({name, std::vector<unsigned char>(bytes.begin(), bytes.end())});
  };
  for (const Velk::CatalogueRow& row : allRows()) {
    const std::unique_ptr<Velk::HwDatablock> block = row.make(row.firstId);
    if (row.others.longer) block->resizeData(row.size + 40U);
    if (row.others.longer) block->setBlockSize(static_cast<unsigned short>(row.size + 40U));
    if (row.firstId != Velk::erasedBlockId) block->setChecksum(block->computeChecksum());
    add(std::string(row.className), block->getByteArrayData());
  }
  const QByteArray image = exampleImage("detector.bin");
  const Velk::MemoryImage detector(image);
  for (const Velk::BlockView& block : detector) {
    if (block.row == nullptr)
      add(Velk::blockName(block), image.mid(qsizetype(block.offset), qsizetype(block.bytes.size())));
  }
  add("unknown", fromHex("92 10 0C 00 62 EF 00 00 00 00 00 00"));
  return blocks;
}

}  // namespace VelkTest
