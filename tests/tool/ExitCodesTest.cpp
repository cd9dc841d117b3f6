// Every case of the table of exit codes, as it happens and as the pages list it.
#include <map>

#include "../../tool/ExitCases.h"
#include "ShellSupport.h"

namespace {

using ExitCodes = VelkTest::Shell;

constexpr const char* preparation = R"sh(
  cp "$board" in.bin; cp "$board" damaged.bin; printf '\213' | dd of=damaged.bin bs=1 seek=20 conv=notrunc status=none
  cp "$images/dac_board.bin" dac.bin; cp "$images/rf_board_tables.bin" tables.bin; mkdir empty; : >empty.bin
)sh";

/// Scripts that lead to each case. Those without one need the machine to fail: the sweep over system calls makes
/// syncing fail, and the tests of files make memory short.
const std::map<std::string, std::vector<const char*>> scripts = {
    {"every block is sound, with or without warnings",
     {"$velk check in.bin", "printf '\\2\\0\\12\\0\\364\\377\\0\\0\\0\\0\\377\\377\\0\\0' | $velk check -"}},
    {"diff: the images have the same values", {"$velk diff in.bin $board"}},
    {"a block is damaged, or bytes belong to no block",
     {"$velk list damaged.bin", "$velk check in.bin damaged.bin", "$velk print damaged.bin", "$velk export damaged.bin",
      "echo stray | $velk list -"}},
    {"check: a warning counts as an error by --error or --strict",
     {"$velk set in.bin --id 2 serialNumber=0 --in-place; $velk check --error unset-identity in.bin",
      "$velk set in.bin --id 2 serialNumber=0 --in-place; $velk check --strict in.bin"}},
    {"a file is empty, or lines of it are damaged",
     {"$velk check empty.bin", "$velk print empty.bin", "echo S1070100FFFF0000F9 | $velk list -"}},
    {"no file has a block that --id or --nth asks for",
     {"$velk print --id 77 in.bin", "$velk export --nth 2 in.bin dac.bin", "$velk table export --id 15750 in.bin"}},
    {"a folder holds no file to read", {"$velk list empty in.bin", "$velk print --glob '*.hex' ."}},
    {"the text of a block is cut, since it claims rows that it does not hold",
     {"printf '\\377\\377\\377\\377' | dd of=tables.bin bs=1 seek=$((0x1A28)) conv=notrunc status=none;"
      "$velk print --id 15799 tables.bin 2>&1 | grep 'text is cut'; exit ${PIPESTATUS[0]}"}},
    {"diff: the images differ", {"$velk diff in.bin damaged.bin"}},
    {"get: a value is not there",
     {"$velk get in.bin IDENT_3.SN", "$velk get in.bin IDENT_2.frob", "$velk get damaged.bin IDENT_2.SN"}},
    {"add, copy, remove: a block is missing, damaged or one of several, or there is no room; nothing is changed",
     {"$velk remove in.bin --id 77 --in-place", "$velk remove in.bin --id 'IDENT_*' --in-place",
      "$velk add in.bin --from damaged.bin --id 2 --in-place",
      "head -c 114 in.bin >full.bin; $velk copy full.bin --id 2 --as 3 --in-place"}},
    {"add, copy, remove: the end block, or an id with another layout; nothing is changed",
     {"$velk remove in.bin --id END --in-place", "$velk copy in.bin --id 2 --as 200 --in-place"}},
    {"set: the block is missing or is one of several; nothing is changed",
     {"$velk set in.bin --id 77 a=1 --in-place",
      "cat in.bin in.bin >two.bin; $velk set two.bin --id 2 serialNumber=7 --in-place"}},
    {"table import: the text has errors; nothing is changed",
     {"$velk table export tables.bin --id 15750 | sed 's/0x3e/0x3e 1/' | $velk table import tables.bin - -o x.bin"}},
    {"recover: bytes of a block are sound in no dump, or two dumps contradict each other",
     {"$velk recover damaged.bin -o x.bin",
      "$velk set in.bin --id 2 serialNumber=7 -o y.bin; $velk recover in.bin y.bin -o x.bin"}},
    {"redact: the image is written, but bytes without a known meaning are left in it",
     {"$velk redact $images/detector.bin -o x.bin"}},
    {"a file is written, but its folder could not be synced", {}},
    {"a command, option or value is unknown, missing or out of range",
     {"$velk", "$velk lst", "$velk list", "$velk list --frob in.bin", "$velk print --id x in.bin"}},
    {"--offset is past the end of an image", {"$velk check --offset 0x10000 in.bin"}},
    {"the output would overwrite an input", {"$velk set in.bin --id 2 serialNumber=7 -o ./in.bin"}},
    {"set: the field does not exist, or cannot have the value; nothing is changed",
     {"$velk set in.bin --id 2 frob=1 --in-place", "$velk set in.bin --id 2 serialNumber=x --in-place"}},
    {"export: several tables would go to one CSV output", {"$velk export --format csv in.bin dac.bin"}},
    {"table: blocks of the id have no text form that can be read back", {"$velk table export in.bin --id 2"}},
    {"a file or folder cannot be read; the others are still read",
     {"$velk list missing in.bin", "$velk check --json missing damaged.bin", "ln -s loop loop; $velk print ."}},
    {"a file or standard output cannot be written",
     {"$velk list in.bin >/dev/full", "$velk set in.bin --id 2 serialNumber=7 -o /dev/full",
      "$velk set in.bin --id 2 serialNumber=7 -o missing/x.bin"}},
    {"a changed image cannot be written in its container",
     {"gzip in.bin; $velk set in.bin.gz --id 2 serialNumber=7 --in-place"}},
    {"redact: the image is refused; nothing is written", {"$velk redact damaged.bin --offset 4 -o x.bin"}},
    {"memory runs out", {}},
};

TEST_F(ExitCodes, EveryCaseLeadsToItsCode) {
  for (const VelkTool::ExitMeaning& exit : VelkTool::exitCases) {
    const auto found = scripts.find(exit.meaning);
    if (found == scripts.end()) ADD_FAILURE() << "no script for: " << exit.meaning;
    for (const char* const script : found == scripts.end() ? std::vector<const char*>() : found->second) {
      const VelkTest::Outcome result = shell(QString(preparation) + script);
      EXPECT_EQ(result.exitCode, static_cast<int>(exit.code)) << script << '\n' << result.errors;
      EXPECT_EQ(shell("rm -rf * && ls -A").output, "");
    }
  }
  EXPECT_EQ(scripts.size(), std::size(VelkTool::exitCases));
}

TEST_F(ExitCodes, PagesListEveryCase) {
  std::string table = "| exit code | case |\n|---|---|\n";
  std::string manual = shell("\"$velk\" manual").output;
  for (const VelkTool::ExitMeaning& exit : VelkTool::exitCases) {
    table += "| " + std::to_string(static_cast<int>(exit.code)) + " | " + exit.meaning + " |\n";
    EXPECT_NE(QString::fromStdString(manual).remove('\\').indexOf(exit.meaning), -1) << exit.meaning;
  }
  const std::string page = VelkTest::readFile(VELK_SOURCE_DIR "/docs/faults.md");
  EXPECT_NE(page.find(table), page.npos) << "the table for docs/faults.md is\n" << table;
}

}  // namespace
