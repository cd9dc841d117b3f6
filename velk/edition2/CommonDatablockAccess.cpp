#include "velk/edition2/CommonDatablockAccess.h"

#include "velk/bytes/ByteArray.h"
#include "velk/datablock/Checksums.h"
#include "velk/datablock/HwDatablock.h"
#include "velk/fields/Fields.h"

namespace Velk {
namespace {

using Header = HwSDatablockHeader2Edition;

constexpr std::size_t longestBlock = 0xFFFF;
constexpr std::size_t alignmentModulus = 4;

/// Returns the bytes that the block claims, cut to those that it has.
QByteArray imageOf(IHwDatablockAccess& block) {
  qsizetype size = block.getBlockSize(0);
  if (auto* const known = dynamic_cast<HwDatablock*>(&block)) size = std::min(size, known->getByteArrayData().size());
  const unsigned char* const data = block.getData(0);
  return data == nullptr ? QByteArray() : QByteArray(reinterpret_cast<const char*>(data), size);
}

/// Returns the header, padded with zeros if the block is shorter.
Header headerOf(ConstBytes block) {
  const auto bytes = detail::firstBytes<sizeof(Header)>(block);
  return {.header = {.id = detail::load<unsigned short>(bytes, offsetof(Header, header.id)),
                     .blockSize = detail::load<unsigned short>(bytes, offsetof(Header, header.blockSize)),
                     .checksum = detail::load<unsigned short>(bytes, offsetof(Header, header.checksum)),
                     .alignment = detail::load<unsigned short>(bytes, offsetof(Header, header.alignment))},
          .checksum32 = detail::load<unsigned int>(bytes, offsetof(Header, checksum32)),
          .updateIndex = detail::load<unsigned short>(bytes, offsetof(Header, updateIndex))};
}

/// Returns the 4-byte entries of a list as a table. Their values are not read, so the rows are empty.
CommonSubDatablock listTable(ConstBytes block) {
  constexpr std::size_t entrySize = 4;
  CommonSubDatablock table;
  if (block.size() < sizeof(HwSDatablockHeader)) return table;
  table.rows = static_cast<unsigned int>((block.size() - sizeof(HwSDatablockHeader)) / entrySize);
  table.columns = 1;
  table.rowIdType = TYPE_ID_UINT32;
  table.columnIdType = TYPE_ID_UINT32;
  table.columnTypes = {TYPE_ID_UINT32};
  table.rowIds.resize(table.rows * entrySize);
  table.columnIds.resize(entrySize);
  return table;
}

/// Assembles the bytes of a block.
class ImageWriter {
 public:
  /// Blocks with an alignment word have no padding.
  explicit ImageWriter(const Header& header) : padded_(header.header.alignment == 0) {
    constexpr unsigned int noChecksum = 0;
    add(header.header.id).add<unsigned short>(0).add<unsigned short>(0);
    add<unsigned short>(header.header.alignment & 0xFFU).add(noChecksum).add(header.updateIndex);
  }

  void add(const CommonSubDatablock& table) {
    add(static_cast<unsigned short>(table.rows)).add(static_cast<unsigned short>(table.columns));
    add(static_cast<unsigned char>(table.rowIdType)).add(static_cast<unsigned char>(table.columnIdType));
    // Padding after a table without columns would be read as part of the next table.
    if (table.columns == 0) return;
    for (const unsigned int type : table.columnTypes) add(static_cast<unsigned char>(type));
    pad().add(table.rowIds).pad().add(table.columnIds).pad();
    for (unsigned int column = 0; column < table.columns; ++column) addCells(table.cells[column], table.rows);
  }

  QByteArray take() { return std::move(image_); }

 private:
  template <class T>
  requires std::is_arithmetic_v<T> ImageWriter& add(T value) {
    detail::swapStoredAndHost(value);
    return add(std::span(reinterpret_cast<const char*>(&value), sizeof value));
  }
  ImageWriter& add(std::span<const char> bytes) {
    image_.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return *this;
  }
  void addCells(const TableCells::Column& cells, std::size_t rows) {
    const CellRun run = cells.run();
    for (std::size_t row = run.count; row < rows; ++row) add(cells[row]);  // a table with strings has no run
    const qsizetype end = image_.size();
    image_.resize(end + static_cast<qsizetype>(run.count * run.cellSize));
    char* to = image_.data() + end;
    if (run.distance == run.cellSize) {
      if (run.count != 0) std::memcpy(to, run.first, run.count * run.cellSize);
      return;
    }
    for (std::size_t row = 0; row < run.count; ++row) {
      std::memcpy(to + row * run.cellSize, run.first + row * run.distance, run.cellSize);
    }
  }
  ImageWriter& pad() {
    while (padded_ && static_cast<std::size_t>(image_.size()) % alignmentModulus != 0) image_ += '\0';
    return *this;
  }

