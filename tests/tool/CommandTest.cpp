#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include "TestSupport.h"

namespace {

struct Outcome {
  int exitCode;
  std::string output;
  std::string errors;
};

Outcome run(const QStringList& arguments, const QByteArray& input = {}, const char* program = VELK_COMMAND) {
  QProcess process;
  process.setWorkingDirectory(VELK_SOURCE_DIR "/examples/images");
  process.start(program, arguments);
  process.write(input);
  process.closeWriteChannel();
  EXPECT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  return {process.exitCode(), process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

QByteArray rfBoard() {
  return QByteArray::fromStdString(VelkTest::readFile(VELK_SOURCE_DIR "/examples/images/rf_board.bin"));
}

class Command : public testing::Test {
 protected:
  QString file(const char* name, const QByteArray& bytes) {
    QString path = directory_.filePath(name);
    QFile out(path);
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
    return path;
  }

  QTemporaryDir directory_;
};

QStringList exampleImages() { return QDir(VELK_SOURCE_DIR "/examples/images").entryList({"*.bin"}); }

std::string exampleFile(const QString& name) {
  return VelkTest::readFile(VELK_SOURCE_DIR "/examples/images/" + name.toStdString());
}

TEST_F(Command, ExamplesAreWhatTheirProgramMakes) {
  ASSERT_EQ(run({directory_.path()}, {}, VELK_MAKE_IMAGES).exitCode, 0);
  EXPECT_EQ(QDir(directory_.path()).entryList({"*.bin"}), exampleImages());
  for (const QString& name : exampleImages()) {
    EXPECT_EQ(VelkTest::readFile(directory_.filePath(name).toStdString()), exampleFile(name)) << name.toStdString();
  }
}

TEST_F(Command, GoldenTextsOfTheExamples) {
  for (const QString& name : exampleImages()) {
    for (const char* const verb : {"list", "check", "print"}) {
      const Outcome result = run({verb, name});
      EXPECT_EQ(result.exitCode, 0) << name.toStdString();
      EXPECT_EQ(result.errors, "");
      const std::string expected = QFileInfo(name).baseName().toStdString() + '.' + verb + ".txt";
      EXPECT_EQ(result.output, VelkTest::golden(expected, result.output));
      const QByteArray image = QByteArray::fromStdString(exampleFile(name));
      EXPECT_EQ(run({verb, "-"}, image).output, result.output) << "standard input is like a file";
    }
  }
  const Outcome ids = run({"ids"});
  EXPECT_EQ(ids.exitCode, 0);
  EXPECT_EQ(ids.output, VelkTest::golden("ids.txt", ids.output));
}

TEST_F(Command, DamageIsToldAndPrintedAllTheSame) {
  QByteArray damaged = rfBoard();
  damaged[20] = static_cast<char>(damaged[20] ^ 1);
  const QString path = file("damaged.bin", damaged);
  const std::string complaint =
      "velk: " + path.toStdString() + ": offset 0x00000000, id 2: checksum is 0xF430, the bytes give 0xF42F\n";
  const Outcome print = run({"print", "--id", "2", path});
  EXPECT_EQ(print.exitCode, 1);
  EXPECT_EQ(print.errors, complaint);
  EXPECT_NE(print.output.find("SN:              100235\n"), std::string::npos);
  EXPECT_EQ(run({"print", "--id", "10", path}).exitCode, 0) << "only the asked blocks count";
  EXPECT_EQ(run({"list", path}).errors, complaint);
  const Outcome check = run({"check", path});
  EXPECT_EQ(check.exitCode, 1);
  EXPECT_EQ(check.errors, "");
  EXPECT_NE(check.output.find("IDENT_2: wrong checksum; checksum is 0xF430, the bytes give 0xF42F\n"),
            std::string::npos);
}

TEST_F(Command, RemarksCountForCheckOnly) {
  QByteArray image = VelkTest::fromHex("02 00 0A 00 F4 FF 00 00 00 00 FF FF 00 00");
  const QString path = file("remark.bin", image);
  EXPECT_EQ(run({"list", path}).exitCode, 0);
  const Outcome check = run({"check", path});
  EXPECT_EQ(check.exitCode, 1);
  EXPECT_NE(check.output.find("IDENT_2: sound; size 10, blocks of this id have 44\n"), std::string::npos);
}

TEST_F(Command, ManyFilesAndTheWorstOfThem) {
  const Outcome result = run({"list", "rf_board.bin", "missing.bin", "rf_board.bin"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.errors, "velk: missing.bin: No such file or directory\n");
  const std::string heading = "rf_board.bin:\n";
  EXPECT_EQ(result.output.find(heading), 0U);
  EXPECT_EQ(result.output.substr(0, result.output.size() / 2), result.output.substr(result.output.size() / 2));
  EXPECT_EQ(run({"check", file("empty.bin", {})}).exitCode, 0);
}

TEST_F(Command, WrongUsageIsNoFinding) {
  EXPECT_EQ(run({}).exitCode, 2);
  EXPECT_EQ(run({"list"}).exitCode, 2);
  EXPECT_EQ(run({"frobnicate"}).exitCode, 2);
  EXPECT_EQ(run({"print", "--id", "65536", "rf_board.bin"}).exitCode, 2);
  EXPECT_EQ(run({"print", "--id", "x", "rf_board.bin"}).exitCode, 2);
  for (const QStringList& arguments : {QStringList{"--help"}, {"list", "--help"}, {"--version"}}) {
    const Outcome result = run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.output, "");
  }
}

}  // namespace
