#include "CommandSupport.h"
#include "velk/containers/ImageFile.h"

namespace {

using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

class EditCommand : public Command {
 protected:
  QString out(const char* name = "out") { return directory_.filePath(name); }
  QString copyOf(const char* image) { return file(image, VelkTest::exampleImage(image)); }
  static QByteArray read(const QString& path) {
    return QByteArray::fromStdString(VelkTest::readFile(path.toStdString()));
  }
};

TEST_F(EditCommand, SetsFieldsAndDiffTellsThem) {
  const Outcome set = run({"set", "rf_board.bin", "--id", "2", "serialNumber=123456", "name=RF board",
                           "productDate=2020-02-29", "-o", out()});
  EXPECT_EQ(set.exitCode, 0) << set.errors;
  EXPECT_EQ(set.output,
            "IDENT_2 serialNumber: 100234 -> 123456\nIDENT_2 name: \"RF-BOARD\" -> \"RF board\"\n"
            "IDENT_2 productDate: 2017-03-15 -> 2020-02-29\n");
  EXPECT_EQ(run({"check", out()}).exitCode, 0);
  const Outcome diff = run({"diff", "rf_board.bin", out()});
  EXPECT_EQ(diff.exitCode, 1);
  EXPECT_EQ(diff.output,
            "IDENT_2 (id 2):\n  serialNumber: 100234 -> 123456\n  productDate: 2017-03-15 -> 2020-02-29\n"
            "  name: \"RF-BOARD\" -> \"RF board\"\n");
  EXPECT_EQ(
      run({"set", out(), "--id", "2", "serialNumber=100234", "name=RF-BOARD", "productDate=2017-03-15", "--in-place"})
          .exitCode,
      0);
  const Outcome same = run({"diff", "rf_board.bin", out()});
  EXPECT_EQ(same.exitCode, 0);
  EXPECT_EQ(same.output, "");
}

TEST_F(EditCommand, TakesWhatPrintShowsAndEchoesBothForms) {
  struct Case {
    QStringList arguments;
    const char* output;
  };
  const Case cases[] = {
      {{"rf_board.bin", "--id", "IDENT_2", "SN=123456", "PARTNUMBER=1141.2000.03", "PRODUCTINDEX=13.00"},
       "IDENT_2 serialNumber: 100234 -> 123456\n"
       "IDENT_2 partNumber: 1141.1000.02 -> 1141.2000.03 (11411000 -> 11412000)\n"
       "IDENT_2 productIndex: 12.34 -> 13.00 (1234 -> 1300)\n"},
      {{"rf_board.bin", "--id", "2", "partNumber=11412000"},
       "IDENT_2 partNumber: 1141.1000.02 -> 1141.2000.02 (11411000 -> 11412000)\n"},
      {{"mainboard.bin", "--id", "MBRD_MAC", "mac=00:90:b8:12:34:56"},
       "MBRD_MAC mac: 02:00:5E:10:20:30 -> 00:90:B8:12:34:56\n"},
  };
  for (const Case& each : cases) {
    const Outcome set = run(QStringList{"set"} + each.arguments + QStringList{"-o", out()});
    EXPECT_EQ(set.exitCode, 0) << set.errors;
    EXPECT_EQ(set.output, each.output);
    EXPECT_EQ(run({"check", out()}).exitCode, 0);
  }
  const Outcome twice = run({"set", "rf_board.bin", "--id", "HwDatablockIdent", "SN=1", "-o", out("no")});
  EXPECT_EQ(
      twice.errors,
      "velk: rf_board.bin: has 2 blocks HwDatablockIdent; use --id with one of their names; nothing is changed\n");
}

TEST_F(EditCommand, StandardOutputTakesTheImageAndNothingElse) {
  run({"set", "rf_board.bin", "--id", "2", "name=a\"b\nc", "serialNumber=1", "-o", out()});
  const Outcome piped = run({"set", "rf_board.bin", "--id", "2", "name=a\"b\nc", "serialNumber=1", "-o", "-"});
  EXPECT_EQ(piped.exitCode, 0);
  EXPECT_TRUE(QByteArray::fromStdString(piped.output) == read(out()));
  EXPECT_EQ(piped.errors,
            "velk: rf_board.bin: IDENT_2 name: \"RF-BOARD\" -> \"a\\\"b\\nc\"\n"
            "velk: rf_board.bin: IDENT_2 serialNumber: 100234 -> 1\n");
}

TEST_F(EditCommand, SecondEditionBlocksKeepBothTheirChecks) {
  EXPECT_EQ(run({"set", "detector.bin", "--id", "1041", "tables[0].cells[0][11]=99.96", "tables[0].rowIds[0]=ABC", "-o",
                 out()})
                .output,
            "ID_1041 tables[0].cells[0][11]: -12.3 -> 100\nID_1041 tables[0].rowIds[0]: \"LEAST\" -> \"ABC\"\n");
  EXPECT_EQ(run({"set", out(), "--id", "1042", "bytes[3]=200", "--in-place"}).exitCode, 0);
  EXPECT_EQ(run({"set", out(), "--id", "1041", "--stored", "tables[0].cells[0][12]=-1", "--in-place"}).exitCode, 0);
  EXPECT_EQ(run({"check", out()}).exitCode, 0);
  EXPECT_EQ(run({"diff", "detector.bin", out()}).output,
            "ID_1041 (id 1041):\n  tables[0].rowIds[0]: \"LEAST\" -> \"ABC\"\n  tables[0].cells[0][11]: -12.3 -> 100\n"
            "  tables[0].cells[0][12]: -1.23 -> -0.01\nID_1042 (id 1042):\n  bytes[3]: 0 -> 200\n");
}

TEST_F(EditCommand, ChangesNothingWhereItRefuses) {
  const QString image = copyOf("rf_board.bin");
  QByteArray twice = VelkTest::exampleImage("rf_board.bin").left(44);
  twice += twice;
  QByteArray damaged = VelkTest::exampleImage("rf_board.bin");
  damaged[21] = static_cast<char>(damaged[21] ^ 1);
  const QString two = file("two.bin", twice);
  const QString broken = file("broken.bin", damaged);
  struct Case {
    QStringList arguments;
    int exitCode;
    const char* complaint;
  };
  const Case cases[] = {
      {{image, "--id", "2", "serialNumber=1", "serialNumer=1"},
       2,
       "no field \"serialNumer\"; the nearest is serialNumber; nothing is changed"},
      {{image, "--id", "2", "serialNumber=4294967296"}, 2, "serialNumber: 4294967296 is out of range: 0 to 4294967295"},
      {{image, "--id", "2", "serialNumber"}, 2, "\"serialNumber\" is not of the form name=value"},
      {{image, "--id", "3", "serialNumber=1"}, 1, "has no block of id 3"},
      {{image, "--id", "2", "--nth", "2", "serialNumber=1"}, 1, "has no block no. 2 of id 2"},
      {{two, "--id", "2", "serialNumber=1"}, 1, "has 2 blocks of id 2; use --nth to choose one"},
      {{broken, "--id", "2", "serialNumber=1"}, 1, "wrong checksum, use --force to change it"},
      {{"-", "--id", "2", "serialNumber=1"}, 2, "standard input cannot be changed in place"},
      {{"/dev/stdin", "--id", "2", "serialNumber=1"}, 2, "cannot be changed in place"},
      {{"missing.bin", "--id", "2", "serialNumber=1"}, 3, "No such file"},
  };
  for (const Case& expected : cases) {
    const Outcome result = run(QStringList{"set"} + expected.arguments + QStringList{"--in-place"}, "");
    EXPECT_EQ(result.exitCode, expected.exitCode) << expected.complaint;
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors.find(expected.complaint), result.errors.npos) << result.errors;
  }
  EXPECT_EQ(read(image), VelkTest::exampleImage("rf_board.bin"));

