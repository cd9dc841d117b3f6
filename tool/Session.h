#pragma once

#include <string>
#include <string_view>

namespace VelkTool {

/// Exit codes, from good to bad. A run ends with the worst of all its files.
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

/// Takes the output, complaints and exit code of a run or a part of it. For one thread at a time.
class Session {
 public:
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  virtual ~Session() = default;

  /// Writes to standard output.
  virtual void write(std::string_view text) = 0;
  /// Writes one line to standard error, after all output so far; `file` is empty if the line concerns no file.
  virtual void complain(std::string_view file, std::string_view what) = 0;
  /// Raises the exit code to at least `exit`.
  virtual void worsen(Exit exit) = 0;
  /// Flushes all output so far; returns false if output was lost. A part of a run is flushed in its turn.
  virtual bool flush() { return true; }
};

/// The run itself.
class WholeSession final : public Session {
 public:
  WholeSession();

  /// Writes in large pieces. Escapes control characters on a terminal, so that an image cannot send it commands.
  void write(std::string_view text) override;
  void complain(std::string_view file, std::string_view what) override;
  void worsen(Exit exit) override;

  /// Reports a failure once and counts it as Exit::NoAccess.
  bool flush() override;
  int exitCode() const { return static_cast<int>(exit_); }

 private:
  void put(std::string_view text);
  void putPending();
  void loseOutput(int reason);

  std::string pending_;
  bool terminal_;
  bool outputLost_ = false;
  bool hasWritten_ = false;  ///< since the last flush
  Exit exit_ = Exit::Good;
};

}  // namespace VelkTool
