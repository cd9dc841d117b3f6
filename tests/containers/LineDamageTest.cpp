// How much of an image is still shown if lines of its Intel HEX or S-record file are damaged, lost or out of place, and
// whether the wrong lines and the lost bytes are reported. Prints the figures.
#include <algorithm>
#include <cstdio>
#include <random>
#include <set>

#include "ProofSupport.h"
#include "TestSupport.h"
#include "velk/containers/ImageFile.h"

namespace Velk {
namespace {

using Random = std::mt19937;

/// A line of a file, and which bytes of the image it gives.
struct Line {
  std::string text{};  ///< with its end
  std::size_t first = 0;
  std::size_t count = 0;
  bool isBase = false;  ///< a base address
};

std::size_t numberAt(const std::string& text, std::size_t at, std::size_t digits) {
  return std::stoul(text.substr(at, digits), nullptr, 16);
}

/// Returns the lines that hold an image, which begins at the first of their addresses.
std::vector<Line> linesOf(const QByteArray& bytes, Container container, std::uint64_t address) {
  const std::string text = encodeImage({.bytes = bytes, .container = container, .address = address}).toStdString();
  std::vector<Line> lines;
  std::size_t next = 0;
  for (std::size_t at = 0; at < text.size(); at += lines.back().text.size()) {
    Line line{.text = text.substr(at, text.find('\n', at) + 1 - at), .first = next};
    const bool isHex = line.text[0] == ':';
    const std::string type = isHex ? line.text.substr(7, 2) : line.text.substr(1, 1);
    line.isBase = isHex && type == "04";
    if (isHex && type == "00") line.count = numberAt(line.text, 1, 2);
    if (!isHex && type >= "1" && type <= "3") line.count = numberAt(line.text, 2, 2) - 2 - numberAt(type, 0, 1);
    next += line.count;
    lines.push_back(line);
  }
  return lines;
}

/// A file of damaged lines.
struct File {
  std::vector<Line> lines{};
  std::set<std::size_t> lost{};   ///< bytes of the image that no line gives any more
  std::set<std::size_t> wrong{};  ///< indices of the lines that are to be reported

  QByteArray text() const {
    std::string all;
    for (const Line& line : lines) all += line.text;
    return QByteArray::fromStdString(all);
  }
  void lose(std::size_t index) {
    for (std::size_t i = 0; i < lines[index].count; ++i) lost.insert(lines[index].first + i);
  }
  /// Changes the characters of a line before its end.
  void spoil(std::size_t index, const std::string& text) {
    lose(index);
    wrong.insert(index);
    lines[index].text = text + '\n';
  }
};

char otherCharacter(Random& random, char than) {
  constexpr std::string_view characters = "0123456789ABCDEF:S .gxz_#";
  char other = than;
  while (other == than) other = characters[random() % characters.size()];
  return other;
}

struct Damage {
  const char* name;
  void (*apply)(File& file, std::size_t index, std::size_t at, Random& random);
};

constexpr Damage damages[] = {
    {"character replaced",
     [](File& file, std::size_t index, std::size_t at, Random& random) {
       std::string text = file.lines[index].text;
       text.pop_back();
       text[at] = otherCharacter(random, text[at]);
       file.spoil(index, text);
     }},
    {"character lost",
     [](File& file, std::size_t index, std::size_t at, Random&) {
       std::string text = file.lines[index].text;
       text.pop_back();
       file.spoil(index, text.erase(at, 1));
     }},
    {"character added",
     [](File& file, std::size_t index, std::size_t at, Random& random) {
       // A second mark would only move the record.
       std::string text = file.lines[index].text;
       text.pop_back();
       file.spoil(index, text.insert(std::max<std::size_t>(at, 1), 1, otherCharacter(random, text[0])));
     }},
    {"line cut", [](File& file, std::size_t index, std::size_t at,
                    Random&) { file.spoil(index, file.lines[index].text.substr(0, std::max<std::size_t>(at, 1))); }},
    {"line dropped",
     [](File& file, std::size_t index, std::size_t, Random&) {
       file.lose(index);
       file.lines[index].text.clear();
     }},
    {"line doubled",
     [](File& file, std::size_t index, std::size_t, Random&) { file.lines[index].text += file.lines[index].text; }},
    {"lines swapped",
     [](File& file, std::size_t index, std::size_t, Random&) {
       std::swap(file.lines[index], file.lines[index + 1 < file.lines.size() ? index + 1 : index - 1]);
     }},
    {"log line inserted",
     [](File& file, std::size_t index, std::size_t at, Random&) {
       constexpr const char* logs[] = {"[12:30:45] 4711 bytes read\n", "> dump S1 0x0100\n", "\r\n",
                                       "ERROR: timeout\n"};
       file.lines[index].text.insert(0, logs[at % std::size(logs)]);
     }},
    {"line end lost", [](File& file, std::size_t index, std::size_t, Random&) { file.lines[index].text.pop_back(); }},
};

struct Figures {
  int provable = 0;
  int shown = 0;
  int unprovable = 0;
  int unprovableShown = 0;
  int wrong = 0;     ///< lines that are to be reported, of those that are reported one by one
  int reported = 0;  ///< of these
  int others = 0;    ///< lines that are reported and sound
  std::size_t lost = 0;
  std::size_t noted = 0;   ///< lost bytes that are reported as lost, or as missing
  std::size_t spared = 0;  ///< bytes reported as lost that are there
  int inventions = 0;

