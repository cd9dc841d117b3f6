#pragma once

#include <QByteArray>
#include <optional>
#include <string>

#include "velk/Export.h"

namespace Velk {

/// Returns the whole of a file, or of standard input if `path` is "-". `error` gets the reason if it cannot be read, or
/// if it has 1 GiB or more: some devices can be read without end.
VELK_EXPORT std::optional<QByteArray> readFile(const std::string& path, std::string& error);

}  // namespace Velk
