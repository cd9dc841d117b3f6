// What the pages in docs/ show is what the example images hold.
#include <regex>

#include "CommandSupport.h"
#include "velk/containers/Container.h"

namespace {

using VelkTest::Command;

/// The shown lines of a page, those that are indented, in runs.
std::vector<std::vector<std::string>> shownIn(const QString& page) {
  constexpr std::string_view indent = "    ";
  std::vector<std::vector<std::string>> runs(1);
  std::istringstream lines(VelkTest::readFile((VELK_SOURCE_DIR "/docs/" + page).toStdString()));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(indent)) {
      runs.back().push_back(line.substr(indent.size()));
    } else if (!runs.back().empty()) {
      runs.emplace_back();
    }
  }
  return runs;
}

QStringList pages() { return QDir(VELK_SOURCE_DIR "/docs").entryList({"*.md"}, QDir::Files, QDir::Name); }

TEST_F(Command, DumpsInTheDocumentationAreThoseOfTheExamples) {
  const std::regex heading("(\\w+\\.bin), from 0x([0-9A-F]{8}):");
  const std::regex bytesAndNote("((?:[0-9A-F]{2} )*[0-9A-F]{2})(?:  .*)?");
  int dumps = 0;
  for (const QString& page : pages()) {
    for (const std::vector<std::string>& lines : shownIn(page)) {
      std::smatch match;
      if (lines.empty() || !std::regex_match(lines.front(), match, heading)) continue;
      SCOPED_TRACE(page.toStdString() + ": " + lines.front());
      const qsizetype offset = QByteArray::fromStdString(match[2]).toLongLong(nullptr, 16);
      const QByteArray image = VelkTest::exampleImage(QString::fromStdString(match[1]));
      QByteArray shown;
      for (std::size_t i = 1; i < lines.size(); ++i) {
        EXPECT_TRUE(std::regex_match(lines[i], match, bytesAndNote)) << lines[i];
        shown += QByteArray::fromHex(QByteArray::fromStdString(match[1]));
      }
      EXPECT_EQ(shown.toHex(' '), image.mid(offset, shown.size()).toHex(' '));
      ++dumps;
    }
  }
  EXPECT_GT(dumps, 10);
}

TEST_F(Command, TheTableOfContainersIsTheOneInTheCode) {
  const std::string page = VelkTest::readFile(VELK_SOURCE_DIR "/docs/containers.md");
  std::string table;
  for (const Velk::ContainerKind& kind : Velk::containerKinds()) {
    std::string extensions;
    for (const char* const extension : kind.extensions)
      extensions += (extensions.empty() ? "" : ", ") + std::string(extension);
    table += std::string("| `") + kind.name + "` | " + kind.title + " | " + extensions + " | " +
             (kind.write != nullptr ? "yes" : "no") + " | " + kind.carries + " |\n";
  }
  EXPECT_NE(page.find("|---|---|---|---|---|\n" + table + '\n'), std::string::npos) << table;
}

}  // namespace
