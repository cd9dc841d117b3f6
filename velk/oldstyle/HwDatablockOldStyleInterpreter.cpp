#include "velk/oldstyle/HwDatablockOldStyleInterpreter.h"

#include "velk/datablock/OldStyleConversion.h"
#include "velk/oldstyle/BlockCatalogue.h"

namespace Velk {
namespace {

std::unique_ptr<HwDatablock> makePrototype(const CatalogueRow& row, unsigned short id) {
  std::unique_ptr<HwDatablock> prototype = row.make(id);
  // A prototype keeps only its header; the payload comes with the block that is printed.
  prototype->resizeData(sizeof(HwSDatablockHeader));
  return prototype;
}

void convertInPlace(MutableBytes block, const CatalogueRow& row) {
  switch (row.conversion) {
    case Conversion::Record:
      detail::applyRecordRules(block, *row.record, row.record->onSwap);
      break;
    case Conversion::ClearAlignment:
      detail::store<unsigned short>(block, offsetof(HwSDatablockHeader, alignment), 0);
      break;
    case Conversion::Values:
    case Conversion::None:
      break;
  }
}

}  // namespace

IdHwDatablockOldStyleClassDict::~IdHwDatablockOldStyleClassDict() {
  for (const auto& [id, prototype] : *this) delete prototype;
}

HwDatablockOldStyleInterpreter::HwDatablockOldStyleInterpreter() {
  for (const CatalogueRow& row : dictionaryRows()) {
    for (int id = row.firstId; id <= row.lastId; ++id) {
      HwDatablock*& entry = dictionary_.emplace_hint(dictionary_.end(), id, nullptr)->second;
      entry = makePrototype(row, static_cast<unsigned short>(id)).release();
    }
  }
}

HwDatablockOldStyleInterpreter::~HwDatablockOldStyleInterpreter() = default;

bool HwDatablockOldStyleInterpreter::printHwDatablockOldStyleInfo(HwDatablock* block, std::ostream& os) {
  if (block == nullptr) return false;
  HwDatablock* const prototype = dictionary_[block->getId()];
  if (prototype == nullptr) return false;
  // setData verifies the block, and so converts one in another format: only the copy may change.
  HwDatablock copy(block->getStopConversionOnError());
  copy.setDataWithoutChecksumCheck(block);
  prototype->setData(&copy);
  prototype->printToStream(os);
  return true;
}

bool HwDatablockOldStyleInterpreter::swapHwDatablock(HwEDataFormatTyp format, int id, HwDatablock* block) {
  const CatalogueRow* const row = findCatalogueRow(id);
  if (block == nullptr || row == nullptr || row->conversion == Conversion::None) return false;
  // Converting through a temporary object of the row's class would verify that object's checksum, which converts it,
  // and so on without end. So the few rules are applied in place.
  const auto length = static_cast<std::size_t>(block->getByteArrayData().size());
  if (length >= row->size) convertInPlace({block->getData(), length}, *row);
  block->setDataFormatTyp(format);
  return true;
}

bool detail::convertOldStyleBlock(HwEDataFormatTyp target, int id, HwDatablock* block) {
  return HwDatablockOldStyleInterpreter::swapHwDatablock(target, id, block);
}

}  // namespace Velk
