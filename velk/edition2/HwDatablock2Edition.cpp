#include "velk/edition2/HwDatablock2Edition.h"

#include "velk/datablock/Checksums.h"
#include "velk/edition2/StoredTable.h"
#include "velk/fields/Fields.h"

namespace Velk {
namespace {

using Header = HwSDatablockHeader2Edition;
using TableHeader = HwSTableHeader2Edition;

constexpr std::size_t rowsOffset = sizeof(Header) + offsetof(TableHeader, rows);
constexpr std::size_t columnsOffset = sizeof(Header) + offsetof(TableHeader, columns);
constexpr std::size_t rowIdTypeOffset = sizeof(Header) + offsetof(TableHeader, rowIdType);
constexpr std::size_t columnIdTypeOffset = sizeof(Header) + offsetof(TableHeader, columnIdType);

constexpr std::size_t compactHeaderGap = 2;

}  // namespace

HwDatablock2Edition::HwDatablock2Edition() : HwDatablock(true) {
  HwDatablock::resizeData(detail::shortestCrcBlock);
  HwDatablock::setBlockSizeWithoutCalcChecksumm(detail::shortestCrcBlock);
}

unsigned short HwDatablock2Edition::computeChecksum() { return HwDatablock::computeChecksum(); }

unsigned short HwDatablock2Edition::getId() { return HwDatablock::getId(); }

unsigned int HwDatablock2Edition::getEepromSector() { return HwDatablock::getEepromSector(); }

bool HwDatablock2Edition::setData(QByteArray bytes) { return HwDatablock::setData(std::move(bytes)); }

bool HwDatablock2Edition::setData(HwDatablock* source) { return HwDatablock::setData(source); }

bool HwDatablock2Edition::setEepromAddress(unsigned int address) { return HwDatablock::setEepromAddress(address); }

bool HwDatablock2Edition::setEepromSector(unsigned int sector) { return HwDatablock::setEepromSector(sector); }

std::size_t HwDatablock2Edition::placed(std::size_t offset) {
  return getAlignment() == 0 ? offset : offset - compactHeaderGap;
}

std::size_t HwDatablock2Edition::firstColumnType() { return placed(sizeof(Header) + sizeof(TableHeader)); }

unsigned short HwDatablock2Edition::getNumberOfRows(unsigned int /*part*/) {
  return load<unsigned short>(placed(rowsOffset));
}

unsigned short HwDatablock2Edition::getNumberOfColumns(unsigned int /*part*/) {
  return load<unsigned short>(placed(columnsOffset));
}

double HwDatablock2Edition::getUpdateIndex() {
  const double hundredths = load<short>(placed(offsetof(Header, updateIndex)));
  return presentedValue<Rounding::Product>({.factor = updateIndexUnit}, hundredths);
}

unsigned char* HwDatablock2Edition::getData(unsigned int /*part*/) { return HwDatablock::getData(); }

unsigned short HwDatablock2Edition::getBlockSize(unsigned int /*part*/) { return HwDatablock::getBlockSize(); }

unsigned int HwDatablock2Edition::computeChecksum32() { return HwDatablock::computeChecksum32(); }

bool HwDatablock2Edition::isListFormat() { return listFormat_; }

void HwDatablock2Edition::setListFormat(bool list) { listFormat_ = list; }

bool HwDatablock2Edition::setChecksum32(unsigned int checksum) {
  store(detail::crcOffset, checksum);
  return true;
}

ETypeId HwDatablock2Edition::getRowIdType() { return ETypeId{load<unsigned char>(placed(rowIdTypeOffset))}; }

ETypeId HwDatablock2Edition::getColumnIdType() { return ETypeId{load<unsigned char>(placed(columnIdTypeOffset))}; }

ETypeId HwDatablock2Edition::getColumnType(int column) {
  if (column < 0) return TYPE_ID_NONE;
  return ETypeId{load<unsigned char>(firstColumnType() + static_cast<std::size_t>(column))};
}

unsigned int HwDatablock2Edition::getSizeOfRowIdType() { return size_in_byte(getRowIdType()); }

unsigned int HwDatablock2Edition::getSizeOfColumnIdType() { return size_in_byte(getColumnIdType()); }

unsigned int HwDatablock2Edition::size_in_byte(ETypeId type) {
  return type == TYPE_ID_STRING ? 0 : detail::typeSize(type);
}

const char* HwDatablock2Edition::getTypeString(ETypeId type) { return detail::typeRow(type).typeName; }

}  // namespace Velk
