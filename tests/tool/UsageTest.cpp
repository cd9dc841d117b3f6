// What people read who have mistyped something.
#include "CommandSupport.h"

namespace {

using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

struct Mistake {
  QStringList arguments;
  const char* answer;
};

void expectAnswers(std::initializer_list<Mistake> mistakes) {
  for (const auto& [arguments, answer] : mistakes) {
    const Outcome result = run(arguments);
    EXPECT_EQ(result.exitCode, 2) << answer;
    EXPECT_EQ(result.output, "") << answer;
    EXPECT_EQ(result.errors, std::string("velk: ") + answer + '\n');
  }
}

TEST(Usage, MistypedNamesAreMetWithTheNearest) {
  expectAnswers({
      {{"lst", "rf_board.bin"}, "no command \"lst\"; the nearest is list"},
      {{"frobnicate"}, "no command \"frobnicate\"; \"velk help\" lists them"},
      {{"table", "exprot"}, "table: no command \"exprot\"; the nearest is export"},
      {{"list", "rf_board.bin", "--ofset", "3"}, "list: no option \"--ofset\"; the nearest is --offset"},
      {{"set", "rf_board.bin", "--id", "2", "a=1", "--inplace"},
       "set: no option \"--inplace\"; the nearest is --in-place"},
      {{"export", "--frobnicate=3"}, "export: no option \"--frobnicate\"; \"velk help export\" lists them"},
      {{"list", "-j"}, "list: no option \"-j\"; \"velk help list\" lists them"},
      {{"--json", "list", "rf_board.bin"}, "option \"--json\" comes after the command that it is for"},
      {{"help", "lst"}, "no command \"lst\"; the nearest is list"},
      {{"help", "table", "imprt"}, "table: no command \"imprt\"; the nearest is import"},
      {{"help", "list", "x"}, "list: has no commands, such as \"x\""},
  });
}

TEST(Usage, WhatIsMissingOrTooMuchIsNamed) {
  expectAnswers({
      {{}, "no command is given; \"velk help\" lists them"},
      {{"table"}, "table: no command is given; \"velk help table\" lists them"},
      {{"list"}, "list: FILE is missing; \"velk help list\" tells what it takes"},
      {{"set", "rf_board.bin", "--"}, "set: --id N is missing; \"velk help set\" tells what it takes"},
      {{"set", "rf_board.bin", "--id", "2"}, "set: NAME=VALUE is missing; \"velk help set\" tells what it takes"},
      {{"table", "import", "a"}, "table import: TEXT is missing; \"velk help table import\" tells what it takes"},
      {{"redact", "a"}, "redact: --output OUT or --in-place is missing; \"velk help redact\" tells what it takes"},
      {{"redact", "a", "-o", "b", "--in-place"},
       "redact: --output OUT or --in-place is taken, not both; \"velk help redact\" tells what it takes"},
      {{"redact", "a", "-o", "b", "--backup"},
       "redact: --backup is taken with --in-place only; \"velk help redact\" tells what it takes"},
      {{"diff", "a"}, "FILE: 1 is given, 2 are needed"},
      {{"diff", "a", "b", "c"}, "diff: \"c\" is one argument too many; it takes FILE FILE"},
      {{"ids", "x"}, "ids: \"x\" is one argument too many; it takes no arguments"},
      {{"list", "a", "--offset"}, "--offset: no value is given; it takes N"},
      {{"list", "a", "--input="}, "--input: no value is given; it takes raw|hex|srec"},
      {{"list", "a", "--offset", "1", "--offset", "2"}, "--offset: is given 2 times and can be given once"},
      {{"print", "a", "--redact=no"}, "--redact: takes no value"},
  });
}

TEST(Usage, ValuesThatCannotMeanAnythingAreRefused) {
  expectAnswers({
      {{"list", "a", "--offset", "64K"}, "--offset: 64K is not a number; 64 KB is 65536"},
      {{"list", "a", "--sector-size", "2 MiB"}, "--sector-size: 2 MiB is not a number; 2 MB is 2097152"},
      {{"list", "a", "--offset", "99999999999G"}, "--offset: 99999999999G is not a number; 64 and 0x40 are"},
      {{"list", "a", "--offset", "2C"}, "--offset: 2C is not a number; 0x2C is one"},
      {{"list", "a", "--offset", ""}, "--offset: \"\" is not a number; 64 and 0x40 are"},
      {{"list", "a", "--offset", "-1"}, "--offset: -1 is out of range: 0 or more"},
      {{"list", "a", "--offset", "99999999999999999999"},
       "--offset: 99999999999999999999 is out of range: 0 to 18446744073709551615"},
      {{"list", "a", "--sector-size", "0"}, "--sector-size: 0 is out of range: 8 or more"},
      {{"print", "a", "--id", "65536"}, "--id: 65536 is out of range: 0 to 65535"},
      {{"print", "a", "--nth", "0"}, "--nth: 0 is out of range: 1 to 65536"},
      {{"table", "import", "a", "b", "--id", "x"}, "--id: x is not a number; 64 and 0x40 are"},
      {{"export", "a", "--format", "xlsx"}, "--format: xlsx is none of json, jsonl, csv"},
      {{"export", "a", "--format", "0"}, "--format: 0 is none of json, jsonl, csv"},
      {{"completion", "tcsh"}, "SHELL: tcsh is none of bash, zsh, fish"},
      {{"export", "a", "--format", "csv", "-o", "/nowhere"}, "--output: /nowhere is no folder that is there"},
      {{"table", "export", "a", "--id", "2", "-o", ""}, "--output: \"\" names no file"},
  });
}

TEST(Usage, HelpTellsWhatTheOptionTells) {
  const std::string page = run({"help"}).output;
  EXPECT_EQ(page, run({"--help"}).output);
  for (const char* const command : {"list", "check", "print", "ids", "export", "diff", "set", "redact", "table",
                                    "table export", "table import", "completion", "manual", "help"}) {
    const QStringList words = QString(command).split(' ');
    const Outcome result = run(QStringList{"help"} + words);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, run(words + QStringList{"--help"}).output) << command;
    EXPECT_NE(result.output.find(std::string("Usage: velk ") + command), std::string::npos) << result.output;
    EXPECT_NE(page.find(words.front().toStdString()), std::string::npos);
  }
}

}  // namespace