  EXPECT_EQ(run({"set", two, "--id", "2", "--nth", "2", "serialNumber=1", "--in-place"}).exitCode, 0);
  EXPECT_EQ(read(two).left(44), twice.left(44));
  EXPECT_EQ(run({"set", broken, "--id", "2", "--force", "serialNumber=1", "--in-place"}).exitCode, 0);
  EXPECT_EQ(run({"check", broken}).exitCode, 0);
}

TEST_F(EditCommand, WritesWhereItIsTold) {
  const QString image = copyOf("rf_board.bin");
  EXPECT_EQ(run({"set", image, "--id", "2", "serialNumber=1"}).exitCode, 2) << "where to?";
  EXPECT_EQ(run({"set", image, "--id", "2", "serialNumber=1", "-o", image}).exitCode, 2);
  EXPECT_EQ(run({"set", image, "--id", "2", "serialNumber=1", "-o", out(), "--in-place"}).exitCode, 2);
  const Outcome unwritten = run({"set", image, "--id", "2", "serialNumber=1", "-o", "/dev/null/out"});
  EXPECT_EQ(unwritten.exitCode, 3);
  EXPECT_EQ(unwritten.output, "") << "nothing was changed";
  EXPECT_EQ(run({"set", image, "--id", "2", "--id", "10", "serialNumber=1", "-o", out()}).exitCode, 2);
  EXPECT_FALSE(QFile::exists(out()));
  EXPECT_EQ(read(image), VelkTest::exampleImage("rf_board.bin"));
}

