#include <algorithm>

#include "../../tool/AlignedTable.h"
#include "ShellSupport.h"

namespace {

using VelkTest::Outcome;
using VelkTest::run;

Outcome tidy(const QStringList& arguments) { return run(QStringList{"export", "--format", "tidy"} + arguments); }

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::string columnsFor(const QStringList& arguments) {
  const auto lines = linesOf(tidy(arguments).output);
  constexpr std::string_view before = "file,serial,module,block,id,nth,verdict,field,row,column";
  constexpr std::string_view after = ",value,unit";
  EXPECT_TRUE(!lines.empty() && lines[0].starts_with(before) && lines[0].ends_with(after));
  return lines[0].substr(before.size(), lines[0].size() - before.size() - after.size());
}

class Tidy : public VelkTest::Shell {};

TEST_F(Tidy, ExamplesStayAsTheyAre) {
  const QStringList chosen = {"--id", "IDENT*", "--id", "DACB_*_AMP", "dac_board.bin"};
  const QStringList boards = {"rf_board_tables.bin", "detector.bin", "mainboard.bin"};
  EXPECT_TRUE(VelkTest::isGolden("dac_board.tidy.txt", tidy(chosen).output));
  EXPECT_TRUE(
      VelkTest::isGolden("dac_board.table.txt", run(QStringList{"export", "--format", "table"} + chosen).output));
  EXPECT_TRUE(VelkTest::isGolden("boards.table.txt", run(QStringList{"export", "--format", "table"} + boards).output));
}

TEST_F(Tidy, ColumnsFollowFromTheBlocksThatAreAskedFor) {
  const std::string all = columnsFor({"dac_board.bin"});
  EXPECT_EQ(all, columnsFor({"detector.bin", "rf_board.bin"}));
  EXPECT_EQ(all, columnsFor({file("empty.bin", {})}));
  EXPECT_NE(all.find(",frequency [Hz],"), all.npos) << all;
  EXPECT_NE(all.find(",row id"), all.npos) << all;
  EXPECT_EQ(columnsFor({"--id", "13600", "rf_board.bin"}), ",frequency [Hz]");
  EXPECT_EQ(columnsFor({"--id", "LEV_CAL_DAT_*", "rf_board.bin"}), ",frequency [Hz],level [dB]");
  EXPECT_EQ(columnsFor({"--id", "2", "rf_board.bin"}), "");
  for (const char* const beyond : {"1041", "ID_1041", "ID_1*", "[IJ]?_*"}) {
    EXPECT_EQ(columnsFor({"--id", beyond, "rf_board.bin"}), ",column id,row id") << beyond;
  }
}

TEST_F(Tidy, LinesSayWhoseTheyAre) {
  QByteArray twice = VelkTest::exampleImage("rf_board.bin");
  twice = twice.left(44) + twice.left(44) + twice.mid(44);
  twice[44 + 34] = '\xE4';
  const Outcome result = tidy({"--id", "2", file("a,b.bin", twice), "missing.bin", "rf_board.bin"});
  EXPECT_EQ(result.exitCode, 3);
  std::vector<std::string> serials;
  for (const std::string& line : linesOf(result.output)) {
    if (line.find(",name,") != line.npos) serials.push_back(line.substr(line.rfind('/') + 1));
  }
  EXPECT_EQ(serials,
            (std::vector<std::string>{"a,b.bin\",100234,RF-BOARD,IDENT_2,2,1,sound,name,,,RF-BOARD,",
                                      "a,b.bin\",100234,RF-BOARD,IDENT_2,2,2,wrong checksum,name,,,RF-B\xC3\xA4"
                                      "ARD,",
                                      "rf_board.bin,100234,RF-BOARD,IDENT_2,2,1,sound,name,,,RF-BOARD,"}));
  const Outcome address = tidy({"--id", "MBRD_MAC", "--id", "13600", "mainboard.bin", "dac_board.bin"});
  EXPECT_NE(address.output.find(",mac,,,,02:00:5E:10:20:30,\n"), std::string::npos) << address.output;
  const Outcome second = tidy({"--id", "2", "--nth", "2", file("a.bin", twice)});
  EXPECT_NE(second.output.find(",IDENT_2,2,2,wrong checksum,eepromSize,"), std::string::npos) << second.output;
}

TEST_F(Tidy, OptionsForSpreadsheets) {
  struct Case {
    QStringList options;
    const char* line;    ///< in the output
    const char* errors;  ///< of a refusal
  };
  const QString semicolon = ";";
  const Case cases[] = {
      {{"--format", "tidy"}, "cells,1,0,3,1.29321,", ""},
      {{"--format", "tidy", "--decimal", "comma"}, "cells;1;0;3;1,29321;", ""},
      {{"--format", "tidy", "--decimal", "point", "--delimiter", ","}, "cells,1,0,3,1.29321,", ""},
      {{"--format", "tidy", "--delimiter", "tab", "--decimal", "comma"}, "cells\t1\t0\t3\t1,29321\t", ""},
      {{"--format", "csv", "--delimiter", semicolon}, "\n0;1.25\n", ""},
      {{"--format", "csv", "--delimiter", "semicolon"}, "\n0;1.25\n", ""},
      {{"--format", "csv", "--delimiter", "|"}, "", "velk: --delimiter: | is not one of comma, semicolon, tab\n"},
      {{"--format", "csv", "--decimal", "comma"}, "\n0;1,25\n", ""},
      {{"--format", "tidy", "--decimal", "comma", "--delimiter", ","},
       "",
       "velk: --delimiter: a comma cannot be the decimal sign, too; without --delimiter, semicolons separate the "
       "values\n"},
      {{"--format", "jsonl", "--decimal", "comma"}, "", "velk: --decimal: applies to csv and tidy only\n"},
      {{"--format", "tidy", "--stored"}, "", "velk: --stored: applies to json, jsonl and csv only\n"},
      {{"--format", "table", "-o", "x"},
       "",
       "velk: --output: applies to csv and tidy only; other formats go to standard output\n"},
  };
  for (const Case& one : cases) {
    const Outcome result = run(QStringList{"export", "--id", "12314", "rf_board_tables.bin"} + one.options);
    SCOPED_TRACE(one.options.join(' ').toStdString());
    EXPECT_EQ(result.errors, one.errors);
    EXPECT_EQ(result.exitCode, *one.errors == '\0' ? 0 : 2);
    EXPECT_NE(result.output.find(one.line), std::string::npos) << result.output;
  }
  const Outcome quoted = tidy({"--delimiter", ";", file("a,b.bin", VelkTest::exampleImage("rf_board.bin")),
                               file("a;b.bin", VelkTest::exampleImage("rf_board.bin"))});
  EXPECT_NE(quoted.output.find("/a,b.bin;"), std::string::npos) << "a comma needs no quotes here";
  EXPECT_NE(quoted.output.find("/a;b.bin\";"), std::string::npos);
}

// What goes into files by class is what goes to standard output, and each file has the columns of its own axes.
TEST_F(Tidy, FolderHasAFileForEachClass) {
  const Outcome result = shell(R"sh(
    echo old >file; echo damaged >b.bin; cp $images/dac_board.bin a.bin; cp $images/detector.bin c.bin
    images="a.bin b.bin missing.bin c.bin"
    "$velk" export --format tidy $images -o deep/er 2>errors; echo "exit $?"; grep -c missing errors
    ls deep/er | head -3; head -1 deep/er/ID_1040.csv deep/er/DacbFrequencyCompAmp.csv
    "$velk" export --format tidy $images 2>/dev/null >all.csv
    cut -d, -f1-10 deep/er/*.csv | grep -v ^file, | sort >folder.txt; cut -d, -f1-10 all.csv | tail -n +2 | sort | cmp - folder.txt
    "$velk" export --format tidy a.bin -o file 2>&1; echo "exit $?"; "$velk" export --format csv a.bin -o file/x 2>&1
    echo "exit $?"; cat file; ls -A deep/er | grep -c velk-)sh");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.output,
            "exit 3\n1\nBbinsCompFilterTabsI.csv\nDacIfFullScale.csv\nDacbFrequencyCompAmp.csv\n"
            "==> deep/er/ID_1040.csv <==\n"
            "file,serial,module,block,id,nth,verdict,field,row,column,column id,row id,value,unit\n\n"
            "==> deep/er/DacbFrequencyCompAmp.csv <==\n"
            "file,serial,module,block,id,nth,verdict,field,row,column,frequency [Hz],value,unit\n"
            "velk: --output: file is not a folder\nexit 2\nvelk: file/x: cannot be made: Not a directory\nexit 3\nold\n"
            "0\n");
}

TEST_F(Tidy, FilesAreReplacedAsAWholeOrNotAtAll) {
  const Outcome result = shell(R"sh(
    mkdir out in; echo precious >out/DacbFrequencyCompAmp.csv; chmod 640 out/DacbFrequencyCompAmp.csv
    for i in {1..60}; do cp $images/dac_board.bin in/$i.bin; done
    (ulimit -f 100; "$velk" export --format tidy --id 13600 --id 2 in -o out 2>&1; echo "exit $?")
    ls -A out; cat out/DacbFrequencyCompAmp.csv
    "$velk" export --format tidy --id 13600 in -o out; echo "exit $?"
    wc -l <out/DacbFrequencyCompAmp.csv; stat -c %a out/DacbFrequencyCompAmp.csv
    "$velk" export --format tidy --id 13600 in | cmp - out/DacbFrequencyCompAmp.csv
    "$velk" export --format tidy --id 2 in >/dev/full; echo "exit $?")sh");
  EXPECT_EQ(result.errors, "velk: standard output: No space left on device\n");
  EXPECT_EQ(
      result.output,
      "velk: out/DacbFrequencyCompAmp.csv: File too large\nexit 3\nDacbFrequencyCompAmp.csv\nIdent.csv\nprecious\n"
      "exit 0\n1561\n640\nexit 3\n");
}

TEST_F(Tidy, WideTablesAreInPiecesThatBeginWithTheKeys) {
  VelkTool::AlignedTable table;
  table.addColumn("row", true);
  for (const char* const heading : {"first", "t\xC3\xB6ne", "third"}) table.addColumn(heading);
  const std::string wide(70, 'w');
  const char* const cells[][4] = {{"1", "-2.5", "\xC3\xA4\xC3\xB6", "3"}, {"12", "100", "x", wide.c_str()}};
  for (const auto& row : cells) {
    for (std::size_t column = 0; column < 4; ++column) table.addCell(column, row[column], column < 2);
  }
  std::string text;
  table.write(text, 20);
  EXPECT_EQ(text,
            "row  first  t\xC3\xB6ne\n  1   -2.5  \xC3\xA4\xC3\xB6\n 12    100  x\n\n"
            "row  third\n  1  3\n 12  " +
                wide + "\n");
}

TEST_F(Tidy, TablesFitTheTerminal) {
  const auto widest = [&](const QString& command) {
    std::size_t most = 0;
    for (const std::string& line : linesOf(shell(command).output)) {
      const bool isHeading = line.starts_with("rf_board");  // names are as long as they are
      if (!isHeading) most = std::max(most, line.size());
    }
    return most;
  };
  const QString table = "$velk export --format table rf_board_tables.bin";
  EXPECT_LE(widest("cd $images; " + table), 80U);
  const std::size_t narrow = widest("cd $images; terminal sh -c \"stty cols 60; " + table + '"');
  EXPECT_TRUE(narrow <= 60 && narrow > 40) << narrow;
}

}  // namespace
