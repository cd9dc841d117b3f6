#pragma once

#include <QByteArray>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Session.h"
#include "velk/files/FileReplacement.h"
#include "velk/files/FileTarget.h"

namespace VelkTool {

/// Names standard output in place of a file.
inline constexpr std::string_view standardOutput = "-";

/// Reads a whole text file; "-" is standard input. Reports and counts a failure.
std::optional<std::string> readText(Session& session, const std::string& path);

/// Returns what a path leads to; "-" is standard output. Reports and counts a failure.
std::optional<Velk::FileTarget> outputTarget(Session& session, const std::string& path);

/// Returns whether both paths lead to the same file. Standard input and output never do.
bool isSameFile(const std::string& path, const std::string& other);

/// Replaces the contents of `target` by `bytes`, as a whole or not at all; `name` is the name that the user gave.
/// Writes `report` to standard output before the last step, so that no change goes unreported. Returns whether the new
/// contents are in place. Reports and counts a failure.
bool writeFile(Session& session, const std::string& name, const Velk::FileTarget& target, const QByteArray& bytes,
               std::string_view report = {}, const Velk::FileTarget& model = {});
bool writeFile(Session& session, const std::string& path, const QByteArray& bytes);

/// Makes a folder, and those above it, unless it is there. Reports and counts a failure.
bool makeFolder(Session& session, const std::string& path);

/// A file whose contents come in pieces and take its place together, or not at all. Keeps little of them in memory.
/// Reports and counts a failure once, as soon as it occurs.
class GrowingFile {
 public:
  GrowingFile(Session& session, std::string path) : session_(session), path_(std::move(path)) {}

  void append(std::string_view text);
  /// Puts the contents in place.
  void commit();

 private:
  bool flush();
  bool open();

  Session& session_;
  std::string path_;
  std::string pending_;
  std::optional<Velk::FileReplacement> file_;
  bool hasFailed_ = false;
};

}  // namespace VelkTool