TEST_F(EditCommand, KeepsTheContainerAndABackup) {
  Velk::ImageFile hex = Velk::readImageFile(VELK_SOURCE_DIR "/examples/images/rf_board.bin");
  hex.container = Velk::Container::SRecord;
  hex.address = 0x4000;
  const QString image = file("board.s19", Velk::encodeImage(hex));
  const QByteArray before = read(image);
  EXPECT_EQ(run({"set", image, "--id", "10", "name=X", "--in-place", "--backup"}).exitCode, 0);
  EXPECT_EQ(read(image + ".bak"), before);
  const Velk::ImageFile changed = Velk::readImageFile(image.toStdString());
  EXPECT_EQ(changed.container, Velk::Container::SRecord);
  EXPECT_EQ(changed.address, 0x4000U);
  EXPECT_EQ(run({"diff", image + ".bak", image}).output, "IDENT_10 (id 10):\n  name: \"FILTER\" -> \"X\"\n");
}

TEST_F(EditCommand, DiffShowsTheBytesOfValuesThatReadAlike) {
  QByteArray bytes = VelkTest::exampleImage("rf_board.bin");
  bytes[43] = 'x';
  EXPECT_EQ(run({"diff", "rf_board.bin", file("hidden.bin", bytes)}).output,
            "IDENT_2 (id 2):\n  name: \"RF-BOARD\" (52 46 2D 42 4F 41 52 44 00 00 00 00 00 00) -> \"RF-BOARD\" "
            "(52 46 2D 42 4F 41 52 44 00 00 00 00 00 78)\n");
}

TEST_F(EditCommand, DiffTellsBlocksThatComeAndGo) {
  QByteArray bytes = VelkTest::exampleImage("rf_board.bin");
  const QString longer = file("longer.bin", bytes.left(44) + bytes);
  EXPECT_EQ(run({"diff", "rf_board.bin", longer}).output,
            "added: IDENT_2 (id 2) no. 2, 44 bytes at offset 0x0000002C\n");
  EXPECT_EQ(run({"diff", longer, "rf_board.bin"}).output,
            "removed: IDENT_2 (id 2) no. 2, 44 bytes at offset 0x0000002C\n");
  bytes[34] = '*';
  const Outcome damaged = run({"diff", "rf_board.bin", file("damaged.bin", bytes)});
  EXPECT_EQ(damaged.output, "IDENT_2 (id 2):\n  name: \"RF-BOARD\" -> \"RF-B*ARD\"\n");
  EXPECT_NE(damaged.errors.find("checksum is"), damaged.errors.npos);
  EXPECT_EQ(run({"diff", "rf_board.bin"}).exitCode, 2);
  EXPECT_EQ(run({"diff", "-", "-"}).exitCode, 2);
  EXPECT_EQ(run({"diff", "rf_board.bin", "missing.bin"}).exitCode, 3);
}

