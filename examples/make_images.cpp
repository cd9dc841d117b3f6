// Writes the example images, and the text of a table.
#include <QFile>
#include <cstdio>

#include "Images.h"

namespace {

struct Image {
  const char* name;
  QByteArray (*make)();
};

constexpr Image images[] = {
    {"rf_board.bin", Examples::rfBoard},
    {"synthesizer.bin", Examples::synthesizer},
    {"iq_module.bin", Examples::iqModule},
    {"mainboard.bin", Examples::mainboard},
    {"dac_board.bin", Examples::dacBoard},
    {"detector.bin", Examples::detector},
    {"rf_board_tables.bin", Examples::rfBoardTables},
    {"every_id.bin", Examples::everyId},
    {"flash.dump", Examples::flashDump},
    {"erased_page.dump", Examples::erasedPage},
    {"first_read.dump", Examples::firstRead},
    {"second_read.dump", Examples::secondRead},
    {"attenuator_registers.txt", Examples::attenuatorRegisters},
};

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
  for (const Image& image : images) {
    const QString path = QString::fromLocal8Bit(argv[1]) + '/' + image.name;
    if (!write(path, image.make())) {
      std::fprintf(stderr, "make_images: cannot write %s\n", qPrintable(path));
      return 3;
    }
  }
  return 0;
}
