// The forms in which an image comes, and where in it the walk begins: the same for every subcommand.
#include "CommandSupport.h"
#include "velk/containers/ImageFile.h"

namespace {

using VelkTest::Command;
using VelkTest::exampleImage;
using VelkTest::Outcome;
using VelkTest::run;

/// The sections of an object file tool, as an opinion on both containers that is not ours.
QByteArray converted(const QString& from, const QString& to, const char* format) {
  const Outcome result = run({"-I", "binary", "-O", format, from, to}, {}, "objcopy");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  return QByteArray::fromStdString(VelkTest::readFile(to.toStdString()));
}

/// What was said on standard error, but for the file's name.
std::string complaints(const Outcome& outcome, const QString& file) {
  return QString::fromStdString(outcome.errors).replace(file, "FILE").toStdString();
}

void expectSameTexts(const QStringList& first, const QStringList& second) {
  for (const char* const verb : {"list", "check", "print"}) {
    const Outcome one = run(QStringList{verb} + first);
    const Outcome other = run(QStringList{verb} + second);
    EXPECT_TRUE(VelkTest::isSameText(one.output, other.output));
    EXPECT_EQ(one.exitCode, other.exitCode);
    EXPECT_EQ(complaints(one, first.last()), complaints(other, second.last()));
  }
}

class Inputs : public Command {};

TEST_F(Inputs, EveryFormOfAnImageIsTheSameImage) {
  for (const QString& name : VelkTest::exampleImages()) {
    SCOPED_TRACE(name.toStdString());
    for (const char* const format : {"ihex", "srec"}) {
      const QString path = directory_.filePath(name + '.' + format);
      const QByteArray theirs = converted(name, path, format);
      expectSameTexts({name}, {path});
      const Velk::ImageFile image = Velk::decodeImage(theirs);
      EXPECT_TRUE(image.bytes == exampleImage(name));
      EXPECT_EQ(image.gaps.size(), 0U);
      const QByteArray ours = Velk::encodeImage(image);
      // Beyond that the other tool writes segments of 64 KiB, where ours are linear addresses.
      if (image.bytes.size() <= 0x10000 || image.container == Velk::Container::SRecord) {
        EXPECT_TRUE(VelkTest::isSameText(ours.toStdString(), theirs.toStdString())) << "written as it was read";
      }
      EXPECT_TRUE(Velk::decodeImage(ours).bytes == image.bytes);
      EXPECT_EQ(run({"list", "-"}, theirs).output, run({"list", name}).output);
    }
  }
}

TEST_F(Inputs, StandardInputIsReadOnce) {
  EXPECT_EQ(run({"list", "-", "rf_board.bin", "-"}, exampleImage("rf_board.bin")).exitCode, 2);
}

TEST_F(Inputs, NumbersAreDecimalOrBehind0x) {
  EXPECT_EQ(run({"print", "--id", "010", "rf_board.bin"}).output, run({"print", "--id", "10", "rf_board.bin"}).output);
  EXPECT_EQ(run({"print", "--id", "0xA", "rf_board.bin"}).exitCode, 0);
  EXPECT_EQ(run({"list", "--offset", "0044", "rf_board.bin"}).output,
            run({"list", "--offset", "0x2c", "rf_board.bin"}).output);
  for (const char* const wrong : {"", "1x", "-1", "65536", "0x"}) {
    EXPECT_EQ(run({"print", "--id", wrong, "rf_board.bin"}).exitCode, 2) << wrong;
  }
}

TEST_F(Inputs, EveryBlockThatIsAskedForAndMissingIsTold) {
  const Outcome some = run({"print", "--id", "2", "--id", "77", "--id", "78", "rf_board.bin"});
  EXPECT_EQ(some.exitCode, 1);
  EXPECT_EQ(some.output, run({"print", "--id", "2", "rf_board.bin"}).output);
  EXPECT_EQ(some.errors, "velk: rf_board.bin: has no block of id 77\nvelk: rf_board.bin: has no block of id 78\n");
  EXPECT_EQ(run({"export", "--id", "13600", "rf_board.bin", "dac_board.bin"}).exitCode, 0) << "one of them has it";
  EXPECT_EQ(run({"export", "--id", "77", "rf_board.bin", "dac_board.bin"}).errors,
            "velk: no file has a block of id 77\n");
  EXPECT_EQ(run({"print", "--nth", "2", "rf_board.bin"}).errors, "velk: rf_board.bin: has no block no. 2 of any id\n");
}

TEST_F(Inputs, FilesTooLargeForAMemoryAreRefused) {
  QFile large(file("large.bin", {}));
  ASSERT_TRUE(large.resize(1024 * 1024 * 1024));
  const Outcome result = run({"list", large.fileName()});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_NE(result.errors.find(": File too large\n"), std::string::npos) << result.errors;
}

TEST_F(Inputs, NamesInBracketsAreNamesOfFiles) {
  file("[board]", exampleImage("rf_board.bin"));
  const Outcome result = run({"-C", directory_.path(), VELK_COMMAND, "list", "[board]"}, {}, "env");
  EXPECT_EQ(result.output, run({"list", "rf_board.bin"}).output) << result.errors;
}

TEST_F(Inputs, TheFormIsToldByTheContentsOrByHand) {
  const QByteArray image = exampleImage("rf_board.bin");
  const QString path = file("image.txt", Velk::encodeImage({.bytes = image, .container = Velk::Container::IntelHex}));
  EXPECT_EQ(run({"list", path}).exitCode, 0);
  EXPECT_EQ(run({"list", "--input", "hex", path}).exitCode, 0);
  EXPECT_EQ(run({"list", "--input", "raw", path}).exitCode, 1) << "text is no datablock";
  const Outcome wrong = run({"list", "--input", "srec", path});
  EXPECT_EQ(wrong.exitCode, 3);
  EXPECT_EQ(wrong.errors, "velk: " + path.toStdString() + ": line 1: no S and digit at its start\n");
  EXPECT_EQ(run({"list", "--input", "elf", path}).exitCode, 2);
}

TEST_F(Inputs, GapsAreToldAndErased) {
  // The end block, and erased memory far after it.
  const QString path = file("gap.s19", QByteArray("S1070100FFFF0000F9\nS1070200FFFFFFFFFA\nS9030000FC\n"));
  const Outcome result = run({"check", path});
  EXPECT_EQ(result.exitCode, 0) << "a gap is no damage";
  EXPECT_EQ(result.errors,
            "velk: " + path.toStdString() + ": offset 0x00000004: 252 bytes are not in the file, taken as erased\n");
  EXPECT_EQ(result.output, "0x00000000  END: sound\n");
}

TEST_F(Inputs, DoubtsAboutAFileCount) {
  const QString cut = file("cut.s19", "S1070100FFFF0000F9\n");
  for (const char* const verb : {"list", "check", "print"}) {
    const Outcome result = run({verb, cut});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "velk: " + cut.toStdString() + ": has no end record; it may have been cut\n");
    EXPECT_NE(result.output, "");
  }
}

