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
    Stream,      ///< a device, pipe or socket: takes bytes and keeps no file
    Descriptor,  ///< what the process has open already, as /dev/stdout
  };

  Kind kind = Kind::Missing;
  std::string folder{};   ///< the place and the name of the file itself, symbolic links followed
  std::string name{};     ///< in that folder
  int descriptor = -1;    ///< of Kind::Descriptor
  struct stat status {};  ///< of what exists
  bool isLink = false;    ///< the path as it was given is a symbolic link

  bool isStream() const { return kind == Kind::Stream || kind == Kind::Descriptor; }
  /// Whether both are one file, whatever it is called.
  bool isSame(const FileTarget& other) const;
};

/// Follows a path to what would be written. `error` gets the reason where that cannot be found out.
VELK_EXPORT std::optional<FileTarget> findTarget(const std::string& path, std::string& error);

}  // namespace Velk
