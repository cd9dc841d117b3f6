#include "velk/tables/HwTableBlock.h"

#include "velk/bytes/ByteArray.h"
#include "velk/tables/TableReader.h"
#include "velk/tables/TableText.h"

namespace Velk {

HwTableBlock::HwTableBlock(const detail::TableLayout& layout, const TableTraits& traits, bool stopConversionOnError,
                           int idOffset)
    : HwRecordBlock(layout.record, stopConversionOnError, static_cast<unsigned short>(traits.id + idOffset)),
      layout_(&layout),
      idOffset_(idOffset),
      baseId_(traits.id),
      blockString_(traits.key == nullptr ? "" : traits.key),
      scale_(traits.scale),
      exchange_(traits.exchange) {}

void HwTableBlock::setCounts(unsigned rows, unsigned cols) {
  store(layout_->rowsOffset, rows);
  storeField(layout_->colsOffset, cols);
}

void HwTableBlock::swapImage(const void* image) {
  if (image == nullptr) return;
  const ConstBytes header(static_cast<const unsigned char*>(image), sizeof(HwSDatablockHeader));
  const auto size = detail::load<unsigned short>(header, offsetof(HwSDatablockHeader, blockSize));
  swapRecord(image);
  store(offsetof(HwSDatablockHeader, blockSize), size);
}

std::ostream& HwTableBlock::printToStream(std::ostream& os) {
  return exchange_ != nullptr && exchange_->isPrint ? writeExchangeText(os) : conv2ascii(os, *this);
}

std::ostream& HwTableBlock::conv2ascii(std::ostream& os, HwDatablock& block) const {
  const QByteArray shared = block.getByteArrayData();
  detail::writeDump(os, blockString_, {*layout_, scale_, bytesOf(shared)});
  return os;
}

std::ostream& HwTableBlock::writeExchangeText(std::ostream& os) const {
  if (exchange_ != nullptr) detail::writeExchange(os, blockString_, *exchange_, view());
  return os;
}

std::istream& HwTableBlock::readExchangeText(std::istream& is, std::vector<std::string>* doubts) {
  if (exchange_ == nullptr) return is;
  detail::TableReader reader(*exchange_, *layout_, blockString_, baseId_, scale_);
  reader.read(is);
  const MutableBytes image = reader.image();
  auto* const words = reinterpret_cast<unsigned short*>(image.data());
  detail::store(image, offsetof(HwSDatablockHeader, checksum), computeChecksum(words, layout_->record.size));
  setRecord(image.data());
  if (doubts != nullptr) doubts->insert(doubts->end(), reader.doubts().begin(), reader.doubts().end());
  return is;
}

}  // namespace Velk