TEST_F(Inputs, TheWalkBeginsAtTheOffsetInEveryForm) {
  const QByteArray image = QByteArray(48, 'x') + exampleImage("rf_board.bin");
  const QString raw = file("raw", image);
  const QString hex = file("hex", Velk::encodeImage({.bytes = image, .container = Velk::Container::IntelHex}));
  expectSameTexts({"--offset", "48", raw}, {"--offset", "0x30", hex});
  EXPECT_EQ(run({"print", "--id", "2", "--offset", "48", raw}).output,
            run({"print", "--id", "2", "rf_board.bin"}).output);
  const Outcome outside = run({"list", "--offset", "0x10000", raw});
  EXPECT_EQ(outside.exitCode, 2);
  EXPECT_EQ(outside.errors,
            "velk: " + raw.toStdString() + ": offset 0x00010000 is past the end of the image, which has 1072 bytes\n");
  for (const char* const wrong : {"x", "-1", "0x", "1k", "", "99999999999999999999"}) {
    EXPECT_EQ(run({"list", "--offset", wrong, raw}).exitCode, 2) << wrong;
  }
}

TEST_F(Inputs, AFlashDumpIsWalkedSectorBySector) {
  const QByteArray sector = exampleImage("rf_board.bin");
  const QByteArray flash = sector + QByteArray(sector.size(), '\xFF') + sector;
  const QString path = file("flash", flash);
  const Outcome whole = run({"check", path});
  EXPECT_EQ(whole.exitCode, 0) << "blocks after an end block and erased memory prove themselves";
  EXPECT_EQ(whole.errors, "velk: " + path.toStdString() +
                              ": looks like a flash memory; --sector-size 0x800 or auto walks it sector by sector\n");
  const Outcome result = run({"check", "--sector-size", "0x400", path});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(
      result.output,
      "0x00000000  IDENT_2: sound\n0x0000002C  IDENT_10: sound\n0x00000058  ID_4242: sound\n0x0000006E  END: sound\n"
      "0x00000400  END: sound\n"
      "0x00000800  IDENT_2: sound\n0x0000082C  IDENT_10: sound\n0x00000858  ID_4242: sound\n0x0000086E  END: sound\n");
  const Outcome byItself = run({"check", "--sector-size", "auto", path});
  EXPECT_EQ(byItself.output, run({"check", "--sector-size", "0x800", path}).output);
  EXPECT_EQ(byItself.errors, "");
  EXPECT_EQ(run({"list", "--sector-size", "automatic", path}).exitCode, 2);
}

}  // namespace
