#include <unistd.h>

#include "ShellSupport.h"

namespace {

using VelkTest::Outcome;

#ifndef __has_feature
#define __has_feature(feature) 0
#endif
#if __has_feature(address_sanitizer) || defined(__SANITIZE_ADDRESS__)
constexpr const char* limitMemory = "export ASAN_OPTIONS=allocator_may_return_null=1:max_allocation_size_mb=256";
#else
constexpr const char* limitMemory = "ulimit -v 500000";
#endif

class Files : public VelkTest::Shell {};

TEST_F(Files, NamesAreBytes) {
  const Outcome result = shell(R"sh(
    cp "$board" $'\xff.bin'; echo precious >$'\xef\xbf\xbd.bin'
    "$velk" set $'\xff.bin' --id 2 serialNumber=7 --in-place --backup || exit
    cat $'\xef\xbf\xbd.bin'; cmp "$board" $'\xff.bin.bak'
    "$velk" set "$board" --id 2 serialNumber=7 -o $'\xfe.bin' >/dev/null || exit
    cmp $'\xff.bin' $'\xfe.bin' || exit
    cp "$board" $'\xef\xbf\xbd.bin'
    "$velk" export --format csv --id 2 $'\xff.bin' $'\xef\xbf\xbd.bin' -o . || exit
    ls | grep -c IDENT_2.csv
    rm *)sh");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "IDENT_2 serialNumber: 100234 -> 7\nprecious\n2\n");
}

TEST_F(Files, ABackupReplacesOnlyARegularFile) {
  const Outcome result = shell(R"sh(
    change() { "$velk" set in.bin --id 2 serialNumber=7 --in-place --backup 2>&1; echo "exit $?"; rm in.bin.bak; }
    cp "$board" in.bin
    ln -s in.bin in.bin.bak; change
    ln -s /dev/null in.bin.bak; change
    mkfifo in.bin.bak; change
    mkdir in.bin.bak; change; rmdir in.bin.bak
    cmp "$board" in.bin
    echo 'ID: RFBO_ATTREG_DATA' >in.bin.bak
    "$velk" table import in.bin in.bin.bak --in-place --backup 2>&1; echo "exit $?"; cat in.bin.bak)sh");
  EXPECT_EQ(result.output,
            "velk: in.bin.bak: is a symbolic link; a backup replaces only regular files\nexit 2\n"
            "velk: in.bin.bak: is a symbolic link; a backup replaces only regular files\nexit 2\n"
            "velk: in.bin.bak: is not a regular file; a backup replaces only regular files\nexit 2\n"
            "velk: in.bin.bak: is not a regular file; a backup replaces only regular files\nexit 2\n"
            "velk: in.bin.bak: would be overwritten by the backup\nexit 2\nID: RFBO_ATTREG_DATA\n");
}

TEST_F(Files, WhatIsOpenIsWrittenAndNotReplaced) {
  const Outcome result = shell(R"sh(
    set() { "$velk" set "$board" --id 2 serialNumber=7 "$@" 2>/dev/null; }
    set -o plain.bin >/dev/null
    { echo head; set -o /dev/stdout; } >out.bin; tail -c +6 out.bin | cmp - plain.bin && head -n 1 -q out.bin
    set -o /dev/fd/5 5>fifth.bin && cmp fifth.bin plain.bin
    ln -s /dev/stdout link; set -o link | cmp - plain.bin
    mkfifo pipe; cat pipe >piped.bin & set -o pipe; wait; cmp piped.bin plain.bin)sh");
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output.substr(0, 5), "head\n") << result.output;
  EXPECT_EQ(result.errors, "");
}

TEST_F(Files, OtherNamesOfTheInputAreNotOverwritten) {
  const Outcome result = shell(R"sh(
    cp "$board" in.bin; ln in.bin hard.bin; ln -s in.bin soft.bin
    for out in hard.bin soft.bin ./in.bin; do
      "$velk" redact in.bin -o $out 2>&1; echo "exit $?"
    done
    "$velk" set soft.bin --id 2 serialNumber=7 --in-place; test -L soft.bin && ! cmp -s in.bin "$board"; echo $?
    chmod 640 in.bin; "$velk" set in.bin --id 2 serialNumber=8 --in-place; stat -c %a in.bin)sh");
  const std::string refusal = "velk: in.bin: would be overwritten; use --in-place to change it\nexit 2\n";
  EXPECT_EQ(result.output,
            refusal + refusal + refusal + "IDENT_2 serialNumber: 100234 -> 7\n0\nIDENT_2 serialNumber: 7 -> 8\n640\n");
}

