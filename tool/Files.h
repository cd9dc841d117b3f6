#pragma once

#include <QByteArray>
#include <optional>
#include <string>
#include <string_view>

#include "Session.h"
#include "velk/files/FileReplacement.h"
#include "velk/files/FileTarget.h"

namespace VelkTool {

/// Stands for standard output in place of a file's name.
inline constexpr std::string_view standardOutput = "-";

/// The whole of a text file, - being standard input. Where it cannot be read, that is reported and counted.
std::optional<std::string> readText(Session& session, const std::string& path);

/// What a path leads to, - being standard output. Where that cannot be found out, it is reported and counted.
std::optional<Velk::FileTarget> outputTarget(Session& session, const std::string& path);

/// Whether both paths lead to one file. Standard input and output are no files.
bool isSameFile(const std::string& path, const std::string& other);

/// Writes `bytes` in place of what `target` has, whole or not at all; `name` is what the user calls it. What `report`
/// says of the change, if anything, is written to standard output before the last step: no change goes unreported.
/// Returns whether the new contents are there. A failure is reported and counted.
bool writeFile(Session& session, const std::string& name, const Velk::FileTarget& target, const QByteArray& bytes,
               std::string_view report = {}, const Velk::FileTarget& model = {});
bool writeFile(Session& session, const std::string& path, const QByteArray& bytes);

}  // namespace VelkTool
