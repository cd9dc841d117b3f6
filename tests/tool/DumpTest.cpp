#include <regex>

#include "CommandSupport.h"
#include "velk/bytes/ByteArray.h"
#include "velk/data/BlockSeal.h"

namespace {

using VelkTest::Command;
using VelkTest::exampleImage;
using VelkTest::Outcome;
using VelkTest::run;

/// What is wrong with the bytes of a dump of an image, from its first byte on; empty if they are those of the image.
std::string faultOfBytes(const std::string& dump, const QByteArray& image) {
  static const std::regex line("0x([0-9A-F]{8})  (?:((?:[0-9A-F]{2} )*[0-9A-F]{2})|\\.\\.\\. (\\d+) more.*)(?:  .*)?");
  qsizetype position = 0;
  std::istringstream lines(dump);
  std::smatch match;
  for (std::string text; std::getline(lines, text);) {
    if (!std::regex_match(text, match, line)) continue;
    if (std::stoll(match[1], nullptr, 16) != position) return "not " + std::to_string(position) + ": " + text;
    const QByteArray shown = QByteArray::fromHex(QByteArray::fromStdString(match[2]));
    if (shown != image.mid(position, shown.size())) return "other bytes: " + text;
    position += match[3].matched ? std::stoll(match[3]) : shown.size();
  }
  return position == image.size() ? "" : "ends at " + std::to_string(position);
}

TEST_F(Command, DumpShowsEachByteOfAnImageOnce) {
  for (const QString& name : VelkTest::exampleImages()) {
    if (name == "every_id.bin") continue;  // large, and AnnotatedBytes has every kind of block
    const QByteArray image = exampleImage(name);
    const Outcome whole = run({"dump", name});
    EXPECT_EQ(whole.exitCode, 0);
    EXPECT_EQ(whole.errors, "");
    EXPECT_EQ(faultOfBytes(whole.output, image), "") << name.toStdString();
    for (const qsizetype size : {image.size() / 5, qsizetype{60}}) {
      const Outcome cut = run({"dump", "-"}, image.left(size));
      EXPECT_EQ(faultOfBytes(cut.output, image.left(size)), "") << name.toStdString();
      if (size != 60) continue;
      EXPECT_NE(cut.output.find("error: "), std::string::npos) << name.toStdString();
      EXPECT_EQ(cut.exitCode, 1);
    }
  }
  for (const char* const name : {"erased_page.dump", "first_read.dump", "flash.dump"}) {
    EXPECT_EQ(faultOfBytes(run({"dump", name}).output, exampleImage(name)), "") << name;
    EXPECT_EQ(faultOfBytes(run({"dump", "--sector-size", "auto", name}).output, exampleImage(name)), "") << name;
  }
}

TEST_F(Command, DumpsOfTheExamplesAreGolden) {
  for (const char* const name : {"rf_board", "detector"}) {
    const Outcome result = run({"dump", QString(name) + ".bin"});
    EXPECT_TRUE(VelkTest::isGolden(std::string(name) + ".dump.txt", result.output));
  }
}

TEST_F(Command, DumpSaysWhatIsWrongBelowTheBytes) {
  struct Damage {
    const char* image;
    std::vector<std::pair<qsizetype, QByteArray>> bytes;
    const char* expected;  // some consecutive lines
  };
  const Damage damages[] = {
      {"rf_board.bin",
       {{20, "\x8B"}},
       "0x00000004  30 F4                    u16   header.checksum       0xF430\n"
       "            error: checksum is 0xF430, the bytes give 0xF42F [wrong-checksum]\n"},
      {"rf_board.bin",
       {{30, "\x1B[2J\x9B"}},
       "0x0000001E  1B 5B 32 4A 9B 41 52 44  text  name                  \"\\u001b[2J\\u009bARD\"\n"},
      {"dac_board.bin",
       {{0x110, QByteArray("\x63", 1)}},
       "            warning: count: 99 is more than the 26 that values has room for\n"
       "            [impossible-count]\n"},
      {"detector.bin",
       {{0x64, QByteArray("\x01", 1)}},
       "0x00000034  3F 94 FF FB              u32   header.crc            0xFBFF943F\n"
       "            error: CRC-32 is "},
      {"detector.bin", {{0x240, QByteArray("\x01", 1)}}, "warning: checksum is "},
  };
  for (const Damage& damage : damages) {
    QByteArray image = exampleImage(damage.image);
    for (const auto& [offset, bytes] : damage.bytes) image.replace(offset, bytes.size(), bytes);
    const Outcome result = run({"dump", "-"}, image);
    EXPECT_NE(result.output.find(damage.expected), std::string::npos)
        << damage.expected << result.output.substr(0, 4000);
    EXPECT_EQ(faultOfBytes(result.output, image), "") << damage.expected;
    EXPECT_EQ(result.exitCode, result.output.find("error: ") == std::string::npos ? 0 : 1) << damage.expected;
  }
}

TEST_F(Command, DumpReportsATableThatIsCutOffAtItsFirstValue) {
  QByteArray block = exampleImage("detector.bin").mid(0x2C, 196);
  block[14] = '\xFF';
  Velk::sealBlock(Velk::mutableBytesOf(block), Velk::BlockKind::SecondEdition);
  const Outcome result = run({"dump", "-"}, block);
  EXPECT_EQ(result.exitCode, 0);
  const std::string expected =
      "0x0000000E  FF 00                    u16   tables[0].rows        255\n"
      "            warning: tables[0] is not there whole: it claims 255 rows and 3\n"
      "            columns [incomplete-table]\n";
  EXPECT_NE(result.output.find(expected), std::string::npos) << result.output.substr(0, 2000);
  EXPECT_EQ(faultOfBytes(result.output, block), "");
}

TEST_F(Command, DumpKeepsToTheWidthOfATerminal) {
  const QString script = R"(
import fcntl, os, pty, struct, sys, termios
child, terminal = pty.fork()
if child == 0:
    fcntl.ioctl(1, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 60, 0, 0))
    os.execv(sys.argv[1], [sys.argv[1], "dump", "--color", "never", "--id", "IDENT_2", "rf_board.bin"])
try:
    while output := os.read(terminal, 4096):
        os.write(1, output.replace(b"\r\n", b"\n"))
except OSError:  # the terminal is closed
    pass
)";
  const Outcome result = run({"-c", script, VELK_COMMAND}, {}, VELK_PYTHON);
  std::istringstream lines(result.output);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 60U) << line;
  EXPECT_NE(result.output.find("  1141.1000.02\n"), std::string::npos) << result.output;
  EXPECT_EQ(faultOfBytes(result.output, exampleImage("rf_board.bin").left(44)), "");
}