TEST_F(Files, TheOwnerIsKept) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  const Outcome result = shell(R"sh(
    chmod 777 .; cp "$board" in.bin; chown 4321:4322 in.bin; chmod 666 in.bin
    "$velk" set in.bin --id 2 serialNumber=7 --in-place --backup; stat -c %u:%g in.bin in.bin.bak
    setpriv --reuid 4323 --regid 4323 --clear-groups "$velk" set in.bin --id 2 serialNumber=8 --in-place 2>&1
    echo "exit $?"; "$velk" print in.bin | grep -a ^SN:; ls -A)sh");
  EXPECT_EQ(result.output,
            "IDENT_2 serialNumber: 100234 -> 7\n4321:4322\n4321:4322\nvelk: in.bin: its owner and permissions cannot "
            "be kept: Operation not permitted\nexit 3\n"
            "SN:              7\nSN:              4711\nin.bin\nin.bin.bak\n");
}

TEST_F(Files, ChangesAtOnceAreAllKept) {
  const Outcome result = shell(R"sh(
    cp "${board%rf_board.bin}dac_board.bin" in.bin
    for i in {0..19}; do "$velk" set in.bin --id 13600 "values[$i]=$i" --in-place >/dev/null & done; wait
    "$velk" export --format csv --id 13600 in.bin | cut -d , -f 2 | sed -n 2,21p | paste -s -d ' '; ls -A)sh");
  EXPECT_EQ(result.output, "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19\nin.bin\n") << result.errors;
}

TEST_F(Files, NoRoomIsAFailureAndChangesNothing) {
  const Outcome result = shell(R"sh(
    cp "$board" in.bin
    (ulimit -f 0; "$velk" set in.bin --id 2 serialNumber=7 --in-place 2>&1 | cat; echo "exit ${PIPESTATUS[0]}")
    "$velk" set in.bin --id 2 serialNumber=7 --in-place 2>&1 >/dev/full; echo "exit $?"
    "$velk" set in.bin --id 2 serialNumber=7 -o /dev/full 2>&1; echo "exit $?"
    "$velk" list in.bin 2>&1 >/dev/full; echo "exit $?"; "$velk" list in.bin 2>&1 >&-; echo "exit $?"
    cmp in.bin "$board" && ls -A)sh");
  EXPECT_EQ(result.output,
            "velk: in.bin: File too large\nexit 3\n"
            "velk: standard output: No space left on device\nexit 3\n"
            "velk: /dev/full: No space left on device\nexit 3\n"
            "velk: standard output: No space left on device\nexit 3\n"
            "velk: standard output: Bad file descriptor\nexit 3\nin.bin\n");
}

TEST_F(Files, ClosedStandardInputIsNoOtherFile) {
  const Outcome result = shell(R"sh(
    for files in "-" "- $board" "$board -"; do
      for verb in list check print "export --format jsonl" "list --json"; do
        "$velk" $verb $files <&- >out; echo -n "$?"; grep -q IDENT_10 out && echo -n "+"
      done
    done)sh");
  EXPECT_EQ(result.output, "333333+3+3+3+3+3+3+3+3+3+") << result.errors;
}

TEST_F(Files, AFileTooLargeForMemoryIsGivenUpAlone) {
  const Outcome result = shell(QString(limitMemory) + R"sh(
    truncate -s 600M large.bin
    for verb in check "list --json" "export --format jsonl"; do
      "$velk" $verb large.bin "$board" >out; echo -n "$?"; grep -q IDENT_10 out && echo -n "+"
    done)sh");
  EXPECT_EQ(result.output, "3+3+3+") << result.errors;
  EXPECT_NE(result.errors.find("velk: large.bin: Cannot allocate memory\n"), std::string::npos) << result.errors;
}

}  // namespace
