#pragma once

#include <QByteArray>
#include <optional>
#include <string>

#include "velk/Export.h"

namespace Velk {

/// The whole of a file, or of standard input, which "-" stands for. `error` gets the reason where it cannot be read,
/// which it also cannot where it has 1 GiB or more: some devices can be read without end.
VELK_EXPORT std::optional<QByteArray> readFile(const std::string& path, std::string& error);

}  // namespace Velk
