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

/// What a run has to say, or a part of it: output, complaints and how it ends. For one thread at a time.
class Session {
 public:
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  virtual ~Session() = default;

  /// Adds to standard output.
  virtual void write(std::string_view text) = 0;
  /// One line on standard error, behind all output so far; `file` is empty where it is about no file.
  virtual void complain(std::string_view file, std::string_view what) = 0;
  virtual void worsen(Exit exit) = 0;
  /// Hands all output so far to the system; false where output was lost. A part of a run does that in its turn.
  virtual bool flush() { return true; }
};

/// The run itself.
class WholeSession final : public Session {
 public:
  WholeSession();

  /// Output is written in large pieces. On a terminal control bytes are escaped, so that no image can play tricks on
  /// it.
  void write(std::string_view text) override;
  void complain(std::string_view file, std::string_view what) override;
  void worsen(Exit exit) override;

  /// A failure is reported once and counts as Exit::NoAccess.
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
