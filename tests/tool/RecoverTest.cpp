#include "CommandSupport.h"

namespace {

using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

class Recover : public Command {
 protected:
  QString out() { return directory_.filePath("clean.bin"); }
  QByteArray written() { return QByteArray::fromStdString(VelkTest::readFile(out().toStdString())); }
};

TEST_F(Recover, MergesTwoReadsOfAMemory) {
  const Outcome result = run({"recover", "first_read.dump", "second_read.dump", "-o", out()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_TRUE(written() == VelkTest::exampleImage("dac_board.bin"));
  EXPECT_NE(result.output.find("first_read.dump: "), std::string::npos) << result.output;
  EXPECT_NE(result.output.find("are sound in another dump"), std::string::npos) << result.output;
}

TEST_F(Recover, ReportsWhatIsLost) {
  const Outcome result = run({"recover", "erased_page.dump", "-o", out()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.errors.find("bytes are sound in no dump"), std::string::npos) << result.errors;
  const Outcome check = run({"check", out()});
  EXPECT_EQ(check.exitCode, 0) << check.output;
  EXPECT_EQ(written().size(), 2048);
}

TEST_F(Recover, KeepsSectors) {
  const Outcome result = run({"recover", "flash.dump", "--sector-size", "auto", "-o", out()});
  EXPECT_EQ(result.exitCode, 1) << "the boot text is no block";
  const QByteArray image = written();
  EXPECT_EQ(image.size(), 4096);
  EXPECT_TRUE(image.left(1024) == VelkTest::exampleImage("rf_board.bin"));
  EXPECT_TRUE(image.mid(2048, 1024) == VelkTest::exampleImage("dac_board.bin"));
}

TEST_F(Recover, AsksWhichDumpIsRight) {
  const QString other = directory_.filePath("other.bin");
  run({"set", "rf_board.bin", "--id", "2", "serialNumber=7", "-o", other});
  const Outcome undecided = run({"recover", "rf_board.bin", other, "-o", out()});
  EXPECT_EQ(undecided.exitCode, 1);
  EXPECT_NE(undecided.errors.find("serialNumber: 100234 -> 7"), std::string::npos) << undecided.errors;
  EXPECT_FALSE(QFile::exists(out()));
  EXPECT_EQ(run({"recover", "rf_board.bin", other, "--prefer", other, "-o", out()}).exitCode, 0);
  EXPECT_TRUE(written() == QByteArray::fromStdString(VelkTest::readFile(other.toStdString())));
}

TEST_F(Recover, RefusesWhatWouldLoseSomething) {
  const QString dump = file("dump.bin", VelkTest::exampleImage("rf_board.bin"));
  struct Case {
    QStringList arguments;
    int exitCode;
    const char* complaint;
  };
  const Case cases[] = {
      {{"-o", dump}, 2, "would be overwritten\n"},
      {{"-o", out(), "--size", "100"}, 1, "need 110 bytes, 10 more than there are"},
      {{"-o", out(), "--prefer", "x"}, 2, "--prefer: x is not one of the dumps"},
      {{"-o", out(), "missing.bin"}, 3, "missing.bin: No such file"},
      {{}, 2, "--output OUT is missing"},
  };
  for (const Case& expected : cases) {
    const Outcome result = run(QStringList{"recover", dump} + expected.arguments);
    EXPECT_EQ(result.exitCode, expected.exitCode) << expected.complaint;
    EXPECT_NE(result.errors.find(expected.complaint), std::string::npos) << result.errors;
    EXPECT_EQ(result.output, "");
    EXPECT_FALSE(QFile::exists(out()));
  }
  const Outcome empty = run({"recover", file("zeros.bin", QByteArray(64, '\0')), "-o", out()});
  EXPECT_EQ(empty.exitCode, 1);
  EXPECT_NE(empty.errors.find("has no sound block; nothing is written"), std::string::npos) << empty.errors;
}

TEST_F(Recover, GivesSmallerAndLargerMemories) {
  EXPECT_EQ(run({"recover", "rf_board.bin", "--size", "0x100", "-o", out()}).exitCode, 0);
  EXPECT_TRUE(written() == VelkTest::exampleImage("rf_board.bin").left(256));
  EXPECT_EQ(run({"recover", "rf_board.bin", "--size", "2048", "-o", out()}).exitCode, 0);
  EXPECT_EQ(written().size(), 2048);
}

}  // namespace
