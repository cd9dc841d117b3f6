#pragma once

#include <QByteArray>
#include <optional>
#include <string>
#include <string_view>

#include "Session.h"

namespace VelkTool {

/// The whole of a text file, - being standard input; nothing, told and counted, where it cannot be read.
std::optional<std::string> readText(Session& session, const std::string& path);

/// What stands for standard output in place of a file's name.
inline constexpr std::string_view standardOutput = "-";

/// Writes a file whole or leaves it as it was: a temporary beside it takes its name, with the permissions of `like`
/// where one is named. Devices, pipes and standard output are written to. Whether it could be done; a failure is told
/// and counted.
bool writeFile(Session& session, const std::string& path, const QByteArray& bytes, const std::string& like = {});

/// Copies a file over another, with the same guarantee. Whether it could be done.
bool copyFile(Session& session, const std::string& from, const std::string& to);

/// Whether what is written to a path goes on to somebody and stays in no file: standard output, a device or a pipe.
bool isStream(const std::string& path);

/// Whether what is read from a path is gone then.
bool isPipe(const std::string& path);

/// Whether both paths lead to one file. Standard input is no file.
bool isSameFile(const std::string& path, const std::string& other);

}  // namespace VelkTool
