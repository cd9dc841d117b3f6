#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Inputs.h"
#include "Verdict.h"

namespace VelkTool {

/// What was found in one file. A file about which nothing was added could not be read.
class FileTally {
 public:
  using Codes = std::map<std::string_view, std::size_t>;

  /// Adds a verdict about a part of the file; the worst one counts.
  void add(Verdict verdict);
  /// Adds a finding. `code` must live as long as the program.
  void add(Verdict verdict, std::string_view code);

  Verdict verdict() const { return verdict_; }
  /// Returns how often each code occurs.
  const Codes& codes() const { return codes_; }

 private:
  Verdict verdict_ = Verdict::Unreadable;
  bool isRead_ = false;
  Codes codes_;
};

/// What was found in all files of a run.
class Overview {
 public:
  explicit Overview(const Inputs& inputs) : inputs_(inputs), tallies_(inputs.files.size()) {}

  /// Sets what was found in an input. Threads may do so for different inputs.
  void set(const Input& input, FileTally tally) { tallies_[input.number] = std::move(tally); }

  bool isAllSound() const;
  /// Writes a line for each file, or for each that is not sound.
  void writeFiles(Session& session, bool onlyUnsound) const;
  /// Writes the number of files with each verdict in one line.
  void writeTotals(Session& session) const;
  /// Writes how often each code occurs, and in how many files; the most frequent first.
  void writeCodes(Session& session) const;

 private:
  const Inputs& inputs_;
  std::vector<FileTally> tallies_;
};

}  // namespace VelkTool