TEST_F(EditCommand, RedactsInTheBytesAndOnTheWay) {
  const Outcome result = run({"redact", "rf_board.bin", "-o", out()});
  EXPECT_EQ(result.exitCode, 1) << "a block is left";
  EXPECT_EQ(result.output,
            "IDENT_2 at offset 0x00000000: serialNumber\nIDENT_2 at offset 0x00000000: name\n"
            "IDENT_10 at offset 0x0000002C: serialNumber\nIDENT_10 at offset 0x0000002C: name\n");
  EXPECT_NE(result.errors.find("id 4242: left as it is, since the meaning of its bytes is unknown"), result.errors.npos)
      << result.errors;
  EXPECT_EQ(run({"check", out()}).exitCode, 0);
  for (const char* const verb : {"print", "export"}) {
    const Outcome redacted = run({verb, "--redact", "rf_board.bin"});
    EXPECT_EQ(redacted.output.find("RF-BOARD"), redacted.output.npos);
    EXPECT_EQ(redacted.output.find("100234"), redacted.output.npos);
  }
  EXPECT_EQ(run({"print", "--redact", "rf_board.bin"}).output, run({"print", out()}).output);
  EXPECT_NE(run({"export", "--redact", "rf_board.bin"})
                .errors.find("id 4242: left as it is, since the meaning of its bytes is unknown"),
            std::string::npos);
  Velk::ImageFile records = Velk::readImageFile(VELK_SOURCE_DIR "/examples/images/rf_board.bin");
  records.container = Velk::Container::SRecord;
  records.details.header = "RF-BOARD 100234";
  EXPECT_EQ(run({"redact", file("board.s19", Velk::encodeImage(records)), "-o", out("public.s19")}).exitCode, 1);
  EXPECT_EQ(Velk::readImageFile(out("public.s19").toStdString()).details.header, "");
  EXPECT_EQ(run({"export", "--redact", "rf_board.bin"}).exitCode, 1);
  EXPECT_EQ(run({"export", "--redact", "--id", "2", "rf_board.bin"}).errors, "") << "of blocks that are shown";
  const Outcome mainboard = run({"redact", "mainboard.bin", "-o", out()});
  EXPECT_EQ(mainboard.exitCode, 0);
  for (const char* const taken : {"SERIAL_NUMBER", "MBRD_MAC at offset 0x00000060: mac\n"}) {
    EXPECT_NE(mainboard.output.find(taken), mainboard.output.npos) << mainboard.output;
  }
}

TEST_F(EditCommand, RedactWritesNothingThatItCouldNotLookInto) {
  const QByteArray board = VelkTest::exampleImage("rf_board.bin");
  // A damaged size makes one block of two, whose fields are those of the first.
  QByteArray swallowing = board.left(88);
  swallowing[3] = '\xF0';
  swallowing[64] = '\x01';
  QByteArray erasedHeader = VelkTest::exampleImage("mainboard.bin");
  erasedHeader.replace(0, 8, QByteArray(8, '\xFF'));
  Velk::ImageFile hex = Velk::readImageFile(VELK_SOURCE_DIR "/examples/images/mainboard.bin");
  hex.container = Velk::Container::IntelHex;
  const QByteArray lines = Velk::encodeImage(hex);
  const QStringList unseen[] = {
      {file("swallowed.bin", swallowing)},
      {file("header.bin", erasedHeader)},
      {file("text.bin", "serial number 100234, of the department of measurements, and so on and on" + board)},
      {file("cut.hex", lines.left(lines.lastIndexOf(':')))},
      {file("empty.bin", {})},
      {"mainboard.bin", "--offset", "44"},
      {file("unknown.bin", board.mid(88))},
  };
  for (const QStringList& arguments : unseen) {
    SCOPED_TRACE(arguments.join(' ').toStdString());
    const Outcome refused = run(QStringList{"redact", "-o", out()} + arguments);
    EXPECT_EQ(refused.exitCode, 3);
    EXPECT_EQ(refused.output, "");
    EXPECT_NE(refused.errors.find("nothing is written without --force"), std::string::npos) << refused.errors;
    EXPECT_FALSE(QFile::exists(out()));
    EXPECT_EQ(run(QStringList{"redact", "--force", "-o", out()} + arguments).exitCode, 1);
    EXPECT_TRUE(QFile::remove(out()));
  }
  const Outcome shown = run({"export", "--redact", unseen[2].front()});
  EXPECT_EQ(shown.exitCode, 1);
  EXPECT_EQ(shown.output.find("115, 101, 114, 105, 97, 108"), std::string::npos) << "the text as bytes";
  EXPECT_NE(shown.errors.find("bytes that cannot be interpreted are shown as zeros"), std::string::npos);
  const QString redacted = out("redacted");
  EXPECT_EQ(run({"redact", "mainboard.bin", "-o", redacted}).exitCode, 0);
  EXPECT_EQ(run({"redact", redacted, "-o", out()}).exitCode, 0) << "there is nothing left to take";
  EXPECT_EQ(read(out()), read(redacted));
}

}  // namespace
