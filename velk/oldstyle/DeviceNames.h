#pragma once

#include <QString>
#include <span>

#include "velk/Export.h"

namespace Velk {

/// Numbers of board types. Names that several types share end in a count from the second type on; two types share the
/// number of another.
enum HwEDeviceBoard : unsigned int {
  _DeviceBoard_First_ = 0,
  _DeviceBoard_DACIF_ = 0,
  _DeviceBoard_DACB_ = 1,
  _DeviceBoard_IQOP3_ = 8,
  _DeviceBoard_IQOP3_RFM_ = 18,
  _DeviceBoard_FMR6_ = 19,
  _DeviceBoard_EX_IQ_BOX_IN_ = 59,
  _DeviceBoard_EX_IQ_BOX_OUT_ = 60,
  _DeviceBoard_DACB_2_ = 61,
  _DeviceBoard_BABO_ = 64,
  _DeviceBoard_BABO_2_ = 71,
  _DeviceBoard_FILTER6_ = 82,
  _DeviceBoard_FILTER13_ = 82,
  _DeviceBoard_BBB_ = 102,
  _DeviceBoard_BTC_CODER_ = 102,
  _DeviceBoard_BBB_2_ = 103,
  _DeviceBoard_BBB_3_ = 104,
  _DeviceBoard_BBW_ = 105,
  _DeviceBoard_BBW_2_ = 106,
  _DeviceBoard_BBW_3_ = 107,
  _DeviceBoard_IQUPCON20_ = 120,
  _DeviceBoard_Last_ = 148,
  _DeviceBoard_None_ = 149,  ///< no board; ends the table of boards
  _DeviceBoard_Unknown_ = 150
};

/// One board type of the instrument family.
struct DeviceBoardString {
  unsigned int board;  ///< its number, a HwEDeviceBoard
  char name[32];
  char tag[48];  ///< as stored in modules; the older ones are padded with blanks to 13 characters
};
static_assert(sizeof(DeviceBoardString) == 84);

/// Returns the board types, by number; unknown ones have an empty name and tag.
VELK_EXPORT std::span<const DeviceBoardString> deviceTable();

/// Returns whether the first 13 bytes of the text's local 8-bit form are the tag of a board type, or the text is a tag
/// without its padding. An empty text is the empty tag, which counts.
VELK_EXPORT bool checkDeviceName(const QString& text);

}  // namespace Velk
