// Blocks are added, copied and removed.
#include "CommandSupport.h"

namespace {

using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

class Blocks : public Command {
 protected:
  QString out(const char* name = "out.bin") { return directory_.filePath(name); }
  static std::string listed(const QString& image) {
    std::string ids;
    for (const QString& line : QString::fromStdString(run({"list", image}).output).split('\n').mid(1)) {
      ids += line.mid(12, 7).trimmed().toStdString() + ' ';
    }
    return ids;
  }
};

TEST_F(Blocks, AreRemovedAddedAndCopied) {
  const Outcome removed = run({"remove", "rf_board.bin", "--id", "IDENT_10", "-o", out()});
  EXPECT_EQ(removed.exitCode, 0) << removed.errors;
  EXPECT_EQ(removed.output, "IDENT_10: 44 bytes removed at offset 0x0000002C\n");
  EXPECT_EQ(listed(out()), "2 4242 65535  ");
  const Outcome added =
      run({"add", out(), "--from", "rf_board.bin", "--id", "IDENT_10", "--before", "ID_4242", "-o", out("back.bin")});
  EXPECT_EQ(added.exitCode, 0) << added.errors;
  EXPECT_EQ(added.output, "IDENT_10: 44 bytes added at offset 0x0000002C\n");
  EXPECT_EQ(run({"diff", out("back.bin"), "rf_board.bin"}).exitCode, 0);
  EXPECT_EQ(run({"add", out(), "--from", "synthesizer.bin", "--id", "200", "--in-place"}).exitCode, 0);
  EXPECT_EQ(run({"copy", out(), "--id", "200", "--as", "205", "--in-place"}).output,
            "SERVICE_205: 24 bytes added at offset 0x0000005A\n");
  EXPECT_EQ(listed(out()), "2 4242 200 205 65535  ");
  EXPECT_EQ(run({"check", out()}).exitCode, 0);
  EXPECT_EQ(run({"get", out(), "205.OPHOURS"}).output, "00000/001234\n");
}

TEST_F(Blocks, StayWhereAChangeIsImpossible) {
  const QByteArray full = VelkTest::exampleImage("rf_board.bin").left(120);
  QByteArray damaged = VelkTest::exampleImage("rf_board.bin");
  damaged[50] = static_cast<char>(damaged[50] ^ 1);
  struct Case {
    QStringList arguments;
    int exitCode;
    const char* complaint;
  };
  const Case cases[] = {
      {{"add", file("full.bin", full), "--from", "rf_board.bin", "--id", "2"},
       1,
       "has no room: 38 bytes are missing after the end block"},
      {{"add", "rf_board.bin", "--from", file("damaged.bin", damaged), "--id", "10"}, 1, "id 10: wrong checksum;"},
      {{"add", "rf_board.bin", "--from", "missing.bin", "--id", "10"}, 3, "missing.bin: No such file"},
      {{"remove", file("damaged.bin", damaged), "--id", "2"}, 1, "wrong checksum; what follows it cannot be moved"},
      {{"remove", file("damaged.bin", damaged), "--id", "10"}, 1, "wrong checksum, use --force"},
      {{"remove", "rf_board.bin", "--id", "END"}, 2, "the end block cannot be removed"},
      {{"add", "rf_board.bin", "--from", "synthesizer.bin", "--id", "END", "--before", "10"},
       2,
       "the end block cannot be added"},
      {{"remove", "rf_board.bin", "--id", "HwDatablockIdent"}, 1, "has 2 blocks HwDatablockIdent"},
      {{"copy", "rf_board.bin", "--id", "2", "--as", "200"}, 2, "blocks of id 200 have another layout"},
      {{"copy", "rf_board.bin", "--id", "2", "--as", "70000"}, 2, "70000 is out of range"},
  };
  for (const Case& each : cases) {
    const Outcome result = run(each.arguments + QStringList{"-o", out()});
    EXPECT_EQ(result.exitCode, each.exitCode) << each.complaint;
    EXPECT_NE(result.errors.find(each.complaint), std::string::npos) << each.complaint << "\n" << result.errors;
    EXPECT_FALSE(QFile::exists(out())) << each.complaint;
  }
}

}  // namespace