TEST_F(Command, DumpHasWhatConcernsSeveralBlocksAtOneOfThem) {
  // The ident blocks of both modules, and none.
  const QByteArray two = exampleImage("rf_board.bin").left(44) + exampleImage("dac_board.bin").left(44);
  const Outcome result = run({"dump", "-"}, two);
  const std::size_t second = result.output.find("\n0x0000002C  IDENT_2");
  const std::size_t remark = result.output.find("            warning: ");
  EXPECT_NE(second, std::string::npos) << result.output;
  EXPECT_NE(remark, std::string::npos) << result.output;
  const Outcome none = run({"dump", "-"}, exampleImage("rf_board.bin").mid(88));
  EXPECT_NE(none.output.find("\n\nwarning: "), std::string::npos) << none.output;
}

TEST_F(Command, DumpShowsTheBlocksThatAreAskedFor) {
  const Outcome one = run({"dump", "--id", "IDENT_*", "--nth", "1", "rf_board.bin", "dac_board.bin"});
  EXPECT_EQ(one.exitCode, 0);
  EXPECT_TRUE(one.output.starts_with("rf_board.bin:\n\n0x00000000  IDENT_2, id 2, old-style, 44 bytes: sound\n"));
  EXPECT_NE(one.output.find("\n\ndac_board.bin:\n\n0x00000000  IDENT_2"), std::string::npos);
  EXPECT_EQ(one.output.find("erased"), std::string::npos);
  const Outcome none = run({"dump", "--id", "77", "rf_board.bin"});
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_EQ(none.errors, "velk: rf_board.bin: has no block of id 77\n");
  const Outcome mixed = run({"dump", "nowhere.bin", "rf_board.bin"});
  EXPECT_EQ(mixed.exitCode, 3);
  EXPECT_NE(mixed.output.find("rf_board.bin:\n"), std::string::npos);
  EXPECT_EQ(run({"dump", "-"}, "").exitCode, run({"print", "-"}, "").exitCode);
}

}  // namespace
