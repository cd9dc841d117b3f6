#include <nlohmann/json.hpp>

#include "CommandSupport.h"
#include "velk/checks/FindingTable.h"

namespace {

using nlohmann::json;
using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

class Check : public Command {
 protected:
  /// The synthesizer with its levels out of order and serviced before it was made.
  QString odd() {
    QString path = directory_.filePath("odd.bin");
    EXPECT_EQ(run({"set", "synthesizer.bin", "--id", "10002", "values[1]=3", "-o", path}).exitCode, 0);
    EXPECT_EQ(run({"set", path, "--id", "200", "serviceDate=2017-01-01", "--in-place"}).exitCode, 0);
    return path;
  }
};

const std::string unordered = "; values[1] is 3, below values[0], 1e+09 [unordered-points]\n";
const std::string early =
    "SERVICE_200 at 0x00000058: serviceDate is 2017-01-01, before the module was made, on 2018-06-21 "
    "[date-before-production]\n";

TEST_F(Check, WarningsLeaveTheVerdictAndTheExitCode) {
  const Outcome result = run({"check", odd()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(result.output.find("SSYN_OPU_LEVEL_FREQ: sound" + unordered), std::string::npos) << result.output;
  EXPECT_TRUE(result.output.ends_with("END: sound\nwarning: " + early)) << result.output;
  EXPECT_EQ(result.errors, "");
  for (const char* const other : {"list", "print"}) EXPECT_EQ(run({other, odd()}).errors, "") << other;
}

TEST_F(Check, OptionsDecideWhatIsReportedAndWhatCounts) {
  struct Case {
    QStringList options;
    int exitCode;
    bool unordered;
    bool early;
  };
  const Case cases[] = {
      {{"--strict"}, 1, true, true},
      {{"--error", "date-before-production"}, 1, true, true},
      {{"--error", "zero-values"}, 0, true, true},
      {{"--disable", "unordered-points"}, 0, false, true},
      {{"--only", "unordered-points"}, 0, true, false},
      {{"--strict", "--only", "zero-values"}, 0, false, false},
      {{"--strict", "--disable", "unordered-points", "--disable", "date-before-production"}, 0, false, false},
      {{"--only", "unordered-points", "--only", "zero-values", "--disable", "unordered-points"}, 0, false, false},
      {{"--today", "2020-01-01", "--only", "future-date", "--strict"}, 1, false, false},
  };
  const QString image = odd();
  for (const Case& expected : cases) {
    const Outcome result = run(QStringList{"check", image} + expected.options);
    SCOPED_TRACE(expected.options.join(' ').toStdString());
    EXPECT_EQ(result.exitCode, expected.exitCode);
    EXPECT_EQ(result.output.find(unordered) != std::string::npos, expected.unordered);
    EXPECT_EQ(result.output.find(early) != std::string::npos, expected.early);
    EXPECT_EQ(run(QStringList{"check", "--json", image} + expected.options).exitCode, expected.exitCode);
  }
}

TEST_F(Check, DamageThatIsLeftOutDoesNotCount) {
  QByteArray bytes = VelkTest::exampleImage("rf_board.bin");
  bytes[20] = 0;
  const QString path = file("damaged.bin", bytes);
  EXPECT_EQ(run({"check", path}).exitCode, 1);
  const Outcome result = run({"check", path, "--disable", "wrong-checksum"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(result.output.starts_with("0x00000000  IDENT_2: wrong checksum\n")) << result.output;
}

TEST_F(Check, JsonHasTheCheckItsSeverityAndTheField) {
  const json report = json::parse(run({"check", "--json", "--error", "unordered-points", odd()}).output)["files"][0];
  const json expected = json::parse(R"([{"finding": "unordered points", "remark": true,
      "text": "values[1] is 3, below values[0], 1e+09", "code": "unordered-points", "severity": "error",
      "path": "values[1]"}])");
  EXPECT_EQ(report["blocks"][8]["findings"], expected);
  EXPECT_EQ(report["blocks"][8]["sound"], true);
  const json& ofImage = report["findings"][0];
  EXPECT_EQ(ofImage["code"], "date-before-production");
  EXPECT_EQ(ofImage["severity"], "warning");
  EXPECT_EQ(ofImage["offset"], 0x58);
  EXPECT_FALSE(json::parse(run({"list", "--json", odd()}).output)["files"][0].contains("findings"));
  const json line =
      json::parse(run({"list", "--json", file("line.hex", ":0400000002002C00CE\n:0400040002002C00CF\n:00000001FF\n")})
                      .output)["files"][0];
  EXPECT_EQ(line["findings"][0]["code"], "damaged-line");
  EXPECT_EQ(line["findings"][0]["text"], line["warning"]);
}

TEST(Explain, AllChecksOrOne) {
  const Outcome all = run({"explain"});
  EXPECT_EQ(all.exitCode, 0);
  EXPECT_EQ(std::ranges::count(all.output, '\n'), static_cast<std::ptrdiff_t>(Velk::findingKinds().size()));
  const Outcome one = run({"explain", "list-without-table"});
  EXPECT_TRUE(one.output.starts_with("list-without-table, warning: a list of points has no table\n\n")) << one.output;
  const Outcome wrong = run({"explain", "list-wihtout-table"});
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_EQ(wrong.errors, "velk: explain: unknown check \"list-wihtout-table\"; the nearest is list-without-table\n");
}

TEST(Explain, ThePageOfTheChecksIsThatOfTheCode) {
  const std::string page = VelkTest::readFile(VELK_SOURCE_DIR "/docs/checks.md");
  EXPECT_TRUE(page.ends_with("\n\n" + run({"explain", "--markdown"}).output)) << "make the page anew: ./dev docs";
  const std::string manual = run({"manual"}).output;
  EXPECT_NE(manual.find("\\fBlist\\-without\\-table\\fR (warning)\n"), std::string::npos);
}

}  // namespace
