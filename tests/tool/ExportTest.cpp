#include <set>

#include <nlohmann/json.hpp>

#include "../../tool/UnusedNames.h"
#include "CommandSupport.h"

namespace {

using nlohmann::json;
using VelkTest::Command;
using VelkTest::Outcome;
using VelkTest::run;

class Export : public Command {
 protected:
  std::string contents(const QString& name) { return VelkTest::readFile(directory_.filePath(name).toStdString()); }
};

TEST_F(Export, JsonOfTheExamplesStaysAsItIs) {
  for (const QString& image : VelkTest::exampleImages()) {
    const Outcome result = run({"export", "--stored", image});
    EXPECT_EQ(result.exitCode, 0) << image.toStdString();
    if (result.output.size() > 50'000) continue;
    const std::string name = image.chopped(4).toStdString() + ".export.json";
    EXPECT_EQ(result.output, VelkTest::golden(name, result.output)) << name;
  }
}

TEST_F(Export, JsonLinesSayWhatTheDocumentSays) {
  const json noBlock = {{"offset", 0},
                        {"size", 0},
                        {"id", nullptr},
                        {"name", nullptr},
                        {"kind", "none"},
                        {"sound", false},
                        {"fields", json::object()},
                        {"declaredSize", nullptr}};
  QByteArray stray = VelkTest::exampleImage("rf_board.bin");
  stray[1000] = 0;
  const QString damaged = file("damaged.bin", stray);
  const QStringList files = {"detector.bin", "missing.bin", "rf_board.bin", file("empty.bin", {}), damaged};
  const Outcome lines = run(QStringList{"export", "--format", "jsonl"} + files);
  EXPECT_EQ(lines.exitCode, 3);
  std::istringstream stream(lines.output);
  std::vector<json> blocks;
  std::set<json> modules;
  for (std::string line; std::getline(stream, line);) {
    blocks.push_back(json::parse(line));
    modules.insert(json::array({blocks.back()["file"], blocks.back()["serial"], blocks.back()["module"]}));
    for (const char* const ofModule : {"serial", "module"}) blocks.back().erase(ofModule);
  }
  const std::set<json> expectedModules{{"detector.bin", 100871, "DETECTOR"},
                                       {"missing.bin", nullptr, nullptr},
                                       {"rf_board.bin", 100234, "RF-BOARD"},
                                       {file("empty.bin", {}).toStdString(), nullptr, nullptr},
                                       {damaged.toStdString(), 100234, "RF-BOARD"}};
  EXPECT_EQ(modules, expectedModules);
  const json document = json::parse(run(QStringList{"export"} + files).output);
  std::vector<json> expected;
  for (const json& file : document["files"]) {
    const json start = {{"schema", "velk/1"}, {"file", file["file"]}};
    for (const json& block : file["blocks"]) {
      expected.push_back(noBlock);
      expected.back().update(block);
      expected.back().update(start);
    }
    if (!file["blocks"].empty()) continue;
    expected.push_back(noBlock);
    expected.back().update(start);
    if (file.contains("error")) expected.back()["error"] = file["error"];
    const json why = file.contains("error") ? file["error"] : file["warning"];
    const char* const verdict = file.contains("error") ? "unreadable" : "no blocks";
    expected.back()["verdict"] = verdict;
    const char* const code = file.contains("error") ? "unreadable" : "no-blocks";
    expected.back()["findings"] =
        json::array({{{"finding", verdict}, {"remark", false}, {"text", why}, {"code", code}, {"severity", "error"}}});
  }
  EXPECT_EQ(blocks, expected);
}

TEST_F(Export, EqualNamesAreToldApart) {
  VelkTool::UnusedNames names;
  EXPECT_EQ(names.take("a~2"), "a~2");
  EXPECT_EQ(names.take("a"), "a");
  EXPECT_EQ(names.take("a"), "a~3") << "a~2 is another table's";
  EXPECT_EQ(names.take("a~2"), "a~2~2");
  EXPECT_EQ(names.take("a~3"), "a~3~2");
  EXPECT_EQ(names.take("a"), "a~4");
  // A search from ~2 on for each would be at this for hours.
  std::string last;
  for (int i = 1; i <= 200'000; ++i) last = names.take("board");
  EXPECT_EQ(last, "board~200000");
}

TEST_F(Export, SelectsBlocks) {
  const auto offsets = [](const QStringList& arguments) {
    const json document = json::parse(run(QStringList{"export", "rf_board.bin"} + arguments).output);
    std::vector<int> found;
    for (const json& block : document["files"][0]["blocks"]) found.push_back(block["offset"].get<int>());
    return found;
  };
  EXPECT_EQ(offsets({"--id", "10", "--id", "4242"}), (std::vector<int>{44, 88}));
  EXPECT_EQ(offsets({"--id", "10", "--nth", "2"}), std::vector<int>{});
  EXPECT_EQ(run({"export", "--id", "65536", "rf_board.bin"}).exitCode, 2);
}

TEST_F(Export, CsvOfOneTableOrOfAllToFiles) {
  const Outcome one = run({"export", "--format", "csv", "--id", "15750", "rf_board_tables.bin"});
  EXPECT_EQ(one.exitCode, 0);
  EXPECT_TRUE(one.output.starts_with("row,cells[0]\n0,0\n")) << one.output;

  const Outcome many = run({"export", "--format", "csv", "detector.bin"});
  EXPECT_EQ(many.exitCode, 2);
  EXPECT_EQ(many.output, "");
  EXPECT_NE(many.errors.find("has 7 tables; use -o to name a folder"), many.errors.npos) << many.errors;

  EXPECT_EQ(run({"export", "--format", "csv", "detector.bin", "detector.bin", "-o", directory_.path()}).exitCode, 0);
  const QStringList files = QDir(directory_.path()).entryList(QDir::Files, QDir::Name);
  EXPECT_EQ(files.size(), 14);
  EXPECT_TRUE(files.contains("detector.ID_1040.table1.csv") && files.contains("detector.ID_1040.table1~2.csv"));
  EXPECT_EQ(contents("detector.IDENT_2.csv").substr(0, 11), "eepromSize,");
  EXPECT_EQ(run({"export", "--format", "csv", "detector.bin", "-o", directory_.filePath("in/a/new")}).exitCode, 0);
  EXPECT_NE(contents("in/a/new/detector.IDENT_2.csv"), "");
  EXPECT_EQ(run({"export", "--format", "csv", "detector.bin", "-o", "/dev/null"}).exitCode, 2);
  EXPECT_EQ(run({"export", "detector.bin", "-o", directory_.path()}).exitCode, 2) << "JSON makes no files";
}

TEST_F(Export, DamagedBlocksAreThereAndTold) {
  QByteArray bytes = VelkTest::exampleImage("rf_board.bin");
  bytes[34] = '\xE4';
  const Outcome result = run({"export", "--id", "2", file("damaged.bin", bytes)});
  EXPECT_EQ(result.exitCode, 1);
  const json block = json::parse(result.output)["files"][0]["blocks"][0];
  EXPECT_EQ(block["verdict"], "wrong checksum");
  EXPECT_EQ(block["fields"]["name"],
            "RF-B\xC3\xA4"
            "ARD");
}

}  // namespace
