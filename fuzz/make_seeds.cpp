// Writes the seed corpora of the fuzz targets, from the example images and from a new block of every catalogued id.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "FuzzSupport.h"
#include "velk/containers/ImageFile.h"
#include "velk/image/MemoryImage.h"
#include "velk/tables/HwTableBlock.h"

namespace {

namespace fs = std::filesystem;
using namespace Velk;

void write(const fs::path& path, std::string_view bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void write(const fs::path& path, const QByteArray& bytes) {
  write(path, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void seedFrom(const fs::path& file, const fs::path& seeds) {
  const std::string name = file.stem().string();
  if (file.extension() == ".txt") {
    std::ifstream text(file);
    return write(seeds / "exchange" / name, std::string(std::istreambuf_iterator<char>(text), {}));
  }
  ImageFile image = readImageFile(file.string());
  // A fuzzer generates inputs up to the length of its longest seed, and long inputs are slow. So only the blocks of a
  // large image are seeds.
  constexpr qsizetype longestSeed = 65536;
  const bool isLarge = image.bytes.size() > longestSeed;
  if (!isLarge) write(seeds / "image" / name, image.bytes);
  for (const BlockView& block : MemoryImage(image.bytes)) {
    const std::string_view bytes(reinterpret_cast<const char*>(block.bytes.data()), block.bytes.size());
    const bool describesItself = block.kind == BlockKind::SecondEdition || block.kind == BlockKind::EventCounter;
    const std::string seed = name + '_' + std::to_string(block.offset);
    write(seeds / (describesItself ? "edition2" : "block") / seed, bytes);
    write(seeds / "edit" / seed, bytes);
  }
  // Each line is one of many like it.
  image.bytes.truncate(1024);
  for (const Container container : {Container::IntelHex, Container::SRecord}) {
    image.container = container;
    write(seeds / "text" / (name + '.' + kindOf(container).name), encodeImage(image));
  }
}

void seedFromCatalogue(const fs::path& seeds) {
  for (const unsigned short id : VelkFuzz::catalogueIds()) {
    const std::unique_ptr<HwDatablock> block = findCatalogueRow(id)->make(id);
    block->setBlockId(id);
    const std::string name = "id_" + std::to_string(id);
    write(seeds / "block" / name, block->getByteArrayData());
    auto* const table = dynamic_cast<HwTableBlock*>(block.get());
    if (table == nullptr || !table->hasExchangeText()) continue;
    table->setCounts(2, table->getColCapacity());
    std::ostringstream text;
    table->writeExchangeText(text);
    write(seeds / "exchange" / name, text.str());
  }
}

void seedTexts(const fs::path& seeds) {
  write(seeds / "text" / "every_type.hex",
        std::string_view(":020000021234B6\n:0101000011ED\n:0400000312345678E5\n:020000040001F9\n:0101000011ED\n"
                         ":0400000512345678E3\n:00000001FF\n"));
  write(seeds / "text" / "every_type.srec",
        std::string_view("S00600004844521B\nS105010011AA3E\nS206010000AABB93\nS30780000000AABB13\nS5030003F9\n"
                         "S604000003F8\nS70580000010"
                         "6A\n"));
  write(seeds / "text" / "bytes.hexdump",
        std::string_view("00000000  02 00 2c 00 f4 30 00 00  64 00 00 00 e1 07 03 0f  |..,..0..d.......|\n*\n"
                         "00000040  41 7c 42                                          |A|B|\n00000043\n"));
  write(seeds / "text" / "groups.hexdump",
        std::string_view("$ xxd\n00000000: 0200 2c00 f430 0000  ..,..0..\n> 00000008: 6400 00z0\n0000000c: ff\n"));
  write(seeds / "text" / "words.hexdump", std::string_view("0000000 0002 002c 30f4\n*\n0000020 0041\n0000021\n"));
  write(seeds / "text" / "digits.hexdump", std::string_view("02002c00f4300000\r\n64000000\r\n"));
  write(seeds / "text" / "stored.gzip", std::string_view("\x1F\x8B\x08\0\0\0\0\0\0\x03\x01\x05\0\xFA\xFF"
                                                         "01020\x12\x51\x56\xC0\x05\0\0\0",
                                                         28));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_seeds IMAGES SEEDS\n");
    return 2;
  }
  const fs::path seeds = argv[2];
  fs::remove_all(seeds);
  for (const auto& entry : fs::directory_iterator(argv[1])) seedFrom(entry.path(), seeds);
  seedFromCatalogue(seeds);
  seedTexts(seeds);
  return 0;
}