  QByteArray image_;
  bool padded_;
};

template <class T>
void storeField(QByteArray& image, std::size_t offset, T value) {
  detail::store(mutableBytesOf(image), offset, value);
}

}  // namespace

CommonSubDatablock::CommonSubDatablock(const QByteArray& block, StoredTable stored)
    : rows(stored.rows()),
      columns(stored.columns()),
      rowIdType(stored.rowIdType()),
      columnIdType(stored.columnIdType()),
      complete(stored.isComplete()),
      columnTypes(stored.columnTypes().begin(), stored.columnTypes().end()),
      rowIds(stored.rowIds().begin(), stored.rowIds().end()),
      columnIds(stored.columnIds().begin(), stored.columnIds().end()),
      cells(block, std::move(stored)) {}

CommonDatablockAccess::CommonDatablockAccess(IHwDatablockAccess* block, IHwVariantEeprom* store, bool parseNow)
    : block_(block), store_(store) {
  if (parseNow) parse();
}

CommonDatablockAccess::~CommonDatablockAccess() = default;

void CommonDatablockAccess::parse() {
  const QByteArray image = block_ ? imageOf(*block_) : QByteArray();
  header_ = headerOf(bytesOf(image));
  if (block_ && block_->isListFormat()) {
    header_.checksum32 = 0;
    header_.updateIndex = 0;
    tables_.push_back(listTable(bytesOf(image)));
    return;
  }
  TableWalk walk(bytesOf(image));
  bool open = false;
  while (auto stored = walk.next()) {
    open = !stored->isComplete();
    tables_.emplace_back(image, *std::move(stored));
  }
  if (!open) tables_.emplace_back();
}

const CommonSubDatablock* CommonDatablockAccess::find(unsigned int table) const {
  return table < tables_.size() ? &tables_[table] : nullptr;
}

double CommonDatablockAccess::getUpdateIndex() const {
  return presentedValue<Rounding::Product>({.factor = updateIndexUnit}, static_cast<double>(header_.updateIndex));
}

unsigned int CommonDatablockAccess::getRowCount(unsigned int table) const {
  const CommonSubDatablock* const found = find(table);
  return found == nullptr ? 0 : found->rows;
}

unsigned int CommonDatablockAccess::getColCount(unsigned int table) const {
  const CommonSubDatablock* const found = find(table);
  return found == nullptr ? 0 : found->columns;
}

unsigned int CommonDatablockAccess::getSizeInBytes(unsigned int typeId, unsigned int /*table*/) {
  return detail::typeSize(typeId);
}

QByteArray CommonDatablockAccess::buildImage() const {
  ImageWriter writer(header_);
  for (const CommonSubDatablock& table : tables_) {
    if (table.complete) writer.add(table);
  }
  return writer.take();
}

bool CommonDatablockAccess::write() {
  QByteArray image = buildImage();
  if (!block_ || static_cast<std::size_t>(image.size()) > longestBlock) return false;
  storeField(image, offsetof(Header, header.blockSize), static_cast<unsigned short>(image.size()));
  block_->setData(image);
  storeField(image, offsetof(Header, checksum32), block_->computeChecksum32());
  block_->setData(image);
  // The 16-bit checksum covers the CRC-32 as well.
  storeField(image, offsetof(Header, header.checksum), block_->computeChecksum());
  return writeVariantBock(getId(), image);
}

bool CommonDatablockAccess::writeVariantBock(unsigned int blockId, QByteArray& bytes) {
  auto block = std::make_unique<HwDatablock>(true);
  block->setData(bytes);
  block->setDataFormatTyp(INTEL_Conform);
  if (store_ != nullptr) store_->writeDatablock(blockId, block.release());
  return true;
}

}  // namespace Velk