  void add(const Figures& more) {
    provable += more.provable, shown += more.shown, unprovable += more.unprovable;
    unprovableShown += more.unprovableShown, wrong += more.wrong, reported += more.reported, others += more.others;
    lost += more.lost, noted += more.noted, spared += more.spared, inventions += more.inventions;
  }
};

double percent(double part, double whole) { return whole == 0 ? 100 : 100 * part / whole; }

/// An image whose files are damaged.
class Subject {
 public:
  Subject(QByteArray image, std::uint64_t address) : bytes(std::move(image)), address_(address) {
    BlockWalk walk(VelkTest::asBytes(bytes));
    while (walk.next()) {
      const BlockView& block = walk.block();
      if (block.isSound() && block.kind != BlockKind::End) blocks_[block.offset] = block.bytes.size();
    }
  }

  /// Compares what is read from a damaged file with what can be expected.
  Figures compare(const File& file) const {
    const ImageFile image = decodeImage(file.text());
    Figures figures;
    compareLines(file, image, figures);
    compareLost(file, image, figures);
    compareBlocks(file, image, figures);
    return figures;
  }

  std::vector<Line> lines(Container container) const { return linesOf(bytes, container, address_); }

  const QByteArray bytes;

 private:
  static void compareLines(const File& file, const ImageFile& image, Figures& figures) {
    constexpr int reportedOneByOne = 16;
    std::set<std::size_t> reported;
    for (const FileFinding& finding : image.findings) {
      if (finding.line > 0) reported.insert(finding.line - 1);
    }
    for (const std::size_t line : file.wrong) {
      if (figures.wrong == reportedOneByOne) break;
      ++figures.wrong;
      figures.reported += static_cast<int>(reported.erase(line));
    }
    figures.others = static_cast<int>(reported.size());
  }

  void compareLost(const File& file, const ImageFile& image, Figures& figures) const {
    std::set<std::size_t> noted;
    for (const auto* const ranges : {&image.lost, &image.gaps}) {
      for (const ImageRange& range : *ranges) {
        for (std::uint64_t i = 0; i < range.size; ++i) noted.insert(image.address - address_ + range.offset + i);
      }
    }
    const std::uint64_t start = image.address - address_;
    const std::uint64_t end = start + static_cast<std::uint64_t>(image.bytes.size());
    figures.lost = file.lost.size();
    for (const std::size_t byte : file.lost) {
      figures.noted += noted.erase(byte) != 0 || byte < start || byte >= end ? 1 : 0;
    }
    figures.spared = noted.size();
  }

