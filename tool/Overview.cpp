#include "Overview.h"

#include <algorithm>
#include <array>

#include "Plural.h"

namespace VelkTool {
namespace {

constexpr std::array verdictTexts = {"sound", "with warnings", "damaged", "unreadable"};

const char* textOf(Verdict verdict) { return verdictTexts.at(static_cast<std::size_t>(verdict)); }

std::string lineOf(const FileTally& tally) {
  std::string line = textOf(tally.verdict());
  for (const auto& [code, count] : tally.codes()) {
    line += (&code == &tally.codes().begin()->first ? ": " : ", ") + std::to_string(count) + ' ';
    line += code;
  }
  return line + '\n';
}

}  // namespace

void FileTally::add(Verdict verdict) {
  verdict_ = isRead_ ? std::max(verdict_, verdict) : verdict;
  isRead_ = true;
}

void FileTally::add(Verdict verdict, std::string_view code) {
  add(verdict);
  ++codes_[code];
}

bool Overview::isAllSound() const {
  return std::ranges::all_of(tallies_, [](const FileTally& tally) { return tally.verdict() == Verdict::Sound; });
}

void Overview::writeFiles(Session& session, bool onlyUnsound) const {
  for (std::size_t i = 0; i < tallies_.size(); ++i) {
    const Verdict verdict = tallies_[i].verdict();
    if (onlyUnsound && verdict == Verdict::Sound) continue;
    session.write(inputs_.files[i] + ": ");
    session.writeVerdict(lineOf(tallies_[i]), verdict);
  }
}

void Overview::writeTotals(Session& session) const {
  std::string line = counted(tallies_.size(), "file", "files");
  for (const Verdict verdict : {Verdict::Sound, Verdict::Warnings, Verdict::Damaged, Verdict::Unreadable}) {
    const auto count = std::ranges::count(tallies_, verdict, &FileTally::verdict);
    if (count == 0 && verdict == Verdict::Unreadable) continue;
    line += (verdict == Verdict::Sound ? ": " : ", ") + std::to_string(count) + ' ' + textOf(verdict);
  }
  session.write(line + '\n');
}

void Overview::writeCodes(Session& session) const {
  struct Total {
    std::string_view code{};
    std::size_t count = 0;
    std::size_t files = 0;
  };
  std::map<std::string_view, Total> byCode;
  for (const FileTally& tally : tallies_) {
    for (const auto& [code, count] : tally.codes()) {
      Total& total = byCode[code];
      total = {code, total.count + count, total.files + 1};
    }
  }
  std::vector<Total> totals;
  for (const auto& [code, total] : byCode) totals.push_back(total);
  std::ranges::stable_sort(totals, std::greater(), &Total::count);
  for (const Total& total : totals) {
    session.write(std::string(total.code) + ": " + std::to_string(total.count) + " in " +
                  counted(total.files, "file", "files") + '\n');
  }
}

}  // namespace VelkTool
