// The command lines and recipes of the pages, as they stand there, over the example images and over a folder in which
// not all is well.
#include <regex>

#include "CommandSupport.h"

namespace {

using VelkTest::Outcome;

/// A command line of a page and what the page shows of its output.
struct Shown {
  std::string command;
  std::string output;
};

std::vector<std::string> linesOf(const std::string& page) {
  std::istringstream text(VelkTest::readFile(std::string(VELK_SOURCE_DIR "/") + page));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

/// The parts of a page that are code, indented or between fences.
std::vector<std::string> codeOf(const std::string& page) {
  constexpr std::string_view indent = "    ";
  std::vector<std::string> parts(1);
  bool fenced = false;
  for (const std::string& line : linesOf(page)) {
    if (line.starts_with("```")) {
      fenced = !fenced;
      parts.emplace_back();
    } else if (fenced || line.starts_with(indent)) {
      parts.back() += line.substr(fenced ? 0 : indent.size()) + '\n';
    } else if (line.empty() && !parts.back().empty()) {
      parts.back() += '\n';
    } else if (!line.empty()) {
      parts.emplace_back();
    }
  }
  return parts;
}

bool goesOn(const std::string& command) { return command.ends_with('|') || std::ranges::count(command, '\'') % 2 == 1; }

std::vector<Shown> commandsOf(const std::string& page) {
  std::vector<Shown> commands;
  for (const std::string& part : codeOf(page)) {
    std::istringstream lines(part);
    Shown shown;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("$ ")) {
        if (!shown.command.empty()) commands.push_back(shown);
        shown = {line.substr(2), ""};
      } else if (goesOn(shown.command)) {
        shown.command += '\n' + line;
      } else {
        shown.output += line + '\n';
      }
    }
    while (shown.output.ends_with("\n\n")) shown.output.pop_back();
    if (!shown.command.empty()) commands.push_back(shown);
  }
  return commands;
}

class Recipes : public testing::Test {
 protected:
  /// Copies of the examples.
  void takeImages() {
    const QDir examples(VELK_SOURCE_DIR "/examples/images");
    for (const QString& name : examples.entryList({"*.bin", "*.dump"}, QDir::Files)) {
      EXPECT_TRUE(QFile::copy(examples.filePath(name), directory_.filePath(name)));
    }
  }

  /// The fleet that docs/data.md is about.
  void takeFleet() {
    takeImages();
    QFile::remove(directory_.filePath("every_id.bin"));
  }

