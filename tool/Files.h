#pragma once

#include <QByteArray>
#include <optional>
#include <string>

#include "Session.h"

namespace VelkTool {

/// The whole of a text file, - being standard input; nothing, told and counted, where it cannot be read.
std::optional<std::string> readText(Session& session, const std::string& path);

/// Writes a file whole or leaves it as it was: a temporary beside it takes its name. A failure is told and counted.
void writeFile(Session& session, const std::string& path, const QByteArray& bytes);

/// Whether both paths lead to one file. Standard input is no file.
bool isSameFile(const std::string& path, const std::string& other);

}  // namespace VelkTool
