#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>

#include "velk/Export.h"

namespace Velk {

/// What a path leads to when something is to be written there. Names are bytes; no encoding is assumed.
struct VELK_EXPORT FileTarget {
  enum class Kind : unsigned char {
    File,     ///< a regular file
    Missing,  ///< nothing yet
    Folder,
    Stream,      ///< a device, pipe or socket: written to directly, never replaced
    Descriptor,  ///< a descriptor that the process has open already, such as /dev/stdout
  };

  Kind kind = Kind::Missing;
  std::string folder{};   ///< the folder of the file itself, symbolic links followed
  std::string name{};     ///< of the file in that folder
  int descriptor = -1;    ///< of Kind::Descriptor
  struct stat status {};  ///< of a file that exists
  bool isLink = false;    ///< the path as it was given is a symbolic link

  bool isStream() const { return kind == Kind::Stream || kind == Kind::Descriptor; }
  /// Returns whether both are one file, whatever its name.
  bool isSame(const FileTarget& other) const;
};

/// Follows a path to what would be written. `error` gets the reason if that cannot be determined.
VELK_EXPORT std::optional<FileTarget> findTarget(const std::string& path, std::string& error);

}  // namespace Velk
