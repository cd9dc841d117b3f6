#pragma once

#include <unistd.h>

#include <QByteArray>
#include <filesystem>
#include <fstream>
#include <string>

namespace VelkBench {

/// Files that are removed at the end of the run.
class TemporaryFolder {
 public:
  /// `name` distinguishes it from the other folders of this process.
  explicit TemporaryFolder(const std::string& name)
      : path_(std::filesystem::temp_directory_path() / ("velk_bench_" + name + std::to_string(getpid()))) {
    std::filesystem::create_directories(path_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }

  std::string write(const std::string& name, const QByteArray& bytes) const {
    std::ofstream(path_ / name, std::ios::binary).write(bytes.constData(), bytes.size());
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace VelkBench
