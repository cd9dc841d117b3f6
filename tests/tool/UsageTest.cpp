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
      {{"lst", "rf_board.bin"}, "unknown command \"lst\"; the nearest is list"},
      {{"frobnicate"}, "unknown command \"frobnicate\"; \"velk help\" lists them"},
      {{"table", "exprot"}, "table: unknown command \"exprot\"; the nearest is export"},
      {{"list", "rf_board.bin", "--ofset", "3"}, "list: unknown option \"--ofset\"; the nearest is --offset"},
      {{"set", "rf_board.bin", "--id", "2", "a=1", "--inplace"},
       "set: unknown option \"--inplace\"; the nearest is --in-place"},
      {{"export", "--frobnicate=3"}, "export: unknown option \"--frobnicate\"; \"velk help export\" lists them"},
      {{"list", "-j"}, "list: unknown option \"-j\"; \"velk help list\" lists them"},
      {{"--json", "list", "rf_board.bin"}, "option \"--json\" must follow its command"},
      {{"help", "lst"}, "unknown command \"lst\"; the nearest is list"},
      {{"help", "table", "imprt"}, "table: unknown command \"imprt\"; the nearest is import"},
      {{"help", "list", "x"}, "list: has no subcommands, but \"x\" is given"},
  });
}

TEST(Usage, WhatIsMissingOrTooMuchIsNamed) {
  expectAnswers({
      {{}, "no command is given; \"velk help\" lists them"},
      {{"table"}, "table: no command is given; \"velk help table\" lists them"},
      {{"list"}, "list: FILE is missing; \"velk help list\" shows its usage"},
      {{"set", "rf_board.bin", "--"}, "set: --id BLOCK is missing; \"velk help set\" shows its usage"},
      {{"set", "rf_board.bin", "--id", "2"}, "set: NAME=VALUE is missing; \"velk help set\" shows its usage"},
      {{"table", "import", "a"}, "table import: TEXT is missing; \"velk help table import\" shows its usage"},
      {{"redact", "a"}, "redact: --output OUT or --in-place is missing; \"velk help redact\" shows its usage"},
      {{"redact", "a", "-o", "b", "--in-place"},
       "redact: --output OUT or --in-place can be given, not both; \"velk help redact\" shows its usage"},
      {{"redact", "a", "-o", "b", "--backup"},
       "redact: --backup requires --in-place; \"velk help redact\" shows its usage"},
      {{"diff", "a"}, "FILE: 2 are required, 1 is given"},
      {{"diff", "a", "b", "c"}, "diff: unexpected argument \"c\"; it takes FILE FILE"},
      {{"ids", "x"}, "ids: unexpected argument \"x\"; it takes no arguments"},
      {{"list", "a", "--offset"}, "--offset: no value is given; it takes N"},
      {{"list", "a", "--input="}, "--input: no value is given; it takes raw|hex|srec|hexdump|gzip"},
      {{"list", "a", "--offset", "1", "--offset", "2"}, "--offset: is given 2 times, but may be given once only"},
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
      {{"print", "a", "--id", "2x"}, "--id: 2x is no whole number"},
      {{"print", "a", "--id", "IDNT_2"}, "--id: no block is called \"IDNT_2\"; the nearest is IDENT_2"},
      {{"get", "a", "IDENT_2.SN", "DACB_FREQ.x"}, "PATH: no block is called \"DACB_FREQ\""},
      {{"print", "a", "--nth", "0"}, "--nth: 0 is out of range: 1 to 65536"},
      {{"table", "import", "a", "b", "--id", "x"}, "--id: x is not a number; 64 and 0x40 are"},
      {{"export", "a", "--format", "xlsx"}, "--format: xlsx is not one of json, jsonl, csv, tidy, table"},
      {{"export", "a", "--format", "0"}, "--format: 0 is not one of json, jsonl, csv, tidy, table"},
      {{"check", "a", "--only", "zero-value"}, "--only: unknown check \"zero-value\"; the nearest is zero-values"},
      {{"check", "a", "--disable", "x"}, "--disable: unknown check \"x\"; \"velk help explain\" lists them"},
      {{"check", "a", "--error", "damaged-line"}, "--error: damaged-line is always reported"},
      {{"check", "a", "--today", "2026-02-29"}, "--today: 2026-02-29 is not a date such as 2026-11-25"},
      {{"completion", "tcsh"}, "SHELL: tcsh is not one of bash, zsh, fish"},
      {{"export", "a", "--format", "csv", "-o", "/dev/null"}, "--output: /dev/null is not a folder"},
      {{"export", "a", "--format", "tidy", "-o", ""}, "--output: \"\" is not a folder"},
      {{"table", "export", "a", "--id", "2", "-o", ""}, "--output: the file name is empty"},
  });
}

TEST(Usage, HelpTellsWhatTheOptionTells) {
  const std::string page = run({"help"}).output;
  EXPECT_EQ(page, run({"--help"}).output);
  for (const char* const command :
       {"list", "check", "explain", "print", "dump", "ids", "export", "diff", "set", "redact", "table", "table export",
        "table import", "completion", "manual", "help"}) {
    const QStringList words = QString(command).split(' ');
    const Outcome result = run(QStringList{"help"} + words);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, run(words + QStringList{"--help"}).output) << command;
    EXPECT_NE(result.output.find(std::string("Usage: velk ") + command), std::string::npos) << result.output;
    EXPECT_NE(page.find(words.front().toStdString()), std::string::npos);
  }
}

}  // namespace
