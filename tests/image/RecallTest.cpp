// How many of the blocks that damage does not touch are still shown, damage by damage and image by image, and what is
// shown that never was a block. Prints the figures.
#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <set>

#include "ProofSupport.h"
#include "TestSupport.h"

namespace Velk {
namespace {

using Random = std::mt19937;

/// What replaces some bytes of an image.
struct Edit {
  qsizetype at;
  qsizetype length;
  QByteArray by;
};

struct Image {
  QString name;
  QByteArray bytes;
  std::vector<BlockView> blocks;  ///< without end blocks
  qsizetype used = 0;             ///< up to the end of the last block

  explicit Image(const QString& file) : name(file), bytes(VelkTest::exampleImage(file)) {
    BlockWalk walk(VelkTest::asBytes(bytes));
    while (walk.next()) {
      const BlockView& block = walk.block();
      if (!block.isSound() || block.kind == BlockKind::End) continue;
      blocks.push_back(block);
      used = static_cast<qsizetype>(block.offset + block.bytes.size());
    }
  }

  qsizetype anyBlock(Random& random) const { return static_cast<qsizetype>(blocks[random() % blocks.size()].offset); }
  qsizetype anywhere(Random& random) const { return static_cast<qsizetype>(random() % static_cast<unsigned>(used)); }
};

QByteArray randomBytes(Random& random, qsizetype count) {
  QByteArray bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

/// Words of which many are small or zero, as in programs.
QByteArray firmware(Random& random, qsizetype count) {
  QByteArray bytes(count, '\0');
  for (char& byte : bytes) {
    if (random() % 3 != 0) byte = static_cast<char>(random() % 4 == 0 ? random() : random() % 32);
  }
  return bytes;
}

Edit page(const Image& image, Random& random, char fill) {
  constexpr qsizetype size = 256;
  const qsizetype at = image.anywhere(random) / size * size;
  const qsizetype length = std::min(size, image.bytes.size() - at);
  return {at, length, QByteArray(length, fill)};
}

struct Damage {
  const char* name;
  Edit (*make)(const Image& image, Random& random);
};

constexpr Damage damages[] = {
    {"zeroed page", [](const Image& image, Random& random) { return page(image, random, '\0'); }},
    {"random bytes",
     [](const Image& image, Random& random) -> Edit {
       const qsizetype at = image.anywhere(random);
       const qsizetype count = std::min<qsizetype>(1 + random() % 16, image.bytes.size() - at);
       return {at, count, randomBytes(random, count)};
     }},
    {"size too large",
     [](const Image& image, Random& random) -> Edit {
       const BlockView& block = image.blocks[random() % image.blocks.size()];
       const auto size = static_cast<unsigned>(block.declaredSize + 1 + random() % (65535U - block.declaredSize));
       const char field[] = {static_cast<char>(size), static_cast<char>(size >> 8U)};
       return {static_cast<qsizetype>(block.offset) + 2, 2, QByteArray(field, 2)};
     }},
    {"bytes in front",
     [](const Image&, Random& random) -> Edit {
       constexpr qsizetype counts[] = {1, 3, 37, 512};
       const qsizetype count = counts[random() % 4];
       return {0, 0, random() % 2 == 0 ? randomBytes(random, count) : QByteArray(count, '\xFF')};
     }},
    {"erased header",
     [](const Image& image, Random& random) -> Edit {
       return {image.anyBlock(random), 8, QByteArray(8, '\xFF')};
     }},
    {"byte lost",
     [](const Image& image, Random& random) -> Edit {
       return {image.anywhere(random), 1, {}};
     }},
    {"byte too many",
     [](const Image& image, Random& random) -> Edit {
       return {image.anywhere(random), 0, randomBytes(random, 1)};
     }},
    {"erased page", [](const Image& image, Random& random) { return page(image, random, '\xFF'); }},
    {"erased between",
     [](const Image& image, Random& random) -> Edit {
       return {image.anyBlock(random), 0, QByteArray(1 + random() % 300, '\xFF')};
     }},
    {"firmware before",
     [](const Image&, Random& random) -> Edit {
       return {0, 0, firmware(random, 5000)};
     }},
};

/// Where a block is after an edit that does not touch it; -1 where it does.
qsizetype placeAfter(const Edit& edit, const BlockView& block) {
  const auto offset = static_cast<qsizetype>(block.offset);
  if (offset >= edit.at + edit.length) return offset + edit.by.size() - edit.length;
  return offset + static_cast<qsizetype>(block.bytes.size()) <= edit.at ? offset : -1;
}

struct Figures {
  int provable = 0;
  int provableShown = 0;
  int unprovable = 0;
  int unprovableShown = 0;
  int inventions = 0;
  std::set<unsigned> unprovableIds{};

  double recall() const { return provable == 0 ? 1 : static_cast<double>(provableShown) / provable; }
};

/// One kind of damage to one image, many times.
class Trial {
 public:
  explicit Trial(const Image& image) : image_(image) {}

  void damage(const Edit& edit) {
    QByteArray bytes = image_.bytes;
    bytes.replace(edit.at, edit.length, edit.by);
    VelkTest::Untouched untouched;
    for (const BlockView& block : image_.blocks) {
      if (const qsizetype at = placeAfter(edit, block); at >= 0) untouched[at] = block.bytes.size();
    }
    std::map<qsizetype, std::size_t> shown;
    BlockWalk walk(VelkTest::asBytes(bytes));
    while (walk.next()) {
      const BlockView& block = walk.block();
      const auto at = static_cast<qsizetype>(block.offset);
      if (block.isSound()) shown[at] = block.bytes.size();
      if (block.found == Found::OutOfSequence && !untouched.contains(at)) ++figures.inventions;
    }
    for (const auto& [at, size] : untouched) {
      const bool provable = VelkTest::isProvable(VelkTest::asBytes(bytes), untouched, at, size);
      count(provable, shown.contains(at) && shown[at] == size);
      if (!provable) figures.unprovableIds.insert(detail::load<unsigned short>(VelkTest::asBytes(bytes), at));
    }
  }

  Figures figures;

 private:
  void count(bool provable, bool shown) {
    (provable ? figures.provable : figures.unprovable) += 1;
    if (shown) (provable ? figures.provableShown : figures.unprovableShown) += 1;
  }

  const Image& image_;
};

TEST(Recall, NearlyAllBlocksThatCanProveThemselvesAreShown) {
  constexpr int trials = 200;
  constexpr int trialsOfLarge = 4;
  constexpr qsizetype large = 0x20000;
  std::printf("%-17s %-20s %10s %10s %12s %s\n", "damage", "image", "provable", "shown", "unprovable", "shown, ids");
  for (const QString& name : VelkTest::exampleImages()) {
    const Image image(name);
    for (const Damage& damage : damages) {
      Random random(1);
      Trial trial(image);
      for (int i = 0; i < (image.bytes.size() > large ? trialsOfLarge : trials); ++i) {
        trial.damage(damage.make(image, random));
      }
      const Figures& figures = trial.figures;
      std::printf("%-17s %-20s %10d %9.2f%% %12d %10d ", damage.name, qPrintable(name), figures.provable,
                  100 * figures.recall(), figures.unprovable, figures.unprovableShown);
      for (const unsigned id : figures.unprovableIds) std::printf(" %u", id);
      std::printf("\n");
      EXPECT_GE(figures.recall(), 0.99) << damage.name << " of " << name.toStdString();
      EXPECT_EQ(figures.inventions, 0) << damage.name << " of " << name.toStdString();
    }
  }
}

TEST(Recall, NothingIsInventedInOtherBytes) {
  constexpr qsizetype size = 4 * 1024 * 1024;
  Random random(2);
  QByteArray text;
  while (text.size() < size) text += "the " + QByteArray::number(random() % 1000) + " words of a text\n";
  const std::pair<const char*, QByteArray> kinds[] = {{"random bytes", randomBytes(random, size)},
                                                      {"firmware", firmware(random, size)},
                                                      {"zeros", QByteArray(size, '\0')},
                                                      {"text", text}};
  for (const auto& [name, bytes] : kinds) {
    int inventions = 0;
    for (const BlockView& block : MemoryImage(bytes)) inventions += block.found == Found::OutOfSequence ? 1 : 0;
    EXPECT_EQ(inventions, 0) << name;
  }
}

}  // namespace
}  // namespace Velk
