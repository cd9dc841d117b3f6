#include "CommandSupport.h"
#include "velk/edition2/HwDatablock2Edition.h"
#include "velk/tables/DacBoardCompensation.h"

namespace {

using VelkTest::Command;
using VelkTest::exampleImage;
using VelkTest::exampleImages;
using VelkTest::Outcome;
using VelkTest::run;

QByteArray rfBoard() { return exampleImage("rf_board.bin"); }

std::string outputAndErrors(const Outcome& result) {
  return result.errors.empty() ? result.output : result.output + "\nStandard error:\n" + result.errors;
}

TEST_F(Command, ExamplesAreWhatTheirProgramMakes) {
  ASSERT_EQ(run({directory_.path()}, {}, VELK_MAKE_IMAGES).exitCode, 0);
  const QStringList examples = QDir(VELK_SOURCE_DIR "/examples/images").entryList(QDir::Files);
  EXPECT_EQ(QDir(directory_.path()).entryList(QDir::Files), examples);
  for (const QString& name : examples) {
    const std::string made = VelkTest::readFile(directory_.filePath(name).toStdString());
    EXPECT_TRUE(made == exampleImage(name).toStdString()) << name.toStdString();
  }
}

TEST_F(Command, GoldenTextsOfTheExamples) {
  for (const QString& name : VelkTest::exampleImages()) {
    for (const char* const verb : {"list", "check", "print"}) {
      const Outcome result = run({verb, name});
      EXPECT_EQ(result.exitCode, 0) << name.toStdString();
      const std::string expected = QFileInfo(name).baseName().toStdString() + '.' + verb + ".txt";
      const std::string all = outputAndErrors(result);
      EXPECT_TRUE(VelkTest::isGolden(expected, all));
      EXPECT_TRUE(VelkTest::isSameText(run({verb, "-"}, exampleImage(name)).output, result.output))
          << "standard input is like a file";
    }
  }
  const Outcome ids = run({"ids"});
  EXPECT_EQ(ids.exitCode, 0);
  EXPECT_TRUE(VelkTest::isGolden("ids.txt", ids.output));
}

TEST_F(Command, GoldenListsOfDumpsThatAreNotClean) {
  for (const char* const name : {"flash", "erased_page", "first_read", "second_read"}) {
    const Outcome result = run({"list", QString(name) + ".dump"});
    EXPECT_EQ(result.exitCode, 1) << name;
    EXPECT_TRUE(VelkTest::isGolden(std::string(name) + ".list.txt", outputAndErrors(result)));
  }
}

TEST_F(Command, LayoutsInTheDocumentationAreThoseOfTheCode) {
  const std::string page = VelkTest::readFile(VELK_SOURCE_DIR "/docs/layouts.md");
  const std::string layouts = run({"ids", "--layout"}).output;
  EXPECT_TRUE(page.ends_with(layouts)) << "make the page anew: ./dev docs";
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

TEST_F(Command, PagesOfBlocksThatDescribeThemselves) {
  for (const char* const page : {"detail", "summary", "heading", "hex"}) {
    const Outcome result = run({"print", "--page", page, "detector.bin"});
    EXPECT_EQ(result.exitCode, 0);
    const std::string all = outputAndErrors(result);
    EXPECT_TRUE(VelkTest::isGolden(std::string("detector.") + page + ".txt", all));
  }
  EXPECT_EQ(run({"print", "--page", "complete", "detector.bin"}).output, run({"print", "detector.bin"}).output);
  EXPECT_EQ(run({"print", "--page", "detail", "rf_board.bin"}).output, run({"print", "rf_board.bin"}).output);
  EXPECT_EQ(run({"print", "--page", "backwards", "detector.bin"}).exitCode, 2);
}

TEST_F(Command, TablesAreRecognisedWhereTheCrcIsWrong) {
  QByteArray damaged = exampleImage("detector.bin");
  constexpr int inACell = 0x2C + 75;
  damaged[inACell] = static_cast<char>(damaged[inACell] ^ 1);
  const QString path = file("damaged.bin", damaged);
  const Outcome print = run({"print", "--id", "1040", path});
  EXPECT_EQ(print.exitCode, 1);
  const std::string place = "velk: " + path.toStdString() + ": offset 0x0000002C, id 1040: ";
  EXPECT_EQ(print.errors, place + "CRC-32 is 0xFBFF943F, the bytes give 0x170D68F7\n" + place +
                              "checksum is 0x7786, the bytes give 0x7686\n");
  EXPECT_NE(print.output.find("\n1000000 0.5                  -0.0625000000000036  10                   \n"),
            std::string::npos)
      << print.output;
  EXPECT_NE(run({"check", path}).output.find("ID_1040: wrong CRC; CRC-32 is"), std::string::npos);
}

TEST_F(Command, WhatIsOddAboutSoundBlocksIsTold) {
  const auto telling = [&](const QStringList& arguments, const std::string& text) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE((outcome.output + outcome.errors).find(text), std::string::npos) << outcome.output << outcome.errors;
  };
  const QString size = file("size.bin", VelkTest::fromHex("02 00 0A 00 F4 FF 00 00 00 00 FF FF 00 00"));
  telling({"list", size}, "old-style       sound, unexpected size\n");
  telling({"check", size}, "IDENT_2: sound; size 10, blocks of this id have 44\n");

  QByteArray counted = exampleImage("detector.bin");
  counted[0x246] = static_cast<char>(counted[0x246] + 1);
  const QString counter = file("counter.bin", counted);
  telling({"check", counter}, "ID_1042: sound; checksum is");
  telling({"print", "--id", "1042", counter}, "id 1042, an event counter, which this page takes for tables");

  Velk::HwDatablockDacbFrequencyCompAmp amplitudes(false);
  amplitudes.setNumberOfcompAmp(99);
  const QString count = file("count.bin", amplitudes.getByteArrayData());
  const std::string doubt = "count: 99 is more than the 26 that values has room for\n";
  telling({"check", "--only", "impossible-count", count}, "DACB_FREQUENCY_COMP_AMP: sound; " + doubt);
  telling({"print", count}, "id 13600: " + doubt);
  telling({"export", count}, "\"text\": \"count: 99 is more");

  Velk::HwDatablock2Edition tables;
  tables.setData(VelkTest::fromHex("10 04 18 00 00 00 00 00 00 00 00 00 7B 00 64 00 01 00 00 00 01 00 00 00"));
  tables.setChecksum32(tables.computeChecksum32());
  tables.setChecksum(tables.computeChecksum());
  const QString cut = file("tables.bin", tables.getByteArrayData());
  telling({"check", cut}, "sound; tables[0] is not there whole: it claims 100 rows and 1 columns\n");
  telling({"print", cut}, "id 1040: tables[0] is not there whole");
}

TEST_F(Command, ManyFilesAndTheWorstOfThem) {
  const Outcome result = run({"list", "rf_board.bin", "missing.bin", "rf_board.bin"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.errors, "velk: missing.bin: No such file or directory\n");
  const std::string heading = "rf_board.bin:\n";
  EXPECT_EQ(result.output.find(heading), 0U);
  EXPECT_EQ(result.output.substr(0, result.output.size() / 2), result.output.substr(result.output.size() / 2));
  EXPECT_EQ(run({"check", file("empty.bin", {})}).exitCode, 1) << "a dump that failed is not sound";
}

TEST_F(Command, OutputThatCannotBeWrittenIsToldBesideOtherTrouble) {
  const Outcome result = run({"-c", "exec \"$0\" list missing.bin rf_board.bin >/dev/full", VELK_COMMAND}, {}, "sh");
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.errors,
            "velk: missing.bin: No such file or directory\n"
            "velk: standard output: No space left on device\n");
}

TEST_F(Command, WrongUsageIsNoFinding) {
  EXPECT_EQ(run({}).exitCode, 2);
  EXPECT_EQ(run({"list"}).exitCode, 2);
  for (const QStringList& mistyped :
       {QStringList{"frobnicate", "x"}, {"table", "frobnicate"}, {"list", "frobnicate"}}) {
    const Outcome result = run(mistyped);
    EXPECT_EQ(result.exitCode, mistyped.front() == "list" ? 3 : 2);
    EXPECT_NE(result.errors.find("frobnicate"), std::string::npos) << result.errors;
  }
  EXPECT_NE(run({"list", "--frobnicate"}).errors.find("--frobnicate"), std::string::npos);
  EXPECT_EQ(run({"print", "--id", "65536", "rf_board.bin"}).exitCode, 2);
  EXPECT_EQ(run({"print", "--id", "x", "rf_board.bin"}).exitCode, 2);
  for (const QStringList& arguments : {QStringList{"--help"}, {"list", "--help"}, {"--version"}}) {
    const Outcome result = run(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.output, "");
  }
}

TEST(Completion, KnowsCommandsOptionsAndTheirValues) {
  const auto completed = [](const char* words) {
    const QString line =
        QString(
            "source <(%1 completion bash); COMP_WORDS=(%2); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _velk; "
            "echo \"${COMPREPLY[@]}\"")
            .arg(VELK_COMMAND, words);
    return run({"-c", line}, {}, "/bin/bash").output;
  };
  EXPECT_EQ(completed("velk re"), "remove redact recover\n");
  EXPECT_EQ(completed("velk table ''"), "export import\n");
  EXPECT_EQ(completed("velk table import --a"), "--append\n");
  EXPECT_EQ(completed("velk export --format j"), "json jsonl\n");
  EXPECT_EQ(completed("velk print rf_board.bin --page s"), "summary\n");
  EXPECT_EQ(completed("velk list --sector-size ''"), "auto\n");
  EXPECT_EQ(completed("velk set --in"), "--input --in-place\n");
  EXPECT_EQ(completed("velk list rf_board.b"), "rf_board.bin\n");
  EXPECT_EQ(completed("velk help red"), "redact\n");
}

TEST(Manual, HasEveryCommandAndItsExamples) {
  const std::string page = run({"manual"}).output;
  for (const char* const part :
       {".SH EXIT STATUS\n", ".SH EXAMPLES\n", "velk diff before.bin after.bin", ".SS \\fBvelk table import\\fR",
        ".SS \\fBvelk help\\fR", "\\fB\\-\\-in\\-place\\fR"}) {
    EXPECT_NE(page.find(part), page.npos) << part;
  }
}

}  // namespace
