#pragma once

#include <chrono>
#include <cstddef>

namespace VelkTool {

/// A line on standard error that counts the files of a long run. Only on a terminal, and not in the first second.
class Progress {
 public:
  /// Begins to count; never called: there is no line.
  void expect(std::size_t files);
  /// Counts a file as read.
  void advance();
  /// Erases the line, so that something else can be written; a later file shows it again.
  void erase();

 private:
  using Clock = std::chrono::steady_clock;

  std::size_t files_ = 0;
  std::size_t read_ = 0;
  std::size_t width_ = 0;  ///< of the line that is shown
  Clock::time_point next_{};
};

}  // namespace VelkTool
