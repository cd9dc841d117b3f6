#pragma once

#include <string>
#include <string_view>

namespace VelkTool {

/// Exit codes, from good to bad; a run ends with the worst of all its files.
enum class Exit { Good = 0, Findings = 1, Usage = 2, NoAccess = 3 };

struct ExitMeaning {
  Exit code;
  const char* meaning;
};
inline constexpr ExitMeaning exitMeanings[] = {
    {Exit::Good, "good"},
    {Exit::Findings, "findings: something is damaged, or two images differ"},
    {Exit::Usage, "wrong usage"},
    {Exit::NoAccess, "a file could not be read or written"},
};

/// One run of the command: its standard output, its complaints and its exit code.
class Session {
 public:
  Session();

  /// Adds to standard output, which is written in large pieces. On a terminal control bytes are escaped, so that no
  /// image can play tricks on it.
  void write(std::string_view text);
  /// Writes everything out; a failure is told once and counts as Exit::NoAccess.
  void flush();

  /// One line on standard error, behind all output so far.
  void complain(std::string_view file, std::string_view what);

  void worsen(Exit exit);
  int exitCode() const { return static_cast<int>(exit_); }

 private:
  std::string pending_;
  bool terminal_;
  bool outputLost_ = false;
  Exit exit_ = Exit::Good;
};

}  // namespace VelkTool