  void addFile(const QString& name, const QByteArray& bytes) {
    QFile file(directory_.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  void addTrouble() {
    EXPECT_TRUE(QFile::link("nowhere", directory_.filePath("a_unreadable.bin")));
    addFile("b_empty.bin", {});
    QByteArray damaged = VelkTest::exampleImage("rf_board.bin").mid(44);
    damaged[20] = static_cast<char>(damaged[20] ^ 1);
    addFile("c_damaged.bin", damaged);
  }

  /// In the folder, by a shell that finds velk. Lines end without blanks, as they do on pages.
  Outcome shell(const std::string& command) {
    const QString line =
        QString("cd '%1' && PATH='%2':$PATH && ").arg(directory_.path(), QFileInfo(VELK_COMMAND).path());
    Outcome outcome = VelkTest::run({"-c", line + QString::fromStdString(command)}, {}, "bash");
    outcome.output = std::regex_replace(outcome.output, std::regex(" +\n"), "\n");
    return outcome;
  }

  /// The one command of a page that begins and goes on so.
  static Shown recipe(const std::string& page, std::string_view start, std::string_view part) {
    for (const Shown& shown : commandsOf(page)) {
      if (shown.command.starts_with(start) && shown.command.find(part) != std::string::npos) return shown;
    }
    ADD_FAILURE() << page << " has no " << start << " ... " << part;
    return {};
  }

  /// What the page shows as a file goes into that file.
  void takeShownFile(const Shown& shown) {
    addFile(QString::fromStdString(shown.command.substr(4)), QByteArray::fromStdString(shown.output));
  }

  /// What a notebook of the page that begins so comes to, as further lines print it.
  std::string runNotebook(std::string_view start, std::string_view prints) {
    std::string script = "import pandas, sys\n";
    for (const std::string& part : codeOf("docs/data.md")) {
      if (part.starts_with(start)) script += part;
    }
    script = std::regex_replace(script, std::regex(".*\\.plot\\(\\)\n"), "") + std::string(prints);
    addFile("notebook.py", QByteArray::fromStdString(script));
    const Outcome result = shell(VELK_PYTHON " notebook.py");
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    return result.output;
  }

  /// The unsound files, serial numbers, and points by file.
  std::string runNotebook() {
    return runNotebook(
        "blocks = pandas.",
        "print(sorted(set(blocks[~blocks.sound].file)), list(idents.get('serialNumber', [])), len(points))\n"
        "print(list(points.index.unique()))\n");
  }

  QTemporaryDir directory_;
};

TEST_F(Recipes, CommandLinesPrintWhatThePagesShow) {
  // Those before the tour set it up; the plotter is more than a test should need.
  const auto isForPeople = [](const std::string& command) {
    return command.starts_with("./dev") || command.starts_with("PATH=") || command.starts_with("cp -r") ||
           command.starts_with("cd ") || command.find("gnuplot") != std::string::npos;
  };
  const std::string cut = "...\n";
  std::size_t commands = 0;
  QStringList pages = QDir(VELK_SOURCE_DIR "/docs").entryList({"*.md"}, QDir::Files);
  for (QString& page : pages) page.prepend("docs/");
  for (const QString& page : QStringList{"README.md"} + pages) {
    directory_ = QTemporaryDir();
    page == "docs/data.md" ? takeFleet() : takeImages();
    for (const Shown& shown : commandsOf(page.toStdString())) {
      if (isForPeople(shown.command)) continue;
      SCOPED_TRACE(page.toStdString() + ": " + shown.command);
      ++commands;
      if (shown.command.starts_with("cat ")) {
        takeShownFile(shown);
        continue;
      }
      std::string printed = shell("{ " + shown.command + "\n} 2>&1").output;
      while (printed.ends_with("\n\n")) printed.pop_back();  // a page shows no empty line at the end
      const bool isCut = shown.output.ends_with(cut);
      const std::string expected = shown.output.substr(0, shown.output.size() - (isCut ? cut.size() : 0));
      EXPECT_TRUE(VelkTest::isSameText(expected, isCut ? printed.substr(0, expected.size()) : printed));
    }
  }
  EXPECT_GT(commands, 20U);
}

TEST_F(Recipes, FilterOfCheckGoesThroughAFolderWithTrouble) {
  takeFleet();
  addTrouble();
  const std::string expected =
      "a_unreadable.bin\nNo such file or directory\nb_empty.bin\nis empty\n"
      "c_damaged.bin\nchecksum is 0x8C09, the bytes give 0x8C0A\ndac_board.bin\n";
  const Outcome result = shell(recipe("README.md", "velk check --json", "jq").command);
  EXPECT_EQ(result.errors, "velk: a_unreadable.bin: No such file or directory\nvelk: b_empty.bin: is empty\n");
  EXPECT_TRUE(result.output.starts_with(expected)) << result.output;
  EXPECT_TRUE(result.output.ends_with("\nsynthesizer.bin\n")) << result.output;
  // As it stands in scripts that know nothing of files that cannot be read.
  const Outcome plain = shell("velk check --json *.bin 2>/dev/null | jq -r '.files[] | .file, (.blocks[] | .verdict)'");
  EXPECT_EQ(plain.exitCode, 0);
  EXPECT_EQ(plain.errors, "");
}

TEST_F(Recipes, QueriesOfAFleetWithTroubleFindWhatIsSound) {
  takeFleet();
  addTrouble();
  const Outcome lines = shell(recipe("docs/data.md", "velk export --format jsonl", "*.bin").command);
  EXPECT_EQ(lines.exitCode, 3);
  EXPECT_EQ(shell("cut -d, -f2 fleet.jsonl | uniq -c | head -3").output,
            "      1  \"file\": \"a_unreadable.bin\"\n      1  \"file\": \"b_empty.bin\"\n"
            "      3  \"file\": \"c_damaged.bin\"\n")
      << "no file is without a line";
  takeShownFile(recipe("docs/data.md", "cat fleet.sql", ""));
  const Shown query = recipe("docs/data.md", "sqlite3", "fleet.sql");
  const Outcome result = shell(query.command);
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(VelkTest::isSameText(query.output, result.output));
}

TEST_F(Recipes, DataFramesTakeAFleetWithTrouble) {
  takeFleet();
  const std::string load = recipe("docs/data.md", "velk export --format jsonl", "*.bin").command;
  shell(load);
  const std::string sound = runNotebook();
  EXPECT_TRUE(sound.starts_with("[] [") && sound.ends_with(" 26\n['dac_board.bin']\n")) << sound;
  addTrouble();
  shell(load);
  EXPECT_EQ(runNotebook(), "['a_unreadable.bin', 'b_empty.bin', 'c_damaged.bin']" + sound.substr(2));
  shell("velk export --format jsonl [ab]_*.bin > fleet.jsonl");
  EXPECT_EQ(runNotebook(), "['a_unreadable.bin', 'b_empty.bin'] [] 0\n[]\n") << "nothing but trouble";
}

TEST_F(Recipes, OneTableOfFortyModulesIsOnePlot) {
  addFile("dac.image", VelkTest::exampleImage("dac_board.bin"));
  shell("for i in {1..40}; do velk set dac.image --id 2 serialNumber=$((500000 + i)) -o $i.bin; done");
  const Outcome result = shell(recipe("docs/data.md", "velk export --format tidy", "corrections.csv").command);
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const char* const prints =
      "print(curves.shape, curves.columns[0], curves.columns[-1], curves.index[0], curves.loc[-48e6].sum())\n";
  EXPECT_EQ(runNotebook("points = pandas.", prints), "(26, 40) 500001 500040 -52000000 640\n");
}

}  // namespace
