#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "velk/files/Descriptor.h"
#include "velk/files/FileTarget.h"

namespace Velk {

/// How the last step of writing a file ended.
enum class WriteOutcome : unsigned char {
  Unchanged,   ///< the old contents are still there
  Written,     ///< the new contents are there, and on the disk
  WriteDoubt,  ///< the new contents are there; whether they survive a crash of the machine is unknown
};

/// Replaces the contents of a file in one step: whatever fails, and whenever the process ends, the file has either its
/// old contents or the new ones, complete.
///
/// The contents are written to a temporary file in the same folder, which takes the file's name once it is on the disk.
/// The file keeps its owner, group and permissions, or is not replaced. Other names of it (hard links) keep the old
/// contents. Streams cannot be protected: they are written to in the last step, or as contents are appended.
class VELK_EXPORT FileReplacement {
 public:
  /// Does all but the last step. A new file gets the owner and permissions of `model` if that exists, rather than those
  /// of the file that it replaces.
  FileReplacement(const FileTarget& target, std::string_view contents, const FileTarget& model = {});
  /// Begins with a file without contents, which append() adds.
  explicit FileReplacement(const FileTarget& target);
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;
  /// Leaves the file unchanged unless commit() was called.
  ~FileReplacement();

  /// Returns why the file cannot be replaced; empty if it can.
  const std::string& error() const { return error_; }

  /// Adds to the contents and returns whether that succeeded; error() says why not, and then the file stays as it is.
  bool append(std::string_view contents);

  /// Does the last step; error() says why if the outcome is not Written.
  WriteOutcome commit();

 private:
  bool begin();
  bool beginStream();
  bool finish();
  bool createTemporary(unsigned mode);
  bool takeAttributes() const;
  bool isInPlace() const;
  WriteOutcome writeStream();
  bool fail(const char* what = "");

  FileTarget target_;
  FileTarget model_;
  std::string_view streamed_{};  ///< what a stream gets in the last step
  std::string error_;
  Descriptor folder_;
  Descriptor file_;
  std::string temporary_;  ///< its name while there is one
  std::uint64_t inode_ = 0;
};

}  // namespace Velk
