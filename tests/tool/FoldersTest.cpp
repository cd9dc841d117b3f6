// Folders in place of files, and what a check of many files comes to.
#include <random>

#include "ShellSupport.h"

namespace {

using VelkTest::Outcome;

class Folders : public VelkTest::Shell {
 protected:
  /// Copies of a sound board, and one whose serial number is damaged.
  void SetUp() override {
    const Outcome made = shell(R"sh(
      mkdir -p d/b d/e; for name in d/b.bin d/b/1.bin d/b-1.bin d/a.hex; do cp "$board" $name; done
      cp "$board" d/c.bin; printf '\213' | dd of=d/c.bin bs=1 seek=20 conv=notrunc status=none)sh");
    ASSERT_EQ(made.exitCode, 0) << made.errors;
  }
};

TEST_F(Folders, FilesAreSortedByTheirBytesInPlaceOfTheirFolder) {
  const Outcome result = shell(R"sh(
    export LC_ALL=C; cp "$board" z.bin; cp "$board" $'d/\xff.bin'; cp "$board" d/.hidden; mkfifo d/pipe
    { echo z.bin; find d -type f | LC_ALL=C sort; echo z.bin; } >expected
    for verb in list check; do "$velk" $verb z.bin d/ z.bin | grep -a '^.*:$' | tr -d : | cmp - expected; done
    "$velk" print z.bin d z.bin 2>/dev/null | grep -ac ^SN:; wc -l <expected
    "$velk" export --format jsonl d | grep -ao '"file": "[^"]*"' | uniq | wc -l
    "$velk" list --json d | grep -c '"fileBytes": "642fff2e62696e"'
    rm $'d/\xff.bin')sh");
  EXPECT_EQ(result.output, "18\n9\n7\n1\n") << "two blocks of each file have a serial number; " << result.errors;
}

TEST_F(Folders, AFolderKeepsItsPlaceAmongManyFiles) {
  const Outcome result = shell(R"sh(
    mkdir n; for i in $(seq 1000 1300); do cp "$board" n/$i.bin; done
    "$velk" list n/1[012]??.bin d/b n/1300.bin | grep ':$' >listed; sed -n '1p;300p;301p;302p' listed; wc -l <listed)sh");
  EXPECT_EQ(result.output, "n/1000.bin:\nn/1299.bin:\nd/b/1.bin:\nn/1300.bin:\n302\n") << result.errors;
}

TEST_F(Folders, LinksAreFollowedButNotInCircles) {
  const Outcome result = shell(R"sh(
    mkdir other; mv d/b.bin other/; ln -s .. d/b/up; ln -s ../other d/a; ln -s ../other d/z; ln -s b d/0
    "$velk" list d | grep ':$'
    ln -s self d/self; "$velk" check d -q; echo "exit $?")sh");
  EXPECT_EQ(result.output.substr(0, result.output.find("d/c.bin:\n0x")),
            "d/a.hex:\nd/a/b.bin:\nd/b-1.bin:\nd/b/1.bin:\nd/c.bin:\n");
  EXPECT_TRUE(
      result.output.ends_with("d/self: unreadable\n6 files: 4 sound, 0 with warnings, 1 damaged, 1 unreadable\n"
                              "exit 3\n"))
      << result.output;
}

TEST_F(Folders, WhatCannotBeReadDoesNotStopTheOthers) {
  const Outcome result = shell(R"sh(
    chmod 0 d/b; chmod 755 . d
    as_user() { if [ $(id -u) = 0 ]; then setpriv --reuid 4323 --regid 4323 --clear-groups "$@"; else "$@"; fi; }
    as_user "$velk" check d missing -q; echo "exit $?"
    as_user "$velk" check --json d 2>/dev/null | grep -c '"error": "Permission denied"'; chmod 755 d/b)sh");
  EXPECT_EQ(result.errors, "velk: d/b: Permission denied\nvelk: missing: No such file or directory\n");
  EXPECT_EQ(result.output,
            "d/c.bin:\n0x00000000  IDENT_2: wrong checksum; checksum is 0xF430, the bytes give 0xF42F\n\n"
            "d/b: unreadable\nd/c.bin: damaged: 1 wrong-checksum\nmissing: unreadable\n"
            "6 files: 3 sound, 0 with warnings, 1 damaged, 2 unreadable\nexit 3\n"
            "1\n");
}

TEST_F(Folders, GlobsChooseNamesAndNothingFoundIsTold) {
  const Outcome result = shell(R"sh(
    "$velk" list --glob '*.hex' --glob '1*' d | grep ':$'
    "$velk" check --glob '*.hex' d/c.bin d/b d --summary 2>&1; echo "exit $?"
    "$velk" check d/e 2>&1; echo "exit $?")sh");
  EXPECT_EQ(result.output,
            "d/a.hex:\nd/b/1.bin:\nvelk: d/b: holds no file with a name that --glob accepts\n"
            "2 files: 1 sound, 0 with warnings, 1 damaged\nwrong-checksum: 1 in 1 file\nexit 1\n"
            "velk: d/e: holds no file\nexit 1\n");
}

TEST_F(Folders, QuietChecksSayNothingOfWhatIsSound) {
  const Outcome result = shell(R"sh(
    "$velk" check -q d/b d/b.bin; echo "exit $?"
    "$velk" check d/b.bin d/c.bin | tail -4
    "$velk" check -q --json d 2>&1; echo "exit $?")sh");
  EXPECT_EQ(result.output,
            "exit 0\n\nd/b.bin: sound\nd/c.bin: damaged: 1 wrong-checksum\n"
            "2 files: 1 sound, 0 with warnings, 1 damaged\n"
            "velk: --json: describes all blocks; --quiet and --summary shorten the text\nexit 2\n");
}

TEST_F(Folders, ColoursAreForDamageOnTerminalsThatWantThem) {
  const Outcome result = shell(R"sh(
    count() { "$@" | grep -c $'^\x1b\\[31m0x00000000.*\x1b\\[0m$'; }
    count "$velk" list d/c.bin; count "$velk" check --color always d/c.bin d; count terminal "$velk" check d/c.bin
    export TERM_OF_TEST=dumb; count terminal "$velk" list d/c.bin; unset TERM_OF_TEST; export NO_COLOR=1
    count terminal "$velk" list d/c.bin; count terminal "$velk" list --color always d/c.bin
    NO_COLOR= count terminal "$velk" list --color never d/c.bin; "$velk" list --color always d/b.bin | cmp - <("$velk" list d/b.bin)
    mv d/c.bin d/$'\x1b[1m.bin'; "$velk" check --color always d | grep -c 'x1b\[1m.bin')sh");
  EXPECT_EQ(result.output, "0\n2\n1\n0\n0\n1\n0\n2\n") << result.errors;
}

TEST_F(Folders, LongRunsAreCountedOnATerminalAndTheLineIsErased) {
  const Outcome result = shell(R"sh(
    count() { terminal bash -c "sleep 1.3 | cat - $board | $velk $* - d/b.bin d/b >out"; }
    count check; count check --no-progress; grep -c files: out
    cat "$board" | "$velk" check - d 2>&1 >/dev/null)sh");
  EXPECT_TRUE(result.output.starts_with("1 of 3 files  ") && result.output.ends_with("  1\n")) << result.output;
}

TEST_F(Folders, AreRedactedIntoAnotherFolder) {
  const Outcome result = shell(R"sh(
    : >d/b/0; "$velk" redact d -o out/new >report 2>errors; echo "exit $?"; grep -c ':$' report; cat errors | grep 0:
    (cd out/new && find . -type f | LC_ALL=C sort); "$velk" redact "$board" -o one >/dev/null; cmp one out/new/b/1.bin
    cp -r d before; "$velk" redact d/ -o d >/dev/null 2>&1; echo "exit $?"; diff -r d before
    "$velk" redact d --in-place 2>&1; echo "exit $?"; diff -r d before
    "$velk" redact --glob '?.bin' d -o some >/dev/null; (cd some && find . -type f | LC_ALL=C sort))sh");
  EXPECT_EQ(result.output,
            "exit 3\n5\nvelk: d/b/0: is empty\n"
            "velk: d/b/0: bytes that cannot be interpreted may hold anything; nothing is written without --force\n"
            "./a.hex\n./b-1.bin\n./b.bin\n./b/1.bin\n./c.bin\nexit 2\n"
            "velk: d: is a folder; use -o to name a folder for the redacted files\nexit 2\n"
            "./b.bin\n./b/1.bin\n./c.bin\n");
}

/// The names of files that an overview calls damaged.
QStringList namedDamaged(const std::string& overview) {
  QStringList names;
  for (const QString& line : QString::fromStdString(overview).split('\n')) {
    const qsizetype end = line.indexOf(": damaged");
    if (end > 0) names += line.left(end);
  }
  return names;
}

TEST_F(Folders, AnOverviewNamesEveryDamagedFileOfAFleet) {
  const QStringList examples = VelkTest::exampleImages();
  ASSERT_TRUE(QDir(directory_.path()).mkdir("fleet"));
  std::mt19937 random(19);  // NOLINT: the same fleet in every run
  QStringList damaged;
  for (int i = 0; i < 500; ++i) {
    const QString name = QString("fleet/%1.bin").arg(i, 3, 10, QChar('0'));
    QByteArray image = VelkTest::exampleImage(examples[i % examples.size()]);
    if (i % 25 == 7) {
      // In the serial number of the identification that each image begins with.
      const qsizetype at = 20 + static_cast<qsizetype>(random() % 4);
      image[at] = static_cast<char>(image[at] ^ (1U << (random() % 8)));
      damaged += name;
    }
    file(name, image);
  }
  const Outcome result = shell("\"$velk\" check -q fleet; echo \"exit $?\"; \"$velk\" check --summary fleet | head -1");
  EXPECT_EQ(namedDamaged(result.output), damaged) << result.output;
  EXPECT_NE(result.output.find(", 20 damaged\nexit 1\n500 files: "), std::string::npos) << result.output;
}

}  // namespace
