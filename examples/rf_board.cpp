#include "ImageBuilder.h"
#include "Images.h"
#include "velk/bytes/PackedDate.h"

namespace Examples {

Velk::HwDatablockIdent identOf(const char* name, unsigned partNumber, unsigned serialNumber, unsigned eepromSize) {
  Velk::HwDatablockIdent ident;
  ident.setEepromSize(eepromSize);
  ident.setPartNumber(partNumber);
  ident.setVariant(2);
  ident.setHardwareCode(1);
  ident.setProductIndex(105);
  ident.setSerialNumber(serialNumber);
  ident.setProductDate(Velk::PackedDate{2018, 6, 21}.packed());
  ident.setTestInstruction(200);
  ident.setName(name);
  return ident;
}

/// An RF board with two identification records and a block of an unknown id.
QByteArray rfBoard() {
  Velk::HwDatablockIdent ident = identOf("RF-BOARD", 11411000, 100234, 1024);
  ident.setHardwareCode(3);
  ident.setProductIndex(1234);
  ident.setProductDate(Velk::PackedDate{2017, 3, 15}.packed());
  ident.setReadCode(1);
  ident.setTestInstruction(205);

  Velk::HwDatablockIdent filter;
  filter.setBlockId(10);
  filter.setEepromSize(256);
  filter.setPartNumber(10005);
  filter.setVariant(12);
  filter.setSerialNumber(4711);
  filter.setProductDate(Velk::PackedDate{2016, 11, 2}.packed());
  filter.setName("FILTER");

  return ImageBuilder().add(ident).add(filter).add(4242, "unknown to all").finish(1024);
}

}  // namespace Examples
