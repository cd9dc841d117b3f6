#include "Progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

namespace VelkTool {

void Progress::expect(std::size_t files) {
  if (isatty(STDERR_FILENO) == 0) return;
  files_ = files;
  next_ = Clock::now() + std::chrono::seconds(1);
}

void Progress::advance() {
  ++read_;
  const Clock::time_point now = Clock::now();
  if (files_ == 0 || now < next_) return;
  next_ = now + std::chrono::milliseconds(100);
  erase();
  const std::string line = std::to_string(read_) + " of " + std::to_string(files_) + " files";
  std::fputs(line.c_str(), stderr);
  width_ = line.size();
}

void Progress::erase() {
  if (width_ == 0) return;
  const std::string line = '\r' + std::string(width_, ' ') + '\r';  // any terminal can do this
  std::fputs(line.c_str(), stderr);
  width_ = 0;
}

}  // namespace VelkTool