  void compareBlocks(const File& file, const ImageFile& image, Figures& figures) const {
    VelkTest::Untouched untouched;
    for (const auto& [at, size] : blocks_) {
      const auto lost = file.lost.lower_bound(static_cast<std::size_t>(at));
      if (lost == file.lost.end() || *lost >= static_cast<std::size_t>(at) + size) untouched[at] = size;
    }
    const auto moved = static_cast<qsizetype>(image.address - address_);
    VelkTest::Untouched shown;
    BlockWalk walk(VelkTest::asBytes(image.bytes));
    while (walk.next()) {
      const BlockView& block = walk.block();
      const qsizetype at = static_cast<qsizetype>(block.offset) + moved;
      if (block.isSound()) shown[at] = block.bytes.size();
      if (block.found == Found::OutOfSequence && !untouched.contains(at)) ++figures.inventions;
    }
    for (const auto& [at, size] : untouched) {
      const bool isShown = shown.contains(at) && shown[at] == size;
      const bool isProvable = VelkTest::isProvable(VelkTest::asBytes(bytes), untouched, at, size);
      (isProvable ? figures.provable : figures.unprovable) += 1;
      if (isShown) (isProvable ? figures.shown : figures.unprovableShown) += 1;
    }
  }

  std::uint64_t address_;
  VelkTest::Untouched blocks_;
};

/// Damages one line in a thousand, at least one.
File damaged(const std::vector<Line>& lines, const Damage& damage, Random& random) {
  File file{lines};
  std::set<std::size_t> chosen;
  while (chosen.size() < std::max<std::size_t>(1, lines.size() / 1000)) chosen.insert(random() % lines.size());
  for (const std::size_t index : chosen) {
    damage.apply(file, index, random() % (file.lines[index].text.size() - 1), random);
  }
  return file;
}

void print(const char* damage, const char* container, const Figures& figures) {
  std::printf("%-18s %-10s %9d %8.2f%% %7d %7d %6d %8.2f%% %7d %8zu %8.2f%% %7zu\n", damage, container,
              figures.provable, percent(figures.shown, figures.provable), figures.unprovable, figures.unprovableShown,
              figures.wrong, percent(figures.reported, figures.wrong), figures.others, figures.lost,
              percent(static_cast<double>(figures.noted), static_cast<double>(figures.lost)), figures.spared);
}

void printHead() {
  std::printf("%-18s %-10s %9s %9s %7s %7s %6s %9s %7s %8s %9s %7s\n", "damage", "container", "provable", "shown",
              "others", "shown", "wrong", "reported", "others", "lost", "reported", "spared");
}

TEST(LineDamage, BlocksOfOtherLinesAreShown) {
  printHead();
  std::vector<Subject> subjects;
  for (const QString& name : VelkTest::exampleImages()) subjects.emplace_back(VelkTest::exampleImage(name), 0);
  for (const Container container : {Container::IntelHex, Container::SRecord}) {
    for (const Damage& damage : damages) {
      Random random(1);
      Figures all;
      for (const Subject& subject : subjects) {
        const std::vector<Line> lines = subject.lines(container);
        const qsizetype rounds = std::clamp<qsizetype>(100'000 / subject.bytes.size(), 2, 50);
        for (qsizetype i = 0; i < rounds; ++i) all.add(subject.compare(damaged(lines, damage, random)));
      }
      print(damage.name, kindOf(container).title, all);
      EXPECT_GE(percent(all.shown, all.provable), 99) << damage.name;
      EXPECT_GE(percent(all.reported, all.wrong), 95) << damage.name << "; the rest are lines cut to a single S";
      EXPECT_EQ(all.noted, all.lost) << damage.name;
    }
  }
}

/// Base addresses are the only lines on which others depend.
TEST(LineDamage, ABaseAddressIsInferred) {
  printHead();
  const QByteArray image = VelkTest::exampleImage("every_id.bin").left(200 * 1024);
  for (const std::uint64_t address : {0x8000U, 0x08000000U}) {
    const Subject subject(image, address);
    const std::vector<Line> lines = subject.lines(Container::IntelHex);
    for (const Damage& damage : damages) {
      Random random(1);
      Figures all;
      for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t at = 0; lines[i].isBase && at + 1 < lines[i].text.size(); at += 4) {
          File file{lines};
          damage.apply(file, i, at, random);
          all.add(subject.compare(file));
        }
      }
      print(damage.name, "Intel HEX", all);
      EXPECT_EQ(all.shown, all.provable) << damage.name << " at " << address;
      EXPECT_EQ(all.reported, all.wrong) << damage.name << " at " << address;
    }
  }
}

}  // namespace
}  // namespace Velk
