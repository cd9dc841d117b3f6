#include <QFileInfo>

#include "CommandSupport.h"
#include "velk/containers/ImageFile.h"

namespace {

using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

QByteArray boardImage() { return VelkTest::exampleImage("rf_board_tables.bin"); }
QByteArray registersText() { return VelkTest::exampleImage("attenuator_registers.txt"); }

class TableCommand : public Command {
 protected:
  QString out() { return directory_.filePath("out"); }
  QByteArray written() {
    return QByteArray::fromStdString(QFileInfo::exists(out()) ? VelkTest::readFile(out().toStdString()) : "nothing");
  }
};

TEST_F(TableCommand, ExportWritesTheTextOfATable) {
  const Outcome exported = run({"table", "export", "rf_board_tables.bin", "--id", "15799"});
  EXPECT_EQ(exported.exitCode, 0);
  EXPECT_EQ(exported.errors, "");
  EXPECT_EQ(exported.output.size(), static_cast<std::size_t>(registersText().size()));
  EXPECT_NE(exported.output.find("    0xFFFFFFFF\n\n"), std::string::npos) << "the register that the text corrects";
  EXPECT_EQ(run({"table", "export", "-", "--id", "15799", "-o", out()}, boardImage()).exitCode, 0);
  EXPECT_EQ(written().toStdString(), exported.output);
}

TEST_F(TableCommand, ImportPutsATableInItsPlaceAndLeavesTheRest) {
  const Outcome imported = run({"table", "import", "rf_board_tables.bin", "attenuator_registers.txt", "-o", out()});
  EXPECT_EQ(imported.exitCode, 0);
  EXPECT_EQ(imported.errors, "");
  QByteArray expected = boardImage();
  // The last register of the table, which begins at 0x1A20, and its checksum.
  expected.replace(0x1A20 + 16 + 4 * (27 * 4 + 3), 4, VelkTest::fromHex("04 1B 00 83"));
  QByteArray actual = written();
  expected.replace(0x1A24, 2, actual.mid(0x1A24, 2));
  EXPECT_EQ(actual, expected);
  EXPECT_EQ(run({"check", out()}).exitCode, 0);
  EXPECT_EQ(run({"table", "export", out(), "--id", "15799"}).output, registersText().toStdString());
  const Outcome piped =
      run({"table", "import", "rf_board_tables.bin", "-", "--id", "15799", "-o", out()}, registersText());
  EXPECT_EQ(piped.exitCode, 0);
  EXPECT_EQ(written(), actual);
}

TEST_F(TableCommand, ImportTellsWhatIsWrongAndWritesNothing) {
  QByteArray text = registersText();
  text.replace("28 * 4", "29 * 4");
  const QString faulty = file("faulty.txt", text);
  const std::string complaint =
      "velk: " + faulty.toStdString() + ": ERROR: Row value (COUNT) don't not equal with number of rows\n";
  const Outcome refused = run({"table", "import", "rf_board_tables.bin", faulty, "-o", out()});
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_EQ(refused.errors, complaint);
  EXPECT_EQ(written(), "nothing");
  const Outcome forced = run({"table", "import", "rf_board_tables.bin", faulty, "-o", out(), "--force"});
  EXPECT_EQ(forced.exitCode, 0);
  EXPECT_EQ(forced.errors, complaint);
  EXPECT_EQ(written().mid(0x1A28, 4), VelkTest::fromHex("1D 00 00 00"));

  const QString large = file("large.txt", "ID: RFBO_ATTREG_DATA\nCOUNT: 1 * 2\n1: 1 2\n");
  EXPECT_EQ(run({"table", "import", "rf_board_tables.bin", large, "-o", out()}).errors,
            "velk: " + large.toStdString() + ": COUNT 1 * 2 is more than the table's 50 * 1\n");
  EXPECT_EQ(run({"table", "import", "rf_board_tables.bin", file("none.txt", "text\n"), "-o", out()}).exitCode, 1);
}

TEST_F(TableCommand, ImportRefusesWordsThatAreNoNumbers) {
  const auto refusal = [&](const QString& id, const char* count, const char* row) {
    const char* const names[] = {"RFBO_ATTREG_DATA", "LORN_RFBO_ATTREG_ATTENUATION", "BLOCK_LORN_RFBO_TEMP_COMP_DATA"};
    const std::string name = names[id == "15750" ? 0 : id == "15798" ? 1 : 2];
    const std::string text = "ID: " + name + "\nCOUNT: " + count + "\n1: " + row + '\n';
    const QString path = file("typo.txt", QByteArray::fromStdString(text));
    const Outcome outcome = run({"table", "import", "every_id.bin", path, "-o", out()});
    EXPECT_EQ(outcome.exitCode, outcome.errors.empty() ? 0 : 1);
    EXPECT_EQ(outcome.errors.empty(), written() != "nothing");
    QFile::remove(out());
    const std::string prefix = "velk: " + path.toStdString() + ": ";
    return outcome.errors.starts_with(prefix) ? outcome.errors.substr(prefix.size()) : outcome.errors;
  };
  EXPECT_EQ(refusal("15798", "1 * 3", "1.5 -0.25 +2e1"), "");
  EXPECT_EQ(refusal("15798", "1 * 1", "1O"), "row 1: \"1O\" is no such number\n");
  EXPECT_EQ(refusal("15798", "1 * 2", "1 2,5"), "row 1: \"2,5\" is no such number\n");
  EXPECT_EQ(refusal("15798", "1 * 1", "nan"), "row 1: \"nan\" is no such number\n");
  EXPECT_EQ(refusal("15798", "1 * 1", "+-1.5"), "row 1: \"+-1.5\" is no such number\n");
  EXPECT_EQ(refusal("15798", "1 * 1", "1e39"), "row 1: \"1e39\" is no such number\n") << "no float is so large";
  EXPECT_EQ(refusal("15798", "1 * 1", "1e-400"), "") << "the nearest is 0";
  EXPECT_EQ(refusal("15798", "1 * 1", "1\n2: 2"), "there are more rows than COUNT announces\n");
  EXPECT_EQ(refusal("15771", "1 * 1", "1\n2: 2"), "there are more rows than COUNT announces\n");
  EXPECT_EQ(refusal("15771", "1 * 1", "1\nend\n2: 2"), "") << "a line without a colon ends the table";
  EXPECT_EQ(refusal("15750", "1 * 1", "0XfFfFfFfF"), "");
  EXPECT_EQ(refusal("15750", "1 * 1", "1FFFFFFFF"), "row 1: \"1FFFFFFFF\" is no such number\n");
  EXPECT_EQ(refusal("15750", "1 * 1", "-1"), "row 1: \"-1\" is no such number\n");
  EXPECT_EQ(refusal("15771", "1 * 1", "-7"), "");
  EXPECT_EQ(refusal("15771", "1 * 1", "-7.5"), "row 1: \"-7.5\" is no such number\n");
  EXPECT_EQ(refusal("15750", "4294967297 * 1", "1"), "COUNT is not of the form \"rows * columns\"\n");
}

TEST_F(TableCommand, TextsThatDoNotCarryAllAreTold) {
  const auto exported = [&](const char* id) {
    return run({"table", "export", "every_id.bin", "--id", id, "-o", directory_.filePath("text")});
  };
  const Outcome rounded = exported("15798");
  EXPECT_EQ(rounded.exitCode, 0);
  EXPECT_NE(rounded.errors.find("id 15798: the text loses values; an import changes "
                                "LORN_RFBO_ATTREG_ATTENUATION cells[0][0]: 1.625 -> 1.62 and "),
            std::string::npos)
      << rounded.errors;
  const Outcome imported = run({"table", "import", "every_id.bin", directory_.filePath("text"), "-o", out()});
  EXPECT_TRUE(imported.output.starts_with("LORN_RFBO_ATTREG_ATTENUATION cells[0][0]: 1.625 -> 1.62\n"));
  QString changes = QString::fromStdString(imported.output);
  EXPECT_EQ("LORN_RFBO_ATTREG_ATTENUATION (id 15798):\n" +
                changes.replace("LORN_RFBO_ATTREG_ATTENUATION ", "  ").toStdString(),
            run({"diff", "every_id.bin", out()}).output);

  EXPECT_EQ(exported("15771").errors, "") << "labels are no part of the text";
  const Outcome labelled = run({"table", "import", "every_id.bin", directory_.filePath("text"), "-o", out()});
  EXPECT_EQ(labelled.output, "") << "and stay as they are";
  EXPECT_EQ(written(), VelkTest::exampleImage("every_id.bin"));
}

TEST_F(TableCommand, ImportKeepsTablesOfOneTextApart) {
  // The name of the second table is part of the first one's, and its reader would read on to the end of the text.
  const QString two = file("two.txt",
                           "ID: LORN_RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: A\nID: RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: B\n"
                           "ID: LORN_RFBO_ATTREG_ATTENUATION\nCOUNT: 1 * 1\n1: 5\n");
  const Outcome imported = run({"table", "import", "rf_board_tables.bin", two, "-o", out()});
  EXPECT_EQ(imported.errors, "");
  EXPECT_EQ(written().mid(0x1A20 + 16, 4), VelkTest::fromHex("0A 00 00 00"));
  EXPECT_EQ(written().mid(0x0FC8 + 16, 8), VelkTest::fromHex("0B 00 00 00 00 00 00 00"));
  EXPECT_EQ(written().mid(0x16F0 + 16, 4), VelkTest::fromHex("00 00 A0 40"));
  // Told its id, a class reads what names it only in part.
  const QString lorn = file("lorn.txt", "ID: LORN_RFBO_ATTREG_DATA\nCOUNT: 1 * 1\n1: C\n");
  EXPECT_EQ(run({"table", "import", "rf_board_tables.bin", lorn, "--id", "15750", "-o", out()}).exitCode, 0);
  EXPECT_EQ(written().mid(0x0FC8, 2), VelkTest::fromHex("86 3D"));
  EXPECT_EQ(written().mid(0x0FC8 + 16, 4), VelkTest::fromHex("0C 00 00 00"));
  EXPECT_EQ(written().mid(0x1A20), boardImage().mid(0x1A20));
}

TEST_F(TableCommand, ImportAddsATableOnlyWhenTold) {
  const QStringList arguments = {"table", "import", "rf_board.bin", "attenuator_registers.txt", "-o", out()};
  const Outcome refused = run(arguments);
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_EQ(refused.errors, "velk: rf_board.bin: has no block of id 15799; --append would add it\n");
  EXPECT_EQ(written(), "nothing");
  ASSERT_EQ(run(arguments + QStringList{"--append"}).exitCode, 0);
  const QByteArray image = VelkTest::exampleImage("rf_board.bin");
  EXPECT_EQ(written().size(), image.size()) << "erased memory makes room";
  EXPECT_EQ(written().left(0x6E), image.left(0x6E));
  EXPECT_EQ(written().mid(0x6E + 816, 4), image.mid(0x6E, 4)) << "the end block moves on";
  EXPECT_EQ(run({"table", "export", out(), "--id", "15799"}).output, registersText().toStdString());

  const QByteArray full = image.left(0x6E + 4 + 815);
  QStringList cut = arguments + QStringList{"--append"};
  cut[2] = file("full.bin", full);
  EXPECT_EQ(run(cut).errors, "velk: " + cut[2].toStdString() + ": has no room for the 816 bytes of the table\n");
  cut[2] = file("open.bin", image.left(0x6E));
  ASSERT_EQ(run(cut).exitCode, 0);
  EXPECT_EQ(written().size(), 0x6E + 816) << "without an end block the memory ends with its last block";
  cut[2] = file("stray.bin", image.left(0x6E) + "abc");
  EXPECT_EQ(run(cut).errors,
            "velk: " + cut[2].toStdString() + ": offset 0x0000006E: too short for a block; nothing can be added\n");
}

TEST_F(TableCommand, TakesImagesAsTheOtherCommandsDo) {
  // Two sectors of a flash, the table in the second; an image in the form and with the doubts of its file.
  QByteArray flash = VelkTest::exampleImage("detector.bin");
  flash += QByteArray(0x4000 - flash.size(), '\xFF') + boardImage();
  const QString image = file("flash.bin", flash);
  EXPECT_EQ(run({"table", "export", image, "--id", "15799"}).exitCode, 0) << "found without the sectors as well";
  const QStringList sectors{"--sector-size", "0x4000"};
  const Outcome found = run(QStringList{"table", "export", image, "--id", "15799"} + sectors);
  EXPECT_EQ(found.output, run({"table", "export", "rf_board_tables.bin", "--id", "15799"}).output) << found.errors;
  const QString text = file("text.txt", registersText() + registersText());
  const Outcome twice = run(QStringList{"table", "import", image, text, "-o", out()} + sectors);
  EXPECT_EQ(twice.exitCode, 1);
  EXPECT_NE(twice.errors.find("repeats the table of id 15799"), twice.errors.npos) << twice.errors;
  EXPECT_EQ(run(QStringList{"table", "import", image, text, "-o", out(), "--force"} + sectors).exitCode, 0);
  EXPECT_EQ(written().left(0x4000), flash.left(0x4000));
  EXPECT_EQ(run(QStringList{"table", "export", out(), "--id", "15799"} + sectors).output,
            registersText().toStdString());
  QByteArray hex = Velk::encodeImage({.bytes = boardImage(), .container = Velk::Container::IntelHex});
  hex.chop(12);
  EXPECT_EQ(run({"table", "import", file("cut.hex", hex), file("one.txt", registersText()), "-o", out()}).exitCode, 1);
}

TEST_F(TableCommand, ChangesAnImageInPlace) {
  const QString image = file("image.bin", boardImage());
  QByteArray changed = registersText();
  changed.replace("0x8000001F", "0x8000001E");
  const QStringList arguments{"table", "import", image, "-", "--in-place", "--backup"};
  EXPECT_EQ(run(arguments, changed.chopped(20)).exitCode, 1);
  EXPECT_EQ(VelkTest::readFile(image.toStdString()), boardImage().toStdString()) << "a faulty text changes nothing";
  EXPECT_EQ(run(arguments, changed).exitCode, 0);
  EXPECT_EQ(run({"table", "export", image, "--id", "15799"}).output, changed.toStdString());
  EXPECT_EQ(VelkTest::readFile((image + ".bak").toStdString()), boardImage().toStdString());
}

TEST_F(TableCommand, NeverWritesOverItsInputs) {
  const QString image = file("image.bin", boardImage());
  const QString text = file("text.txt", registersText());
  EXPECT_EQ(run({"table", "import", image, text}).exitCode, 2) << "nowhere to write to";
  EXPECT_EQ(run({"table", "import", image, text, "-o", image}).exitCode, 2);
  EXPECT_EQ(run({"table", "import", image, text, "-o", directory_.filePath("./text.txt")}).exitCode, 2);
  EXPECT_EQ(run({"table", "export", image, "--id", "15799", "-o", image}).exitCode, 2);
  EXPECT_EQ(VelkTest::readFile(image.toStdString()), boardImage().toStdString());
  EXPECT_EQ(VelkTest::readFile(text.toStdString()), registersText().toStdString());
  EXPECT_EQ(run({"table", "import", image, text, "-o", directory_.path() + "/no/such"}).exitCode, 3);
  EXPECT_EQ(run({"table", "import", image, "missing.txt", "-o", out()}).errors,
            "velk: missing.txt: No such file or directory\n");
  EXPECT_EQ(run({"table", "import", "missing.bin", text, "-o", out()}).exitCode, 3);
}

TEST_F(TableCommand, RefusesWhatHasNoText) {
  EXPECT_EQ(run({"table", "export", "rf_board_tables.bin", "--id", "15731"}).errors,
            "velk: rf_board_tables.bin: blocks of id 15731 have no text form that can be read back\n");
  EXPECT_EQ(run({"table", "export", "rf_board_tables.bin", "--id", "4711"}).exitCode, 2);
  EXPECT_EQ(
      run({"table", "import", "rf_board_tables.bin", "attenuator_registers.txt", "--id", "2", "-o", out()}).exitCode,
      2);
  EXPECT_EQ(run({"table", "export", "rf_board.bin", "--id", "15799"}).errors,
            "velk: rf_board.bin: has no block of id 15799\n");
  EXPECT_EQ(run({"table"}).exitCode, 2);
  const std::string help = run({"table", "--help"}).output;
  for (const char* const id : {"15750", "15760", "15770", "15771", "15798", "15799"}) {
    EXPECT_NE(help.find(id), std::string::npos);
    EXPECT_NE(run({"table", "export", "rf_board_tables.bin", "--id", id}).exitCode, 2);
  }
}

TEST_F(TableCommand, DamageIsToldAndAnEndlessTableCut) {
  QByteArray image = boardImage();
  image.replace(0x1A28, 4, VelkTest::fromHex("FF FF FF FF"));
  const QString damaged = file("damaged.bin", image);
  const Outcome exported = run({"table", "export", damaged, "--id", "15799"});
  EXPECT_EQ(exported.exitCode, 1);
  EXPECT_EQ(exported.output, "");
  EXPECT_NE(exported.errors.find("COUNT 4294967295 * 4 is too large for a text\n"), std::string::npos);
  EXPECT_NE(exported.errors.find("id 15799: checksum is 0x"), std::string::npos);
  ASSERT_EQ(run({"table", "import", damaged, "attenuator_registers.txt", "-o", out()}).exitCode, 0);
  EXPECT_EQ(run({"check", out()}).exitCode, 0) << "a damaged table is replaced like any other";
}

TEST_F(TableCommand, DevicesAndPipesAreWrittenToAndNotReplaced) {
  const QStringList import{"table", "import", "rf_board_tables.bin", "attenuator_registers.txt", "-o"};
  ASSERT_EQ(run(import + QStringList{out()}).exitCode, 0);
  const Outcome piped = run(import + QStringList{"/dev/stdout"});
  EXPECT_EQ(piped.exitCode, 0) << piped.errors;
  EXPECT_EQ(piped.output, VelkTest::readFile(out().toStdString()));
}

}  // namespace
