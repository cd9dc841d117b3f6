// Images from one container into another, and the containers that edits write.
#include "CommandSupport.h"
#include "velk/containers/ImageFile.h"

namespace {

using VelkTest::Command;
using VelkTest::exampleImage;
using VelkTest::Outcome;
using VelkTest::readFile;
using VelkTest::run;

class Convert : public Command {
 protected:
  QString out(const QString& name) const { return directory_.filePath(name); }
  QByteArray written(const QString& name) const { return QByteArray::fromStdString(readFile(out(name).toStdString())); }
};

TEST_F(Convert, TheNameOfTheFileDecides) {
  const QByteArray image = exampleImage("rf_board.bin");
  for (const char* const name : {"board.hex", "board.s19", "board.bin"}) {
    EXPECT_EQ(run({"convert", "rf_board.bin", "-o", out(name)}).exitCode, 0);
    EXPECT_EQ(run({"convert", out(name), "-o", out("again.bin")}).exitCode, 0);
    EXPECT_TRUE(written("again.bin") == image) << name;
  }
  EXPECT_TRUE(written("board.hex").startsWith(':'));
  EXPECT_TRUE(written("board.s19").startsWith('S'));
  EXPECT_EQ(run({"convert", out("board.hex"), "--container", "srec", "-o", "-"}).output,
            run({"convert", "rf_board.bin", "--container", "srec", "-o", "-"}).output);
  EXPECT_TRUE(run({"convert", out("board.hex"), "-o", "-"}).output.starts_with(':'))
      << "the input's where no name says";
}

TEST_F(Convert, PartsAddressesAndLines) {
  const QByteArray image = exampleImage("rf_board.bin");
  EXPECT_EQ(run({"convert", "rf_board.bin", "--crop", "0x2c:88", "-o", out("part.bin")}).exitCode, 0);
  EXPECT_TRUE(written("part.bin") == image.mid(44, 44));
  EXPECT_EQ(run({"convert", "rf_board.bin", "--crop", "1000:", "--address", "0x8010000", "--record-length", "8", "-o",
                 out("part.hex")})
                .exitCode,
            0);
  EXPECT_TRUE(written("part.hex").startsWith(":020000040801F1\n:08000000"));
  const Velk::ImageFile part = Velk::readImageFile(out("part.hex").toStdString());
  EXPECT_TRUE(part.bytes == image.mid(1000));
  EXPECT_EQ(part.address, 0x8010000U);
  EXPECT_EQ(run({"convert", out("part.hex"), "--crop", ":2", "-o", "-"}).output,
            ":020000040801F1\n:02000000FFFF00\n:00000001FF\n");
  for (const QStringList& wrong : {QStringList{"--crop", "5:4"},
                                   {"--crop", "0:1025"},
                                   {"--crop", "5"},
                                   {"--crop", "x:"},
                                   {"--fill", "256"},
                                   {"--record-length", "0"},
                                   {"--address", "0x100000000"}}) {
    EXPECT_EQ(run(QStringList{"convert", "rf_board.bin", "-o", out("wrong.bin")} + wrong).exitCode, 2)
        << wrong[1].toStdString();
    EXPECT_FALSE(QFile::exists(out("wrong.bin")));
  }
}

TEST_F(Convert, GapsAndLostBytesStayOutUnlessTheyAreFilled) {
  const QString holes = file("holes.hex", ":0101000011ED\n:0101010022DC\n:0101030033C8\n:00000001FF\n");
  EXPECT_EQ(run({"convert", holes, "-o", out("clean.hex")}).exitCode, 1);
  EXPECT_EQ(written("clean.hex"), QByteArray(":0101000011ED\n:0101030033C8\n:00000001FF\n"));
  EXPECT_EQ(run({"convert", holes, "--fill", "0", "-o", out("filled.bin")}).exitCode, 1);
  EXPECT_EQ(written("filled.bin"), QByteArray("\x11\0\0\x33", 4));
}

TEST_F(Convert, AnEditWritesBackWhatItRead) {
  const QByteArray lines = "; log\r\n> " + Velk::encodeImage({.bytes = exampleImage("rf_board.bin"),
                                                              .container = Velk::Container::IntelHex});
  const QString log = file("log.hex", lines);
  EXPECT_EQ(run({"set", log, "--id", "2", "readCode=2", "-o", out("changed.hex")}).exitCode, 0);
  const QList<QByteArray> before = lines.split('\n');
  const QList<QByteArray> after = written("changed.hex").split('\n');
  ASSERT_EQ(before.size(), after.size());
  qsizetype changed = 0;
  for (qsizetype i = 0; i < before.size(); ++i) changed += before[i] != after[i] ? 1 : 0;
  EXPECT_EQ(changed, 2) << "the lines of the checksum and of the field";
}

TEST_F(Convert, AnEditOfADamagedFileNeedsAnotherContainer) {
  QByteArray lines = Velk::encodeImage({.bytes = exampleImage("rf_board.bin"), .container = Velk::Container::IntelHex});
  lines.replace(lines.indexOf("\n:1003F0") + 20, 1, "X");
  const QString damaged = file("damaged.hex", lines);
  const QStringList edit = {"set", damaged, "--id", "2", "readCode=2"};
  const Outcome refused = run(edit + QStringList{"-o", out("changed.hex")});
  EXPECT_EQ(refused.exitCode, 3);
  EXPECT_NE(refused.errors.find("line 64: not hexadecimal; nothing is written, use -o with a name such as new.bin, or "
                                "--container raw|hex|srec\n"),
            std::string::npos)
      << refused.errors;
  EXPECT_FALSE(QFile::exists(out("changed.hex")));
  EXPECT_EQ(run(edit + QStringList{"--in-place"}).exitCode, 3);
  EXPECT_EQ(readFile(damaged.toStdString()), lines.toStdString());
  EXPECT_EQ(run(edit + QStringList{"-o", out("changed.bin")}).exitCode, 1);
  EXPECT_EQ(written("changed.bin").size(), 1024);
  EXPECT_EQ(run(edit + QStringList{"-o", out("changed.hex"), "--container", "hex"}).exitCode, 1);
  EXPECT_EQ(Velk::readImageFile(out("changed.hex").toStdString()).findings.size(), 0U);
}

TEST_F(Convert, RedactionKeepsNoTextAroundRecords) {
  const QByteArray lines =
      Velk::encodeImage({.bytes = exampleImage("rf_board.bin"), .container = Velk::Container::IntelHex});
  const QString log = file("log.hex", "; SN 100234\n" + lines);
  EXPECT_EQ(run({"redact", log, "-o", out("public.hex")}).exitCode, 1);
  EXPECT_TRUE(written("public.hex").startsWith(':'));
}

}  // namespace
