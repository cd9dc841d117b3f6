#pragma once

#include <QString>
#include <span>

#include "velk/Export.h"

namespace Velk {

/// One board type of the instrument family.
struct DeviceBoardString {
  unsigned int board;  ///< number of the board
  char name[32];
  char tag[48];  ///< as modules carry it; the older ones are padded with blanks to 13 characters
};
static_assert(sizeof(DeviceBoardString) == 84);

/// The board types, by number; boards of which nothing is known have an empty name and tag.
VELK_EXPORT std::span<const DeviceBoardString> deviceTable();

/// Whether the first 13 bytes of the text's local 8-bit form are the tag of a board type, or the text is a tag without
/// its padding. The empty tag counts: an empty text is one.
VELK_EXPORT bool checkDeviceName(const QString& text);

}  // namespace Velk
