#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "ExitCodes.h"
#include "Progress.h"
#include "Verdict.h"

namespace VelkTool {

/// Takes the output, complaints and exit code of a run or a part of it. For one thread at a time.
class Session {
 public:
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  virtual ~Session() = default;

  /// Writes to standard output.
  virtual void write(std::string_view text) = 0;
  /// Writes to standard output, in the colour of a verdict if the run has colours.
  virtual void writeVerdict(std::string_view text, Verdict) { write(text); }
  virtual bool hasColours() const { return false; }
  /// Turns colours on or off. Otherwise a terminal has them, unless the user's environment says no.
  virtual void setColours(bool) {}
  /// Writes one line to standard error, after all output so far; `file` is empty if the line concerns no file.
  virtual void complain(std::string_view file, std::string_view what) = 0;
  /// Raises the exit code to at least `exit`.
  virtual void worsen(Exit exit) = 0;
  /// Flushes all output so far; returns false if output was lost. A part of a run is flushed in its turn.
  virtual bool flush() { return true; }
  /// Begins to show how many of this number of files are read.
  virtual void expect(std::size_t) {}
  /// Counts a file as read.
  virtual void advance() {}
};

/// The run itself.
class WholeSession final : public Session {
 public:
  WholeSession();

  /// Writes in large pieces. Escapes control characters on a terminal and beside colours, so that an image cannot send
  /// a terminal commands.
  void write(std::string_view text) override;
  void writeVerdict(std::string_view text, Verdict verdict) override;
  bool hasColours() const override { return colours_; }
  void setColours(bool colours) override { colours_ = colours; }
  void complain(std::string_view file, std::string_view what) override;
  void worsen(Exit exit) override;

  /// Reports a failure once and counts it as Exit::NoAccess.
  bool flush() override;
  void expect(std::size_t files) override { progress_.expect(files); }
  void advance() override { progress_.advance(); }
  int exitCode() const { return static_cast<int>(exit_); }

 private:
  void put(std::string_view text);
  void putPending();
  void loseOutput(int reason);

  std::string pending_;
  bool terminal_;
  bool colours_;
  bool outputLost_ = false;
  bool hasWritten_ = false;  ///< since the last flush
  Exit exit_ = Exit::Good;
  Progress progress_;
};

}  // namespace VelkTool
