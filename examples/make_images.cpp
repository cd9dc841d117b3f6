// Makes the example images: memories of modules as the library's own classes write them.
#include <QFile>
#include <cstdio>

#include "ImageBuilder.h"
#include "velk/velk.h"

namespace {

using Examples::ImageBuilder;

/// An RF board that identifies itself, with a second identification record and a block that nobody knows.
QByteArray rfBoard() {
  Velk::HwDatablockIdent ident;
  ident.setEepromSize(1024);
  ident.setPartNumber(11411000);
  ident.setVariant(2);
  ident.setHardwareCode(3);
  ident.setProductIndex(1234);
  ident.setSerialNumber(100234);
  ident.setProductDate(Velk::PackedDate{2017, 3, 15}.packed());
  ident.setReadCode(1);
  ident.setTestInstruction(205);
  ident.setName("RF-BOARD");

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

bool write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_images DIRECTORY\n");
    return 2;
  }
  const QString directory = QString::fromLocal8Bit(argv[1]);
  const bool written = write(directory + "/rf_board.bin", rfBoard());
  if (!written) std::fprintf(stderr, "make_images: cannot write to %s\n", argv[1]);
  return written ? 0 : 3;
}
