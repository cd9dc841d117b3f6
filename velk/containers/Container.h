#pragma once

#include <QByteArray>
#include <span>
#include <string_view>

#include "velk/Export.h"

namespace Velk {

struct ImageFile;

/// How a file holds the bytes of a memory.
enum class Container : unsigned char { Raw, IntelHex, SRecord, HexDump, Gzip };

/// What there is to know about one container.
struct ContainerKind {
  Container container;
  const char* name;                         ///< as it is chosen by hand and named in JSON
  const char* title;                        ///< as messages and pages call it
  const char* carries;                      ///< what it can hold beside the bytes, as a phrase
  std::span<const char* const> extensions;  ///< of the names of its files, without the dot
  /// Whether the contents of a file are this container; null for the one that takes what no other does.
  bool (*recognises)(std::string_view contents);
  ImageFile (*read)(QByteArray contents);
  QByteArray (*write)(const ImageFile& image);  ///< null if it can only be read
};

/// Every container, in the order in which they are listed.
VELK_EXPORT std::span<const ContainerKind> containerKinds();

VELK_EXPORT const ContainerKind& kindOf(Container container);

/// Returns the container with this extension in its file names, or null.
VELK_EXPORT const ContainerKind* containerForFile(std::string_view fileName);

}  // namespace Velk
